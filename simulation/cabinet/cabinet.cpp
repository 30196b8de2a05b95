#include "simulation/cabinet/cabinet.h"

namespace lokera::simulazione {

Cabinet::Cabinet(const Identita& identita, const Clock& clock, RegistroEventi& registro)
    : nome_(identita.indirizzo),
      stato_(identita.indirizzo, identita.seriale, identita.limiti,
             OrologioCabinet(clock, identita.orologio_regolato), registro) {}

Cabinet::Identita Cabinet::di_fabbrica(const QByteArray& seriale, const QString& indirizzo) {
  return {indirizzo, seriale, {}, false};
}

QByteArray Cabinet::comando(QByteArrayView frame, SessioneCabinet& sessione) {
  bool riavvio = false;
  return rispondi(stato_, sessione, Porta::comandi, frame, riavvio);
}

QByteArray Cabinet::datagramma(QByteArrayView frame) {
  bool riavvio = false;
  SessioneCabinet nessuna;
  QByteArray risposta = rispondi(stato_, nessuna, Porta::udp, frame, riavvio);
  if (riavvio) riavvia();
  return risposta;
}

void Cabinet::accendi() {
  propria_ = {};
  stato_.prendi_in_uso();
}

void Cabinet::riavvia() {
  ++riavvii_;
  accendi();
  if (Riavvio) Riavvio();
}

void Cabinet::imposta_gestito(bool gestito) {
  stato_.parametri.funzionamento = gestito ? 1 : 0;
  stato_.parametri_in_uso = stato_.parametri;
}

bool Cabinet::permette(QByteArrayView tessera, QByteArrayView chiave) const {
  const auto posizione = stato_.chiavi.posizione_di(chiave);
  const auto operatore = stato_.operatori.posizione_di(tessera);
  if (!posizione || !operatore) return false;
  return bit_maschera(QByteArrayView(stato_.operatori.leggi(*operatore)).sliced(10), *posizione);
}

const char* Cabinet::motivo_rifiuto(char tipo, const QByteArray& tessera, const QByteArray& chiave) const {
  const auto appesa = chiavi_.find(chiave);
  if (appesa == chiavi_.end()) return "chiave estranea";
  if (appesa->second.fuori == (tipo == prelievo)) return tipo == prelievo ? "chiave fuori" : "chiave dentro";
  if (tipo == prelievo && !permette(tessera, chiave)) return "non abilitata";
  if (stato_.transazioni.piena()) return "memoria piena";
  return nullptr;
}

bool Cabinet::evento(char tipo, const QByteArray& tessera, const QByteArray& chiave) {
  if (const char* motivo = motivo_rifiuto(tipo, tessera, chiave)) {
    stato_.registro.rifiuto(nome_, {tipo, tessera, chiave, stato_.orologio.adesso()}, motivo);
    return false;
  }
  const MovimentoChiave movimento = muovi(tipo, tessera, chiave);
  memorizza(stato_.registro.evento(nome_, movimento, Come::memoria), movimento);
  return true;
}

MovimentoChiave Cabinet::muovi(char tipo, const QByteArray& tessera, const QByteArray& chiave) {
  if (const auto appesa = chiavi_.find(chiave); appesa != chiavi_.end()) {
    appesa->second.fuori = tipo == prelievo;
    appesa->second.chi = tipo == prelievo ? tessera : QByteArray();
  }
  return {tipo, tessera, chiave, stato_.orologio.adesso()};
}

void Cabinet::memorizza(quint64 n, const MovimentoChiave& movimento) {
  stato_.transazioni.aggiungi({n, movimento});
}

void Cabinet::appendi(int posizione, const QByteArray& chiave, bool registra) {
  chiavi_[chiave] = {posizione, false, {}};
  if (registra && stato_.chiavi.esiste(posizione)) stato_.chiavi.scrivi(posizione, chiave);
}

}  // namespace lokera::simulazione
