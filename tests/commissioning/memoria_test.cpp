#include "commissioning/banco_parametri.h"

namespace lokera::prova {
namespace {

class Memoria : public BancoParametri {
 protected:
  Memoria() {
    b.lokera(1);
    b.lokera(2);
  }
  /// What the cabinet answers to each frame; the frame alone keeps silent.
  std::map<QByteArray, Risposte> risposte;
  LokeraFinta lokera{b.vm, u"127.0.0.2"_s, 10001,
                     [this](const QByteArray& f) { return risposte[f.left(6)]; }};
  LokeraFinta altra{b.vm, u"127.0.0.3"_s, 10001};
};

const QString caduta = u"Errore di comunicazione con la lokera."_s;
const QString scollegata = u"Errore di comunicazione computer-lokera. Operazione annullata!"_s;
const QString domanda_azzera =
    u"Questo comando elimina le tessere operatori e chiavi registrate nella lokera. Continuare ?"_s;

TEST_F(Memoria, IContatoriDellaLokeraScelta) {
  const struct {
    const char* nome;
    Risposte chiavi, tessere;
    QString dette;
    QStringList messaggi;
  } casi[] = {
      {"both",
       {componi_frame("00035000012")},
       {componi_frame("00035000340")},
       u"Chiavi reg. sulla lokera: 0012|Operatori reg. sulla. lokera: 0340"_s,
       {}},
      {"one refuses",
       {componi_frame("0003505")},
       {componi_frame("00035000340")},
       u"|Operatori reg. sulla. lokera: 0340"_s,
       {caduta}},
      {"silent", {}, {}, u"|"_s, {caduta, caduta}},
      {"torn",
       {componi_frame("00035000012").first(9)},
       {componi_frame("00035000340")},
       u"|Operatori reg. sulla. lokera: 0340"_s,
       {caduta}},
  };
  frm_param_lokere& f = apri();
  for (const auto& c : casi) {
    scegli(0);
    risposte = {{"000351", c.chiavi}, {"000350", c.tessere}};
    f.Command10_Click();
    EXPECT_EQ(f.lblChiaviLok.Caption() + u'|' + f.lblTessereLok.Caption(), c.dette) << c.nome;
    EXPECT_EQ(messaggi(), c.messaggi) << c.nome;
  }
  lokera.ricevuti.clear();
  scegli(1);
  f.Command10_Click();
  EXPECT_EQ(altra.comandi(), (QList<QByteArray>{"00035", "00035"})) << "the line goes with the row";
  EXPECT_EQ(lokera.ricevuti, Risposte());
}

TEST_F(Memoria, LAzzeramentoTogliePrimaLeChiavi) {
  const struct {
    const char* nome;
    bool conferma;
    Risposte chiavi, tessere;
    QList<QByteArray> frame;
    QStringList messaggi;
  } casi[] = {
      {"no", false, {}, {}, {}, {domanda_azzera}},
      {"done",
       true,
       {componi_frame("00033000012")},
       {componi_frame("00033000340")},
       {"000331", "000330", "000351", "000350"},
       {domanda_azzera, u"Eliminazione eseguita!"_s}},
      {"keys refused",
       true,
       {componi_frame("0003302")},
       {componi_frame("00033000340")},
       {"000331"},
       {domanda_azzera, u"Errore BCC"_s,
        u"Errore nell'azzeramento archivio chiavi nella memoria della lokera.Operazione annullata."_s}},
      {"cards silent",
       true,
       {componi_frame("00033000012")},
       {},
       {"000331", "000330"},
       {domanda_azzera,
        u"Errore nell'azzeramento archivio operatori nella memoria della lokera.Operazione annullata."_s}},
  };
  frm_param_lokere& f = apri();
  for (const auto& c : casi) {
    scegli(0);
    lokera.ricevuti.clear();
    risposte = {{"000331", c.chiavi},
                {"000330", c.tessere},
                {"000351", {componi_frame("00035000000")}},
                {"000350", {componi_frame("00035000000")}}};
    b.vm.messaggi().risposte = {c.conferma};
    f.Command6_Click();
    QList<QByteArray> frame;
    for (const QByteArray& r : std::as_const(lokera.ricevuti)) frame << r.left(6);
    EXPECT_EQ(frame, c.frame) << c.nome;
    EXPECT_EQ(messaggi(), c.messaggi) << c.nome;
  }
}

TEST_F(Memoria, SenzaLineaUnSoloMessaggio) {
  b.sql(u"update parametri set ip_lokera = '127.000.000.077' where ID = 1"_s);
  frm_param_lokere& f = apri();
  b.vm.messaggi().risposte = {true, true};
  for (const auto& premi : {&frm_param_lokere::Command10_Click, &frm_param_lokere::Command6_Click}) {
    (f.*premi)();
    EXPECT_EQ(messaggi(), QStringList{scollegata});
  }
}

}  // namespace
}  // namespace lokera::prova
