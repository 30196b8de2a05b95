#include "access/tessere_di_fascia.h"

#include "store/recordset.h"

namespace lokera {

namespace {

Errore leggi_colonna(Connection& c, const QString& sql, const QVariantList& valori, QVariantList& colonna) {
  Recordset rs;
  Errore e = rs.Open(sql, c, valori);
  while (!e && !rs.eof()) {
    colonna << rs.valore(0);
    e = rs.MoveNext();
  }
  return e;
}

}  // namespace

Errore tessere_di_fascia(Connection& c, qlonglong gruppo_oper, qlonglong gruppo_chiavi,
                         CoppieTessere& coppie) {
  QVariantList lokere;
  QVariantList codici;
  if (Errore e = leggi_colonna(
          c,
          QStringLiteral(
              "select distinct lokera from tessere_chiavi where gruppo = ? and lokera is not null"),
          {gruppo_chiavi}, lokere))
    return e;
  if (lokere.isEmpty()) return {};
  if (Errore e = leggi_colonna(
          c,
          QStringLiteral(
              "select tessere_operatori.codice from (tessere_operatori inner join gruppi_tessera on"
              " tessere_operatori.codice = gruppi_tessera.tessera) where tessere_operatori.gruppo = ? and"
              " gruppi_tessera.codice = ?"),
          {gruppo_oper, gruppo_chiavi}, codici))
    return e;
  for (const QVariant& codice : codici)
    for (const QVariant& lokera : lokere) coppie.emplace(codice.toString(), lokera.toLongLong());
  return {};
}

}  // namespace lokera
