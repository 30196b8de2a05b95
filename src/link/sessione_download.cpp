#include "link/sessione_download.h"

#include "link/porte.h"
#include "link/protocollo.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

// How long a reply must be for its reader, that was cut off.
constexpr qsizetype cifre_seriale = 10;
constexpr qsizetype minimo_collegamento = 11;

QByteArrayView seriale(QByteArrayView frame) {
  return campo_frame(frame, 8, cifre_seriale);
}

}  // namespace

bool accettata(const Esito<QByteArray>& risposta) {
  return !risposta.fallito() && risposta_buona(*risposta);
}

SessioneDownload::SessioneDownload(WinsockFactory& fabbrica, PolledWait& attesa, Scambio& scambio,
                                   const LokeraCorrente& corrente, Label& lblLetturaTrans)
    : wskDownload_(fabbrica, attesa),
      scambio_(scambio),
      corrente_(corrente),
      lblLetturaTrans_(lblLetturaTrans) {
  wskDownload_.arrivato = [this](const QByteArray& f, bool suo) { wskDownload_DataArrival(f, suo); };
}

int SessioneDownload::connessione_socket_download() {
  const int conversazione = prendi();
  lblLetturaTrans_.Caption = u"reading..."_s;
  lblLetturaTrans_.Caption = u"establishing connection..."_s;
  chiudi_e_attendi();
  if (!in_corso(conversazione)) return conversazione;
  lettura_ = Lettura::mai;
  wskDownload_.chiama(corrente_.indirizzo(), porta_transazioni);
  pausa(0);
  return conversazione;
}

qint16 SessioneDownload::verifica_collegamento() {
  const int conversazione = numero_connessione();
  scambio_.risposta_collegamento.clear();
  const auto risposto = [this](const auto&...) { return !scambio_.risposta_collegamento.isEmpty(); };
  const Atteso risposta{"00010", minimo_collegamento, risposto};
  bool esito = false;
  for (int tentativi = 0; tentativi < 2 && in_corso(conversazione); ++tentativi) {
    svuota_ricezione();
    wskDownload_.invia(componi_frame("00010"));
    esito = risposto() || !wskDownload_.attendi(risposta, 2).fallito();
  }
  return esito ? 0 : 1;
}

Esito<QByteArray> SessioneDownload::leggi_seriale() {
  scambio_.buffer_download.clear();
  const auto dieci_cifre = [](const QByteArray& frame) {
    return seriale(frame).size() == cifre_seriale && solo_cifre(seriale(frame));
  };
  const Esito<QByteArray> risposta =
      wskDownload_.chiedi(componi_frame("0001B"), 1, testa_risposta + cifre_seriale, dieci_cifre);
  if (risposta.fallito()) return risposta.errore();
  if (!risposta_buona(*risposta))
    return Errore{risposta_negativa, messaggio_risposta(campo_frame(*risposta, 6, 2))};
  return seriale(*risposta).toByteArray();
}

Esito<QByteArray> SessioneDownload::scambia(QByteArrayView frame, int secondi, qsizetype dati) {
  scambio_.stato_risposta = 0;
  return wskDownload_.chiedi(frame, secondi, testa_risposta + dati);
}

Esito<QByteArray> SessioneDownload::scambia_due_volte(QByteArrayView frame, int secondi) {
  const int conversazione = numero_connessione();
  Esito<QByteArray> primo = scambia(frame, secondi);
  if (!in_corso(conversazione)) return errore_conversazione_finita();
  return accettata(primo) ? primo : scambia(frame, secondi);
}

void SessioneDownload::chiedi_conta() {
  wskDownload_.invia(frame_conta_transazioni);
}

void SessioneDownload::chiedi_transazione() {
  scambio_.conferma_transazione = 'N';
  lettura_ = Lettura::chiesta;
  wskDownload_.invia(frame_leggi_transazione);
}

bool SessioneDownload::attendi_conferma(int secondi) {
  const auto confermata = [this](const QByteArray&) { return scambio_.conferma_transazione == 'S'; };
  return !wskDownload_.attendi({"00037", testa_risposta, confermata}, secondi).fallito();
}

void SessioneDownload::conferma_transazione() {
  if (lettura_ == Lettura::presa) lettura_ = Lettura::confermata;
  wskDownload_.invia(frame_conferma_transazione);
}

void SessioneDownload::trattieni(int quante, bool tick) {
  const bool prima = tick_fermi();
  tenute_ += quante;
  if (tick) tick_fermi_ += quante;
  if (tick_fermi() != prima && tick_cambiati) tick_cambiati();
}

void SessioneDownload::wskDownload_DataArrival(const QByteArray& frame, bool suo) {
  if (suo) scambio_.buffer_download = frame;
  if (!prima_decisione(frame, suo) && suo) seconda_decisione(frame);
}

// Returns true when nothing else is to be done for this frame.
bool SessioneDownload::prima_decisione(const QByteArray& frame, bool suo) {
  const QByteArrayView codice = codice_comando(frame);
  const bool buona = risposta_buona(frame);
  if (codice == "00010" && buona && suo) {
    scambio_.risposta_collegamento = campo_frame(frame, 8, frame.size() - 10).toByteArray();
  } else if (codice == "00039" && conta_accettata(frame)) {
    if (leggi_transazioni) leggi_transazioni(campo_frame(frame, 8, 4).toShort());
    return true;
  } else if (codice == "00037" && buona) {
    if (lettura_ == Lettura::mai || lettura_ == Lettura::confermata) scambio_.conferma_transazione = 'S';
  } else if (codice == "00036" && record_atteso(frame)) {
    if (acquisisci_transazione) acquisisci_transazione(frame);
  }
  return false;
}

// Not inside somebody's wait: the records stay in the cabinet until the next visit.
bool SessioneDownload::conta_accettata(const QByteArray& frame) const {
  const QByteArrayView numero = campo_frame(frame, 8, 4);
  return risposta_buona(frame) && frame_intero(frame) && frame.size() >= 12 && solo_cifre(numero) &&
         !tenuta() && !wskDownload_.in_attesa();
}

// One acknowledgement for one request: of two replies to one, or of one that nobody asked for, the second
// would be acknowledged too, and the cabinet would drop the record behind it unread.
bool SessioneDownload::record_atteso(const QByteArray& frame) {
  if (tenuta() || frame.size() <= 30 || !frame_intero(frame)) return false;
  if (lettura_ == Lettura::mai) return true;
  if (lettura_ != Lettura::chiesta) return false;
  lettura_ = Lettura::presa;
  return true;
}

void SessioneDownload::seconda_decisione(const QByteArray& frame) {
  const QByteArrayView codice = codice_comando(frame);
  const bool buona = risposta_buona(frame);
  scambio_.stato_risposta = buona ? 1 : 2;
  if (!buona) return;
  const qsizetype ritorno = frame_intero(frame) ? 1 : 0;
  if (codice == "00030")
    scambio_.risposta_dati = campo_frame(frame, 8, frame.size() - testa_risposta - ritorno).toByteArray();
  if (codice == "00035") scambio_.risposta_dati = campo_frame(frame, 8, 4).toByteArray();
}

}  // namespace lokera
