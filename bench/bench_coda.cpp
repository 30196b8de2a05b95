// 10,000 cards at 20 cabinets: the full update of all cards, and the passes of a key, beside one statement
// that queues the same pairs.
#include <QCoreApplication>

#include <algorithm>

#include "bench/misura.h"
#include "bench/nudo.h"
#include "bench/sito_misure.h"
#include "ledger/coda_tessere.h"
#include "store/database.h"

using namespace Qt::StringLiterals;

using namespace lokera;
using namespace lokera::bench;

namespace {

constexpr int giri = 5;
constexpr int quante = 10000;
constexpr const char* tutte_in_una =
    "insert into aggiorn_tessere_oper (id_tessera, id_lokera, operazione) select distinct g.tessera, "
    "k.lokera,"
    " 'I' from gruppi_tessera g join (select distinct gruppo, lokera from tessere_chiavi where lokera is not"
    " null) k on k.gruppo = g.codice where not exists (select 1 from aggiorn_tessere_oper a where "
    "a.ID_tessera"
    " = g.tessera and a.ID_lokera = k.lokera)";
constexpr const char* gruppo_in_una =
    "insert into aggiorn_tessere_oper (id_tessera, id_lokera, operazione) select tessera, 1, 'I' from"
    " gruppi_tessera g where codice = 1 and not exists (select 1 from aggiorn_tessere_oper a where"
    " a.ID_tessera = g.tessera and a.ID_lokera = 1)";

qlonglong conta(Nudo& nudo) {
  Istruzione conta(nudo, "select count(*) from aggiorn_tessere_oper");
  conta.passo();
  return conta.numero(0);
}

void bene(const Errore& e) {
  if (e.fallito()) rinuncia(qPrintable(e.descrizione));
}

class Banco {
 public:
  Banco()
      : sito_({.lokere = 20,
               .chiavi = 2000,
               .tessere = quante,
               .gruppi_chiavi = 50,
               .gruppi_operatori = 50,
               .gruppi_per_tessera = 10}),
        nudo_(sito_.copia(u"copia.mdb"_s)),
        controllo_(sito_.file()) {
    bene(apri_database(db_, sito_.cartella()));
    tessere_.reserve(quante);
    for (int i = 0; i < quante; ++i) tessere_.push_back(SitoMisure::tessera(i));
  }

  /// `in_una` fills an empty queue; `lavoro` ours, into one that `prima` has filled or an empty one.
  template <class Lavoro>
  void misura(const char* nome, const char* in_una, const char* prima, double limite, const Lavoro& lavoro) {
    Istruzione statement(nudo_, in_una);
    Campioni nostro, pavimento;
    for (int i = 0; i < giri; ++i) {
      for (Nudo* n : {&nudo_, &controllo_}) n->esegui("delete from aggiorn_tessere_oper");
      controllo_.esegui("delete from tessere_da_conservare");
      if (*prima != 0) controllo_.esegui(prima);
      nostro.aggiungi(cronometra(lavoro));
      pavimento.aggiungi(cronometra([&] {
        statement.passo();
        statement.azzera();
      }));
      if (conta(controllo_) != conta(nudo_) || conta(nudo_) == 0) rinuncia("coppie diverse");
    }
    stampa_valore("  pairs queued", static_cast<double>(conta(nudo_)), 0, "rows");
    stampa_rapporto(nome, nostro.mediana() / 1000, pavimento.mediana() / 1000, limite, "ms");
  }

  void tutte() {
    CodaTessere coda(db_.connessione_db);
    for (std::span<const QString> resto = tessere_; !resto.empty();) {
      const size_t n = std::min(resto.size(), TessereScelte::al_massimo);
      tratto_.aggiungi(
          cronometra([&] { bene(coda.accoda_scritture(TessereScelte::ovunque(resto.first(n)))); }));
      resto = resto.subspan(n);
    }
  }
  void chiave() {
    CodaTessere coda(db_.connessione_db);
    const TessereScelte gruppo = TessereScelte::del_gruppo(1, 1);
    bene(coda.accoda_cancellazioni(gruppo, MotivoConservare::attende_chiave));
    bene(coda.accoda_scritture(gruppo));
  }
  double tratto_massimo_ms() const { return tratto_.massimo() / 1000; }

 private:
  SitoMisure sito_;
  Nudo nudo_, controllo_;
  Database db_;
  std::vector<QString> tessere_;
  Campioni tratto_;
};

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  Banco banco;
  banco.misura("10,000 cards queued at all their cabinets / one statement", tutte_in_una, "", 3,
               [&] { banco.tutte(); });
  banco.misura("  the same, all queued already / one statement, none queued", tutte_in_una, tutte_in_una, 3,
               [&] { banco.tutte(); });
  stampa_valore("  longest of its passes", banco.tratto_massimo_ms(), 50, "ms");
  banco.misura("a key's two passes over its group / one statement that queues it once", gruppo_in_una, "", 0,
               [&] { banco.chiave(); });
}
