#include "forms/traduttore.h"

#include "forms/archivio.h"
#include "forms/messaggi.h"
#include "forms/ss_ole_db_combo.h"

namespace lokera {
namespace {

class Traduzioni : public Archivio {
 protected:
  Traduzioni() {
    esegui(
        QStringLiteral("create table traduzioni (italiano text(50), inglese text(50), tedesco text(50), "
                       "primary key (italiano))"));
    db.lingua_interfaccia = 1;
  }
  void voce(const QString& italiano, const QString& inglese) {
    esegui(QStringLiteral("insert into traduzioni values (?, ?, null)"), {italiano, inglese});
  }
  QStringList testi() { return righe(QStringLiteral("select italiano, inglese, tedesco from traduzioni")); }
};

TEST_F(Traduzioni, TextsAreFoundWithoutRegardToCaseAndKeepTheirBlanks) {
  voce(QStringLiteral("Chiave"), QStringLiteral("Key"));
  voce(QStringLiteral("Lunedì"), QStringLiteral("Monday"));
  voce(QStringLiteral("l'armadio"), QStringLiteral("the cabinet"));
  voce(QStringLiteral("vuota"), QStringLiteral("   "));
  const std::pair<QString, QString> casi[] = {
      {QStringLiteral("Chiave"), QStringLiteral("Key")},
      {QStringLiteral("   chiave "), QStringLiteral("   Key ")},
      {QStringLiteral("LUNEDÌ"), QStringLiteral("Monday")},
      {QStringLiteral("L'armadio"), QStringLiteral("the cabinet")},
      {QStringLiteral("Vuota"), QStringLiteral("Vuota")},
      {QStringLiteral("  "), QStringLiteral("  ")},
      {QString(), QString()},
  };
  for (const auto& [testo, atteso] : casi) EXPECT_EQ(traduttore.traduci(testo), atteso);
  EXPECT_EQ(testi().size(), 4);
}

TEST_F(Traduzioni, InItalianTheTableIsLeftAlone) {
  db.lingua_interfaccia = 0;
  EXPECT_EQ(traduttore.traduci(QStringLiteral("Mai vista")), QStringLiteral("Mai vista"));
  EXPECT_TRUE(testi().isEmpty());
}

TEST_F(Traduzioni, AMissingTextIsAddedOnceAndStaysItalian) {
  for (int i = 0; i < 3; ++i)
    EXPECT_EQ(traduttore.traduci(QStringLiteral("  dell'acqua ")), QStringLiteral("  dell'acqua "));
  EXPECT_EQ(testi(), QStringList(QStringLiteral("dell'acqua| |-")));
}

TEST_F(Traduzioni, WildcardsOfTheTextMatchAndTheFirstRowWins) {
  voce(QStringLiteral("Porta 1 aperta"), QStringLiteral("Door 1 open"));
  voce(QStringLiteral("Porta 2 aperta"), QStringLiteral("Door 2 open"));
  voce(QStringLiteral("100%"), QStringLiteral("all"));
  EXPECT_EQ(traduttore.traduci(QStringLiteral("porta _ aperta")), QStringLiteral("Door 1 open"));
  EXPECT_EQ(traduttore.traduci(QStringLiteral("%2 aperta")), QStringLiteral("Door 2 open"));
  EXPECT_EQ(traduttore.traduci(QStringLiteral("100%")), QStringLiteral("all"));
  EXPECT_EQ(traduttore.traduci(QStringLiteral("100 chiavi")), QStringLiteral("100 chiavi"))
      << "not in the table's text";
}

TEST_F(Traduzioni, AChangeOfTheTableIsSeenAlsoFromAnotherConsole) {
  const QString chiave = QStringLiteral("Chiave");
  EXPECT_EQ(traduttore.traduci(chiave), chiave);
  esegui(QStringLiteral("update traduzioni set inglese = 'Key'"));
  EXPECT_EQ(traduttore.traduci(chiave), QStringLiteral("Key"));
  Connection altra;
  ASSERT_FALSE(altra.Open(file, QStringLiteral("prova")));
  ASSERT_FALSE(altra.Execute(QStringLiteral("update traduzioni set inglese = 'Tag'")));
  EXPECT_EQ(traduttore.traduci(chiave), QStringLiteral("Tag"));
}

TEST_F(Traduzioni, ATextThatTheTableCannotHoldStaysItalian) {
  const QString lungo(10'000, u'è');
  EXPECT_EQ(traduttore.traduci(lungo), lungo);
  EXPECT_EQ(traduttore.traduci(lungo), lungo);
  EXPECT_TRUE(testi().isEmpty());
  esegui(QStringLiteral("drop table traduzioni"));
  EXPECT_EQ(traduttore.traduci(QStringLiteral("Chiave")), QStringLiteral("Chiave"));
}

TEST_F(Traduzioni, AnAddedTextGoesWithTheTransactionAndComesBackLater) {
  const QString chiave = QStringLiteral("Chiave");
  {
    const Transazione persa(conn);
    EXPECT_EQ(traduttore.traduci(chiave), chiave);
  }
  EXPECT_TRUE(testi().isEmpty());
  EXPECT_EQ(traduttore.traduci(chiave), chiave);
  EXPECT_EQ(testi().size(), 1);
}

TEST_F(Traduzioni, AWindowHasItsCaptionsTranslatedOnce) {
  Finestra f(elenco, QStringLiteral("frm_prova"));
  Label etichetta(f, QStringLiteral("Label1"), QStringLiteral("Nome"));
  Label vuota(f, QStringLiteral("Label2"), QStringLiteral(" "));
  CommandButton tasto(f, QStringLiteral("Command1"), QStringLiteral("Esci"));
  Menu menu(f, QStringLiteral("mnuChiavi"), QStringLiteral("   Chiavi"));
  CheckBox spunta(f, QStringLiteral("Check1"));
  spunta.Caption = QStringLiteral("Nome");
  SSOleDBGrid grd(f, QStringLiteral("grd"));
  grd.Caption = QStringLiteral("Chiavi");
  SSOleDBCombo combo(f, QStringLiteral("combo"));
  std::vector<Colonna> colonne(2);
  colonne[1].Caption = QStringLiteral("Nome");
  grd.imposta_colonne(colonne);
  combo.imposta_colonne(colonne);
  voce(QStringLiteral("Nome"), QStringLiteral("Name"));
  voce(QStringLiteral("Esci"), QStringLiteral("Leave"));
  voce(QStringLiteral("Chiavi"), QStringLiteral("Keys"));
  for (int volta = 0; volta < 2; ++volta) {
    traduttore.traduci_form(f);
    const QStringList visto{etichetta.Caption(),    vuota.Caption(),        tasto.Caption(),
                            menu.Caption(),         spunta.Caption(),       grd.Caption(),
                            grd.Columns(0).Caption, grd.Columns(1).Caption, combo.Columns(1).Caption};
    EXPECT_EQ(visto.join(u'|'), QStringLiteral("Name| |Leave|   Keys|Nome|Keys||Name|Name"));
  }
  EXPECT_EQ(testi().size(), 3) << "an English caption is no missing text";
}

TEST_F(Traduzioni, MessagesAreTranslatedBeforeTheyAreShown) {
  voce(QStringLiteral("Vuoi eliminare la voce?"), QStringLiteral("Delete the entry?"));
  messaggi.risposte = {true};
  EXPECT_TRUE(conferma(traduttore, messaggi, QStringLiteral("Vuoi eliminare la voce?")));
  avvisa(traduttore, messaggi, QStringLiteral("Fatto"), QStringLiteral("Avviso"));
  EXPECT_EQ(messaggi.testi(), QStringList({QStringLiteral("Delete the entry?"), QStringLiteral("Fatto")}));
  EXPECT_EQ(testi().size(), 3);
}

}  // namespace
}  // namespace lokera
