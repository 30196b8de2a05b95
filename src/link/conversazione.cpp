#include "link/conversazione.h"

#include <utility>

#include "link/protocollo.h"
#include "platform/letterali.h"

namespace lokera {

using namespace Qt::StringLiterals;

Errore errore_conversazione_finita() {
  return {conversazione_finita, u"sessione ceduta"_s};
}

Conversazione::Conversazione(WinsockFactory& fabbrica, PolledWait& attesa)
    : socket_(fabbrica.crea_winsock()), cronometro_(attesa) {
  socket_->DataArrival = [this](qsizetype /*bytesTotal*/) { arrivo(); };
}

void Conversazione::chiudi() {
  prendi();
  socket_->Close();
}

void Conversazione::chiudi_e_attendi() {
  socket_->Close();
  cronometro_.attendi(3, [this] { return socket_->State() == socket_chiuso; });
}

void Conversazione::chiama(const QString& indirizzo, quint16 porta) {
  socket_->Protocol(Protocol::tcp);
  socket_->RemoteHost(indirizzo);
  socket_->RemotePort(porta);
  socket_->Connect(indirizzo, porta);
}

bool Conversazione::attendi_connessa(int secondi) {
  const int mio = numero_;
  cronometro_.attendi(secondi, [&] { return connessa() || !in_corso(mio); });
  return connessa() && in_corso(mio);
}

bool Conversazione::connetti(const QString& indirizzo, quint16 porta, int secondi) {
  chiudi();
  chiama(indirizzo, porta);
  return attendi_connessa(secondi);
}

void Conversazione::rivolgi(const QString& indirizzo, quint16 porta) {
  socket_->Protocol(Protocol::udp);
  socket_->RemoteHost(indirizzo);
  socket_->RemotePort(porta);
}

Esito<QByteArray> Conversazione::chiedi(QByteArrayView frame, int secondi, qsizetype minimo,
                                        std::function<bool(const QByteArray&)> adatto) {
  invia(frame);
  return attendi({codice_comando(frame).toByteArray(), minimo, std::move(adatto)}, secondi);
}

Esito<QByteArray> Conversazione::attendi(const Atteso& atteso, int secondi) {
  if (attesa_ && in_corso(attesa_->numero)) prendi();
  Attesa mia{atteso, numero_, attesa_, false, {}};
  attesa_ = &mia;
  cronometro_.attendi(secondi, [&] { return mia.venuto || !in_corso(mia.numero); });
  attesa_ = mia.esterna;
  if (!in_corso(mia.numero)) return errore_conversazione_finita();
  if (!mia.venuto) return Errore{senza_risposta, u"nessuna risposta"_s};
  return std::move(mia.frame);
}

bool Conversazione::raccogli(QByteArrayView frame, int secondi, qsizetype minimo,
                             const std::function<void(const QByteArray&)>& ognuna) {
  const auto prossima = [&](const QByteArray& risposta) {
    ognuna(risposta);
    return false;
  };
  return chiedi(frame, secondi, minimo, prossima).errore().numero == senza_risposta;
}

// A late reply to an earlier command says nothing about the one that waits.
bool Conversazione::risponde(const Atteso& atteso, const QByteArray& frame) {
  return codice_comando(frame) == atteso.comando && (frame_intero(frame) || frame.size() >= atteso.minimo);
}

void Conversazione::arrivo() {
  const QByteArray frame = socket_->GetData();
  if (frame.size() < testa_risposta || !solo_ascii(frame)) return;
  Attesa* const attesa = attesa_;
  const bool suo = !attesa || risponde(attesa->atteso, frame);
  if (arrivato) arrivato(frame, suo);
  if (!attesa || !suo || attesa->venuto || !in_corso(attesa->numero)) return;
  if (attesa->atteso.adatto && !attesa->atteso.adatto(frame)) return;
  attesa->frame = frame;
  attesa->venuto = true;
}

}  // namespace lokera
