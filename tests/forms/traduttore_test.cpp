#include "forms/traduttore.h"

#include "forms/archivio.h"
#include "forms/messaggi.h"
#include "forms/ss_ole_db_combo.h"

namespace lokera {
namespace {

class Traduzioni : public Archivio {
 protected:
  Traduzioni() {
    sql(u"create table traduzioni (italiano text(50), inglese text(50), tedesco text(50), "
        "primary key (italiano))"_s);
    db.lingua_interfaccia = 1;
  }
  void voce(const QString& italiano, const QString& inglese) {
    sql(u"insert into traduzioni values (?, ?, null)"_s, {italiano, inglese});
  }
  /// A window that shows words that the table lacks, and what it shows after its translation.
  QStringList finestra(int didascalie) {
    Finestra f(elenco, u"frm_prova"_s);
    std::vector<std::unique_ptr<Label>> etichette;
    etichette.reserve(static_cast<size_t>(didascalie));
    for (int i = 0; i < didascalie; ++i)
      etichette.push_back(std::make_unique<Label>(f, u"Label%1"_s.arg(i), u"Voce %1"_s.arg(i)));
    traduttore.traduci_form(f);
    QStringList viste;
    for (const auto& e : etichette) viste += e->Caption();
    return viste;
  }
  void da_altra(const QStringList& istruzioni) {
    if (!altra.aperta()) {
      EXPECT_FALSE(altra.Open(file, u"prova"_s).fallito());
    }
    for (const QString& i : istruzioni) prova::esegui(altra, i);
  }
  QStringList testi() { return righe(u"select italiano, inglese, tedesco from traduzioni"_s); }

  Connection altra;  ///< another console's
};

TEST_F(Traduzioni, TextsAreFoundWithoutRegardToCaseByTheirPatternAndKeepTheirBlanks) {
  voce(u"Chiave"_s, u"Key"_s);
  voce(u"Lunedì"_s, u"Monday"_s);
  voce(u"l'armadio"_s, u"the cabinet"_s);
  voce(u"vuota"_s, u"   "_s);
  voce(u"Porta 1 aperta"_s, u"Door 1 open"_s);
  voce(u"Porta 2 aperta"_s, u"Door 2 open"_s);
  const std::pair<QString, QString> casi[] = {
      {u"Chiave"_s, u"Key"_s},
      {u"   chiave "_s, u"   Key "_s},
      {u"LUNEDÌ"_s, u"Monday"_s},
      {u"L'armadio"_s, u"the cabinet"_s},
      {u"Vuota"_s, u"Vuota"_s},
      {u"  "_s, u"  "_s},
      {u"porta _ aperta"_s, u"Door 1 open"_s},
      {u"%2 aperta"_s, u"Door 2 open"_s},
  };
  for (const auto& [testo, atteso] : casi) EXPECT_EQ(traduttore.traduci(testo), atteso);
}

TEST_F(Traduzioni, AMissingTextIsAddedOnceAndStaysItalian) {
  for (const int lingua : {0, 1, 1}) {
    db.lingua_interfaccia = static_cast<qint16>(lingua);
    EXPECT_EQ(traduttore.traduci(u"  dell'acqua "_s), u"  dell'acqua "_s);
    EXPECT_EQ(testi().size(), lingua) << "in Italian the table is left alone";
  }
  EXPECT_EQ(testi(), QStringList(u"dell'acqua| |-"_s));
  const QString lungo(10'000, u'è');
  EXPECT_EQ(traduttore.traduci(lungo), lungo);
  EXPECT_EQ(testi().size(), 1) << "one that the table can't hold";
  sql(u"drop table traduzioni"_s);
  EXPECT_EQ(traduttore.traduci(u"Chiave"_s), u"Chiave"_s);
}

TEST_F(Traduzioni, AChangeOfTheTableIsSeenAlsoFromAnotherConsole) {
  const QString chiave = u"Chiave"_s;
  EXPECT_EQ(traduttore.traduci(chiave), chiave);
  sql(u"update traduzioni set inglese = 'Key'"_s);
  EXPECT_EQ(traduttore.traduci(chiave), u"Key"_s);
  da_altra({u"update traduzioni set inglese = 'Tag'"_s});
  EXPECT_EQ(traduttore.traduci(chiave), u"Tag"_s);
}

TEST_F(Traduzioni, AnothersLockIsMetOnceAndTheWordsAreAddedAfterTheNextWrite) {
  da_altra({u"begin immediate"_s});
  qint64 prima = conn.istruzioni();
  for (const int testi_nuovi : {60, 70}) {
    EXPECT_EQ(finestra(testi_nuovi).last(), u"Voce %1"_s.arg(testi_nuovi - 1));
    EXPECT_LE(conn.istruzioni() - std::exchange(prima, conn.istruzioni()), 3) << "no try for each word";
  }
  da_altra({u"insert into traduzioni values ('Voce 7', 'Entry 7', null)"_s, u"commit"_s});
  EXPECT_EQ(finestra(70)[7], u"Entry 7"_s);
  EXPECT_EQ(testi().size(), 1) << "nothing says yet that this console may write";
  sql(u"create table altro (n integer)"_s);
  sql(u"insert into altro values (1)"_s);
  EXPECT_EQ(traduttore.traduci(u"Voce 7"_s), u"Entry 7"_s);
  EXPECT_EQ(testi().size(), 70);
}

TEST_F(Traduzioni, AWindowHasItsCaptionsTranslatedOnce) {
  Finestra f(elenco, u"frm_prova"_s);
  Label vuota(f, u"Label2"_s, u" "_s);
  Menu menu(f, u"mnuChiavi"_s, u"   Chiavi"_s);
  CheckBox spunta(f, u"Check1"_s);
  spunta.Caption = u"Nome"_s;
  SSOleDBCombo combo(f, u"combo"_s);
  std::vector<Colonna> colonne(1);
  colonne[0].Caption = u"Nome"_s;
  combo.imposta_colonne(colonne);
  voce(u"Nome"_s, u"Name"_s);
  voce(u"Chiavi"_s, u"Keys"_s);
  for (int volta = 0; volta < 2; ++volta) {
    traduttore.traduci_form(f);
    EXPECT_EQ(vuota.Caption() + menu.Caption(), u"    Keys"_s);
    EXPECT_EQ(spunta.Caption() + combo.Columns(0).Caption, u"NomeName"_s);
  }
  EXPECT_EQ(testi().size(), 2) << "an English caption is no missing text";
}

TEST_F(Traduzioni, MessagesAreTranslatedBeforeTheyAreShown) {
  voce(u"Vuoi eliminare la voce?"_s, u"Delete the entry?"_s);
  messaggi.risposte = {true};
  EXPECT_TRUE(conferma(traduttore, messaggi, u"Vuoi eliminare la voce?"_s));
  avvisa(traduttore, messaggi, u"Fatto"_s, u"Avviso"_s);
  EXPECT_EQ(messaggi.testi(), QStringList({u"Delete the entry?"_s, u"Fatto"_s}));
  EXPECT_EQ(testi().size(), 3);
}

}  // namespace
}  // namespace lokera
