#include "link/sessione_download.h"

#include "link/protocollo.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr quint16 porta_transazioni = 10001;

// How long a reply must be for its reader: code, reply code, and what is looked at behind them.
constexpr qsizetype testa_risposta = 7;
constexpr qsizetype cifre_seriale = 10;
constexpr qsizetype minimo_collegamento = 11;

}  // namespace

SessioneDownload::SessioneDownload(WinsockFactory& fabbrica, PolledWait& attesa, Scambio& scambio,
                                   const LokeraCorrente& corrente, Label& lblLetturaTrans)
    : wskDownload(fabbrica.crea_winsock()),
      attesa_(attesa),
      scambio_(scambio),
      corrente_(corrente),
      lblLetturaTrans_(lblLetturaTrans) {
  wskDownload->DataArrival = [this](qsizetype n) { wskDownload_DataArrival(n); };
}

void SessioneDownload::chiudi() {
  prendi();
  wskDownload->Close();
}

void SessioneDownload::chiudi_e_attendi() {
  wskDownload->Close();
  attesa_.attendi(3, [this] { return wskDownload->State() == socket_chiuso; });
}

int SessioneDownload::connessione_socket_download() {
  const int conversazione = prendi();
  lblLetturaTrans_.Caption = u"reading..."_s;
  lblLetturaTrans_.Caption = u"establishing connection..."_s;
  chiudi_e_attendi();
  if (!in_corso(conversazione)) return conversazione;
  lettura_ = Lettura::mai;
  const QString indirizzo = corrente_.indirizzo();
  wskDownload->Protocol(Protocol::tcp);
  wskDownload->RemoteHost(indirizzo);
  wskDownload->RemotePort(porta_transazioni);
  wskDownload->Connect(indirizzo, porta_transazioni);
  attesa_.attendi_oltre(0);
  return conversazione;
}

qint16 SessioneDownload::verifica_collegamento() {
  const int conversazione = numero_connessione_;
  scambio_.risposta_collegamento.clear();
  const QByteArray frame = componi_frame("00010");
  const auto risposto = [this] { return !scambio_.risposta_collegamento.isEmpty(); };
  bool esito = false;
  for (int tentativi = 0; tentativi < 2 && in_corso(conversazione); ++tentativi) {
    scambio_.buffer_ricezione.clear();
    esito = chiedi(frame, 2, minimo_collegamento, risposto);
  }
  return esito ? 0 : 1;
}

QByteArray SessioneDownload::leggi_seriale() {
  scambio_.buffer_download.clear();
  const auto seriale = [this] { return campo_frame(scambio_.buffer_download, 8, cifre_seriale); };
  const auto dieci_cifre = [&] { return seriale().size() == cifre_seriale && solo_cifre(seriale()); };
  const bool letto = chiedi(componi_frame("0001B"), 1, testa_risposta + cifre_seriale, dieci_cifre);
  return letto && risposta_buona(scambio_.buffer_download) ? seriale().toByteArray() : QByteArray();
}

qint16 SessioneDownload::scambia(QByteArrayView frame, int secondi, qsizetype dati) {
  scambio_.stato_risposta = 0;
  const auto risposto = [this] { return scambio_.stato_risposta != 0; };
  return chiedi(frame, secondi, testa_risposta + dati, risposto) ? scambio_.stato_risposta : qint16(0);
}

qint16 SessioneDownload::scambia_due_volte(QByteArrayView frame, int secondi) {
  const int conversazione = numero_connessione_;
  const qint16 primo = scambia(frame, secondi);
  if (!in_corso(conversazione)) return 0;
  return primo == 0 || primo == 2 ? scambia(frame, secondi) : primo;
}

// Sends and waits until `pronta` holds; false also when the conversation ended meanwhile.
bool SessioneDownload::chiedi(QByteArrayView frame, int secondi, qsizetype minimo,
                              const std::function<bool()>& pronta) {
  wskDownload->SendData(frame);
  return attendi(secondi, codice_comando(frame), minimo, pronta);
}

bool SessioneDownload::attendi(int secondi, QByteArrayView comando, qsizetype minimo,
                               const std::function<bool()>& pronta) {
  // An exchange that begins inside another's wait takes the session from it.
  if (!scambio_.attesa.comando.isEmpty() && in_corso(scambio_.attesa.conversazione)) prendi();
  const int conversazione = numero_connessione_;
  const InAttesa attesa(scambio_, {comando.toByteArray(), minimo, conversazione});
  attesa_.attendi(secondi, [&] { return !in_corso(conversazione) || pronta(); });
  return in_corso(conversazione) && pronta();
}

void SessioneDownload::chiedi_transazione() {
  scambio_.conferma_transazione = 'N';
  lettura_ = Lettura::chiesta;
  wskDownload->SendData(frame_leggi_transazione);
}

bool SessioneDownload::attendi_conferma(int secondi) {
  return attendi(secondi, "00037", testa_risposta, [this] { return scambio_.conferma_transazione == 'S'; });
}

void SessioneDownload::conferma_transazione() {
  if (lettura_ == Lettura::presa) lettura_ = Lettura::confermata;
  wskDownload->SendData(frame_conferma_transazione);
}

void SessioneDownload::wskDownload_DataArrival(qsizetype /*bytesTotal*/) {
  const QByteArray frame = wskDownload->GetData();
  // Anything without a reply code is no frame.
  if (frame.size() < testa_risposta || !solo_ascii(frame)) return;
  const bool suo = riempie(frame);
  if (suo) scambio_.buffer_download = frame;
  if (!prima_decisione(frame, suo) && suo) seconda_decisione(frame);
}

// While an exchange waits, only the reply to its own command fills a slot: a late one to an earlier command
// says nothing about this one.
bool SessioneDownload::riempie(const QByteArray& frame) const {
  const Scambio::Attesa& attesa = scambio_.attesa;
  if (attesa.comando.isEmpty()) return true;
  return codice_comando(frame) == attesa.comando && (frame_intero(frame) || frame.size() >= attesa.minimo);
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
         scambio_.attesa.comando.isEmpty();
}

// One acknowledgement for one request: of two replies to one, or of one that nobody asked for, the second
// would be acknowledged too, and the cabinet would drop the record behind it unread.
bool SessioneDownload::record_atteso(const QByteArray& frame) {
  if (frame.size() <= 30 || !frame_intero(frame)) return false;
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
