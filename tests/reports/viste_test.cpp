#include "aiuti/banco.h"
#include "reports/frm_movimenti.h"
#include "reports/frm_print.h"
#include "reports/frm_sit_chiavi.h"
#include "reports/frm_sitkey.h"

namespace lokera::prova {
namespace {

QDateTime il(int giorno, int ora = 0, int minuto = 0) {
  return momento(QDate(2008, 11, giorno), QTime(ora, minuto));
}

class Viste : public ::testing::Test {
 protected:
  Viste() {
    b.lokera(1);
    b.main().Form_Load();
    b.chiave(u"1000000001"_s, 1, 0);
    b.chiave(u"1000000002"_s, 1, 2);
    b.chiave(u"1000000003"_s, 1, 4);
    b.tessera(u"0000000001"_s);
    const struct {
      int id;
      const char *tessera, *chiave, *tipo;
      QVariant quando;
    } movimenti[] = {
        {0, "0000000001", "1000000001", "P", il(1)},  {4, "0000000001", "1000000001", "P", il(28, 23, 59)},
        {2, "0000000002", "1000000002", "R", il(27)}, {3, "0000000001", "1000000009", "R", il(28)},
        {5, "0000000001", "1000000001", "?", il(30)}, {6, "0000000002", "1000000001", "R", QVariant()}};
    for (const auto& m : movimenti)
      b.sql(u"insert into movimenti values (?, ?, 'Anna', ?, ?, ?)"_s,
            {m.id, QString::fromLatin1(m.tessera), QString::fromLatin1(m.chiave), QString::fromLatin1(m.tipo),
             m.quando});
  }
  template <class F>
  F& apri(const QString& nome) {
    return dynamic_cast<F&>(*b.console->finestre().apri(nome));
  }
  Banco b;
};

QString colonna(const SSOleDBGrid& grd, QStringView campo) {
  QStringList celle;
  for (int i = 0; i < grd.Rows(); ++i) celle += grd.mostrata(grd.aspetto(i), i, grd.colonna(campo));
  return celle.join(u' ');
}

TEST_F(Viste, IFiltriDeiMovimenti) {
  auto& f = apri<frm_movimenti>(u"frm_movimenti"_s);
  EXPECT_EQ(f.grd.Rows(), 0) << "empty until the first search";
  EXPECT_EQ(f.txtAl.Text(), u"30/11/2008"_s);
  const struct {
    const char* caso;
    QString operatore, chiave, dal, al, date;
  } casi[] = {
      {"all, oldest first, nothing without a date",
       {},
       {},
       {},
       u"30/11/2008"_s,
       u"27/11/2008 28/11/2008 28/11/2008 23.59.00 30/11/2008"_s},
      {"no days", {}, {}, {}, {}, u" 27/11/2008 28/11/2008 28/11/2008 23.59.00 30/11/2008"_s},
      {"a card", u"0000000002"_s, {}, {}, u"30/11/2008"_s, u"27/11/2008"_s},
      {"a key", {}, u"1000000001"_s, {}, u"30/11/2008"_s, u"28/11/2008 23.59.00 30/11/2008"_s},
      {"one whole day", {}, {}, u"28/11/2008"_s, u"28/11/2008"_s, u"28/11/2008 28/11/2008 23.59.00"_s},
      {"until the next midnight",
       {},
       {},
       u"28/11/2008"_s,
       u"29/11/2008"_s,
       u"28/11/2008 28/11/2008 23.59.00 30/11/2008"_s},
      {"days that are none",
       {},
       u"1000000001"_s,
       u"31/02/2008"_s,
       u"__/__/____"_s,
       u" 28/11/2008 23.59.00 30/11/2008"_s},
      {"backwards", {}, {}, u"29/11/2008"_s, u"28/11/2008"_s, {}},
      {"a name with an apostrophe", u"d'Angelo"_s, {}, {}, {}, {}},
  };
  for (const auto& c : casi) {
    f.cmbOper.Value(c.operatore);
    f.cmbChiavi.Value(c.chiave);
    f.txtDal.Text = c.dal;
    f.txtAl.Text = c.al;
    f.Command1_Click();
    const QString mostrate = colonna(f.grd, u"data");
    EXPECT_EQ(QString(mostrate).replace(u" 00.00.00"_s, QString()), c.date) << c.caso;
    EXPECT_TRUE(f.lblTrovati.Caption().startsWith(u"movimenti trovati: %1"_s.arg(f.grd.Rows()))) << c.caso;
    EXPECT_EQ(f.lblTrovati.Caption().contains(u"(codice cercato: d'Angelo)"_s), c.operatore == u"d'Angelo"_s);
    EXPECT_EQ(f.lblTrovati.Caption().contains(u"data non valida"_s), c.dal == u"31/02/2008"_s) << c.caso;
  }
  EXPECT_EQ(b.detti(), QStringList());
  b.sql(u"drop table tessere_chiavi"_s);
  f.Command1_Click();
  EXPECT_EQ(b.detti().size(), 1);
  EXPECT_EQ(f.lblTrovati.Caption(), QString());
}

TEST_F(Viste, UnMovimentoSiVedePerQuelCheE) {
  auto& f = apri<frm_movimenti>(u"frm_movimenti"_s);
  f.cmbOper.Text = u"Operatore 00"_s;  // typed, and nobody else begins so
  f.Command1_Click();
  EXPECT_EQ(f.cmbOper.Value(), u"0000000001"_s);
  EXPECT_EQ(colonna(f.grd, u"operazione"), u"R P ?"_s);
  EXPECT_EQ(colonna(f.grd, u"descrizione"), u" chiave 1000000001 chiave 1000000001"_s)
      << "of a key that is gone";
  QStringList stili;
  for (int i = 0; i < 3; ++i) stili += f.grd.aspetto(i).stile;
  EXPECT_EQ(stili.join(u','), u"entrata,uscita,"_s);
}

TEST_F(Viste, ChiHaQualeChiave) {
  b.sql(u"update tessere_chiavi set operatore = '0000000001', uscita = ? where codice = '1000000001'"_s,
        {il(30, 7)});
  b.sql(u"update tessere_chiavi set operatore = '0000000077', lokera = 0 where codice = '1000000002'"_s);
  auto& f = apri<frm_sitKey>(u"frm_sitKey"_s);
  EXPECT_EQ(colonna(f.grd, u"codice"), u"1000000002 1000000003 1000000001"_s);
  EXPECT_EQ(colonna(f.grd, u"status"), u"OUT IN OUT"_s) << "a blank is nobody";
  EXPECT_EQ(colonna(f.grd, u"intestazione"), u"  operatore 0000000001"_s) << "one card is gone";
  EXPECT_EQ(colonna(f.grd, u"uscita"), u"  30/11/2008 07.00.00"_s);
  EXPECT_EQ(f.lblTrovati.Caption(), u"chiavi: 3, di cui uscite: 2"_s);
  EXPECT_TRUE(f.grd.aspetto(0).grassetto);
  f.Command1_Click();
  EXPECT_TRUE(b.console->elenco().trova(u"frmPrint"));
  f.chiudi();
  EXPECT_FALSE(f.chiusa()) << "its print window stands on it";
}

TEST_F(Viste, ITotaliDelTabellone) {
  b.sql(u"update tessere_chiavi set operatore = '0000000001' where codice = '1000000002'"_s);
  b.parti().tabellone.cmdTotali.Click();
  auto& f = apri<frm_sit_chiavi>(u"frm_sit_chiavi"_s);
  const auto totali = [&] {
    return f.lblNumPresenti.Caption() + u' ' + f.lblNumUscite.Caption() + u' ' + f.lblNumNonGestite.Caption();
  };
  EXPECT_EQ(totali(), u"2 1 15"_s) << "one panel of 18";
  EXPECT_EQ(f.lblData.Caption(), u"30/11/2008  -  08:00"_s);
  Movimento preso;
  b.parti().tabellone.mostra_movimento(preso, {{}, 1, 0});
  EXPECT_EQ(totali(), u"1 2 15"_s);
}

}  // namespace
}  // namespace lokera::prova
