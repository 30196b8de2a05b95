#include "ledger/righe_registro.h"

#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

QVariant data_o_null(const QDateTime& data) {
  return data.isValid() ? QVariant(data) : QVariant();
}

}  // namespace

StatoChiave stato_dopo(const Movimento& movimento) {
  if (movimento.operazione != tipo_prelievo) return {u" "_s, {}};
  return {movimento.operatore, data_o_null(movimento.data)};
}

Errore scrivi_stato(Connection& connessione, const QString& chiave, const StatoChiave& stato) {
  return connessione.Execute(u"UPDATE tessere_chiavi SET operatore = ?, uscita = ? WHERE codice = ?"_s,
                             {stato.operatore, stato.uscita, chiave});
}

Esito<qlonglong> nuovo_id_movimento(Connection& connessione) {
  Recordset rs;
  if (const Errore e = rs.Open(u"SELECT MAX(id) AS ultimo FROM movimenti"_s, connessione); e.fallito())
    return e;
  return rs.numero(u"ultimo") + 1;
}

Errore aggiungi_movimento(Connection& connessione, qlonglong id, const Movimento& m) {
  return connessione.Execute(
      u"INSERT INTO movimenti (id, operatore, intestazione, chiave, operazione, data)"
      " VALUES (?, ?, ?, ?, ?, ?)"_s,
      {id, m.operatore, m.intestazione, m.chiave, QString(QLatin1Char(m.operazione)), data_o_null(m.data)});
}

}  // namespace lokera
