#include "cards/lettore_tavolo.h"

#include "aiuti/finestre.h"

namespace lokera::prova {
namespace {

using namespace std::chrono_literals;

/// A window with fields for a code, as both kinds of cards have one.
class FinestraTessera : public Finestra {
 public:
  FinestraTessera(ElencoFinestre& elenco, const ServiziLettore& servizi)
      : Finestra(elenco, u"frm_prova"_s),
        lettore(*this, servizi,
                {txtCodice, txtCodiceVer, [this] { return nuovo_record; }, [this] { doppia(); }}) {}
  void Form_Load() override { lettore.Form_Load(); }
  bool Form_Unload() override {
    lettore.Form_Unload();
    return true;
  }

  TextBox txtCodice{*this, u"txtCodice"_s};
  TextBox txtCodiceVer{*this, u"txtCodiceVer"_s};
  bool nuovo_record = false;
  std::function<void()> doppia = [] {};
  LettoreTavolo lettore;
};

class LettoreTavoloTest : public BancoFinestre {
 protected:
  LettoreTavoloTest() {
    vm.primo().seriali.collega(3);
    sql(u"insert into computers (nome_computer, nr_seriale_vidimatore) values ('PC-CENTRALE', 3)"_s);
  }
  void mostra(const char* byte) { vm.primo().seriali.arriva(3, QByteArray::fromHex(byte)); }
  /// The two fields after a second in which `byte` came, in pieces parted by "|" and 50 ms.
  QString letto(const QByteArray& byte) {
    vm.esegui_fino(std::chrono::ceil<std::chrono::seconds>(vm.orologio().monotono()) + 100ms);
    for (const QByteArray& pezzo : byte.split('|')) {
      mostra(pezzo.constData());
      vm.esegui_per(50ms);
    }
    vm.esegui_per(1s);
    return f.txtCodice.Text() + u'/' + f.txtCodiceVer.Text();
  }
  QStringList computer() { return righe(u"select nome_computer, nr_seriale_vidimatore from computers"_s); }
  bool attivo() const {
    return f.lettore.Command6.Caption() == u"disattiva"_s && !f.lettore.txtNrSeriale.Enabled();
  }

  Machine pc = vm.macchina();
  const ServiziLettore servizi{db.connessione_db, pc.seriali, pc.orologio,     pc.timer,
                               traduttore,        messaggi,   u"PC-CENTRALE"_s};
  FinestraTessera f{elenco, servizi};
};

const QString scollegato = u"Il lettore da tavolo non è più collegato! (Seriale nr. 3)"_s;

TEST_F(LettoreTavoloTest, UnaLetturaRiempieIlCodice) {
  f.Form_Load();
  ASSERT_TRUE(attivo());
  const QString codice = u"123456789A/"_s;
  for (const auto& [byte, atteso] : std::vector<std::pair<QByteArray, QString>>{
           {"FF01123456789A00", codice},
           {"00123456789A00FF", codice},
           {"0700123456789A", codice},
           {"FF01123456789AFF", codice},
           {"FF011203040506", u"1203040506/"_s},
           {"FF010A0B0C0D0E00", u"0A0B0C0D0E/"_s},
           {"FF|01|1234|56789A|00", codice},                              // torn
           {"FF01123456789A00FF01A9876543210000123456789A00FF", codice},  // a burst: the first one
           {"FF01003456789A00", u"/"_s},
           {"00003456789A00FF", u"/"_s},
           {"00123456789A00FE", u"/"_s},
           {"00123456789A", u"/"_s},
           {"0701123456789A00", u"/"_s},
           {"FF0112345678", u"/"_s},
           {"FF01", u"/"_s},
           {"00", u"/"_s},
       }) {
    f.txtCodice.Text = QString();
    EXPECT_EQ(letto(byte), atteso) << byte.constData();
  }
  EXPECT_TRUE(messaggi.testi().isEmpty());
}

TEST_F(LettoreTavoloTest, UnaLetturaFinisceConIlSecondoOConOttoByte) {
  f.Form_Load();
  vm.esegui_per(900ms);
  mostra("FF0112");
  vm.esegui_per(150ms);  // into the next second
  mostra("3456789A00");
  vm.esegui_per(1s);
  EXPECT_EQ(f.txtCodice.Text(), QString());
  mostra("FF01123456789A");
  vm.esegui_per(10ms);
  EXPECT_EQ(f.txtCodice.Text(), QString());  // one more byte may come
  mostra("00");
  vm.esegui_per(1ms);
  EXPECT_EQ(f.txtCodice.Text(), u"123456789A"_s);
}

TEST_F(LettoreTavoloTest, LaSecondaLetturaRiempieLaVerificaEUnaNuovaSiControlla) {
  int controlli = 0;
  f.doppia = [&] { ++controlli; };
  f.Form_Load();
  EXPECT_EQ(letto("FF01123456789A00"), u"123456789A/"_s);
  EXPECT_EQ(f.ActiveControl(), &f.txtCodice);
  EXPECT_EQ(letto("FF01123456789A00"), u"123456789A/123456789A"_s);
  EXPECT_EQ(f.ActiveControl(), &f.txtCodiceVer);
  EXPECT_EQ(letto("FF01A98765432100"), u"123456789A/A987654321"_s);
  EXPECT_EQ(controlli, 0);  // a change keeps its own code
  f.nuovo_record = true;
  f.txtCodice.Text = u"  "_s;
  letto("FF01123456789A00");
  EXPECT_EQ(controlli, 1);
}

TEST_F(LettoreTavoloTest, FuoriDallaModificaNonEntraNulla) {
  f.Form_Load();
  f.txtCodice.Enabled = false;
  EXPECT_EQ(letto("FF01123456789A00"), u"/"_s);
  f.txtCodice.Enabled = true;
  EXPECT_EQ(letto("A987"), u"/"_s) << "none of the tag before is left";
}

TEST_F(LettoreTavoloTest, UnaPortaSbagliataSiDiceENonSiRicorda) {
  for (const QString& numero :
       {QString(), u"0"_s, u"-1"_s, u"99999"_s, u"4294967299"_s, u"tre"_s, u"3a"_s, u"7"_s}) {
    f.lettore.txtNrSeriale.Text = numero;
    f.lettore.Command6_Click();
    EXPECT_FALSE(attivo());
    EXPECT_EQ(messaggi.testi(), QStringList{u"Seriale nr. "_s + numero + u" non valida!"_s});
    EXPECT_EQ(computer(), QStringList{u"PC-CENTRALE|3"_s});
    messaggi.mostrati.clear();
  }
  sql(u"update computers set nr_seriale_vidimatore = 8"_s);
  f.Form_Load();
  EXPECT_EQ(messaggi.testi(), QStringList{u"Seriale nr. 8 non valida!"_s});
  EXPECT_TRUE(f.lettore.txtNrSeriale.Enabled());
  vm.esegui_per(1s);
  EXPECT_EQ(f.lettore.txtNrSeriale.ToolTip(), u"Seriale nr. 8: COM8\nDispositivi collegati: 3 = COM3"_s);
}

TEST_F(LettoreTavoloTest, UnaPortaCheSiApreSiRicordaESiBlocca) {
  db.lingua_interfaccia = 1;
  sql(u"delete from computers"_s);
  f.Form_Load();
  EXPECT_EQ(f.lettore.Command6.Caption(), u"Activate"_s);
  f.lettore.txtNrSeriale.Text = u" 3 "_s;
  f.lettore.Command6_Click();
  EXPECT_EQ(f.lettore.Command6.Caption(), u"Deactivate"_s);
  EXPECT_EQ(computer(), QStringList{u"PC-CENTRALE|3"_s});
  vm.primo().seriali.collega(5);
  f.lettore.Command6_Click();
  f.lettore.txtNrSeriale.Text = u"5"_s;
  f.lettore.Command6_Click();
  EXPECT_EQ(computer(), QStringList{u"PC-CENTRALE|5"_s});
  EXPECT_TRUE(messaggi.testi().isEmpty());
}

TEST_F(LettoreTavoloTest, IlCavoStaccatoSiDiceESiRiattacca) {
  f.Form_Load();
  mostra("FF01123456789A");
  vm.esegui_per(1ms);
  vm.primo().seriali.scollega(3);
  vm.esegui_per(2s);
  EXPECT_EQ(messaggi.testi(), QStringList{scollegato});
  EXPECT_FALSE(attivo());
  EXPECT_EQ(f.txtCodice.Text(), QString());
  vm.primo().seriali.collega(3);
  f.lettore.Command6_Click();
  EXPECT_TRUE(attivo());
  EXPECT_EQ(letto("FF01123456789A00"), u"123456789A/"_s);
  // Found out by opening the port anew, before it is told.
  f.txtCodice.Enabled = false;
  mostra("FF01");
  vm.primo().seriali.scollega(3);
  vm.esegui_per(1s);
  EXPECT_EQ(messaggi.testi(), (QStringList{scollegato, scollegato}));
}

TEST_F(LettoreTavoloTest, LaFinestraSiChiudeDopoLaScatolaELeTessereDiAlloraVannoPerse) {
  for (const char* byte :
       {"FF01123456789A00", "FF01123456789A"}) {  // read in OnComm, and at the second's end
    FinestraTessera altra(elenco, servizi);
    bool chiusa = false;
    altra.Chiusa = [&] { chiusa = true; };
    altra.nuovo_record = true;
    altra.doppia = [&] {
      messaggi.mostra(u"doppia"_s);
      altra.txtCodice.Text = QString();
    };
    messaggi.mentre_aperto = [&](const Messaggio&) {
      mostra("FF01A98765432100");
      vm.esegui_per(2s);
      altra.chiudi();
      EXPECT_FALSE(chiusa) << byte;
    };
    altra.Form_Load();
    letto(byte);
    EXPECT_TRUE(chiusa) << byte;
    EXPECT_EQ(std::exchange(messaggi.mostrati, {}).size(), 1) << byte;
    EXPECT_EQ(altra.txtCodice.Text(), QString()) << byte;
  }
}

}  // namespace
}  // namespace lokera::prova
