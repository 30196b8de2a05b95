#include "forms/zan_form.h"

#include "forms/archivio.h"
#include "forms/ss_ole_db_combo.h"

namespace lokera {
namespace {

class Legami : public Archivio {
 protected:
  Legami() {
    esegui(QStringLiteral(
        "create table prova (codice integer, nome text(5), note memo, peso double, dal date, si yesno, "
        "primary key (codice))"));
    esegui(QStringLiteral(
        "create table securety_locks (tabella text(20), chiave text(20), operatore text(20), data date)"));
    zan.Form(&f);
    nome.Tag = QStringLiteral("nome");
    peso.Tag = QStringLiteral("peso (BASE ALTRI)");
    dal.Tag = QStringLiteral("dal");
    si.Tag = QStringLiteral("SI");
    uno.Tag = QStringLiteral("codice=1");
    due.Tag = QStringLiteral("codice = 2");
  }
  void apri(Recordset& rs, const QString& sql = QStringLiteral("select * from prova")) {
    EXPECT_FALSE(rs.Open(sql, conn, {}, Cursore::aggiornabile));
  }
  bool blocca(const QString& operatore, const QString& chiave = QStringLiteral("7")) {
    bool bloccato = false;
    zan.blocca_record(QStringLiteral("prova"), chiave, operatore, bloccato);
    return bloccato;
  }
  QStringList blocchi() {
    return righe(QStringLiteral("select chiave, operatore, data from securety_locks"));
  }

  Finestra f{elenco, QStringLiteral("frm_prova")};
  TextBox nome{f, QStringLiteral("Text1")}, peso{f, QStringLiteral("Text2")},
      libera{f, QStringLiteral("Text3")};
  MaskEdBox dal{f, QStringLiteral("Mask1")};
  CheckBox si{f, QStringLiteral("Check1")};
  OptionButton uno{f, QStringLiteral("Option1")}, due{f, QStringLiteral("Option2")};
  ZanForm zan{db, messaggi, macchina.orologio()};
};

TEST_F(Legami, ASavedRowHoldsNeitherEmptyTextsNorMissingNumbers) {
  Recordset rs;
  apri(rs);
  EXPECT_FALSE(rs.AddNew());
  EXPECT_FALSE(rs.imposta(u"nome", QString()));
  zan.update_record(rs);
  EXPECT_EQ(zan.errore(), QString());
  EXPECT_EQ(righe(QStringLiteral("select codice, nome, note, peso, dal from prova")),
            QStringList(QStringLiteral("0| | |0.0|-")));
  EXPECT_FALSE(rs.AddNew());
  zan.update_record(rs);
  EXPECT_FALSE(zan.errore().isEmpty()) << "the key is there already";
  rs.CancelUpdate();
  EXPECT_FALSE(rs.AddNew());
  EXPECT_FALSE(rs.imposta(u"codice", 1));
  zan.update_record(rs);
  EXPECT_EQ(zan.errore(), QString()) << "a success clears the error";
}

TEST_F(Legami, ARecordIsShownInTheControlsOfItsGroup) {
  esegui(QStringLiteral("insert into prova values (2, 'Anna', null, 2.5, ?, ?)"),
         {QDateTime(QDate(2008, 11, 3), QTime(0, 0)), true});
  libera.Text = QStringLiteral("mia");
  zan.popola(QStringLiteral("select * from prova"), QStringLiteral("altri"));
  EXPECT_EQ(nome.Text(), QStringLiteral("Anna"));
  EXPECT_EQ(peso.Text(), QStringLiteral("2,5"));
  EXPECT_EQ(dal.Text(), QStringLiteral("03/11/2008"));
  EXPECT_EQ(si.Value(), 1);
  EXPECT_FALSE(uno.Value());
  EXPECT_TRUE(due.Value());
  zan.pulisci();
  EXPECT_EQ(nome.Text() + peso.Text() + libera.Text(), QStringLiteral("mia"));
  EXPECT_EQ(dal.Text(), QStringLiteral("__/__/____"));
  EXPECT_FALSE(due.Value());
  for (const char* gruppo : {"", "ALT", "TERZI"})
    zan.popola(QStringLiteral("select * from prova"), QString::fromUtf8(gruppo));
  EXPECT_EQ(peso.Text(), QString()) << "only whole words of its group";
}

TEST_F(Legami, ControlsGoBackIntoTheRecord) {
  struct Caso {
    const char *nome, *peso, *gruppo, *atteso;
  };
  const Caso casi[] = {{"  Alessandra ", "2.5", "BASE ALTRI", "Aless|2.5"},
                       {"", "2,5", "BASE ALTRI", " |-"},
                       {"Ugo", "3", "ALTRI", "Ugo|-"},
                       {"Ugo", "tre", "BASE ALTRI", "Ugo|-"}};
  for (const Caso& c : casi) {
    esegui(QStringLiteral("delete from prova"));
    nome.Text = QString::fromUtf8(c.nome);
    peso.Text = QString::fromUtf8(c.peso);
    due.Value = true;
    si.Value = 1;
    Recordset rs;
    apri(rs);
    EXPECT_FALSE(rs.AddNew());
    zan.salva_campi(rs, QString::fromUtf8(c.gruppo));
    EXPECT_FALSE(rs.Update());
    EXPECT_EQ(righe(QStringLiteral("select nome, peso from prova where codice = 2 and si <> 0")),
              QStringList(QString::fromUtf8(c.atteso)));
  }
  nome.Text = QStringLiteral(" Alessandra");
  Recordset rs;
  apri(rs);
  zan.salva_campi(rs);
  EXPECT_EQ(nome.Text(), QStringLiteral("Aless")) << "what was cut is seen";
}

TEST_F(Legami, ALockKeepsOthersOutUntilItIsReleasedOrStale) {
  macchina.orologio().imposta(QDateTime(QDate(2008, 11, 20), QTime(9, 0)));
  EXPECT_TRUE(blocca(QStringLiteral("anna")));
  EXPECT_TRUE(blocca(QStringLiteral("anna"), QStringLiteral(" 7 "))) << "renewed by its own user";
  EXPECT_FALSE(blocca(QStringLiteral("ugo")));
  EXPECT_EQ(messaggi.testi(),
            QStringList(QStringLiteral("Record 7 già bloccato dall'utente anna\rAccesso negato!")));
  EXPECT_EQ(blocchi(), QStringList(QStringLiteral("7|anna|2008-11-20 00:00:00")));
  macchina.orologio().imposta(QDateTime(QDate(2008, 12, 1), QTime(9, 0)));
  EXPECT_FALSE(blocca(QStringLiteral("ugo"))) << "the day of the month is not yet past";
  macchina.orologio().imposta(QDateTime(QDate(2008, 12, 21), QTime(9, 0)));
  EXPECT_TRUE(blocca(QStringLiteral("ugo")));
  EXPECT_EQ(blocchi(), QStringList(QStringLiteral("7|ugo|2008-12-21 00:00:00")));
  zan.sblocca_record(QStringLiteral("prova"), QStringLiteral("7"), QStringLiteral("anna"));
  EXPECT_EQ(blocchi().size(), 1);
  zan.sblocca_record(QStringLiteral("prova"), QStringLiteral("7"), QStringLiteral("ugo"));
  EXPECT_TRUE(blocchi().isEmpty());
  EXPECT_EQ(messaggi.mostrati.size(), 2);
}

}  // namespace
}  // namespace lokera
