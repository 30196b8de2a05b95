#include "forms/zan_form.h"

#include "forms/archivio.h"
#include "forms/ss_ole_db_combo.h"

namespace lokera {
namespace {

class Legami : public Archivio {
 protected:
  Legami() {
    sql(u"create table prova (codice integer, nome text(5), note memo, peso double, dal date, si yesno, "
        "primary key (codice))"_s);
    sql(u"create table securety_locks (tabella text(20), chiave text(20), operatore text(20), data date)"_s);
    zan.Form(&f);
    nome.Tag = u"nome"_s;
    peso.Tag = u"peso (BASE ALTRI)"_s;
    dal.Tag = u"dal"_s;
    si.Tag = u"SI"_s;
    uno.Tag = u"codice=1"_s;
    due.Tag = u"codice = 2"_s;
  }
  void apri(Recordset& rs, const QString& sql = u"select * from prova"_s) {
    EXPECT_FALSE(rs.Open(sql, conn, {}, Cursore::aggiornabile).fallito());
  }
  bool blocca(const QString& operatore, const QString& chiave = u"7"_s) {
    return zan.blocca_record(u"prova"_s, chiave, operatore);
  }
  QStringList blocchi() { return righe(u"select chiave, operatore, data from securety_locks"_s); }

  Finestra f{elenco, u"frm_prova"_s};
  TextBox nome{f, u"Text1"_s}, peso{f, u"Text2"_s};
  MaskEdBox dal{f, u"Mask1"_s};
  CheckBox si{f, u"Check1"_s};
  OptionButton uno{f, u"Option1"_s}, due{f, u"Option2"_s};
  ZanForm zan{db, messaggi, vm.orologio()};
};

TEST_F(Legami, ControlsGoBackIntoTheRecord) {
  struct Caso {
    const char *nome, *peso, *gruppo, *atteso;
  };
  const Caso casi[] = {{"  Alessandra ", "2.5", "BASE ALTRI", "Aless|2.5"},
                       {"", "2,5", "BASE ALTRI", " |-"},
                       {"Ugo", "3", "ALTRI", "Ugo|-"}};
  for (const Caso& c : casi) {
    sql(u"delete from prova"_s);
    nome.Text = QString::fromUtf8(c.nome);
    peso.Text = QString::fromUtf8(c.peso);
    due.Value = true;
    si.Value = 1;
    Recordset rs;
    apri(rs);
    EXPECT_FALSE(rs.AddNew().fallito());
    zan.salva_campi(rs, QString::fromUtf8(c.gruppo));
    EXPECT_FALSE(rs.Update().fallito());
    EXPECT_EQ(righe(u"select nome, peso from prova where codice = 2 and si <> 0"_s),
              QStringList(QString::fromUtf8(c.atteso)));
  }
  nome.Text = u" Alessandra"_s;
  Recordset rs;
  apri(rs);
  zan.salva_campi(rs);
  EXPECT_EQ(nome.Text(), u"Aless"_s) << "what was cut is seen";
}

TEST_F(Legami, ALockKeepsOthersOutUntilItIsReleasedOrStale) {
  vm.orologio().imposta(momento(QDate(2008, 11, 20), QTime(9, 0)));
  EXPECT_TRUE(blocca(u"ANNA"_s));
  EXPECT_TRUE(blocca(u"anna"_s, u" 7 "_s)) << "renewed by its own user";
  EXPECT_FALSE(blocca(u"ugo"_s));
  EXPECT_EQ(messaggi.testi(), QStringList(u"Record 7 già bloccato dall'utente anna\rAccesso negato!"_s));
  EXPECT_EQ(blocchi(), QStringList(u"7|anna|2008-11-20 00:00:00"_s));
  vm.orologio().imposta(momento(QDate(2008, 12, 1), QTime(9, 0)));
  EXPECT_FALSE(blocca(u"ugo"_s)) << "the day of the month is not yet past";
  vm.orologio().imposta(momento(QDate(2008, 12, 21), QTime(9, 0)));
  EXPECT_TRUE(blocca(u"ugo"_s));
  EXPECT_EQ(blocchi(), QStringList(u"7|ugo|2008-12-21 00:00:00"_s));
  zan.sblocca_record(u"prova"_s, u"7"_s, u"anna"_s);
  EXPECT_EQ(blocchi().size(), 1);
  zan.sblocca_record(u"prova"_s, u"7"_s, u"ugo"_s);
  EXPECT_TRUE(blocchi().isEmpty());
  EXPECT_EQ(messaggi.mostrati.size(), 2);
}

TEST_F(Legami, ADropDownListShowsAWordAndHoldsItsValue) {
  ComboBox lingua(f, u"cmbLingua"_s);
  lingua.Tag = u"codice"_s;
  lingua.AddItem(u"italiano"_s, u"0"_s);
  lingua.AddItem(u"inglese"_s, u"1"_s);
  SSOleDBCombo operatore(f, u"cmbOper"_s);
  operatore.DataFieldToDisplay = 1;
  operatore.AddItem({QString(), QString()});
  for (const QString& codice : {u"01"_s, u"02"_s}) operatore.AddItem({codice, u"Rossi Mario"_s});
  int scelta = -1;
  operatore.CloseUp = [&](int voce) { scelta = voce; };
  sql(u"insert into prova (codice) values (1)"_s);
  zan.popola(u"select * from prova"_s);
  EXPECT_EQ(lingua.Text() + lingua.Value(), u"inglese1"_s);
  lingua.utente_sceglie_voce(0);
  EXPECT_EQ(lingua.Text() + lingua.Value(), u"italiano0"_s);
  operatore.utente_sceglie_voce(2);
  EXPECT_EQ(operatore.Text() + operatore.Value(), u"Rossi Mario02"_s) << "of two with one name the chosen";
  EXPECT_EQ(scelta, 2);
  operatore.Value(u"01"_s);
  EXPECT_EQ(operatore.voce_corrente(), 1);
  operatore.Value(u"99"_s);
  EXPECT_EQ(operatore.Text() + operatore.Value(), u"9999"_s) << "a value that no entry has";
  operatore.Text = QString();
  EXPECT_EQ(operatore.Value(), QString());
}

}  // namespace
}  // namespace lokera
