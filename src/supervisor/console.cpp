#include "supervisor/console.h"

#include <utility>

#include "access/frm_fascie_orarie.h"
#include "cards/frm_gruppi.h"
#include "cards/frm_tessere.h"
#include "cards/frm_tessere_operatori.h"
#include "commissioning/frm_param_lokere.h"
#include "forms/frm_traduzioni.h"
#include "reports/frm_memoria_sd.h"
#include "reports/frm_movimenti.h"
#include "reports/frm_sit_chiavi.h"
#include "reports/frm_sitkey.h"
#include "supervisor/attesa_blocco.h"
#include "supervisor/frm_operatori.h"

namespace lokera {

using namespace Qt::StringLiterals;

Console::Console(const Machine& macchina, std::function<bool()> istanza_precedente)
    : macchina_(macchina),
      istanza_precedente_(std::move(istanza_precedente)),
      attesa_(macchina.orologio, macchina.ciclo),
      traduttore_(db_),
      griglie_{traduttore_, macchina.messaggi, attesa_},
      finestre_(elenco_, catalogo_, macchina.timer) {
  riempi_catalogo();
  riempi_catalogo_lokere();
  riempi_catalogo_elenchi();
}

Console::~Console() = default;

bool Console::apri(const QString& cartella) {
  cartella_ = cartella;
  AttesaBlocco blocco(db_.connessione_db, attesa_, macchina_.desktop, traduttore_);
  if (const Errore e = blocco.riprova([&] { return apri_database(db_, cartella); }); e.fallito()) {
    QString testo = traduttore_.traduci(u"Errore in apertura database di sistema !"_s);
    // A missing right is for the person at the desk to mend.
    if (e.classe == ClasseErrore::diritti) testo += u'\n' + e.descrizione;
    macchina_.messaggi.mostra(testo);
    macchina_.programma.fine();
    return false;
  }
  parti_ = std::make_unique<Supervisore>(macchina_, db_, elenco_, traduttore_, griglie_);
  parti_->partenza.istanza_precedente = istanza_precedente_;
  parti_->menu.apri_finestra = [this](const QString& nome) { finestre_.apri(nome); };
  collega_totali();
  parti_->menu.mnuImport.Click = [this] { importa_da_scheda(); };
  parti_->menu.mnuExport.Click = [this] { esporta_su_scheda(servizi_scheda()); };
  return true;
}

// A window opens by its name once it stands here; each takes what it uses.
void Console::riempi_catalogo() {
  Connection& archivio = db_.connessione_db;
  const Clock& orologio = macchina_.orologio;
  for (const TabellaGruppi& tabella : {gruppi_di_chiavi(), gruppi_di_utenti()})
    catalogo_.aggiungi(tabella.finestra, [this, &archivio, tabella] {
      return std::make_unique<frm_gruppi>(elenco_, archivio, griglie_, tabella);
    });
  catalogo_.aggiungi(u"frm_operatori"_s, [this, &archivio] {
    return std::make_unique<frm_operatori>(elenco_, archivio, griglie_, macchina_.desktop);
  });
  catalogo_.aggiungi(u"frm_fascie_orarie"_s, [this, &orologio] {
    return std::make_unique<frm_fascie_orarie>(elenco_, db_, griglie_, orologio);
  });
  catalogo_.aggiungi(u"frm_traduzioni"_s, [this, &orologio] {
    return std::make_unique<frm_traduzioni>(elenco_, db_, griglie_, orologio);
  });
  catalogo_.aggiungi(u"frm_memoria_sd"_s, [this, &archivio] {
    auto finestra = std::make_unique<frm_memoria_sd>(elenco_, archivio, griglie_, macchina_.puntatore,
                                                     macchina_.documenti);
    finestra->registrati = [this] { aggiorna_tabellone(); };
    return finestra;
  });
}

ServiziTessere Console::servizi_tessere() {
  return {db_.connessione_db,
          griglie_,
          parti_->download,
          *parti_->principale.timerOrario,
          macchina_.domande,
          {db_.connessione_db, macchina_.seriali, macchina_.orologio, macchina_.timer, traduttore_,
           macchina_.messaggi, parti_->slave.nome_computer()}};
}

ServiziStampa Console::servizi_stampa() {
  return {elenco_,
          db_.connessione_db,
          griglie_,
          macchina_.orologio,
          macchina_.stampante,
          macchina_.fogli,
          macchina_.domande,
          macchina_.desktop,
          macchina_.documenti,
          cartella_,
          [this] { return parti_->accesso.utente(); },
          [this](std::unique_ptr<Finestra> finestra) { finestre_.apri(std::move(finestra)); }};
}

// Those that show what the tables hold.
void Console::riempi_catalogo_elenchi() {
  catalogo_.aggiungi(u"frm_movimenti"_s,
                     [this] { return std::make_unique<frm_movimenti>(servizi_stampa()); });
  catalogo_.aggiungi(u"frm_sitKey"_s, [this] { return std::make_unique<frm_sitKey>(servizi_stampa()); });
  catalogo_.aggiungi(u"frm_sit_chiavi"_s, [this] {
    return std::make_unique<frm_sit_chiavi>(elenco_, traduttore_, macchina_.orologio);
  });
}

void Console::collega_totali() {
  Tabellone& tabellone = parti_->tabellone;
  tabellone.cmdTotali.Click = [this, &tabellone] {
    finestre_.apri(u"frm_sit_chiavi"_s);
    aggiorna_tabellone();
  };
  tabellone.contate = [this, &tabellone] {
    auto* finestra = static_cast<frm_sit_chiavi*>(elenco_.trova(u"frm_sit_chiavi"));
    if (!finestra) return;
    const Tabellone::Totali t = tabellone.totali();
    finestra->mostra(parti_->principale.corrente.lblNome.Caption, t.presenti, t.uscite, t.non_gestite);
  };
}

void Console::aggiorna_tabellone() {
  if (const Errore e = parti_->tabellone.situazione_chiavi(); e.fallito()) parti_->principale.segnala(e);
}

ServiziScheda Console::servizi_scheda() {
  return {db_.connessione_db, macchina_.file, traduttore_, macchina_.messaggi};
}

// One import at a time: a second one only brings the first to the front.
void Console::importa_da_scheda() {
  const QString nome = u"frm_memoria_sd"_s;
  const Finestra* aperta = elenco_.trova(nome);
  const bool in_corso = aperta && !aperta->chiusa();
  const auto file = in_corso ? std::nullopt : scegli_importazione(servizi_scheda());
  if (!file && !in_corso) return;
  auto* finestra = static_cast<frm_memoria_sd*>(finestre_.apri(nome));
  if (finestra && file) finestra->importa(*file);
}

// Those that talk to cabinets, or to the reader of their cards.
void Console::riempi_catalogo_lokere() {
  catalogo_.aggiungi(u"frm_param_lokere"_s, [this] {
    auto finestra = std::make_unique<frm_param_lokere>(elenco_, db_.connessione_db, griglie_,
                                                       macchina_.socket, macchina_.timer);
    finestra->lokere_cambiate = [this] { parti_->partenza.trova_lokere_sistema(); };
    finestra->lokera_rinumerata = [this](qlonglong vecchio, qlonglong nuovo) {
      parti_->lokera_rinumerata(vecchio, nuovo);
    };
    return finestra;
  });
  catalogo_.aggiungi(u"frm_tessere"_s, [this] {
    auto finestra = std::make_unique<frm_tessere>(elenco_, servizi_tessere(), parti_->principale.corrente,
                                                  parti_->invio, macchina_.puntatore);
    finestra->lokera_scelta = [this] { aggiorna_tabellone(); };
    return finestra;
  });
  catalogo_.aggiungi(u"frm_tessere_operatori"_s,
                     [this] { return std::make_unique<frm_tessere_operatori>(elenco_, servizi_tessere()); });
}

}  // namespace lokera
