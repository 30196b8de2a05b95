// What goes into the table and into the cabinet.
#include "cards/codice_tessera.h"
#include "cards/frm_tessere.h"
#include "cards/maschera.h"
#include "forms/celle_nominate.h"
#include "forms/messaggi.h"
#include "link/protocollo.h"

namespace lokera {

using namespace Qt::StringLiterals;

std::optional<int> frm_tessere::leggi_posizione(const QString& testo) {
  bool numero = false;
  const int posizione = testo.trimmed().toInt(&numero);
  return numero && posizione >= 0 && posizione < posizioni_maschera ? std::optional(posizione) : std::nullopt;
}

RigaChiave frm_tessere::dai_campi() const {
  return {txtCodice.Text().trimmed(), lokera(), leggi_posizione(Text2.Text).value_or(-1),
          Text1.Text().trimmed(), comboG.Text().trimmed().toLongLong()};
}

// The code of the row that "modifica" was pressed on, which a registration that then failed at the cabinet
// has changed.
QString frm_tessere::in_tabella() const {
  return sospesa_.isEmpty() ? grd.cella(grd.Row(), u"codice") : sospesa_;
}

// The first one alone ends it; of the others each says its own.
bool frm_tessere::campi_validi() {
  if (txtCodice.Text() != txtCodiceVer.Text()) {
    avvisa(u"codice e verifica diversi!"_s);
    return false;
  }
  const QString errato = u"Campo obbligatorio errato"_s;
  const auto numero = [](const QString& testo) {
    bool buono = false;
    (void)testo.trimmed().toShort(&buono);
    return buono;
  };
  const struct {
    bool buono;
    QString testo, titolo;
  } prove[] = {
      {codice_registrabile(txtCodice.Text), u"Inserire un codice tessera valido."_s, errato},
      {!Text1.Text().trimmed().isEmpty(), u"Inserire descrizione."_s, u"Campo obbligatorio mancante"_s},
      {numero(comboLKR.Text), u"ID lokera mancante o non corretto."_s, errato},
      {numero(comboG.Text), u"Gruppo mancante o non corretto."_s, errato}};
  bool buoni = true;
  for (const auto& p : prove) {
    buoni = buoni && p.buono;
    if (!p.buono) avvisa(p.testo, p.titolo, Icona::critica);
  }
  if (buoni && !leggi_posizione(Text2.Text)) {
    avvisa(u"La posizione va da 0 a 199."_s);
    return false;
  }
  return buoni;
}

bool frm_tessere::posizione_presa(const RigaChiave& chiave, const QString& identita) {
  const auto altra = archivio_.occupata_da(chiave.lokera, chiave.posizione, identita);
  if (altra.fallito()) mostra_errore(altra.errore());
  if (altra.fallito() || !*altra) return altra.fallito();
  servizi_.griglie.messaggi.mostra(
      u"La posizione nr. %1 è già occupata dalla tessera n. %2"_s.arg(Text2.Text().trimmed(), **altra));
  return true;
}

void frm_tessere::Command1_Click() {
  const Attesa attesa(*this);
  const QString codice = txtCodice.Text().trimmed();
  if (!registra()) return;
  nuovo_record = false;
  sospesa_.clear();
  elenca_tessere();
  grd.Row(riga_con(grd, u"codice", codice));
  cambiAttivazione(false);
  avvisa(u"Registrazione eseguita!"_s);
}

// Of the fields as they stand; whether the cabinet has the key and its cards are queued.
bool frm_tessere::registra() {
  if (!campi_validi()) return false;
  const RigaChiave chiave = dai_campi();
  const QString identita = nuovo_record ? chiave.codice : in_tabella();
  if (doppia(chiave.codice, nuovo_record ? sospesa_ : identita) || posizione_presa(chiave, identita))
    return false;
  const Clessidra clessidra(puntatore_);
  servizi_.griglie.attesa.cedi();
  const bool registrata = registra_chiave(identita, chiave);
  conta_trattenute();
  return registrata;
}

// The row is written before the cabinet is told; done once more, the same row is found.
bool frm_tessere::registra_chiave(const QString& identita, const RigaChiave& chiave) {
  if (const Errore e = archivio_.prima_della_lokera(identita, chiave, interattivo); e.fallito()) {
    mostra_errore(e);
    return false;
  }
  if (interattivo) sospesa_ = chiave.codice;
  auto posizione = static_cast<qint32>(chiave.posizione);
  if (invio_.invia_record_operatore(chiave.codice, posizione, record_chiave) != 0) return false;
  const Errore e = archivio_.registrata_in_lokera(chiave);
  if (e.fallito()) mostra_errore(e);
  return !e.fallito();
}

// The row that is deleted is the one that "modifica" was pressed on, whatever has been typed since.
void frm_tessere::Command5_Click() {
  if (!scelta_una_lokera()) return;
  const Attesa attesa(*this);
  const auto chiave = archivio_.trova(in_tabella());
  if (chiave.fallito()) return mostra_errore(chiave.errore());
  if (!*chiave) return;
  const QByteArray posizione = QByteArray::number((*chiave)->posizione).rightJustified(4, '0');
  if (!accettata(servizi_.sessione.scambia(componi_frame("000321" + posizione), 3)))
    return avvisa(u"Errore in aggiornamento dati su lokera. Riprovare..."_s);
  if (const Errore e = archivio_.elimina(**chiave); e.fallito()) return mostra_errore(e);
  elenca_tessere();
  cambiAttivazione(false);
}

void frm_tessere::Command7_Click() {
  const Attesa attesa(*this);
  nuovo_record = false;
  if (!servizi_.sessione.connessa())
    return avvisa(u"Errore di Comunicazione computer-lokera. Operazione annullata."_s);
  if (!conferma(
          servizi_.griglie.traduttore, servizi_.griglie.messaggi,
          u"Vuoi riaggiornare le tessere chiavi nella lokera? (prima di questa operazione è necessario aver azzerato l'archivio da Parametri Sistema)"_s))
    return;
  interattivo = false;
  aggiorna_tutte();
  interattivo = true;
}

void frm_tessere::aggiorna_tutte() {
  Lavoro::Corsa corsa(lavoro, grd.Rows());
  for (int riga = 0; corsa.continua(riga); ++riga) {
    grd.Row(riga);
    campi_da_riga();
    servizi_.griglie.attesa.cedi();
    (void)registra();
    servizi_.sessione.pausa(0);
  }
  if (corsa.finito()) avvisa(u"Aggiornamento Tessere Chiavi riuscito"_s);
}

}  // namespace lokera
