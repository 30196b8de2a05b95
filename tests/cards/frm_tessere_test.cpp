#include "cards/frm_tessere.h"

#include "aiuti/banco.h"

namespace lokera::prova {
namespace {

/// The key window over cabinet 1, which keeps its records and answers as the test says.
class TessereChiavi : public ::testing::Test {
 protected:
  TessereChiavi() {
    b.lokera(1);
    b.sql(u"insert into gruppi values (1, 'Officina'), (2, 'Uffici')"_s);
    for (const auto& [codice, posizione] :
         {std::pair{u"1000000000"_s, 0}, {u"1000000001"_s, 1}, {u"1000000003"_s, 3}})
      b.chiave(codice, 1, posizione);
    for (const auto& [tessera, gruppo] :
         {std::pair{u"0000000001"_s, 1}, {u"0000000002"_s, 2}, {u"0000000003"_s, 1}}) {
      b.tessera(tessera);
      b.abilita(tessera, gruppo);
    }
  }
  frm_tessere& apri() {
    b.main().Form_Load();
    b.vm.esegui_per(10s);
    b.parti().menu.mnuTesCh_Click();
    f = static_cast<frm_tessere*>(b.console->elenco().trova(u"frm_tessere"_s));
    lokera.ricevuti.clear();
    (void)b.detti();
    return *f;
  }
  void nuova(const QString& codice, const QString& gruppo = u"1"_s) {
    f->Command3_Click();
    f->txtCodice.Text = f->txtCodiceVer.Text = codice;
    f->Text1.Text = u"Cancello"_s;
    f->comboG.Value(gruppo);
  }
  QString coda() {
    return b.righe(u"select ID_tessera, operazione from aggiorn_tessere_oper order by ID_tessera"_s)
        .join(u' ');
  }
  QString riga(const QString& codice) {
    const QString campi = u"lokera, posizione, descrizione, gruppo, operatore"_s;
    return b.righe(u"select %1 from tessere_chiavi where codice = '%2'"_s.arg(campi, codice)).join(u' ');
  }
  /// Positions whose record is in the cabinet, with its code.
  QString in_lokera() const {
    QStringList tutti;
    for (const auto& [posto, codice] : record) tutti << QString::fromLatin1(posto + '=' + codice);
    return tutti.join(u' ');
  }
  QList<QByteArray> rispondi(const QByteArray& frame) {
    const QByteArray codice = frame.left(5), posto = frame.mid(6, 4);
    if (frame.left(6) == "000350" || frame.left(6) == "000351")
      return {componi_frame("0003500" + QByteArray::number(record.size()).rightJustified(4, '0'))};
    if (muta.contains(codice)) return {};
    if (rifiuta.contains(codice)) return {componi_frame(codice + "05")};
    if (frame.mid(5, 1) != "1") return risponde_bene(frame);
    if (codice == "00031") record[posto] = frame.mid(10, 10);
    if (codice == "00030" && alla_rilettura) alla_rilettura();
    if (codice == "00030")
      return {componi_frame(codice + "00" + (altra_chiave.isEmpty() ? record[posto] : altra_chiave))};
    if (codice == "00032") record.erase(posto);
    return {componi_frame(codice + "00")};
  }

  Banco b;
  std::map<QByteArray, QByteArray> record;
  QList<QByteArray> muta, rifiuta;
  QByteArray altra_chiave;
  std::function<void()> alla_rilettura;
  LokeraFinta lokera{b.vm, u"127.0.0.2"_s, 10001,
                     [this](const QByteArray& frame) { return rispondi(frame); }};
  frm_tessere* f = nullptr;
};

TEST_F(TessereChiavi, MentreEApertaTuttoSta) {
  apri();
  EXPECT_EQ(f->lblRecords_DB.Caption(), u"Records presenti nel DataBase n. 0003"_s);
  EXPECT_EQ(f->txtCodice.Text(), u"1000000000"_s);
  EXPECT_FALSE(b.main().timerOrario->Enabled() || b.parti().ciclo.TimerDownload->Enabled());
  EXPECT_TRUE(f->Command3.Enabled() && !f->Command1.Enabled() && !f->Text1.Enabled());
  f->Command10_Click();
  EXPECT_EQ(f->lblRecords_LOK.Caption(), u"Records presenti nella Lokera n. 0000"_s);
  b.parti().menu.mnuUtenti_Click();
  EXPECT_EQ(b.detti(), QStringList{u"Chiudere la finestra 'CHIAVI' prima di aprire 'Tessere operatori'."_s});
  f->chiudi();
  b.vm.esegui_per(1s);
  EXPECT_TRUE(b.main().timerOrario->Enabled() && b.parti().ciclo.TimerDownload->Enabled());
  EXPECT_FALSE(b.parti().download.connessa());
}

TEST_F(TessereChiavi, UnaChiaveNuovaVaNellaPrimaPosizioneLibera) {
  apri();
  nuova(u"2000000002"_s);
  EXPECT_EQ(f->Text2.Text(), u"2"_s);
  EXPECT_TRUE(f->Command1.Enabled() && !f->Command5.Enabled() && !f->grd.Enabled());
  f->Command1_Click();
  EXPECT_EQ(b.detti(), QStringList{u"Registrazione eseguita!"_s});
  EXPECT_EQ(riga(u"2000000002"_s), u"1|2|Cancello|1| "_s);
  EXPECT_EQ(in_lokera(), u"0002=2000000002"_s);
  EXPECT_EQ(coda(), u"0000000001|I 0000000003|I"_s);
  EXPECT_EQ(lokera.comandi(), (QList<QByteArray>{"00031", "00030"}));
  EXPECT_EQ(f->txtCodice.Text(), u"2000000002"_s);
  EXPECT_TRUE(f->grd.Enabled() && f->Command3.Enabled() && !f->nuovo_record);
}

TEST_F(TessereChiavi, QuelCheNonVaSiDiceENonSiScrive) {
  const auto codice = [this](const QString& testo) {
    return [this, testo] { f->txtCodice.Text = f->txtCodiceVer.Text = testo; };
  };
  const QString errato = u"Inserire un codice tessera valido."_s;
  const struct {
    const char* nome;
    std::function<void()> guasto;
    QString messaggio;
  } casi[] = {
      {"repetition", [&] { f->txtCodiceVer.Text = u"2000000003"_s; }, u"codice e verifica diversi!"_s},
      {"nine characters", codice(u"200000000"_s), errato},
      {"a blank at the end", codice(u"200000000 "_s), errato},
      {"an accent", codice(u"200000000è"_s), errato},
      {"a dot", codice(u"20000.0000"_s), errato},
      {"no name", [&] { f->Text1.Text = u"  "_s; }, u"Inserire descrizione."_s},
      {"group", [&] { f->comboG.Text = u"uno"_s; }, u"Gruppo mancante o non corretto."_s},
      {"another key's", codice(u"1000000003"_s),
       u"Tessera 1000000003 già esistente nel sistema! ( chiave 1000000003 )"_s},
      {"another key's position", [&] { f->Text2.Text = u"3"_s; },
       u"La posizione nr. 3 è già occupata dalla tessera n. 1000000003"_s},
  };
  apri();
  for (const auto& c : casi) {
    nuova(u"2000000002"_s);
    c.guasto();
    f->Command1_Click();
    EXPECT_EQ(b.detti(), QStringList{c.messaggio}) << c.nome;
    f->Command2_Click();
  }
  nuova(u"2000000002"_s);
  for (const QString& altrove : {u"200"_s, u"-1"_s, u"tre"_s}) {
    b.vm.primo().domande.risposte = {altrove};
    f->Command8_Click();
    EXPECT_EQ(b.detti(), QStringList{u"La posizione va da 0 a 199."_s}) << altrove.toStdString();
    EXPECT_EQ(f->Text2.Text(), u"2"_s);
  }
  EXPECT_EQ(b.conta(u"tessere_chiavi"_s), 3);
  EXPECT_EQ(coda(), QString());
  EXPECT_EQ(lokera.ricevuti.size(), 0);
}

// Whatever goes wrong at the cabinet, the cards wait, the window says how many, and once more mends it.
TEST_F(TessereChiavi, UnaRegistrazioneFallitaSiRipete) {
  const struct {
    const char* nome;
    QList<QByteArray> muta, rifiuta;
    QByteArray altra;
  } casi[] = {{"silent", {"00031"}, {}, {}},
              {"refused", {}, {"00031"}, {}},
              {"gone between writing and reading", {"00030"}, {}, {}},
              {"answers for another key", {}, {}, "9999999999"}};
  apri();
  int n = 4;
  for (const auto& c : casi) {
    SCOPED_TRACE(c.nome);
    const QString codice = u"200000000%1"_s.arg(++n);
    nuova(codice, u"2"_s);
    b.vuota_coda();
    muta = c.muta, rifiuta = c.rifiuta, altra_chiave = c.altra;
    lokera.ricevuti.clear();
    f->Command1_Click();
    EXPECT_EQ(lokera.ricevuti.size(), 2);
    EXPECT_EQ(b.detti(), QStringList());
    EXPECT_EQ(coda(), u"0000000002|D"_s);
    EXPECT_TRUE(f->lblTrattenute.Caption().contains(u"(1)"_s));
    EXPECT_TRUE(f->Command1.Enabled());
    muta = rifiuta = {}, altra_chiave.clear();
    f->txtCodice_LostFocus();
    f->Command1_Click();
    EXPECT_EQ(b.detti(), QStringList{u"Registrazione eseguita!"_s});
    EXPECT_EQ(coda(), u"0000000002|I"_s);
    EXPECT_EQ(f->lblTrattenute.Caption(), QString());
    EXPECT_EQ(b.conta(u"tessere_chiavi"_s, u"codice = '%1'"_s.arg(codice)), 1);
  }
}

// Cards of the group that the key leaves lose it, those of its new one gain it; who has it out keeps it. The
// table has the new code already when the cabinet didn't answer: once more is the same row, and no double.
TEST_F(TessereChiavi, CambiaGruppoPosizioneECodice) {
  b.sql(u"update tessere_chiavi set operatore = '0000000003' where codice = '1000000001'"_s);
  apri();
  f->grd.Row(1);
  EXPECT_EQ(f->grd.mostrata(f->grd.aspetto(1), 1, 6), u"operatore 0000000003"_s);
  f->Command4_Click();
  f->txtCodice.Text = f->txtCodiceVer.Text = u"3000000001"_s;
  f->comboG.Value(u"2"_s);
  b.vm.primo().domande.risposte = {u"150"_s};
  f->Command8_Click();
  EXPECT_TRUE(f->lblNota.Caption().contains(u"143"_s));
  muta = {"00031"};
  for (const bool registrata : {false, true}) {
    f->Command1_Click();
    EXPECT_EQ(b.detti().contains(u"Registrazione eseguita!"_s), registrata);
    EXPECT_EQ(riga(u"3000000001"_s), u"1|150|chiave 1000000001|2|0000000003"_s);
    EXPECT_EQ(coda(), registrata ? u"0000000001|D 0000000002|I 0000000003|D"_s
                                 : u"0000000001|D 0000000002|D 0000000003|D"_s);
    muta = {};
  }
  EXPECT_EQ(b.conta(u"tessere_chiavi"_s), 3);
  EXPECT_EQ(in_lokera(), u"0150=3000000001"_s);
}

// A mask has the bits of the keys of all cabinets.
TEST_F(TessereChiavi, ChiCambiaPostoRiscriveLeTessereAncheAltrove) {
  for (const auto& [tessera, altra] :
       {std::pair{u"0000000001"_s, 2}, {u"0000000002"_s, 2}, {u"0000000003"_s, 3}, {u"0000000003"_s, 1}})
    b.sql(u"insert into posiz_tessere_oper (ID_tessera, ID_lokera, posizione) values (?, ?, 0)"_s,
          {tessera, altra});
  b.in_coda(u"0000000003"_s, 3, u"D"_s);  // told already
  b.sql(u"insert into tessere_da_conservare (ID_tessera, ID_lokera, motivo) values ('0000000003', 3, '')"_s);
  const struct {
    const char* nome;
    std::function<void()> mossa;
    QString altrove;
  } casi[] = {
      {"name", [&] { f->Text1.Text = u"a"_s, f->Command1_Click(); }, {}},
      {"position", [&] { f->Text2.Text = u"9"_s, f->Command1_Click(); }, u"0000000001|2|I"_s},
      {"group", [&] { f->comboG.Value(u"2"_s), f->Command1_Click(); }, u"0000000001|2|I 0000000002|2|I"_s},
      {"gone", [&] { f->Command5_Click(); }, u"0000000002|2|I"_s}};
  apri();
  for (const auto& c : casi) {
    f->grd.Row(f->grd.Rows() - 1);
    f->Command4_Click();
    c.mossa();
    const QStringList altrove = b.righe(
        u"select ID_tessera, ID_lokera, operazione from aggiorn_tessere_oper where ID_lokera <> 1"
        " and operazione = 'I' order by ID_tessera"_s);
    EXPECT_EQ(altrove.join(u' '), c.altrove) << c.nome;
    b.sql(u"delete from aggiorn_tessere_oper where ID_lokera = 2"_s);
  }
  EXPECT_EQ(b.conta(u"aggiorn_tessere_oper"_s, u"ID_lokera = 3 and operazione = 'D'"_s), 1);
}

TEST_F(TessereChiavi, EliminareCominciaDallaLokera) {
  apri();
  f->grd.Row(2);
  f->Command4_Click();
  rifiuta = {"00032"};
  f->Command5_Click();
  EXPECT_EQ(b.detti(), QStringList{u"Errore in aggiornamento dati su lokera. Riprovare..."_s});
  EXPECT_EQ(b.conta(u"tessere_chiavi"_s), 3);
  rifiuta.clear();
  f->txtCodice.Text = u"1000000000"_s;  // half typed: it is not the row
  lokera.ricevuti.clear();
  f->Command5_Click();
  EXPECT_EQ(lokera.ricevuti, QList<QByteArray>{componi_frame("0003210003")});
  EXPECT_EQ(b.righe(u"select codice from tessere_chiavi order by codice"_s),
            (QStringList{u"1000000000"_s, u"1000000001"_s}));
  EXPECT_EQ(coda(), u"0000000001|D 0000000003|D"_s);
  EXPECT_EQ(b.conta(u"tessere_operatori"_s), 3);
}

TEST_F(TessereChiavi, AggiornamentoTotale) {
  apri();
  b.vm.messaggi().risposte = {true};
  rifiuta = {};
  f->Command7_Click();
  EXPECT_EQ(in_lokera(), u"0000=1000000000 0001=1000000001 0003=1000000003"_s);
  EXPECT_EQ(b.detti().last(), u"Aggiornamento Tessere Chiavi riuscito"_s);
  EXPECT_EQ(coda(), u"0000000001|I 0000000003|I"_s);
  EXPECT_TRUE(f->interattivo && f->Command7.Enabled());
  b.vm.messaggi().risposte = {true};
  b.vm.ciclo().fra(500ms, [this] { f->lavoro.cmdInterrompi.Click(); });
  f->Command7_Click();
  EXPECT_EQ(f->lavoro.lblLavoro.Caption(), u"interrotto: 1 di 3"_s);
  EXPECT_EQ(b.conta(u"tessere_chiavi"_s), 3);
}

// The mask counts by position over all cabinets: the other key is named.
TEST_F(TessereChiavi, StessaPosizioneConAltroGruppoAltrove) {
  b.sql(
      u"insert into parametri (ID, descrizione, IP_lokera, computer_ctrl) values (2, 'altra', '127.000.000.003', 'ALTRO-PC')"_s);
  b.chiave(u"4000000003"_s, 2, 3, 2);
  b.chiave(u"4000000001"_s, 2, 1, 1);
  apri();
  f->grd.Row(2);
  EXPECT_EQ(f->lblNota.Caption(),
            u"Stessa posizione con altro gruppo nella lokera 2: 4000000003 chiave 4000000003"_s);
  f->grd.Row(1);
  EXPECT_EQ(f->lblNota.Caption(), QString());
}

// Another console holds the file before the cabinet is told, or while it answers: a second "registra" mends
// it.
TEST_F(TessereChiavi, ColFileBloccatoNullaRestaAMeta) {
  apri();
  for (const bool prima : {true, false}) {
    SCOPED_TRACE(prima);
    const QString codice = prima ? u"2000000002"_s : u"2000000004"_s;
    nuova(codice, u"2"_s);
    b.vuota_coda();
    Connection altra;
    ASSERT_FALSE(altra.Open(b.file(), password_database()).fallito());
    const auto blocca = [&] { EXPECT_FALSE(altra.BeginTrans().fallito()); };
    alla_rilettura = prima ? std::function<void()>() : blocca;
    if (prima) blocca();
    f->Command1_Click();
    EXPECT_EQ(b.detti().size(), 1);
    EXPECT_TRUE(f->Command1.Enabled());
    altra.RollbackTrans();
    alla_rilettura = {};
    EXPECT_EQ(coda(), prima ? QString() : u"0000000002|D"_s);
    EXPECT_EQ(riga(codice).isEmpty(), prima);
    f->Command1_Click();
    EXPECT_EQ(b.detti(), QStringList{u"Registrazione eseguita!"_s});
    EXPECT_EQ(coda(), u"0000000002|I"_s);
  }
}

}  // namespace
}  // namespace lokera::prova
