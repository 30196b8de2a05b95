#include "commissioning/linea_lokera.h"

#include <utility>

#include "forms/messaggi.h"
#include "link/porte.h"
#include "link/protocollo.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

// What a person is told of a reply; empty for nothing. Who asks for a counter tells of its failure himself.
QString messaggio(QByteArrayView frame) {
  const QByteArrayView codice = codice_comando(frame);
  if (codice == "00035") return {};
  if (codice != "00020") return messaggio_risposta(campo_frame(frame, 6, 2));
  return campo_frame(frame, 6, 1) == "0" ? QString() : u"orario non inviato correttamente alla lokera!"_s;
}

}  // namespace

LineaLokera::LineaLokera(Finestra& finestra, WinsockFactory& fabbrica, PolledWait& attesa,
                         Traduttore& traduttore, MessageBox& messaggi)
    : wsk(fabbrica, attesa),
      wsk_udp(fabbrica, attesa),
      finestra_(finestra),
      traduttore_(traduttore),
      messaggi_(messaggi) {
  wsk.arrivato = [this](const QByteArray& frame, bool suo) { wsk_DataArrival(frame, suo); };
}

// A port beyond those that exist would be taken for another one.
bool LineaLokera::connetti(const QString& indirizzo, const QString& porta) {
  wsk.chiudi();
  bool esiste = false;
  const quint16 numero = porta.trimmed().toUShort(&esiste);
  return esiste && numero > 0 && wsk.connetti(normalizza_ip(indirizzo), numero, 2);
}

Esito<QByteArray> LineaLokera::chiedi(QByteArrayView testo, int secondi, qsizetype minimo,
                                      std::function<bool(const QByteArray&)> adatto) {
  return wsk.chiedi(componi_frame(testo), secondi, minimo, std::move(adatto));
}

void LineaLokera::rivolgi_a_tutti() {
  wsk_udp.rivolgi(u"255.255.255.255"_s, porta_datagrammi);
}

void LineaLokera::azzera_tutte() {
  wsk.chiudi();
  rivolgi_a_tutti();
  wsk_udp.invia(componi_frame("00073"));
}

// One box at a time: a line full of noise must not pile them up.
void LineaLokera::wsk_DataArrival(const QByteArray& frame, bool suo) {
  const QString testo = suo ? messaggio(frame) : QString();
  if (testo.isEmpty() || in_messaggio_) return;
  const Finestra::Attesa attesa(finestra_);
  in_messaggio_ = true;
  avvisa(traduttore_, messaggi_, testo);
  in_messaggio_ = false;
}

}  // namespace lokera
