#include "cards/invio_tessere.h"

#include "cards/maschera.h"
#include "link/protocollo.h"
#include "store/recordset.h"

namespace lokera {

namespace {

constexpr int attesa_scrittura_s = 2;
constexpr int attesa_rilettura_s = 3;

// Archive digit and position, as they stand behind the command code.
QByteArray posto(qint16 tipo, qint32 posizione) {
  return QByteArray::number(tipo) + QByteArray::number(posizione).rightJustified(4, '0');
}

}  // namespace

InvioTessere::InvioTessere(Database& db, SessioneDownload& sessione, const Giorno& giorno, const Label& lblID)
    : db_(db), sessione_(sessione), giorno_(giorno), lblID_(lblID) {}

qint16 InvioTessere::invia_record_operatore(const QString& codice, qint32& posizione, qint16 tipo) {
  QByteArray record = codice.toLatin1();
  if (tipo == record_operatore) {
    if (assegna_posizione(codice, posizione)) return 1;
    Maschera maschera;
    const QTime adesso = sessione_.attesa().orologio().adesso().time();
    // A mask that could not be worked out is never sent: it would lock the person out of every key.
    if (calcola_maschera(db_.connessione_db, codice, giorno_.giorno_corrente(), adesso, maschera)) return 1;
    record += maschera_esadecimale(maschera);
  }
  if (!scrivi_e_verifica(posto(tipo, posizione), record)) return 1;
  togli_dalla_coda(codice);
  return 0;
}

bool InvioTessere::scrivi_e_verifica(QByteArrayView testa, const QByteArray& record) {
  const QByteArray scrittura = componi_frame("00031" + testa.toByteArray() + record);
  if (const qint16 stato = sessione_.scambia_due_volte(scrittura, attesa_scrittura_s);
      stato == 0 || stato == 2)
    return false;
  if (sessione_.scambia(componi_frame("00030" + testa.toByteArray()), attesa_rilettura_s, record.size()) != 1)
    return false;
  return sessione_.scambio().risposta_dati.startsWith(record);
}

Errore InvioTessere::assegna_posizione(const QString& codice, qint32& posizione) {
  Recordset rs;
  if (Errore e =
          rs.Open(QStringLiteral("select * from posiz_tessere_oper where ID_tessera = ? and ID_lokera = ?"),
                  db_.connessione_db, {codice, id()}, Cursore::aggiornabile))
    return e;
  if (!rs.eof()) {
    posizione = static_cast<qint32>(rs.numero(u"posizione"));
    return {};
  }
  if (Errore e = prima_posizione_libera(posizione)) return e;
  if (Errore e = rs.AddNew()) return e;
  if (Errore e = rs.imposta(u"id_tessera", codice)) return e;
  if (Errore e = rs.imposta(u"id_lokera", id())) return e;
  if (Errore e = rs.imposta(u"posizione", posizione)) return e;
  return rs.Update();
}

// Gaps left by deleted cards are filled first, lowest first.
Errore InvioTessere::prima_posizione_libera(qint32& posizione) {
  posizione = 0;
  Recordset rs;
  Errore e = rs.Open(
      QStringLiteral("SELECT posizione FROM posiz_tessere_oper where ID_lokera = ? ORDER BY posizione"),
      db_.connessione_db, {id()});
  while (!e && !rs.eof() && rs.numero(u"posizione") == posizione) {
    ++posizione;
    e = rs.MoveNext();
  }
  return e;
}

qint16 InvioTessere::cancella_operatore_lokera(const QString& codice, qint32& posizione, qint16 tipo) {
  bool trovata = false;
  if (libera_posizione(codice, posizione, trovata)) return 1;
  if (trovata) {
    const QByteArray frame = componi_frame("00032" + posto(tipo, posizione));
    if (sessione_.scambia_due_volte(frame, attesa_scrittura_s) != 1) return 1;
  }
  togli_dalla_coda(codice);
  togli_dal_registro(codice);
  return 0;
}

Errore InvioTessere::libera_posizione(const QString& codice, qint32& posizione, bool& trovata) {
  Recordset rs;
  if (Errore e =
          rs.Open(QStringLiteral("select * from posiz_tessere_oper where ID_tessera = ? and ID_lokera = ?"),
                  db_.connessione_db, {codice, id()}, Cursore::aggiornabile))
    return e;
  trovata = !rs.eof();
  if (!trovata) return {};
  posizione = static_cast<qint32>(rs.numero(u"posizione"));
  return rs.Delete();
}

void InvioTessere::togli_dalla_coda(const QString& codice) {
  (void)db_.connessione_db.Execute(
      QStringLiteral("delete from aggiorn_tessere_oper where ID_lokera = ? and id_tessera = ?"),
      {id(), codice});
}

// The card leaves the registry when the last cabinet has been served.
void InvioTessere::togli_dal_registro(const QString& codice) {
  Recordset rs;
  if (rs.Open(QStringLiteral("select * from aggiorn_tessere_oper where id_tessera = ? and ID_lokera <> ?"),
              db_.connessione_db, {codice, id()}) ||
      !rs.eof())
    return;
  rs.Close();
  Transazione transazione(db_.connessione_db);
  if (db_.connessione_db.Execute(QStringLiteral("delete FROM tessere_operatori WHERE codice = ?"),
                                 {codice}) ||
      db_.connessione_db.Execute(QStringLiteral("delete FROM gruppi_tessera WHERE tessera = ?"), {codice}))
    return;
  (void)transazione.conferma();
}

}  // namespace lokera
