// The mask of a card with 200 keys in 10 groups with bands, beside the plain method.
#include "bench/maschera_semplice.h"
#include "bench/misura.h"
#include "bench/sito_misure.h"
#include "cards/maschera.h"
#include "store/date_jet.h"

using namespace lokera;
using namespace lokera::bench;
using namespace Qt::StringLiterals;

int main() {
  const QString giorno = u"Lunedì"_s;
  const SitoMisure sito(
      {.chiavi = 200, .tessere = 1000, .gruppi_chiavi = 10, .gruppi_per_tessera = 10, .giorno = giorno});
  Database db;
  Connection& c = db.connessione_db;
  if (apri_database(db, sito.cartella())) return 1;
  // Every other group is closed in the morning.
  (void)c.Execute(u"update fascie_orarie set dalle_ore = ? where gruppo_chiavi % 2 = 0"_s,
                  {ora(QTime(15, 0))});
  const QTime adesso(10, 0);
  QByteArray veloce, semplice;
  const Confronto misure = a_turno(
      200,
      [&] {
        Maschera m;
        if (calcola_maschera(c, SitoMisure::tessera(7), giorno, adesso, m)) rinuncia("maschera");
        veloce = maschera_esadecimale(m);
      },
      [&] { semplice = maschera_semplice(c, SitoMisure::tessera(7), giorno, adesso); });
  if (veloce != semplice || veloce.count('0') == veloce.size()) rinuncia("maschere diverse");
  stampa_velocita("mask of 200 keys in 10 groups: times faster than the plain method",
                  1e6 / misure.nostro.mediana(), 1e6 / misure.pavimento.mediana(), 10, "masks/s");
}
