#include "forms/zan_form.h"

#include "forms/controlli.h"
#include "platform/momento.h"

namespace lokera {

using namespace Qt::StringLiterals;

void pulisci_valori(Recordset& rs) {
  for (int i = 0; i < rs.conta_campi(); ++i) {
    const Campo& campo = rs.campo(i);
    const bool testo = e_testo(campo.tipo);
    if (!testo && !e_numero(campo.tipo)) continue;
    const QVariant valore = rs.valore(i);
    const bool manca = !valore.isValid() || valore.isNull() || (testo && valore.toString().isEmpty());
    if (!manca) continue;
    // What can't be set is left for Update to refuse.
    (void)rs.imposta(i, testo ? QVariant(u" "_s) : QVariant(0));
  }
}

ZanForm::ZanForm(Database& db, MessageBox& messaggi, const Clock& orologio)
    : db_(db), traduttore_(db), messaggi_(messaggi), orologio_(orologio) {}

void ZanForm::update_record(Recordset& rs) {
  pulisci_valori(rs);
  errore_ = rs.Update().descrizione;
}

bool ZanForm::blocca_record(const QString& tabella, const QString& chiave, const QString& operatore) {
  const QString chi = chiave.trimmed();
  Recordset rs;
  if (rs.Open(u"select * from securety_locks where tabella = ? and chiave = ?"_s, db_.connessione_db,
              {tabella, chi}, Cursore::aggiornabile)
          .fallito())
    return false;
  const QDateTime preso = rs.valore(u"data").toDateTime();
  // Only the days of the month are compared: a lock of the 30th still stands on the 1st.
  const bool scaduto = preso.isValid() && preso.date().day() < orologio_.adesso().date().day();
  const bool libero = rs.eof() || (scaduto && !rs.Delete().fallito());
  const QString altro = libero ? QString() : rs.testo(u"operatore");
  if (!libero && altro.compare(operatore, Qt::CaseInsensitive) != 0) {
    rs.Close();
    mostra_blocco(chiave, altro);
    return false;
  }
  if (libero) (void)rs.AddNew();
  scrivi_blocco(rs, tabella, chi, operatore);
  return true;
}

void ZanForm::scrivi_blocco(Recordset& rs, const QString& tabella, const QString& chiave,
                            const QString& operatore) {
  (void)rs.imposta(u"tabella", tabella);
  (void)rs.imposta(u"chiave", chiave);
  (void)rs.imposta(u"operatore", operatore);
  (void)rs.imposta(u"data", momento(orologio_.adesso().date()));
  if (rs.Update().fallito()) rs.CancelUpdate();
}

void ZanForm::mostra_blocco(const QString& chiave, const QString& operatore) {
  const QString testo = traduttore_.traduci(u"Record "_s) + chiave +
                        traduttore_.traduci(u" già bloccato dall'utente "_s) + operatore + u'\r' +
                        traduttore_.traduci(u"Accesso negato!"_s);
  messaggi_.mostra(testo);
}

void ZanForm::sblocca_record(const QString& tabella, const QString& chiave, const QString& operatore) {
  Recordset rs;
  const QString sql = u"select * from securety_locks where tabella = ? and chiave = ? and operatore = ?"_s;
  if (rs.Open(sql, db_.connessione_db, {tabella, chiave.trimmed(), operatore}, Cursore::aggiornabile)
          .fallito())
    return;
  if (!rs.eof()) (void)rs.Delete();
}

void ZanForm::pulisci() {
  if (!finestra_) return;
  for (Controllo* controllo : finestra_->Controls())
    if (!controllo->Tag().trimmed().isEmpty()) controllo->svuota();
}

}  // namespace lokera
