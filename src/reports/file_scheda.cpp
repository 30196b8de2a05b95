#include "reports/file_scheda.h"

#include <QSet>

#include <functional>

#include "cards/maschera.h"
#include "ledger/coda_tessere.h"
#include "reports/file_scritto.h"
#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

using RigaDelCodice = std::function<Esito<QByteArray>(const QByteArray& codice)>;

QString scrivi_tabella(Connection& connessione, const QString& file, const QString& sql,
                       const RigaDelCodice& componi) {
  Recordset rs;
  Errore e = rs.Open(sql, connessione);
  if (e.fallito() || rs.eof()) return e.descrizione;
  FileScritto scritto(file);
  while (!e.fallito() && !rs.eof()) {
    const auto riga = componi(rs.testo_grezzo(0).toByteArray());
    scritto.riga(*riga);
    e = riga.fallito() ? riga.errore() : rs.MoveNext();
  }
  return e.fallito() ? e.descrizione : scritto.completa();
}

Esito<Maschera> maschera_della_scheda(Connection& connessione, const QString& tessera) {
  const auto chiavi = chiavi_di_tessera(connessione, tessera, 1, posizioni_maschera);
  Maschera maschera;
  for (const ChiaveInPosizione& chiave : *chiavi) maschera.set(static_cast<size_t>(chiave.posizione - 1));
  if (chiavi.fallito()) return chiavi.errore();
  return maschera;
}

Esito<QSet<QByteArray>> in_uscita(Connection& connessione) {
  QSet<QByteArray> tessere;
  Recordset rs;
  Errore e = rs.Open(CodaTessere::tutte_in_uscita(), connessione);
  for (; !e.fallito() && !rs.eof(); e = rs.MoveNext()) tessere += rs.testo_grezzo(0).toByteArray();
  if (e.fallito()) return e;
  return tessere;
}

}  // namespace

Esito<bool> righe_come_posizioni(Connection& connessione) {
  Recordset rs;
  Errore e = rs.Open(u"SELECT posizione FROM tessere_chiavi ORDER BY posizione"_s, connessione);
  bool uguali = true;
  for (qlonglong riga = 1; !e.fallito() && !rs.eof(); e = rs.MoveNext(), ++riga)
    uguali = uguali && !rs.nullo(0) && rs.valore(0).toLongLong() == riga;
  if (e.fallito()) return e;
  return uguali;
}

QString scrivi_chiavi(Connection& connessione, const QString& file) {
  return scrivi_tabella(connessione, file,
                        u"SELECT codice, posizione FROM tessere_chiavi ORDER BY posizione"_s,
                        [](const QByteArray& codice) { return codice + ';'; });
}

QString scrivi_tessere(Connection& connessione, const QString& file) {
  const auto escono = in_uscita(connessione);
  if (escono.fallito()) return escono.errore().descrizione;
  return scrivi_tabella(connessione, file,
                        u"SELECT codice, posizione FROM tessere_operatori ORDER BY posizione"_s,
                        [&](const QByteArray& codice) -> Esito<QByteArray> {
                          if (escono->contains(codice)) return codice + ',' + maschera_esadecimale({}) + ';';
                          const auto maschera = maschera_della_scheda(connessione, QString::fromUtf8(codice));
                          if (maschera.fallito()) return maschera.errore();
                          return codice + ',' + maschera_esadecimale(*maschera) + ';';
                        });
}

}  // namespace lokera
