#include "access/esecuzioni_fasce.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

QString chiave(const Recordset& rs) {
  const auto ora = [&](QStringView campo) {
    return rs.valore(campo).toDateTime().time().toString(u"HH:mm"_s);
  };
  return QStringList{QString::number(rs.numero(u"gruppo_oper")), QString::number(rs.numero(u"gruppo_chiavi")),
                     ora(u"dalle_ore"), ora(u"alle_ore"), rs.testo(u"giorno").toCaseFolded()}
      .join(u'|');
}

}  // namespace

Errore EsecuzioniFasce::leggi(Connection& connessione) {
  ultime_.clear();
  Recordset rs;
  Errore e = rs.Open(u"select * from fascie_orarie"_s, connessione);
  while (!e.fallito() && !rs.eof()) {
    const QDateTime ultima = rs.valore(u"data_esecuzione").toDateTime();
    if (ultima.isValid()) ultime_.insert(chiave(rs), ultima);
    e = rs.MoveNext();
  }
  return e;
}

Errore EsecuzioniFasce::ridai(Recordset& fascia) const {
  const QDateTime ultima = ultime_.value(chiave(fascia));
  return fascia.imposta(u"data_esecuzione", ultima.isValid() ? QVariant(ultima) : QVariant());
}

}  // namespace lokera
