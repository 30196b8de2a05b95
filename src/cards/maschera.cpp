#include "cards/maschera.h"

#include <QHash>

#include "store/date_jet.h"
#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr char cifre[] = "0123456789ABCDEF";

// Key group -> whether one of its bands is in force. A group that is missing here has no band today.
using GruppiConFasce = QHash<qlonglong, bool>;

Errore gruppo_operatore(Connection& connessione, const QString& codice, qlonglong& gruppo) {
  Recordset rs;
  if (Errore e = rs.Open(u"select * from tessere_operatori where codice = ?"_s, connessione, {codice});
      e.fallito())
    return e;
  gruppo = rs.eof() ? -1 : rs.numero(u"gruppo");
  return {};
}

Errore leggi_fasce(Connection& connessione, qlonglong gruppo, const QString& giorno, QTime adesso,
                   GruppiConFasce& fasce) {
  Recordset rs;
  Errore e = rs.Open(
      u"select gruppo_chiavi, dalle_ore, alle_ore from fascie_orarie"
      " where gruppo_oper = ? and giorno = ?"_s,
      connessione, {gruppo, giorno});
  while (!e.fallito() && !rs.eof()) {
    bool& aperta = fasce[rs.valore(0).toLongLong()];
    aperta = aperta ||
             fascia_in_vigore(rs.valore(1).toDateTime().time(), rs.valore(2).toDateTime().time(), adesso);
    e = rs.MoveNext();
  }
  return e;
}

}  // namespace

QByteArray byte_esadecimale(QByteArrayView bit) {
  unsigned valore = 0;
  for (const char c : bit) {
    valore = valore * 2 + (c == '1' ? 1U : 0U);
    if (valore > 0xFF) return "00";
  }
  return QByteArray{1, cifre[valore >> 4]} + cifre[valore & 15];
}

QByteArray maschera_esadecimale(const Maschera& maschera) {
  QByteArray testo;
  testo.reserve(posizioni_maschera / 4);
  for (size_t p = 0; p < maschera.size(); p += 4) {
    const int nibble = maschera[p] << 3 | maschera[p + 1] << 2 | maschera[p + 2] << 1 | maschera[p + 3] << 0;
    testo += cifre[nibble];
  }
  return testo;
}

bool fascia_in_vigore(QTime dalle, QTime alle, QTime adesso) {
  return minuti_tra(dalle, adesso) > -5 && minuti_tra(adesso, alle) >= 0;
}

Errore calcola_maschera(Connection& connessione, const QString& codice, const QString& giorno, QTime adesso,
                        Maschera& maschera) {
  maschera.reset();
  qlonglong gruppo = -1;
  GruppiConFasce fasce;
  if (Errore e = gruppo_operatore(connessione, codice, gruppo); e.fallito()) return e;
  if (Errore e = leggi_fasce(connessione, gruppo, giorno, adesso, fasce); e.fallito()) return e;
  Recordset rs;
  Errore e = rs.Open(
      u"SELECT tessere_chiavi.posizione, tessere_chiavi.gruppo FROM (gruppi_tessera INNER"
      " JOIN tessere_chiavi ON gruppi_tessera.codice = tessere_chiavi.gruppo) WHERE"
      " gruppi_tessera.tessera = ? and tessere_chiavi.posizione >= ? and"
      " tessere_chiavi.posizione <= ?"_s,
      connessione, {codice, 0, posizioni_maschera - 1});
  Maschera trovate;
  while (!e.fallito() && !rs.eof()) {
    if (fasce.value(rs.valore(1).toLongLong(), true)) trovate.set(rs.valore(0).toULongLong());
    e = rs.MoveNext();
  }
  if (!e.fallito()) maschera = trovate;
  return e;
}

}  // namespace lokera
