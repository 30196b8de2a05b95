#include "supervisor/console.h"

#include <utility>

#include "supervisor/attesa_blocco.h"
#include "supervisor/finestre.h"

namespace lokera {

using namespace Qt::StringLiterals;

Console::Console(const Machine& macchina, std::function<bool()> istanza_precedente)
    : macchina_(macchina),
      istanza_precedente_(std::move(istanza_precedente)),
      attesa_(macchina.orologio, macchina.ciclo),
      traduttore_(db_),
      griglie_{traduttore_, macchina.messaggi, attesa_},
      finestre_(elenco_, macchina.timer) {
  finestre_.crea = [this](const QString& nome) { return crea_finestra(ambiente(), nome); };
}

Console::~Console() = default;

bool Console::apri(const QString& cartella) {
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
  return true;
}

Ambiente Console::ambiente() {
  return {db_, elenco_, traduttore_, macchina_.messaggi, griglie_, macchina_.desktop, macchina_.orologio};
}

}  // namespace lokera
