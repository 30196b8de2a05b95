#include "cards/frm_tessere_operatori.h"

#include "aiuti/banco.h"

namespace lokera::prova {
namespace {

/// The card window at a site whose group n of keys hangs in cabinet n.
class TessereOperatori : public ::testing::Test {
 protected:
  TessereOperatori() {
    b.sql(u"insert into gruppi_utente values (1, 'Personale')"_s);
    for (int n = 1; n <= 3; ++n) {
      b.lokera(n);
      b.sql(u"insert into gruppi values (?, ?)"_s, {n, u"Gruppo %1"_s.arg(n)});
      b.chiave(u"100000000%1"_s.arg(n), n, n, n);
    }
    const QDate oggi(2008, 11, 30);
    carta(u"0000000001"_s, u"Anna"_s, oggi.addYears(-1), oggi);
    carta(u"0000000002"_s, u"Bruno"_s, oggi.addYears(-1), oggi.addDays(-1));
    carta(u"0000000003"_s, u"Carla"_s, oggi.addDays(1), oggi.addYears(1));
    b.abilita(u"0000000001"_s, 1);
    b.abilita(u"0000000001"_s, 2);
  }
  void carta(const QString& codice, const QString& nome, QDate dal, QDate al) {
    b.sql(u"insert into tessere_operatori values (?, ?, ?, ?, 0, 1, 0)"_s,
          {codice, nome, momento(dal), momento(al)});
  }
  frm_tessere_operatori& apri() {
    b.main().Form_Load();
    b.parti().menu.mnuUtenti_Click();
    f = static_cast<frm_tessere_operatori*>(b.console->elenco().trova(u"frm_tessere_operatori"_s));
    (void)b.detti();
    return *f;
  }
  void scrivi(const QString& codice, const QString& dal = u"01/01/2008"_s,
              const QString& al = u"31/12/2008"_s) {
    f->txtCodice.Text = f->txtCodiceVer.Text = codice;
    f->Text1.Text = u"Dario D'Angelo"_s;
    f->cmbGru.Value(u"1"_s);
    f->txtDal.Text = dal;
    f->txtAl.Text = al;
  }
  void spunta(const QList<int>& gruppi) {
    for (int riga = 0; riga < f->grdGru.Rows(); ++riga)
      f->grdGru.imposta_cella(riga, u"abil",
                              (gruppi.contains(riga + 1) ? testo_spuntato : testo_non_spuntato).toString());
  }
  QStringList nomi() const {
    QStringList tutti;
    for (int riga = 0; riga < f->grd.Rows(); ++riga) tutti << f->grd.cella(riga, u"intestazione");
    return tutti;
  }
  QString riga(const QString& codice) {
    const QString campi = u"intestazione, valido_dal, valido_al, posizione, gruppo, NrMaxPrelievi"_s;
    return b.righe(u"select %1 from tessere_operatori where codice = '%2'"_s.arg(campi, codice)).join(u' ');
  }

  Banco b;
  frm_tessere_operatori* f = nullptr;
};

TEST_F(TessereOperatori, LaListaDiceChiVale) {
  b.sql(
      u"update tessere_chiavi set operatore = '0000000001', uscita = #11/30/2008# where codice = '1000000002'"_s);
  b.in_coda(u"0000000002"_s, 1, u"I"_s);
  apri();
  EXPECT_FALSE(b.main().timerOrario->Enabled());
  EXPECT_EQ(nomi(), (QStringList{u"Anna"_s, u"Bruno"_s, u"Carla"_s}));
  const QStringList stili = {u"normale"_s, u"scaduto"_s, u"scaduto"_s};
  for (int i = 0; i < 3; ++i) {
    AspettoRiga aspetto;
    f->grd.RowLoaded(i, aspetto);
    EXPECT_EQ(aspetto.stile, stili[i]) << i;
  }
  EXPECT_EQ(f->lblScadenza.Caption(), u"scade oggi"_s);
  EXPECT_EQ(f->lblInMano.Caption(), u"Chiavi in mano: chiave 1000000002"_s);
  EXPECT_EQ(f->grdGru.cella(0, u"abil") + f->grdGru.cella(1, u"abil") + f->grdGru.cella(2, u"abil"),
            u"-1-10"_s);
  EXPECT_FALSE(f->grdGru.modificabile(0, f->grdGru.colonna(u"abil")));
  f->grd.Row(1);
  EXPECT_EQ(f->lblScadenza.Caption(), u"scaduta da 1 giorni"_s);
  f->chiudi();
  EXPECT_TRUE(b.main().timerOrario->Enabled());
}

TEST_F(TessereOperatori, QuelCheNonVaSiDiceENonSiScrive) {
  const QString errato = u"Inserire un codice tessera valido."_s;
  const struct {
    const char* nome;
    std::function<void()> guasto;
    QString messaggio;
  } casi[] = {
      {"repetition", [&] { f->txtCodiceVer.Text = u"0000000005"_s; }, u"codice e verifica diversi!"_s},
      {"group", [&] { f->cmbGru.Text = u"Personale"_s; }, u"Inserire un codice di gruppo utente valido."_s},
      {"eleven characters", [&] { f->txtCodice.Text = f->txtCodiceVer.Text = u"00000000044"_s; }, errato},
      {"heading", [&] { f->Text1.Text = u"  "_s; }, u"Inserire intestazione."_s},
      {"no first day", [&] { f->txtDal.Text = u"29/02/2009"_s; },
       u"Data di inizio validità mancante o non corretta."_s},
      {"no last day", [&] { f->txtAl.Text = u"__/__/____"_s; },
       u"Data di fine validità mancante o non corretta."_s},
      {"limit", [&] { f->txtNrMaxPrelievi.Text = u"due"_s; },
       u"Numero massimo di prelievi mancante o non corretto"_s},
      {"limit too large", [&] { f->txtNrMaxPrelievi.Text = u"99999"_s; },
       u"Numero massimo di prelievi mancante o non corretto"_s},
      {"somebody's code", [&] { f->txtCodice.Text = f->txtCodiceVer.Text = u"0000000002"_s; },
       u"Tessera 0000000002 già esistente nel sistema! ( Bruno )"_s},
  };
  apri();
  for (const auto& c : casi) {
    f->Command3_Click();
    scrivi(u"0000000004"_s);
    c.guasto();
    f->Command1_Click();
    EXPECT_EQ(b.detti(), QStringList{c.messaggio}) << c.nome;
    EXPECT_TRUE(f->Command1.Enabled()) << c.nome;
    f->Command2_Click();
  }
  EXPECT_EQ(b.conta(u"tessere_operatori"_s), 3);
  EXPECT_EQ(b.coda(), QString());
}

TEST_F(TessereOperatori, UnaTesseraNuova) {
  const struct {
    QString codice, dal, al, massimo, scritta;
  } casi[] = {
      {u"0000000004"_s, u"31/12/2008"_s, u"01/01/2008"_s, u"-3"_s,
       u"Dario D'Angelo|2008-01-01 00:00:00|2008-12-31 00:00:00|0|1|0"_s},
      {u"0000000005"_s, u"29/02/2008"_s, u"31/12/9999"_s, u"2"_s,
       u"Dario D'Angelo|2008-02-29 00:00:00|9999-12-31 00:00:00|0|1|2"_s},
  };
  apri();
  for (const auto& c : casi) {
    f->Command3_Click();
    EXPECT_EQ(f->txtDal.Text(), u"30/11/2008"_s);
    EXPECT_FALSE(f->Command5.Enabled());
    scrivi(c.codice, c.dal, c.al);
    f->txtNrMaxPrelievi.Text = c.massimo;
    spunta({1, 3});
    f->Command1_Click();
    EXPECT_EQ(b.detti(), QStringList{u"Registrazione eseguita!"_s});
    EXPECT_EQ(riga(c.codice), c.scritta);
    EXPECT_EQ(f->txtCodice.Text(), c.codice);
  }
  EXPECT_EQ(b.coda(), u"0000000004|1|I 0000000004|3|I 0000000005|1|I 0000000005|3|I"_s);
}

// 1 no longer reached, 2 still, 3 newly.
TEST_F(TessereOperatori, ICambiDiGruppoVannoInCoda) {
  apri();
  f->Command4_Click();
  EXPECT_TRUE(f->Command5.Enabled() && f->grdGru.modificabile(0, f->grdGru.colonna(u"abil")));
  spunta({2, 3});
  f->Command1_Click();
  EXPECT_EQ(b.coda(), u"0000000001|1|D 0000000001|2|I 0000000001|3|I"_s);
  EXPECT_EQ(nomi().size(), 3) << "it leaves a cabinet and stays in the registry";
  f->Command4_Click();
  f->Command8_Click();
  f->Command1_Click();
  EXPECT_EQ(b.coda(), u"0000000001|1|I 0000000001|2|I 0000000001|3|I"_s);
}

TEST_F(TessereOperatori, EliminareAspettaLeLokere) {
  b.sql(u"insert into posiz_tessere_oper values ('0000000001', 2, 0)"_s);
  apri();
  f->Command4_Click();
  f->Command5_Click();
  EXPECT_EQ(b.coda(), u"0000000001|2|D"_s);
  EXPECT_EQ(b.conta(u"tessere_operatori"_s), 3);
  EXPECT_EQ(nomi(), (QStringList{u"Bruno"_s, u"Carla"_s}));
  f->Command4_Click();
  f->Command5_Click();
  EXPECT_EQ(b.righe(u"select codice from tessere_operatori order by codice"_s),
            (QStringList{u"0000000001"_s, u"0000000003"_s}));
}

TEST_F(TessereOperatori, AggiornamentoTotaleEComandiSenzaLokera) {
  b.abilita(u"0000000002"_s, 3);
  b.sql(u"update tessere_operatori set valido_al = null where codice = '0000000003'"_s);
  b.abilita(u"0000000003"_s, 1);
  apri();
  f->Command11_Click();
  EXPECT_EQ(b.coda(), QString()) << "not without a yes";
  (void)b.detti();
  b.vm.messaggi().risposte = {true};
  f->Command11_Click();
  EXPECT_EQ(b.coda(), u"0000000001|1|I 0000000001|2|I 0000000002|3|I"_s);
  EXPECT_EQ(b.detti().last(), u"Aggiornamento eseguito!"_s);
  f->Command7_Click();
  f->Command10_Click();
  EXPECT_EQ(b.detti(), (QStringList{u"procedura obsoleta!"_s,
                                    u"Errore di Comunicazione computer-lokera. Operazione annullata."_s}));
}

TEST_F(TessereOperatori, CtrlSiRipeteSullaSessioneAperta) {
  QByteArray risposta = componi_frame("00035000042");
  const LokeraFinta lokera(b.vm, u"127.0.0.2"_s, 10001, [&](const QByteArray& frame) {
    return frame.startsWith("000350") ? QList<QByteArray>{risposta} : risponde_bene(frame);
  });
  apri();
  b.vm.esegui_per(10s);
  for (const char* quante : {"0042", "0043"}) {
    risposta = componi_frame(QByteArray("0003500") + quante);
    f->Command10_Click();
    EXPECT_EQ(f->lblRecords_LOK.Caption(),
              u"Records presenti nella Lokera n. "_s + QString::fromLatin1(quante));
  }
  risposta = componi_frame("0003505");
  f->Command10_Click();
  EXPECT_EQ(b.detti(), QStringList{u"Errore in comunicazione con la lokera."_s});
}

}  // namespace
}  // namespace lokera::prova
