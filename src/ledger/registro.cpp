#include "ledger/registro.h"

#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

qlonglong numero_o_nessuno(const Recordset& rs, QStringView campo) {
  const QVariant valore = rs.valore(campo);
  return valore.isValid() ? valore.toLongLong() : -1;
}

QVariant data_o_null(const QDateTime& data) {
  return data.isValid() ? QVariant(data) : QVariant();
}

}  // namespace

Esito<ChiaveRegistrata> Registro::registra(const Movimento& movimento) {
  Esito<ChiaveRegistrata> chiave{ChiaveRegistrata{}};
  const Errore errore = in_transazione(c_, [&] {
    chiave = aggiorna_chiave(movimento);
    return chiave.fallito() ? chiave.errore() : aggiungi_movimento(movimento);
  });
  if (errore.fallito()) return errore;
  return chiave;
}

Esito<ChiaveRegistrata> Registro::aggiorna_chiave(const Movimento& movimento) {
  Recordset rs;
  if (const Errore e = rs.Open(u"SELECT * FROM tessere_chiavi WHERE codice = ?"_s, c_, {movimento.chiave},
                               Cursore::aggiornabile);
      e.fallito())
    return e;
  if (rs.eof()) return ChiaveRegistrata{};
  const ChiaveRegistrata chiave{rs.testo(u"descrizione"), numero_o_nessuno(rs, u"lokera"),
                                numero_o_nessuno(rs, u"posizione")};
  const bool esce = movimento.operazione == tipo_prelievo;
  if (const Errore e = rs.imposta(u"operatore", esce ? movimento.operatore : u" "_s); e.fallito()) return e;
  if (const Errore e = rs.imposta(u"uscita", esce ? data_o_null(movimento.data) : QVariant()); e.fallito())
    return e;
  if (const Errore e = rs.Update(); e.fallito()) return e;
  return chiave;
}

Esito<QString> Registro::intestazione(const QString& tessera) {
  Recordset rs;
  if (const Errore e = rs.Open(u"SELECT * FROM tessere_operatori WHERE codice = ?"_s, c_, {tessera});
      e.fallito())
    return e;
  return rs.eof() ? u"Tessera non registrata"_s : rs.testo(u"intestazione");
}

Esito<qlonglong> Registro::nuovo_id() {
  Recordset rs;
  if (const Errore e = rs.Open(u"SELECT MAX(id) AS ultimo FROM movimenti"_s, c_); e.fallito()) return e;
  return rs.numero(u"ultimo") + 1;
}

Errore Registro::aggiungi_movimento(const Movimento& movimento) {
  const auto id = nuovo_id();
  if (id.fallito()) return id.errore();
  Recordset rs;
  if (Errore e = rs.Open(u"SELECT * FROM movimenti WHERE id = ?"_s, c_, {*id}, Cursore::aggiornabile);
      e.fallito())
    return e;
  if (rs.eof()) {
    if (Errore e = rs.AddNew(); e.fallito()) return e;
  }
  const std::pair<QStringView, QVariant> valori[] = {
      {u"id", *id},
      {u"operatore", movimento.operatore},
      {u"intestazione", movimento.intestazione},
      {u"chiave", movimento.chiave},
      {u"operazione", QString(QLatin1Char(movimento.operazione))},
      {u"data", data_o_null(movimento.data)},
  };
  for (const auto& [nome, valore] : valori) {
    if (Errore e = rs.imposta(nome, valore); e.fallito()) return e;
  }
  return rs.Update();
}

}  // namespace lokera
