// The registry of cards with 10,000 of them, in 50 groups, on 20 cabinets: opening it, moving in it,
// registering a card, the full update; and the list of 10,000 keys. Each beside the same work by hand.
#include <QApplication>
#include <QElapsedTimer>

#include "adapters/real_machine.h"
#include "app/avvio.h"
#include "app/schermo_console.h"
#include "bench/ciclo_sorvegliato.h"
#include "bench/misura.h"
#include "bench/nudo.h"
#include "bench/sito_misure.h"
#include "cards/frm_tessere.h"
#include "cards/frm_tessere_operatori.h"

using namespace Qt::StringLiterals;
using namespace lokera;
using namespace lokera::bench;

namespace {

constexpr int giri = 9;
constexpr int righe_giu = 1000;

/// Boxes that nobody has to close; a question is answered with yes.
class Scatole : public MessageBox {
 public:
  Risposta apri(const Messaggio& m) override {
    ultima = m.testo;
    return m.bottoni == Bottoni::ok ? Risposta::ok : Risposta::si;
  }
  QString ultima;
};

/// Tells when a list with rows has been painted.
class Dipinta : public QObject {
 public:
  explicit Dipinta(QWidget& lista) { lista.installEventFilter(this); }
  bool vista = false;

 protected:
  bool eventFilter(QObject*, QEvent* evento) override {
    vista = vista || evento->type() == QEvent::Paint;
    return false;
  }
};

class Banco {
 public:
  Banco()
      : sito_(
            {.lokere = 20, .chiavi = 10000, .tessere = 10000, .gruppi_chiavi = 50, .gruppi_per_tessera = 10}),
        nudo_(sito_.copia(u"copia.mdb"_s)),
        m_(computer_.macchina()),
        ciclo_(m_.ciclo),
        console_({m_.orologio, ciclo_, m_.timer, m_.socket, m_.seriali, scatole_, m_.domande, m_.file,
                  m_.stampante, m_.fogli, m_.puntatore, m_.desktop, m_.programma, m_.documenti}) {
    if (!console_.apri(sito_.cartella())) rinuncia("database");
    schermo_ = std::make_unique<SchermoConsole>(console_, QRect(0, 0, 1280, 800));
  }

  void apertura() {
    Istruzione lettura(nudo_, "SELECT * FROM tessere_operatori ORDER BY intestazione");
    Campioni nostro, pavimento;
    for (int i = 0; i <= giri; ++i) {
      chiudi();
      const double us = cronometra([&] { apri(); });
      if (i > 0) nostro.aggiungi(us);  // the first one brings the fonts in
      pavimento.aggiungi(cronometra([&] { lettura.leggi_tutto(); }));
    }
    stampa_rapporto("10,000 cards: window opened to painted list / bare read", nostro.mediana() / 1000,
                    pavimento.mediana() / 1000, 2, "ms");
  }

  void elenco() {
    Istruzione lettura(nudo_, "SELECT * FROM tessere_operatori ORDER BY intestazione");
    const Confronto c = a_turno(
        giri, [&] { finestra_->elenca_operatori(); }, [&] { lettura.leggi_tutto(); });
    stampa_rapporto("  of it: the list read / bare read", c.nostro.mediana() / 1000,
                    c.pavimento.mediana() / 1000, 0, "ms");
  }

  void una_riga_giu() {
    Campioni mosse;
    for (int riga = 1; riga <= righe_giu; ++riga)
      mosse.aggiungi(cronometra([&] {
        finestra_->grd.Row(riga);
        QApplication::processEvents();
      }));
    stampa_valore("one row down, groups refreshed and painted, p99", mosse.percentile(99) / 1000, 10, "ms");
  }

  void registra() {
    const QByteArray tessera = SitoMisure::tessera(4711).toUtf8();
    Istruzione trova(nudo_, "select * from tessere_operatori where codice = ?"),
        scrivi(nudo_,
               "update tessere_operatori set intestazione = ?, valido_dal = ?, valido_al = ?, posizione = 1, "
               "gruppo = 1,"
               " NrMaxPrelievi = 0 where codice = ?"),
        dove(nudo_,
             "select distinct k.lokera from gruppi_tessera g join tessere_chiavi k on g.codice = k.gruppo "
             "where g.tessera = ?"),
        via(nudo_, "delete from gruppi_tessera where tessera = ?"),
        gruppo(nudo_, "insert into gruppi_tessera (tessera, codice) values (?, ?)"),
        coda(nudo_,
             "insert or replace into aggiorn_tessere_oper (ID_tessera, ID_lokera, operazione) values (?, ?, "
             "?)"),
        elenco(nudo_, "SELECT * FROM tessere_operatori ORDER BY intestazione");
    const auto passata = [&](const char* operazione) {
      dove.lega(1, tessera);
      while (dove.passo()) {
        coda.lega(1, tessera).lega(2, dove.numero(0)).lega(3, operazione).passo();
        coda.azzera();
      }
      dove.azzera();
    };
    const auto a_mano = [&] {
      nudo_.esegui("begin immediate");
      trova.lega(1, tessera).leggi_tutto();
      scrivi.lega(1, "Mario Rossi")
          .lega(2, "2008-01-01 00:00:00")
          .lega(3, "2030-12-31 00:00:00")
          .lega(4, tessera)
          .passo();
      scrivi.azzera();
      passata("D");
      via.lega(1, tessera).passo();
      via.azzera();
      for (const qlonglong g : {3, 14, 25}) {
        gruppo.lega(1, tessera).lega(2, g).passo();
        gruppo.azzera();
      }
      passata("I");
      nudo_.esegui("commit");
      elenco.leggi_tutto();
    };
    const int riga = riga_di(tessera);
    const Confronto c = a_turno(
        giri, [&] { registra(riga); }, a_mano);
    if (scatole_.ultima != u"Registrazione eseguita!"_s) rinuncia(qPrintable(scatole_.ultima));
    stampa_rapporto("registra, list read again / the same statements by hand", c.nostro.mediana() / 1000,
                    c.pavimento.mediana() / 1000, 1.5, "ms");
  }

  void aggiornamento_totale() {
    Istruzione in_una(
        nudo_,
        "insert into aggiorn_tessere_oper (id_tessera, id_lokera, operazione) select distinct g.tessera, "
        "k.lokera,"
        " 'I' from gruppi_tessera g join (select distinct gruppo, lokera from tessere_chiavi) k on k.gruppo ="
        " g.codice");
    Campioni nostro, pavimento;
    ciclo_.azzera();
    for (int i = 0; i < 3; ++i) {
      nudo_.esegui("delete from aggiorn_tessere_oper");
      svuota_coda();
      ciclo_.apri();
      nostro.aggiungi(cronometra([&] { finestra_->Command11_Click(); }));
      ciclo_.chiudi();
      pavimento.aggiungi(cronometra([&] { in_una.passo(); }));
      in_una.azzera();
    }
    if (scatole_.ultima != u"Aggiornamento eseguito!"_s) rinuncia(qPrintable(scatole_.ultima));
    stampa_rapporto("full update of 10,000 cards / one statement that queues the same pairs",
                    nostro.mediana() / 1000, pavimento.mediana() / 1000, 3, "ms");
    stampa_valore("full update: longest stretch of the loop", ciclo_.massimo_ms(), 50, "ms");
  }

 private:
  void chiudi() {
    if (!finestra_) return;
    finestra_->chiudi();
    console_.griglie().attesa.attendi(5, [&] { return console_.elenco().conta() == 1; });
  }
  void apri() {
    finestra_ = static_cast<frm_tessere_operatori*>(console_.finestre().apri(u"frm_tessere_operatori"_s));
    if (!finestra_ || finestra_->grd.Rows() != 10000) rinuncia("finestra");
    QWidget& forma = *schermo_->forma(*finestra_);
    Dipinta lista(*forma.findChild<QWidget*>(u"grd"_s));
    forma.update();
    QElapsedTimer limite;
    limite.start();
    while (!lista.vista && limite.elapsed() < 5000) QApplication::processEvents();
    if (!lista.vista) rinuncia("lista non dipinta");
  }
  int riga_di(const QByteArray& tessera) const {
    for (int riga = 0; riga < finestra_->grd.Rows(); ++riga)
      if (finestra_->grd.cella(riga, u"codice") == QString::fromUtf8(tessera)) return riga;
    rinuncia("tessera");
  }
  void registra(int riga) {
    finestra_->grd.Row(riga);
    finestra_->Command4_Click();
    for (int g = 0; g < finestra_->grdGru.Rows(); ++g)
      finestra_->grdGru.imposta_cella(
          g, u"abil", (g % 11 == 3 && g < 30 ? testo_spuntato : testo_non_spuntato).toString());
    finestra_->txtDal.Text = u"01/01/2008"_s;
    finestra_->txtAl.Text = u"31/12/2030"_s;
    finestra_->Command1_Click();
  }
  void svuota_coda() {
    if (console_.db().connessione_db.Execute(u"delete from aggiorn_tessere_oper"_s).fallito())
      rinuncia("coda");
  }

  const SitoMisure sito_;
  Nudo nudo_;
  RealMachine computer_;
  const Machine m_;
  CicloSorvegliato ciclo_;
  Scatole scatole_;
  Console console_;
  std::unique_ptr<SchermoConsole> schermo_;
  frm_tessere_operatori* finestra_ = nullptr;
};

}  // namespace

int main(int argc, char** argv) {
  QApplication app(argc, argv);
  prepara_aspetto();
  Banco banco;
  banco.apertura();
  banco.elenco();
  banco.una_riga_giu();
  banco.registra();
  banco.aggiornamento_totale();
}
