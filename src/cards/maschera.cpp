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

Esito<qlonglong> gruppo_operatore(Connection& connessione, const QString& codice) {
  Recordset rs;
  if (const Errore e = rs.Open(u"select * from tessere_operatori where codice = ?"_s, connessione, {codice});
      e.fallito())
    return e;
  return rs.eof() ? -1 : rs.numero(u"gruppo");
}

Esito<GruppiConFasce> leggi_fasce(Connection& connessione, qlonglong gruppo, const QString& giorno,
                                  QTime adesso) {
  GruppiConFasce fasce;
  Recordset rs;
  Errore e = rs.Open(
      u"select gruppo_chiavi, dalle_ore, alle_ore from fascie_orarie where gruppo_oper = ? and giorno = ?"_s,
      connessione, {gruppo, giorno});
  while (!e.fallito() && !rs.eof()) {
    bool& aperta = fasce[rs.valore(0).toLongLong()];
    aperta = aperta ||
             fascia_in_vigore(rs.valore(1).toDateTime().time(), rs.valore(2).toDateTime().time(), adesso);
    e = rs.MoveNext();
  }
  if (e.fallito()) return e;
  return fasce;
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

Esito<std::vector<ChiaveAppesa>> chiavi_di_tessera(Connection& connessione, const QString& codice, int da,
                                                   int a) {
  std::vector<ChiaveAppesa> chiavi;
  Recordset rs;
  Errore e = rs.Open(
      u"SELECT tessere_chiavi.posizione, tessere_chiavi.gruppo FROM (gruppi_tessera INNER JOIN"
      " tessere_chiavi ON gruppi_tessera.codice = tessere_chiavi.gruppo) WHERE gruppi_tessera.tessera = ?"
      " and tessere_chiavi.posizione >= ? and tessere_chiavi.posizione <= ?"_s,
      connessione, {codice, da, a});
  while (!e.fallito() && !rs.eof()) {
    chiavi.push_back({rs.valore(0).toLongLong(), rs.valore(1).toLongLong()});
    e = rs.MoveNext();
  }
  if (e.fallito()) return e;
  return chiavi;
}

Esito<Maschera> calcola_maschera(Connection& connessione, const QString& codice, const QString& giorno,
                                 QTime adesso) {
  const auto gruppo = gruppo_operatore(connessione, codice);
  if (gruppo.fallito()) return gruppo.errore();
  const auto fasce = leggi_fasce(connessione, *gruppo, giorno, adesso);
  if (fasce.fallito()) return fasce.errore();
  const auto chiavi = chiavi_di_tessera(connessione, codice, 0, posizioni_maschera - 1);
  if (chiavi.fallito()) return chiavi.errore();
  Maschera maschera;
  for (const ChiaveAppesa& chiave : *chiavi)
    if (fasce->value(chiave.gruppo, true)) maschera.set(static_cast<size_t>(chiave.posizione));
  return maschera;
}

}  // namespace lokera
