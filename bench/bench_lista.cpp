// A list of movements, beside a loop that reads the text of the same query. The number of rows may be given:
// a million makes a file of 200 MB first, which takes its time.
#include <QCoreApplication>

#include "adapters/real_machine.h"
#include "bench/ciclo_sorvegliato.h"
#include "bench/misura.h"
#include "bench/nudo.h"
#include "bench/sito_misure.h"
#include "forms/griglia.h"

using namespace lokera;
using namespace lokera::bench;
using namespace Qt::StringLiterals;

namespace {

#define DA_MOVIMENTI                                                                                      \
  " from (movimenti left join tessere_chiavi on movimenti.chiave = tessere_chiavi.codice)  where id <> 0" \
  "  order by movimenti.data"
constexpr const char* ricerca = "select movimenti.*, tessere_chiavi.descrizione" DA_MOVIMENTI;
constexpr const char* mostrate =
    "select data, operazione, movimenti.operatore, intestazione, chiave, descrizione" DA_MOVIMENTI;
#undef DA_MOVIMENTI

}  // namespace

int main(int argc, char** argv) {
  const int righe = argc > 1 ? std::atoi(argv[1]) : 200'000;
  const SitoMisure sito({.lokere = 7, .chiavi = 1000, .tessere = 5000, .movimenti = righe});
  const QCoreApplication app(argc, argv);
  RealMachine computer;
  const Machine pc = computer.macchina();
  CicloSorvegliato ciclo(pc.ciclo);
  PolledWait attesa(pc.orologio, ciclo);
  Database db;
  if (apri_database(db, sito.cartella()).fallito()) return 1;
  Connection& c = db.connessione_db;
  Traduttore traduttore(db);
  ServiziGriglia servizi{traduttore, pc.messaggi, attesa};
  ElencoFinestre elenco;
  Finestra finestra(elenco, u"frm_movimenti"_s);
  SSOleDBGrid grd(finestra, u"grd"_s);
  griglia lista(grd, servizi);
  lista.layout(c, finestra.nome(), grd.nome(), c, {});
  Nudo nudo(sito.file());
  Istruzione tutto(nudo, ricerca);
  const Confronto misure = a_turno(
      righe > 200'000 ? 2 : 10,
      [&] {
        ciclo.apri();
        if (!lista.popola(c, QString::fromLatin1(ricerca))) rinuncia("popola");
        ciclo.chiudi();
      },
      [&] { (void)tutto.leggi_tutto(); });
  if (grd.Rows() != righe || grd.Cols() != 6) rinuncia("righe perse");
  const auto testo = static_cast<double>(Istruzione(nudo, mostrate).leggi_tutto());
  stampa_valore("  rows in the list", grd.Rows(), 0, "rows");
  stampa_rapporto("popola / a loop that reads the same query's text", misure.nostro.mediana() / 1000,
                  misure.pavimento.mediana() / 1000, 2, "ms");
  stampa_rapporto("memory of the list / its text", static_cast<double>(grd.byte_occupati()) / 1e6,
                  testo / 1e6, 2, "MB");
  stampa_valore("  longest stretch of it without input", ciclo.massimo_ms(), 100, "ms");
}
