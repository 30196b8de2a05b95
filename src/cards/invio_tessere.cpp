#include "cards/invio_tessere.h"

#include "cards/maschera.h"
#include "link/protocollo.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr int attesa_scrittura_s = 2;
constexpr int attesa_rilettura_s = 3;
constexpr char record_assente[] = "14";

// Archive digit and position, as they stand behind the command code.
QByteArray posto(qint16 tipo, qint32 posizione) {
  return QByteArray::number(tipo) + QByteArray::number(posizione).rightJustified(4, '0');
}

QByteArray frame_cancella(qint16 tipo, qint32 posizione) {
  return componi_frame("00032" + posto(tipo, posizione));
}

}  // namespace

Esito<QString> conta_record(SessioneDownload& sessione, TipoRecord tipo) {
  sessione.prendi();
  const auto risposta = sessione.scambia(componi_frame("00035" + QByteArray::number(tipo)), 5, 4);
  if (!accettata(risposta)) return Errore{senza_risposta, u"nessuna risposta"_s};
  return QString::fromLatin1(campo_frame(*risposta, 8, 4));
}

InvioTessere::InvioTessere(Database& db, const Clock& orologio, SessioneDownload& sessione,
                           const Giorno& giorno, const LokeraCorrente& corrente)
    : db_(db),
      orologio_(orologio),
      sessione_(sessione),
      giorno_(giorno),
      corrente_(corrente),
      coda_(db.connessione_db),
      posizioni_(db.connessione_db) {}

bool InvioTessere::fallito(const Errore& errore) const {
  if (errore.fallito() && segnala) segnala(errore);
  return errore.fallito();
}

// The queue may have turned over since the caller read it: what it says now counts.
Esito<bool> InvioTessere::permessa(const Inizio& c, const QString& codice, OperazioneCoda operazione) {
  const auto attesa = coda_.in_attesa(codice, c.lokera);
  if (attesa.fallito()) return attesa.errore();
  return attesa->value_or(operazione) == operazione;
}

qint16 InvioTessere::invia_record_operatore(const QString& codice, qint32& posizione, qint16 tipo) {
  const Inizio c = inizio();
  QByteArray record = codice.toLatin1();
  if (tipo == record_operatore) {
    const auto da_scrivere = permessa(c, codice, OperazioneCoda::scrittura);
    if (fallito(da_scrivere.errore()) || !*da_scrivere) return 1;
    const auto assegnata = posizioni_.assegna(codice, c.lokera);
    if (fallito(assegnata.errore())) return 1;
    posizione = *assegnata;
    // A mask that could not be worked out is never sent: it would lock the person out of every key.
    auto da_inviare = record_di(codice);
    if (fallito(da_inviare.errore())) return 1;
    record = da_inviare.prendi();
  }
  if (!scrivi_e_verifica(c, posto(tipo, posizione), record)) return 1;
  return tipo == record_operatore && fallito(scritta(c, codice, posizione, record)) ? 1 : 0;
}

Esito<QByteArray> InvioTessere::record_di(const QString& codice) {
  const QTime adesso = orologio_.adesso().time();
  const auto maschera = calcola_maschera(db_.connessione_db, codice, giorno_.giorno_corrente(), adesso);
  if (maschera.fallito()) return maschera.errore();
  return codice.toLatin1() + maschera_esadecimale(*maschera);
}

bool InvioTessere::scrivi_e_verifica(const Inizio& c, QByteArrayView testa, const QByteArray& record) {
  const QByteArray scrittura = componi_frame("00031" + testa.toByteArray() + record);
  if (!accettata(sessione_.scambia_due_volte(scrittura, attesa_scrittura_s)) || interrotta(c)) return false;
  const QByteArray rilettura = componi_frame("00030" + testa.toByteArray());
  const Esito<QByteArray> risposta = sessione_.scambia(rilettura, attesa_rilettura_s, record.size());
  return accettata(risposta) && !interrotta(c) && campo_frame(*risposta, 8, record.size()) == record;
}

// The record lies there for certain now, over whatever was there before. If the card's groups or bands have
// changed while the cabinet was answering, the queue keeps the card for the next visit.
Errore InvioTessere::scritta(const Inizio& c, const QString& codice, qint32 posizione,
                             const QByteArray& record) {
  const auto adesso = record_di(codice);
  if (adesso.fallito()) return adesso.errore();
  return in_transazione(db_.connessione_db, [&] {
    Errore errore = posizioni_.confermata(c.lokera, posizione);
    return errore.fallito() || *adesso != record ? errore : coda_.servita_scrittura(codice, c.lokera);
  });
}

qint16 InvioTessere::cancella_operatore_lokera(const QString& codice, qint32& posizione, qint16 tipo) {
  const Inizio c = inizio();
  const auto da_cancellare = permessa(c, codice, OperazioneCoda::cancellazione);
  if (fallito(da_cancellare.errore()) || !*da_cancellare) return 1;
  const auto liberata = posizioni_.libera(codice, c.lokera);
  if (fallito(liberata.errore())) return 1;
  const bool trovata = liberata->has_value();
  if (trovata) {
    posizione = **liberata;
    const QByteArray frame = frame_cancella(tipo, posizione);
    if (!accettata(sessione_.scambia_due_volte(frame, attesa_scrittura_s)) || interrotta(c)) return 1;
  }
  const Errore errore = in_transazione(db_.connessione_db, [&] {
    Errore e = trovata ? posizioni_.confermata(c.lokera, posizione) : Errore{};
    return e.fallito() ? e : coda_.servita_cancellazione(codice, c.lokera);
  });
  return fallito(errore) ? 1 : 0;
}

qint16 InvioTessere::ripeti_cancellazioni() {
  const Inizio c = inizio();
  const auto posizioni = posizioni_.da_confermare(c.lokera);
  if (fallito(posizioni.errore())) return 1;
  bool tutte = true;
  bool muta = false;
  for (qsizetype i = 0; i < posizioni->size() && !muta; ++i) {
    if (!ripeti_cancellazione(c, posizioni->at(i), muta)) tutte = false;
    if (interrotta(c)) return 1;
  }
  return tutte ? 0 : 1;
}

bool InvioTessere::ripeti_cancellazione(const Inizio& c, qint32 posizione, bool& muta) {
  const QByteArray frame = frame_cancella(record_operatore, posizione);
  const Esito<QByteArray> risposta = sessione_.scambia_due_volte(frame, attesa_scrittura_s);
  muta = risposta.fallito();
  if (muta || interrotta(c)) return false;
  const bool assente = campo_frame(*risposta, 6, 2) == record_assente;
  if (!accettata(risposta) && !assente) return false;
  return !fallito(posizioni_.confermata(c.lokera, posizione));
}

}  // namespace lokera
