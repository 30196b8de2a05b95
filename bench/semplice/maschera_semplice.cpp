#include "bench/semplice/maschera_semplice.h"

#include "cards/maschera.h"
#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

bool bit_acceso(Connection& c, const QString& codice, qlonglong gruppo_chiavi, const QString& giorno,
                QTime adesso) {
  Recordset operatore;
  (void)operatore.Open(u"select * from tessere_operatori where codice = ?"_s, c, {codice});
  const qlonglong gruppo = operatore.eof() ? -1 : operatore.numero(u"gruppo");
  operatore.Close();
  Recordset fasce;
  (void)fasce.Open(
      u"select fascie_orarie.dalle_ore, fascie_orarie.alle_ore from fascie_orarie where"
      " gruppo_oper = ? and gruppo_chiavi = ? and giorno = ?"_s,
      c, {gruppo, gruppo_chiavi, giorno});
  if (fasce.eof()) return true;
  for (; !fasce.eof(); (void)fasce.MoveNext()) {
    if (fascia_in_vigore(fasce.valore(0).toDateTime().time(), fasce.valore(1).toDateTime().time(), adesso))
      return true;
  }
  return false;
}

QByteArray blocco(Connection& c, const QString& codice, int inizio, const QString& giorno, QTime adesso) {
  QByteArray testo = "00000000";
  Recordset rs;
  (void)rs.Open(
      u"SELECT tessere_chiavi.posizione, tessere_chiavi.gruppo FROM (gruppi_tessera INNER JOIN"
      " tessere_chiavi ON gruppi_tessera.codice = tessere_chiavi.gruppo) WHERE"
      " gruppi_tessera.tessera = ? and tessere_chiavi.posizione >= ? and"
      " tessere_chiavi.posizione <= ? ORDER BY tessere_chiavi.posizione"_s,
      c, {codice, inizio, inizio + 7});
  for (; !rs.eof(); (void)rs.MoveNext()) {
    if (bit_acceso(c, codice, rs.numero(u"gruppo"), giorno, adesso))
      testo[rs.numero(u"posizione") - inizio] = '1';
  }
  return byte_esadecimale(testo);
}

}  // namespace

QByteArray maschera_semplice(Connection& connessione, const QString& codice, const QString& giorno,
                             QTime adesso) {
  QByteArray maschera;
  for (int i = 1; i <= 25; ++i) maschera += blocco(connessione, codice, (i - 1) * 8, giorno, adesso);
  return maschera;
}

}  // namespace lokera
