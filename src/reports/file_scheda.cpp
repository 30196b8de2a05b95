#include "reports/file_scheda.h"

#include <functional>

#include "cards/maschera.h"
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

}  // namespace

QString scrivi_chiavi(Connection& connessione, const QString& file) {
  return scrivi_tabella(connessione, file,
                        u"SELECT codice, posizione FROM tessere_chiavi ORDER BY posizione"_s,
                        [](const QByteArray& codice) { return codice + ';'; });
}

QString scrivi_tessere(Connection& connessione, const QString& file) {
  return scrivi_tabella(connessione, file,
                        u"SELECT codice, posizione FROM tessere_operatori ORDER BY posizione"_s,
                        [&](const QByteArray& codice) -> Esito<QByteArray> {
                          const auto maschera = maschera_della_scheda(connessione, QString::fromUtf8(codice));
                          if (maschera.fallito()) return maschera.errore();
                          return codice + ',' + maschera_esadecimale(*maschera) + ';';
                        });
}

}  // namespace lokera
