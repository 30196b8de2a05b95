// The counters of a cabinet, and its clearing.
#include "commissioning/frm_param_lokere.h"
#include "forms/messaggi.h"
#include "link/protocollo.h"

namespace lokera {

using namespace Qt::StringLiterals;

// The line is opened for who has not been there yet; that it can't be is told in one box.
bool frm_param_lokere::in_linea() {
  const QString indirizzo = pannello.txtIndirizzoIP.Text;
  if (linea_.connessa() ||
      (indirizzo.size() == lunghezza_indirizzo && linea_.connetti(indirizzo, pannello.txtPort.Text)))
    return true;
  avvisa(u"Errore di comunicazione computer-lokera. Operazione annullata!"_s);
  return false;
}

void frm_param_lokere::Command10_Click() {
  const Attesa attesa(*this);
  if (!in_linea()) return;
  leggi_contatore("000351", lblChiaviLok, u"Chiavi reg. sulla lokera: "_s);
  leggi_contatore("000350", lblTessereLok, u"Operatori reg. sulla. lokera: "_s);
}

bool frm_param_lokere::leggi_contatore(QByteArrayView testo, Label& etichetta, const QString& dicitura) {
  const auto buona = [](const QByteArray& frame) { return risposta_buona(frame) && frame.size() >= 11; };
  const auto risposta = linea_.chiedi(testo, 5, 11, buona);
  if (risposta.fallito())
    avvisa(u"Errore di comunicazione con la lokera."_s);
  else
    etichetta.Caption = traduci(dicitura) + QString::fromLatin1(campo_frame(*risposta, 8, 4));
  return !risposta.fallito();
}

void frm_param_lokere::Command6_Click() {
  const Attesa attesa(*this);
  if (!in_linea()) return;
  if (!conferma(
          servizi_.traduttore, servizi_.messaggi,
          u"Questo comando elimina le tessere operatori e chiavi registrate nella lokera. Continuare ?"_s))
    return;
  if (!svuota_archivio("000331", u"Errore nell'azzeramento archivio chiavi nella memoria della lokera."_s))
    return;
  if (!svuota_archivio("000330", u"Errore nell'azzeramento archivio operatori nella memoria della lokera."_s))
    return;
  avvisa(u"Eliminazione eseguita!"_s);
  Command10_Click();
}

// A refusal is told as it comes; the wait for a success goes on.
bool frm_param_lokere::svuota_archivio(QByteArrayView testo, const QString& mancato) {
  const bool fatto = !linea_.chiedi(testo, 5, testa_risposta, risposta_buona).fallito();
  if (!fatto) servizi_.messaggi.mostra(traduci(mancato) + traduci(u"Operazione annullata."_s));
  return fatto;
}

}  // namespace lokera
