#include "ledger/registro.h"

#include "ledger/righe_registro.h"
#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

qlonglong numero_o_nessuno(const Recordset& rs, QStringView campo) {
  const QVariant valore = rs.valore(campo);
  return valore.isValid() ? valore.toLongLong() : -1;
}

}  // namespace

Esito<ChiaveRegistrata> Registro::registra(const Movimento& movimento) {
  Esito<ChiaveRegistrata> chiave{ChiaveRegistrata{}};
  const Errore errore = in_transazione(c_, [&] {
    chiave = aggiorna_chiave(movimento);
    return chiave.fallito() ? chiave.errore() : aggiungi(movimento);
  });
  if (errore.fallito()) return errore;
  return chiave;
}

Esito<ChiaveRegistrata> Registro::aggiorna_chiave(const Movimento& movimento) {
  Recordset rs;
  if (const Errore e = rs.Open(u"SELECT * FROM tessere_chiavi WHERE codice = ?"_s, c_, {movimento.chiave});
      e.fallito())
    return e;
  if (rs.eof()) return ChiaveRegistrata{};
  const ChiaveRegistrata chiave{rs.testo(u"descrizione"), numero_o_nessuno(rs, u"lokera"),
                                numero_o_nessuno(rs, u"posizione")};
  rs.Close();
  if (const Errore e = scrivi_stato(c_, movimento.chiave, stato_dopo(movimento)); e.fallito()) return e;
  return chiave;
}

Esito<QString> Registro::intestazione(const QString& tessera) {
  Recordset rs;
  if (const Errore e = rs.Open(u"SELECT * FROM tessere_operatori WHERE codice = ?"_s, c_, {tessera});
      e.fallito())
    return e;
  return rs.eof() ? u"Tessera non registrata"_s : rs.testo(u"intestazione");
}

Errore Registro::aggiungi(const Movimento& movimento) {
  const auto id = nuovo_id_movimento(c_);
  return id.fallito() ? id.errore() : aggiungi_movimento(c_, *id, movimento);
}

}  // namespace lokera
