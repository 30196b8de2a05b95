// The mask of a card with 200 keys in 10 groups with bands, beside its bare statements and the plain method.
#include "bench/misura.h"
#include "bench/nudo.h"
#include "bench/semplice/maschera_semplice.h"
#include "bench/sito_misure.h"
#include "cards/maschera.h"
#include "store/database.h"
#include "store/date_jet.h"

using namespace lokera;
using namespace lokera::bench;
using namespace Qt::StringLiterals;

namespace {

/// What the mask is made of, read by the engine's own calls: the card's group, its bands, its keys.
class Pavimento {
 public:
  Pavimento(const QString& file, const QString& giorno) : nudo_(file), giorno_(giorno.toUtf8()) {}

  qlonglong leggi(const QByteArray& tessera) {
    if (!gruppo_.lega(1, tessera).passo()) rinuncia("tessera");
    const qlonglong gruppo = gruppo_.numero(0);
    gruppo_.azzera();
    return somma(fasce_.lega(1, gruppo).lega(2, giorno_)) + somma(chiavi_.lega(1, tessera));
  }

 private:
  static qlonglong somma(Istruzione& s) {
    qlonglong tutto = 0;
    while (s.passo())
      for (int i = 0; i < s.colonne(); ++i) tutto += i == 0 ? s.numero(i) : s.testo(i).size();
    s.azzera();
    return tutto;
  }

  Nudo nudo_;
  const QByteArray giorno_;
  Istruzione gruppo_{nudo_, "select gruppo from tessere_operatori where codice = ?"};
  Istruzione fasce_{nudo_,
                    "select gruppo_chiavi, dalle_ore, alle_ore from fascie_orarie where gruppo_oper = ?"
                    " and giorno = ?"};
  Istruzione chiavi_{nudo_,
                     "select posizione, gruppo from gruppi_tessera join tessere_chiavi on"
                     " gruppi_tessera.codice = tessere_chiavi.gruppo where gruppi_tessera.tessera = ? and"
                     " posizione >= 0 and posizione <= 199"};
};

}  // namespace

int main() {
  const QString giorno = u"Lunedì"_s;
  const SitoMisure sito(
      {.chiavi = 200, .tessere = 1000, .gruppi_chiavi = 10, .gruppi_per_tessera = 10, .giorno = giorno});
  Database db;
  Connection& c = db.connessione_db;
  if (apri_database(db, sito.cartella()).fallito()) return 1;
  // Every other group is closed in the morning.
  (void)c.Execute(u"update fascie_orarie set dalle_ore = ? where gruppo_chiavi % 2 = 0"_s,
                  {ora(QTime(15, 0))});
  const QTime adesso(10, 0);
  QByteArray veloce, semplice;
  const auto calcola = [&] {
    const auto m = calcola_maschera(c, SitoMisure::tessera(7), giorno, adesso);
    if (m.fallito()) rinuncia("maschera");
    veloce = maschera_esadecimale(*m);
  };
  Pavimento pavimento(sito.file(), giorno);
  const QByteArray tessera = SitoMisure::tessera(7).toUtf8();
  const Confronto nuda = a_turno(400, calcola, [&] { (void)pavimento.leggi(tessera); });
  stampa_rapporto("mask of 200 keys in 10 groups / its three bare statements", nuda.nostro.mediana(),
                  nuda.pavimento.mediana(), 2);
  const Confronto misure =
      a_turno(200, calcola, [&] { semplice = maschera_semplice(c, SitoMisure::tessera(7), giorno, adesso); });
  if (veloce != semplice || veloce.count('0') == veloce.size()) rinuncia("maschere diverse");
  stampa_velocita("mask of 200 keys in 10 groups: times faster than the plain method",
                  1e6 / misure.nostro.mediana(), 1e6 / misure.pavimento.mediana(), 10, "masks/s");
}
