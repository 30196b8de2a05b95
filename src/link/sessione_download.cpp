#include "link/sessione_download.h"

#include <algorithm>

#include "link/protocollo.h"

namespace lokera {

namespace {

constexpr quint16 porta_transazioni = 10001;

bool quattro_cifre(QByteArrayView testo) {
  return testo.size() == 4 && std::ranges::all_of(testo, [](char c) { return c >= '0' && c <= '9'; });
}

}  // namespace

SessioneDownload::SessioneDownload(WinsockFactory& fabbrica, PolledWait& attesa, Scambio& scambio,
                                   const Label& lblIndirizzoIP, Label& lblLetturaTrans)
    : wskDownload(fabbrica.crea_winsock()),
      attesa_(attesa),
      scambio_(scambio),
      lblIndirizzoIP_(lblIndirizzoIP),
      lblLetturaTrans_(lblLetturaTrans) {
  wskDownload->DataArrival = [this](qsizetype n) { wskDownload_DataArrival(n); };
}

void SessioneDownload::chiudi_e_attendi() {
  wskDownload->Close();
  attesa_.attendi(3, [this] { return wskDownload->State() == socket_chiuso; });
}

void SessioneDownload::connessione_socket_download() {
  lblLetturaTrans_.Caption = QStringLiteral("reading...");
  lblLetturaTrans_.Caption = QStringLiteral("establishing connection...");
  chiudi_e_attendi();
  ++numero_connessione_;
  const QString indirizzo = normalizza_ip(lblIndirizzoIP_.Caption);
  wskDownload->Protocol(Protocol::tcp);
  wskDownload->RemoteHost(indirizzo);
  wskDownload->RemotePort(porta_transazioni);
  wskDownload->Connect(indirizzo, porta_transazioni);
  attesa_.attendi_oltre(0);
}

qint16 SessioneDownload::verifica_collegamento() {
  scambio_.risposta_collegamento.clear();
  const QByteArray frame = componi_frame("00010");
  for (int tentativi = 0; tentativi < 2; ++tentativi) {
    scambio_.buffer_ricezione.clear();
    wskDownload->SendData(frame);
    attesa_.attendi(2, [this] { return !scambio_.risposta_collegamento.isEmpty(); });
  }
  return scambio_.risposta_collegamento.isEmpty() ? 1 : 0;
}

qint16 SessioneDownload::scambia(QByteArrayView frame, int secondi) {
  scambio_.stato_risposta = 0;
  wskDownload->SendData(frame);
  attesa_.attendi(secondi, [this] { return scambio_.stato_risposta != 0; });
  return scambio_.stato_risposta;
}

qint16 SessioneDownload::scambia_due_volte(QByteArrayView frame, int secondi) {
  const int mia = numero_connessione_;
  const qint16 primo = scambia(frame, secondi);
  // On a connection that somebody else has made the frame would reach another cabinet.
  return (primo == 0 || primo == 2) && mia == numero_connessione_ ? scambia(frame, secondi) : primo;
}

void SessioneDownload::wskDownload_DataArrival(qsizetype /*bytesTotal*/) {
  const QByteArray frame = wskDownload->GetData();
  // Anything without a reply code is no frame.
  if (frame.size() < 7 || !solo_ascii(frame)) return;
  scambio_.buffer_download = frame;
  if (!prima_decisione(frame)) seconda_decisione(frame);
}

// Returns true when nothing else is to be done for this frame.
bool SessioneDownload::prima_decisione(const QByteArray& frame) {
  const QByteArrayView codice = codice_comando(frame);
  const bool buona = risposta_buona(frame);
  if (codice == "00010" && buona) {
    scambio_.risposta_collegamento = campo_frame(frame, 8, frame.size() - 10).toByteArray();
  } else if (codice == "00039" && buona && frame.size() >= 12 && quattro_cifre(campo_frame(frame, 8, 4))) {
    if (leggi_transazioni) leggi_transazioni(campo_frame(frame, 8, 4).toShort());
    return true;
  } else if (codice == "00037" && buona) {
    scambio_.conferma_transazione = 'S';
  } else if (codice == "00036" && frame.size() > 30) {
    if (acquisisci_transazione) acquisisci_transazione();
  }
  return false;
}

void SessioneDownload::seconda_decisione(const QByteArray& frame) {
  const QByteArrayView codice = codice_comando(frame);
  const bool buona = risposta_buona(frame);
  scambio_.stato_risposta = buona ? 1 : 2;
  if (!buona) return;
  if (codice == "00030") scambio_.risposta_dati = campo_frame(frame, 8, frame.size() - 8).toByteArray();
  if (codice == "00035") scambio_.risposta_dati = campo_frame(frame, 8, 4).toByteArray();
}

}  // namespace lokera
