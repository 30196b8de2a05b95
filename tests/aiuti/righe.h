#pragma once

#include <gtest/gtest.h>

#include "platform/letterali.h"
#include "store/recordset.h"

/// For the messages of failed comparisons.
inline void PrintTo(const QString& testo, std::ostream* os) {
  *os << '"' << testo.toStdString() << '"';
}

namespace lokera::prova {

inline void esegui(Connection& c, const QString& statement, const QVariantList& valori = {}) {
  const Errore e = c.Execute(statement, valori);
  EXPECT_FALSE(e.fallito()) << statement.toStdString() << ": " << e.descrizione.toStdString();
}

/// All rows of a query, cells joined by "|", Null as "-"; the message of a query that fails.
inline QStringList righe(Connection& c, const QString& statement, const QVariantList& valori = {}) {
  Recordset rs;
  if (const Errore e = rs.Open(statement, c, valori); e.fallito()) return {u"ERRORE: "_s + e.descrizione};
  QStringList tutte;
  for (; !rs.eof(); (void)rs.MoveNext()) {
    QStringList celle;
    for (int i = 0; i < rs.conta_campi(); ++i)
      celle += rs.nullo(i) ? u"-"_s : QString::fromUtf8(rs.testo_grezzo(i));
    tutte += celle.join(u'|');
  }
  return tutte;
}

}  // namespace lokera::prova
