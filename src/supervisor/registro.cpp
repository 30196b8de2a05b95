#include "supervisor/registro.h"

#include <QRegularExpression>

#include "platform/momento.h"
#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

qlonglong numero_o_nessuno(const Recordset& rs, QStringView campo) {
  const QVariant valore = rs.valore(campo);
  return valore.isValid() ? valore.toLongLong() : -1;
}

}  // namespace

Errore Registro::registra(const Movimento& movimento, ChiaveRegistrata& chiave) {
  return in_transazione(db_.connessione_db, [&] {
    Errore errore = aggiorna_chiave(movimento, chiave);
    return errore.fallito() ? errore : aggiungi_movimento(movimento);
  });
}

Errore Registro::aggiorna_chiave(const Movimento& movimento, ChiaveRegistrata& chiave) {
  chiave = {};
  Recordset rs;
  if (Errore e = rs.Open(u"SELECT * FROM tessere_chiavi WHERE codice = ?"_s, db_.connessione_db,
                         {movimento.chiave}, Cursore::aggiornabile);
      e.fallito())
    return e;
  if (rs.eof()) return {};
  chiave = {rs.testo(u"descrizione"), numero_o_nessuno(rs, u"lokera"), numero_o_nessuno(rs, u"posizione")};
  const bool prelievo = movimento.operazione == 'P';
  if (Errore e = rs.imposta(u"operatore", prelievo ? movimento.operatore : u" "_s); e.fallito()) return e;
  const bool con_data = prelievo && movimento.data.isValid();
  if (Errore e = rs.imposta(u"uscita", con_data ? QVariant(movimento.data) : QVariant()); e.fallito())
    return e;
  return rs.Update();
}

Errore Registro::nuovo_id(qlonglong& id) {
  Recordset rs;
  if (Errore e = rs.Open(u"SELECT MAX(id) AS ultimo FROM movimenti"_s, db_.connessione_db); e.fallito())
    return e;
  id = rs.numero(u"ultimo") + 1;
  return {};
}

Errore Registro::aggiungi_movimento(const Movimento& movimento) {
  qlonglong id = 1;
  if (Errore e = nuovo_id(id); e.fallito()) return e;
  Recordset rs;
  if (Errore e =
          rs.Open(u"SELECT * FROM movimenti WHERE id = ?"_s, db_.connessione_db, {id}, Cursore::aggiornabile);
      e.fallito())
    return e;
  if (rs.eof()) {
    if (Errore e = rs.AddNew(); e.fallito()) return e;
  }
  const std::pair<QStringView, QVariant> valori[] = {
      {u"id", id},
      {u"operatore", movimento.operatore},
      {u"intestazione", movimento.intestazione},
      {u"chiave", movimento.chiave},
      {u"operazione", QString(QLatin1Char(movimento.operazione))},
      {u"data", movimento.data.isValid() ? QVariant(movimento.data) : QVariant()},
  };
  for (const auto& [nome, valore] : valori) {
    if (Errore e = rs.imposta(nome, valore); e.fallito()) return e;
  }
  return rs.Update();
}

QDateTime data_transazione(const QString& data_ora) {
  static const QRegularExpression forma(u"^(\\d\\d)/(\\d\\d)/(\\d\\d) (\\d\\d)\\.(\\d\\d)\\.(\\d\\d)$"_s);
  const auto m = forma.match(data_ora);
  if (!m.hasMatch()) return {};
  const int anno = m.captured(3).toInt();
  const QDate giorno(anno < 30 ? 2000 + anno : 1900 + anno, m.captured(2).toInt(), m.captured(1).toInt());
  const QTime ora(m.captured(4).toInt(), m.captured(5).toInt(), m.captured(6).toInt());
  return momento(giorno, ora);
}

}  // namespace lokera
