#include "forms/ricerca_in_lista.h"

#include "aiuti/finestre.h"

namespace lokera::prova {
namespace {

class Ricerca : public BancoFinestre {
 protected:
  Ricerca() {
    std::vector<Colonna> colonne(3);
    colonne[0].campo = u"codice"_s;
    colonne[1].campo = u"descrizione"_s;
    colonne[2].campo = u"nota"_s;
    grd.imposta_colonne(colonne);
    for (const char* riga : {"A1\tPorta\tfuori", "B2\tportone", "C3\tcancello", "D4\tPORTA à"})
      grd.AddItem(QByteArrayView(riga));
    grd.Row(0);
  }
  int scrive(const QString& testo) {
    r.txtCerca.Text = testo;
    r.txtCerca.Change();
    return grd.Row();
  }
  int invio() {
    r.txtCerca.Invio();
    return grd.Row();
  }

  Finestra finestra{elenco, u"frm_prova"_s};
  SSOleDBGrid grd{finestra, u"grd"_s};
  RicercaInLista r{grd, traduttore, {u"codice"_s, u"descrizione"_s}};
};

TEST_F(Ricerca, ScrivendoSiTrovaDaDoveSiE) {
  EXPECT_EQ(scrive(u"port"_s), 0);
  EXPECT_EQ(scrive(u"porto"_s), 1);
  EXPECT_EQ(scrive(u" PORTA À "_s), 3);
  EXPECT_EQ(scrive(u"port"_s), 3) << "where it stands fits still";
  EXPECT_EQ(invio(), 0) << "from the top again";
  EXPECT_EQ(invio(), 1);
  EXPECT_EQ(scrive(u"c3"_s), 2);
  EXPECT_EQ(invio(), 2) << "it is the only one";
  EXPECT_EQ(r.lblCerca.Caption(), u"cerca"_s);
  for (const QString& testo : {u"fuori"_s, u"C3\tcan"_s}) {
    EXPECT_EQ(scrive(testo), 2);
    EXPECT_EQ(r.lblCerca.Caption(), u"cerca: nessuna riga"_s) << testo.toStdString();
  }
  EXPECT_EQ(scrive(u" "_s), 2);
  EXPECT_EQ(r.lblCerca.Caption(), u"cerca"_s);
  r.anche = [](int riga) { return riga == 1 ? u"Officina"_s : QString(); };
  EXPECT_EQ(scrive(u"offi"_s), 1);
  grd.Enabled = false;
  EXPECT_EQ(scrive(u"cancello"_s), 1) << "a row is in edit";
  grd.Enabled = true;
  grd.RemoveAll();
  EXPECT_EQ(invio(), -1);
}

}  // namespace
}  // namespace lokera::prova
