// What changes a cabinet's row, its parameters and its network settings.
#include "commissioning/frm_param_lokere.h"
#include "forms/messaggi.h"
#include "link/protocollo.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

// The reply as a person reads it.
QString mostrata(const QByteArray& risposta) {
  return QString::fromLatin1(risposta.endsWith('\r') ? risposta.chopped(1) : risposta);
}

}  // namespace

bool frm_param_lokere::connetti_lokera() {
  const QString indirizzo = pannello.txtIndirizzoIP.Text;
  const char16_t* errore = nullptr;
  if (indirizzo.isEmpty())
    errore = u"Indirizzo IP della lokera non configurato!";
  else if (indirizzo.size() != lunghezza_indirizzo)
    errore = u"Indirizzo IP della lokera non valido!";
  else if (!linea_.connetti(indirizzo, pannello.txtPort.Text))
    errore = u"errore in connessione Winsock TCP/Ip protocol";
  if (errore) avvisa(QString::fromUtf16(errore));
  return !errore;
}

void frm_param_lokere::cmdRegPar_Click() {
  const Attesa attesa(*this);
  const ParametriLokera p = pannello.parametri();
  if (!registra_riga(p)) return;
  if (!connetti_lokera()) return fine_modifica();
  if (!invia_parametri(p)) return;
  avvisa(
      u"Parametri impostati correttamente. Uscire dal programma e rientrare perchè le modifiche abbiano effetto."_s);
  (void)linea_.chiedi(testo_orologio(servizi_.attesa.orologio().adesso()), 2);
  Command5_Click();
  fine_modifica();
  if (lokere_cambiate) lokere_cambiate();
}

Errore frm_param_lokere::numero_valido(qlonglong vecchio, qlonglong& nuovo) {
  bool numero = false;
  nuovo = pannello.txtID.Text().trimmed().toLongLong(&numero);
  if (!numero || nuovo < 1 || nuovo > id_massimo_lokera)
    return {1, traduci(u"Il numero della lokera va da 1 a 32767."_s)};
  if (nuovo == vecchio) return {};
  const auto esiste = archivio_.esiste(nuovo);
  if (esiste.fallito()) return esiste.errore();
  return *esiste ? Errore{1, traduci(u"Esiste già una lokera con questo numero!"_s)} : Errore();
}

// The row first: what was typed is there to be sent again when the cabinet can't be reached.
bool frm_param_lokere::registra_riga(const ParametriLokera& p) {
  const qlonglong vecchio = lista.id();
  qlonglong nuovo = 0;
  Errore e = numero_valido(vecchio, nuovo);
  if (!e.fallito()) e = archivio_.registra(vecchio, nuovo, pannello.valori(p));
  if (e.fallito()) {
    mostra_errore(e);
    return false;
  }
  lista.imposta_cella(u"id", QString::number(nuovo));
  lista.imposta_cella(u"descrizione", pannello.txtDescrizione.Text);
  lista.imposta_cella(u"ip_lokera", pannello.txtIndirizzoIP.Text);
  if (vecchio != 0 && vecchio != nuovo && lokera_rinumerata) lokera_rinumerata(vecchio, nuovo);
  if (lokere_cambiate) lokere_cambiate();
  return true;
}

bool frm_param_lokere::invia_parametri(const ParametriLokera& p) {
  const auto risposta = linea_.chiedi(testo_parametri(p), 1);
  if (risposta.fallito())
    avvisa(u"Mancata risposta dalla lokera!  Riprovare la registrazione."_s, u"Errore"_s);
  else if (!risposta_buona(*risposta))
    servizi_.messaggi.mostra(
        traduci(u"Parametri NON impostati! Riprovare la registrazione."_s) + u"\r\n"_s + mostrata(*risposta),
        traduci(u"Errore"_s));
  return !risposta.fallito() && risposta_buona(*risposta);
}

void frm_param_lokere::Command2_Click() {
  const Attesa attesa(*this);
  const ReteLokera rete = pannello.rete();
  linea_.chiudi_datagrammi();
  linea_.wsk_udp.pausa(0);
  linea_.rivolgi_a_tutti();
  for (const QString& indirizzo : {rete.indirizzo, rete.maschera, rete.gateway})
    if (indirizzo.size() < lunghezza_indirizzo)
      return avvisa(u"formato parametri errato (es. 192.168.015.250)."_s);
  linea_.wsk_udp.pausa(0);
  if (!esito_rete(linea_.wsk_udp.chiedi(componi_frame(testo_impostazioni(rete)), 2))) return;
  memorizza_indirizzo(rete.indirizzo);
  fine_modifica();
  avvisa(
      u"La lokera adesso viene resettata. Attendere qualche istante e rifare la ricerca broadcast per verificare le nuove impostazioni!"_s);
  linea_.chiudi_datagrammi();
  Command5_Click();
  lista.svuota();
  grdLok_RowColChange();
}

// False when the cabinet refused. One that keeps silent may have taken the settings all the same.
bool frm_param_lokere::esito_rete(const Esito<QByteArray>& risposta) {
  if (risposta.fallito()) {
    servizi_.messaggi.mostra(
        u"Time out!\r"_s +
        traduci(
            u"Accertarsi che la lokera sia collegata attraverso un cavo di rete al PC (i LED verde e giallo della scheda di rete della lokera devono essere accesi e fissi)"_s));
    return true;
  }
  if (risposta_buona(*risposta)) {
    avvisa(u"Parametri di rete impostati correttamente."_s);
    return true;
  }
  servizi_.messaggi.mostra(traduci(u"parametri di rete non impostati"_s) + u' ' + mostrata(*risposta) + u'\n',
                           traduci(u"Errore"_s));
  return false;
}

void frm_param_lokere::memorizza_indirizzo(const QString& indirizzo) {
  if (lista.id() == 0) return;
  if (const Errore e = archivio_.imposta_indirizzo(lista.id(), indirizzo); e.fallito())
    mostra_errore(e);
  else if (lokere_cambiate)
    lokere_cambiate();
}

void frm_param_lokere::Command1_Click() {
  const Attesa attesa(*this);
  const qlonglong id = lista.id();
  if (id == 0) return avvisa(u"lokera non ancora registrata!"_s);
  if (!conferma(
          servizi_.traduttore, servizi_.messaggi,
          u"Le registrazioni della lokera e di TUTTE le CHIAVI ad essa legate nel database verranno eliminate. Confermi?"_s))
    return;
  if (const Errore e = archivio_.elimina(id); e.fallito()) return mostra_errore(e);
  lista.grdLok.RemoveItem(lista.grdLok.Row());
  grdLok_RowColChange();
  if (lokera_rinumerata) lokera_rinumerata(id, 0);
  if (lokere_cambiate) lokere_cambiate();
  avvisa(u"Eliminazione eseguita!"_s);
}

void frm_param_lokere::chiedi_reset() {
  const Attesa attesa(*this);
  if (conferma(servizi_.traduttore, servizi_.messaggi,
               u"Tutte le lokere accese vengono resettate. Continuare ?"_s))
    Command5_Click();
}

void frm_param_lokere::Command5_Click() {
  linea_.azzera_tutte();
}

}  // namespace lokera
