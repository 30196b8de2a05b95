// Twenty changes of keys and cards through their windows, on real sockets: what each leaves in the queue,
// what the cabinets hear, and what they hold in the end.
#include <QCoreApplication>
#include <QSysInfo>

#include <gtest/gtest.h>

#include "cards/frm_tessere.h"
#include "cards/frm_tessere_operatori.h"
#include "e2e/console_vera.h"
#include "simulation/cabinet/cabinet_server.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;
using namespace simulazione;

constexpr int una = 1, altra = 2;

/// A console of this computer and two cabinets: keys of group 1 hang in both, those of group 2 in the first.
class Registri : public ::testing::Test, protected ConsoleVera {
 protected:
  Registri() {
    for (int id : {una, altra}) {
      sql(u"insert into parametri (ID, descrizione, IP_lokera, funzionamento, lingua, slot, computer_ctrl) values (?, 'lokera', ?, 0, 0, 1, ?)"_s,
          {id, u"127.000.009.00%1"_s.arg(id + 1), QSysInfo::machineHostName()});
      sql(u"insert into gruppi values (?, 'gruppo')"_s, {id});
      sql(u"insert into gruppi_utente values (?, 'gruppo')"_s, {id});
    }
    for (const auto& [codice, lokera, gruppo] : {std::tuple{1, una, 1}, {2, una, 2}, {3, altra, 1}})
      sql(u"insert into tessere_chiavi (codice, lokera, posizione, descrizione, gruppo, operatore) values (?, ?, ?, 'chiave', ?, ' ')"_s,
          {u"100000000%1"_s.arg(codice), lokera, codice, gruppo});
    for (CabinetServer* s : {&server_una, &server_altra}) {
      EXPECT_TRUE(s->apri());
      s->Parla = [this, s](quint16, char verso, QByteArrayView frame) {
        if (verso == '<' && (frame.startsWith("00031") || frame.startsWith("00032")))
          sentiti += QByteArray(s == &server_una ? "1:" : "2:") + frame.first(10).toByteArray();
      };
    }
    console.principale().Form_Load();
  }
  void sql(const QString& s, const QVariantList& valori = {}) {
    esegui(console.db().connessione_db, s, valori);
  }
  /// Pairs that wait, a card by its last two digits.
  QString coda() {
    QStringList attese = righe(
        console.db().connessione_db,
        u"select ID_tessera, ID_lokera, operazione from aggiorn_tessere_oper order by ID_tessera, ID_lokera"_s);
    for (QString& a : attese) a.remove(0, 8);
    return attese.join(u' ');
  }
  template <class W>
  W& apri(const char16_t* nome) {
    return static_cast<W&>(*console.finestre().apri(QString::fromUtf16(nome)));
  }
  void chiudi(Finestra& f) {
    f.chiudi();
    console.griglie().attesa.attendi(3, [&] { return console.elenco().conta() == 1; });
  }
  /// Visits until the queue is worked off.
  void visita() {
    for (int i = 0; i < 8 && !coda().isEmpty(); ++i) console.parti().ciclo.mnuScarTrans_Click();
    EXPECT_EQ(coda(), QString());
  }
  static QString record(const Archivio& archivio) {
    QStringList tutti;
    for (const auto& [posizione, r] : archivio.record())
      tutti << u"%1=%2"_s.arg(posizione).arg(QString::fromLatin1(r.first(10).last(2)));
    return tutti.join(u' ');
  }

  RealRete rete;
  RegistroEventi registro;
  Cabinet cabinet_una{{.indirizzo = u"127.0.9.2"_s, .seriale = "0000000001"}, m.orologio, registro};
  Cabinet cabinet_altra{{.indirizzo = u"127.0.9.3"_s, .seriale = "0000000002"}, m.orologio, registro};
  CabinetServer server_una{cabinet_una, rete, m.orologio, m.timer};
  CabinetServer server_altra{cabinet_altra, rete, m.orologio, m.timer};
  QByteArrayList sentiti;  ///< cabinet, and the beginning of what was written or deleted there
};

/// A card's code ends in these two digits.
QString tessera(const QString& fine) {
  return u"20000000"_s + fine;
}

TEST_F(Registri, LeTessere) {
  struct Cambio {
    const char* nome;
    QString tessera;  ///< empty: a new one
    QString codice;
    QList<int> gruppi;
    const char* coda;
  };
  const Cambio prima[] = {
      {"new, both cabinets", {}, u"01"_s, {1}, "01|1|I 01|2|I"},
      {"new, the first", {}, u"02"_s, {2}, "01|1|I 01|2|I 02|1|I"},
      {"new, none", {}, u"03"_s, {}, "01|1|I 01|2|I 02|1|I"},
      {"comes to both", u"03"_s, u"03"_s, {1}, "01|1|I 01|2|I 02|1|I 03|1|I 03|2|I"},
      {"comes to the first alone", u"03"_s, u"03"_s, {2}, "01|1|I 01|2|I 02|1|I 03|1|I 03|2|D"},
      {"leaves both", u"03"_s, u"03"_s, {}, "01|1|I 01|2|I 02|1|I 03|1|D 03|2|D"},
      {"and comes back", u"03"_s, u"03"_s, {1, 2}, "01|1|I 01|2|I 02|1|I 03|1|I 03|2|I"},
      {"another code before anybody knew the old",
       u"02"_s,
       u"04"_s,
       {2},
       "01|1|I 01|2|I 02|1|D 03|1|I 03|2|I 04|1|I"},
      {"registered as it stands", u"01"_s, u"01"_s, {1}, "01|1|I 01|2|I 02|1|D 03|1|I 03|2|I 04|1|I"},
  };
  const Cambio poi[] = {
      {"leaves the second", u"03"_s, u"03"_s, {2}, "03|1|I 03|2|D"},
      {"another code", u"04"_s, u"05"_s, {1}, "03|1|I 03|2|D 04|1|D 05|1|I 05|2|I"},
      {"the old code anew", {}, u"04"_s, {2}, "03|1|I 03|2|D 04|1|I 05|1|I 05|2|I"},
  };
  auto* f = &apri<frm_tessere_operatori>(u"frm_tessere_operatori");
  const auto scegli = [&](const QString& fine) {
    for (int riga = 0; riga < f->grd.Rows(); ++riga)
      if (f->grd.cella(riga, u"codice") == tessera(fine)) f->grd.Row(riga);
    f->Command4_Click();
  };
  const auto registra = [&](const Cambio& c) {
    if (c.tessera.isEmpty()) {
      f->Command3_Click();
    } else {
      scegli(c.tessera);
    }
    f->txtCodice.Text = f->txtCodiceVer.Text = tessera(c.codice);
    f->Text1.Text = u"Persona "_s + c.codice;
    f->cmbGru.Value(u"1"_s);
    f->txtAl.Text = u"31/12/2099"_s;
    for (int riga = 0; riga < f->grdGru.Rows(); ++riga)
      f->grdGru.imposta_cella(riga, u"abil",
                              (c.gruppi.contains(riga + 1) ? testo_spuntato : testo_non_spuntato).toString());
    messaggi.mostrati.clear();
    f->Command1_Click();
    EXPECT_EQ(messaggi.testi(), QStringList{u"Registrazione eseguita!"_s}) << c.nome;
    EXPECT_EQ(coda(), QString::fromLatin1(c.coda)) << c.nome;
  };
  for (const Cambio& c : prima) registra(c);
  chiudi(*f);
  sentiti.clear();
  visita();
  EXPECT_EQ(record(cabinet_una.stato().operatori), u"0=01 1=03 2=04"_s);
  EXPECT_EQ(record(cabinet_altra.stato().operatori), u"0=01 1=03"_s);
  EXPECT_EQ(sentiti.size(), 5) << sentiti.join(' ').toStdString();

  f = &apri<frm_tessere_operatori>(u"frm_tessere_operatori");
  for (const Cambio& c : poi) registra(c);
  scegli(u"01"_s);
  f->Command5_Click();
  EXPECT_EQ(coda(), u"01|1|D 01|2|D 03|1|I 03|2|D 04|1|I 05|1|I 05|2|I"_s);
  chiudi(*f);
  visita();
  EXPECT_EQ(record(cabinet_una.stato().operatori).count(u'='), 3);
  EXPECT_EQ(record(cabinet_altra.stato().operatori).count(u'='), 1);
  EXPECT_EQ(righe(console.db().connessione_db, u"select codice from tessere_operatori order by codice"_s),
            (QStringList{tessera(u"03"_s), tessera(u"04"_s), tessera(u"05"_s)}));
}

TEST_F(Registri, LeChiaviELeLoroTessere) {
  for (const auto& [fine, gruppo] : {std::pair{u"01"_s, 1}, {u"02"_s, 2}}) {
    sql(u"insert into tessere_operatori values (?, 'Persona', #1/1/2008#, #12/31/2099#, 0, 1, 0)"_s,
        {tessera(fine)});
    sql(u"insert into gruppi_tessera values (?, ?)"_s, {tessera(fine), gruppo});
  }
  auto* f = &apri<frm_tessere>(u"frm_tessere");
  const auto scrivi = [&](const QString& codice, int gruppo) {
    f->txtCodice.Text = f->txtCodiceVer.Text = codice;
    f->Text1.Text = u"Cancello"_s;
    f->comboG.Value(QString::number(gruppo));
    f->Command1_Click();
  };
  const auto scegli = [&](const QString& codice) {
    for (int riga = 0; riga < f->grd.Rows(); ++riga)
      if (f->grd.cella(riga, u"codice") == codice) f->grd.Row(riga);
    f->Command4_Click();
  };
  const auto sposta = [&](const QString& codice, const QString& posto) {
    scegli(codice);
    domande.risposte = {posto};
    f->Command8_Click();
    scrivi(codice, 2);
  };
  const auto spenta = [&] {
    server_una.chiudi();
    f->Command3_Click();
  };
  const auto accesa = [&] {
    server_una.apri();
    f->Command2_Click();
    f->comboLKR_CloseUp(0);
  };
  const QString a = u"3000000001"_s, b = u"3000000002"_s, c = u"3000000003"_s;
  const struct {
    const char* nome;
    std::function<void()> cambio;
    const char *coda, *chiavi;  ///< positions and the ends of the codes in the first cabinet
    const char* frame;
  } passi[] = {
      {"lowest free", [&] { f->Command3_Click(), scrivi(a, 1); }, "01|1|I", "0=01", "1:0003110000"},
      {"another name", [&] { scegli(a), scrivi(a, 1); }, "01|1|I", "0=01", "1:0003110000"},
      {"the other group", [&] { scegli(a), scrivi(a, 2); }, "01|1|D 02|1|I", "0=01", "1:0003110000"},
      {"another code", [&] { scegli(a), scrivi(b, 2); }, "01|1|D 02|1|I", "0=02", "1:0003110000"},
      {"taken", [&] { sposta(b, u"1"_s), f->Command2_Click(); }, "01|1|D 02|1|I", "0=02", ""},
      {"moved", [&] { sposta(b, u"150"_s); }, "01|1|D 02|1|I", "0=02 150=02", "1:0003110150"},
      {"deleted", [&] { scegli(b), f->Command5_Click(); }, "01|1|D 02|1|D", "0=02", "1:0003210150"},
      {"off", [&] { spenta(), scrivi(c, 1); }, "01|1|D 02|1|D", "0=02", ""},
      {"off, once more", [&] { scrivi(c, 1); }, "01|1|D 02|1|D", "0=02", ""},
      {"on", [&] { accesa(), scegli(c), scrivi(c, 1); }, "01|1|I 02|1|D", "0=03", "1:0003110000"},
  };
  for (const auto& p : passi) {
    sentiti.clear();
    p.cambio();
    EXPECT_EQ(coda(), QString::fromLatin1(p.coda)) << p.nome;
    EXPECT_EQ(record(cabinet_una.stato().chiavi), QString::fromLatin1(p.chiavi)) << p.nome;
    EXPECT_EQ(sentiti.join(' '), QByteArray(p.frame)) << p.nome;
  }
  EXPECT_EQ(f->lblTrattenute.Caption(), QString());
  chiudi(*f);
  visita();
  EXPECT_EQ(record(cabinet_una.stato().operatori), u"0=01 1=02"_s) << "both still reach a key there";
  EXPECT_EQ(righe(console.db().connessione_db, u"select codice from tessere_operatori"_s).size(), 2);
}

}  // namespace
}  // namespace lokera::prova

int main(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
