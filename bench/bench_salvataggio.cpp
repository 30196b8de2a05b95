// 2,000 rows of a list saved, beside bare prepared inserts; both in one transaction, its commit included.
#include <QCoreApplication>

#include "adapters/real_machine.h"
#include "bench/misura.h"
#include "bench/nudo.h"
#include "bench/sito_misure.h"
#include "forms/griglia.h"

using namespace lokera;
using namespace lokera::bench;
using namespace Qt::StringLiterals;

namespace {

constexpr int righe = 2000;
constexpr int giri = 30;

/// A table, how its lists' cells look and how its rows are stored.
struct Tabella {
  const char* che_cosa;
  const char* nome;
  const char* inserimento;
  QStringList (*celle)(int riga);
  void (*lega)(Istruzione& s, int riga);
};

QByteArray numero(int n) {
  return QByteArray::number(n);
}

const Tabella tabelle[] = {
    {"salva_tutto of 2,000 groups / bare prepared inserts", "gruppi",
     "insert into gruppi (codice, descrizione) values (?, ?)",
     [](int i) {
       return QStringList{QString::number(i), u"magazzino numero %1"_s.arg(i)};
     },
     [](Istruzione& s, int i) {
       const QByteArray testo = "magazzino numero " + numero(i);
       s.lega(1, qlonglong(i)).lega(2, testo).passo();
     }},
    {"salva_tutto of 2,000 time bands / bare prepared inserts", "fascie_orarie",
     "insert into fascie_orarie (gruppo_oper, gruppo_chiavi, giorno, dalle_ore, alle_ore, data_esecuzione)"
     " values (?, ?, ?, ?, ?, null)",
     [](int i) {
       return QStringList{QString::number(1 + i % 50), QString::number(1 + i / 50), u"Lunedì"_s, u"08.30"_s,
                          u"17.45"_s};
     },
     [](Istruzione& s, int i) {
       s.lega(1, qlonglong(1 + i % 50)).lega(2, qlonglong(1 + i / 50)).lega(3, "Lunedì");
       s.lega(4, "1899-12-30 08:30:00").lega(5, "1899-12-30 17:45:00").passo();
     }},
};

QString tutto(const Tabella& t) {
  return u"select * from %1"_s.arg(QString::fromLatin1(t.nome));
}

void riempi(SSOleDBGrid& grd, const Tabella& t) {
  grd.RemoveAll();
  for (int i = 0; i < righe; ++i) grd.AddItem(t.celle(i));
}

void misura(const Tabella& t, Database& db, ServiziGriglia& servizi, Nudo& nudo) {
  Connection& c = db.connessione_db;
  ElencoFinestre elenco;
  Finestra finestra(elenco, u"frm_misure"_s);
  SSOleDBGrid grd(finestra, u"grd"_s);
  griglia lista(grd, servizi);
  lista.layout(c, {}, {}, c, tutto(t));
  riempi(grd, t);
  const QString vuota = u"delete from %1"_s.arg(QString::fromLatin1(t.nome));
  Istruzione inserimento(nudo, t.inserimento);
  Confronto misure;
  for (int i = 0; i < giri; ++i) {
    (void)c.Execute(vuota);
    nudo.esegui(vuota.toLatin1().constData());
    misure.nostro.aggiungi(cronometra([&] {
      const Errore errore = in_transazione(c, [&] {
        Recordset rs;
        Errore e = rs.Open(tutto(t), c, {}, Cursore::aggiornabile);
        lista.salva_tutto(rs);
        return e;
      });
      if (errore.fallito() || lista.errore_salvataggio()) rinuncia("salvataggio");
    }));
    misure.pavimento.aggiungi(cronometra([&] {
      nudo.esegui("begin immediate");
      for (int riga = 0; riga < righe; ++riga) {
        t.lega(inserimento, riga);
        inserimento.azzera();
      }
      nudo.esegui("commit");
    }));
  }
  stampa_rapporto(t.che_cosa, misure.nostro.mediana() / 1000, misure.pavimento.mediana() / 1000, 1.5, "ms");
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  const SitoMisure sito({});
  RealMachine computer;
  const Machine pc = computer.macchina();
  PolledWait attesa(pc.orologio, pc.ciclo);
  Database db;
  if (apri_database(db, sito.cartella()).fallito()) return 1;
  Traduttore traduttore(db);
  ServiziGriglia servizi{traduttore, pc.messaggi, attesa};
  Nudo nudo(sito.copia(u"copia.mdb"_s));
  for (const Tabella& t : tabelle) misura(t, db, servizi, nudo);
}
