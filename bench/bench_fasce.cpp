// 500 bands due and 5,000 cards: the scheduled run beside one statement that queues the same pairs.
#include <QCoreApplication>

#include "access/fasce.h"
#include "adapters/real_machine.h"
#include "bench/ciclo_sorvegliato.h"
#include "bench/misura.h"
#include "bench/nudo.h"
#include "bench/sito_misure.h"

using namespace Qt::StringLiterals;

using namespace lokera;
using namespace lokera::bench;

namespace {

constexpr int giri = 5;
constexpr const char* in_una =
    "insert into aggiorn_tessere_oper (id_tessera, id_lokera, operazione) select distinct t.codice, k.lokera,"
    " 'I' from fascie_orarie f join tessere_operatori t on t.gruppo = f.gruppo_oper join gruppi_tessera g on"
    " g.tessera = t.codice and g.codice = f.gruppo_chiavi join (select distinct gruppo, lokera from"
    " tessere_chiavi where lokera is not null) k on k.gruppo = g.codice where f.giorno = ? and not exists"
    " (select 1 from aggiorn_tessere_oper a where a.ID_tessera = t.codice and a.ID_lokera = k.lokera)";

qlonglong coppie(Nudo& nudo) {
  Istruzione conta(nudo, "select count(*) from aggiorn_tessere_oper");
  conta.passo();
  return conta.numero(0);
}

}  // namespace

int main(int argc, char** argv) {
  const QString oggi = nome_giorno(QDate::currentDate().dayOfWeek());
  const SitoMisure sito({.lokere = 20,
                         .chiavi = 1000,
                         .tessere = 5000,
                         .gruppi_chiavi = 10,
                         .gruppi_operatori = 50,
                         .gruppi_per_tessera = 3,
                         .giorno = oggi,
                         .fasce_di_notte = true});
  Nudo nudo(sito.copia(u"copia.mdb"_s));
  Istruzione statement(nudo, in_una);
  const QCoreApplication app(argc, argv);
  RealMachine computer;
  CicloSorvegliato ciclo(computer.macchina().ciclo);
  PolledWait attesa(computer.macchina().orologio, ciclo);
  Database db;
  if (apri_database(db, sito.cartella()).fallito()) return 1;
  Traduttore traduttore(db);
  Giorno giorno(db, attesa.orologio(), traduttore);
  FasceOrarie fasce(db, attesa, giorno);
  fasce.segnala = [](const Errore& e) { rinuncia(qPrintable(e.descrizione)); };
  Nudo controllo(sito.file());
  const QByteArray oggi_utf8 = oggi.toUtf8();
  Campioni nostro, pavimento;
  for (int i = 0; i < giri; ++i) {
    controllo.esegui("delete from aggiorn_tessere_oper");
    controllo.esegui("update fascie_orarie set data_esecuzione = null");
    nudo.esegui("delete from aggiorn_tessere_oper");
    ciclo.apri();
    nostro.aggiungi(cronometra([&] { fasce.applica_fasce_orarie(); }));
    ciclo.chiudi();
    pavimento.aggiungi(cronometra([&] {
      statement.lega(1, oggi_utf8).passo();
      statement.azzera();
    }));
    if (coppie(controllo) != coppie(nudo) || coppie(nudo) == 0) rinuncia("coppie diverse");
  }
  stampa_valore("  pairs queued", static_cast<double>(coppie(nudo)), 0, "rows");
  stampa_rapporto("500 bands due, 5,000 cards / one statement that queues the same pairs",
                  nostro.mediana() / 1000, pavimento.mediana() / 1000, 3, "ms");
  stampa_valore("  longest stretch that the run holds the loop", ciclo.massimo_ms(), 50, "ms");
}
