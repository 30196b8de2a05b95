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
const QString domanda_azzera =
    u"Questo comando elimina le tessere operatori e chiavi registrate nella lokera. Continuare ?"_s;

TEST_F(Memoria, IContatoriDellaLokeraScelta) {
  const Risposte dodici = {componi_frame("00035000012")}, molte = {componi_frame("00035000340")};
  const QString solo_tessere = u"|Operatori reg. sulla. lokera: 0340"_s;
  const struct {
    const char* nome;
    Risposte chiavi, tessere;
    QString dette;
    QStringList messaggi;
  } casi[] = {
      {"both", dodici, molte, u"Chiavi reg. sulla lokera: 0012"_s + solo_tessere, {}},
      {"one refuses", {componi_frame("0003505")}, molte, solo_tessere, {caduta}},
      {"silent", {}, {}, u"|"_s, {caduta, caduta}},
      {"torn", {dodici[0].first(9)}, molte, solo_tessere, {caduta}},
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
  const Risposte bene_chiavi = {componi_frame("00033000012")}, bene_tessere = {componi_frame("00033000340")};
  const auto annullata = [](const char* archivio) {
    return u"Errore nell'azzeramento archivio %1 nella memoria della lokera.Operazione annullata."_s.arg(
        QLatin1StringView(archivio));
  };
  const struct {
    const char* nome;
    bool conferma;
    Risposte chiavi, tessere;
    QList<QByteArray> frame;
    QStringList poi;  ///< said behind the question
  } casi[] = {
      {"no", false, {}, {}, {}, {}},
      {"done",
       true,
       bene_chiavi,
       bene_tessere,
       {"000331", "000330", "000351", "000350"},
       {u"Eliminazione eseguita!"_s}},
      {"keys refused",
       true,
       {componi_frame("0003302")},
       bene_tessere,
       {"000331"},
       {u"Errore BCC"_s, annullata("chiavi")}},
      {"cards silent", true, bene_chiavi, {}, {"000331", "000330"}, {annullata("operatori")}},
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
    EXPECT_EQ(messaggi(), QStringList{domanda_azzera} + c.poi) << c.nome;
  }
}

}  // namespace
}  // namespace lokera::prova
