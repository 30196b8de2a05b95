#include "forms/ss_ole_db_grid.h"

#include <gtest/gtest.h>

namespace lokera {
namespace {

/// A list of three columns, the second hidden, that writes down what happens to it.
struct Lista : VistaGriglia {
  Lista() {
    std::vector<Colonna> colonne(3);
    colonne[0].campo = u"codice"_s;
    colonne[1].Visible = false;
    colonne[2].caratteri = 5;
    grd.imposta_colonne(colonne);
    grd.AllowUpdate = grd.AllowAddNew = grd.AllowDelete = true;
    grd.vista(this);
    grd.RowColChange = [this] { eventi += u"mosso %1"_s.arg(grd.Row()); };
    grd.Change = [this](int r, int c) { eventi += u"cambiata %1,%2"_s.arg(r).arg(c); };
    grd.AfterUpdate = [this](int r) { eventi += u"lasciata %1"_s.arg(r); };
    grd.BeforeDelete = [this](int r) {
      eventi += u"elimina? %1"_s.arg(r);
      return cancellabile;
    };
    grd.AfterDelete = [this](int r) { eventi += u"eliminata %1"_s.arg(r); };
  }
  void riempi(int righe) {
    for (int i = 0; i < righe; ++i) grd.AddItem(QStringList{QString::number(i), QString(), u"testo"_s});
  }

  void colonne_cambiate() override {}
  void righe_cambiate() override {}
  void riga_cambiata(int) override {}
  void righe_aggiunte(int, int) override {}
  void riga_corrente(int) override {}
  void modifica_da_confermare() override {
    if (const auto conferma = std::exchange(in_cella, {})) conferma();
  }

  ElencoFinestre elenco;
  Finestra finestra{elenco, u"frm_prova"_s};
  SSOleDBGrid grd{finestra, u"grd"_s};
  QStringList eventi;
  bool cancellabile = true;
  std::function<void()> in_cella;  ///< the edit that a cell's editor still holds
};

TEST(SSOleDBGrid, AnEditIsToldOnceWhenItsRowIsLeft) {
  Lista l;
  l.riempi(3);
  l.grd.Row(0);
  l.grd.utente_modifica(0, 2, u"lungo testo"_s);
  l.grd.utente_modifica(0, 0, u"9"_s);
  l.grd.utente_modifica(0, 0, u"9"_s);
  l.grd.utente_sceglie(2, 2);
  l.grd.Update();
  EXPECT_EQ(l.eventi.join(u'/'), u"mosso 0/cambiata 0,2/cambiata 0,0/lasciata 0/mosso 2"_s);
  EXPECT_EQ(l.grd.cella(0, 2), u"lungo"_s);
}

TEST(SSOleDBGrid, ANewRowStaysOnlyOnceItIsEdited) {
  Lista l;
  l.riempi(1);
  EXPECT_EQ(l.grd.utente_aggiunge_riga(), 1);
  l.grd.Update();
  EXPECT_EQ(l.grd.Rows(), 1);
  l.in_cella = [&] { l.grd.utente_modifica(1, 0, u"7"_s); };
  EXPECT_EQ(l.grd.utente_aggiunge_riga(), 1) << "an edit of no row is dropped";
  l.in_cella = [&] { l.grd.utente_modifica(1, 0, u"7"_s); };
  l.grd.Update();
  EXPECT_EQ(l.grd.Rows(), 2);
  EXPECT_EQ(l.grd.cella(1, 0), u"7"_s);
  l.grd.AllowAddNew = false;
  EXPECT_EQ(l.grd.utente_aggiunge_riga(), -1);
}

TEST(SSOleDBGrid, ADeletionAsksFirstAndDropsThePendingEdit) {
  Lista l;
  l.riempi(3);
  l.grd.Row(1);
  l.grd.utente_modifica(1, 0, u"9"_s);
  l.eventi.clear();
  l.cancellabile = false;
  EXPECT_FALSE(l.grd.utente_elimina(1));
  l.cancellabile = true;
  EXPECT_TRUE(l.grd.utente_elimina(1));
  l.grd.Row(0);
  EXPECT_EQ(l.eventi.join(u'/'), u"elimina? 1/elimina? 1/eliminata 1/mosso 0"_s);
  EXPECT_EQ(l.grd.cella(1, 0), u"2"_s);
  l.grd.BeforeDelete = [&](int) {
    l.grd.RemoveAll();
    l.riempi(2);
    return true;
  };
  EXPECT_FALSE(l.grd.utente_elimina(0)) << "the list was filled anew meanwhile";
  EXPECT_EQ(l.grd.Rows(), 2);
}

/// The first column's cells in the order of the rows, behind each the current one's "<".
QString ordine(const SSOleDBGrid& grd) {
  QString tutte;
  for (int i = 0; i < grd.Rows(); ++i) tutte += grd.cella(i, 0) + (i == grd.Row() ? u"<"_s : QString());
  return tutte;
}

TEST(SSOleDBGrid, TheHeadOrdersNumbersDatesAndWordsAndKeepsTheRecord) {
  Lista l;
  std::vector<Colonna> colonne(5);
  colonne[0].campo = u"nome"_s;
  colonne[1].campo = u"numero"_s;
  colonne[1].allineamento = Allineamento::destra;
  colonne[2].campo = u"data"_s;
  colonne[3].campo = u"testo"_s;
  l.grd.imposta_colonne(colonne);
  for (const char* riga : {"a\t10\t01/02/2009\tzeta", "b\t9\t02/01/2009\tÀlfa", "c\t\t\talfb",
                           "d\t-1,5\t31/12/2008\tZETA", "e\t1.000\t31/12/2008 08.00.00\tBeta"})
    l.grd.AddItem(QByteArrayView(riga));
  l.grd.RowLoaded = [&](int riga, AspettoRiga& a) {
    a.celle = {{4, l.grd.cella(riga, 0) == u"c" ? u"a"_s : u"b"_s}};
  };
  l.grd.Row(1);
  l.grd.utente_seleziona({0, 2});
  l.grd.utente_ordina(1);
  EXPECT_EQ(ordine(l.grd), u"ab<cde"_s) << "only where the list allows it";
  l.grd.OrdinabileDaTestata = true;
  l.eventi.clear();
  const std::pair<int, QString> casi[] = {{1, u"cdb<ae"_s}, {1, u"eab<dc"_s}, {2, u"cdeb<a"_s},
                                          {3, u"b<ceda"_s}, {3, u"daecb<"_s}, {4, u"cdaeb<"_s}};
  for (const auto& [colonna, atteso] : casi) {
    l.grd.utente_ordina(colonna);
    EXPECT_EQ(ordine(l.grd), atteso) << colonna;
    EXPECT_EQ(l.grd.ordine().colonna, colonna);
  }
  EXPECT_TRUE(l.eventi.isEmpty()) << l.eventi.join(u'/').toStdString();
  EXPECT_TRUE(l.grd.selezionate().empty());
  l.in_cella = [&] { l.grd.utente_modifica(4, 3, u"w"_s); };
  l.grd.utente_ordina(0);
  EXPECT_EQ(l.eventi.join(u'/'), u"cambiata 4,3/lasciata 4"_s) << "before the rows move";
  EXPECT_EQ(ordine(l.grd) + l.grd.cella(1, 3), u"ab<cdew"_s);
  l.grd.AddItem(QStringList{u"0"_s});
  EXPECT_EQ(l.grd.ordine().colonna, -1);
}

}  // namespace
}  // namespace lokera
