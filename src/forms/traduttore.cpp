#include "forms/traduttore.h"

#include <QSet>

#include <optional>
#include <utility>

#include "forms/controlli.h"
#include "forms/vocabolario.h"

namespace lokera {

using namespace Qt::StringLiterals;

struct Traduttore::Memoria {
  Vocabolario vocabolario;
  QSet<QString> rifiutati;  ///< texts that the table didn't take; not offered again until it changes
  /// Texts that another console's lock kept out of the table. While there are some, none is offered until
  /// this console has written something: each try would make the window wait.
  QSet<QString> rimandati;
  qint64 scritte = 0;  ///< by this console when the first of them was put off
  quint64 versione = 0;
  bool letta = false;
  bool occupata = false;  ///< the lock was met in reading
  Errore errore;          ///< of the last reading

  bool aggiorna(Connection& connessione);
  void registra(Connection& connessione, const QString& testo);
  void registra_rimandati(Connection& connessione);

 private:
  bool leggi(Connection& connessione, quint64 adesso);
  Errore inserisci(Connection& connessione, const QString& testo);
};

namespace {

bool occupato(const Errore& errore) {
  return errore.classe == ClasseErrore::bloccato;
}

const QString& tabella() {
  static const QString nome = u"traduzioni"_s;
  return nome;
}

/// The text between its surrounding blanks; line ends and tabs belong to it.
QStringView senza_blank(QStringView testo) {
  while (testo.startsWith(u' ')) testo = testo.sliced(1);
  while (testo.endsWith(u' ')) testo.chop(1);
  return testo;
}

}  // namespace

/// Whether the memory holds the table: as it stands, or as it was read last while a lock is on the file.
bool Traduttore::Memoria::aggiorna(Connection& connessione) {
  // Words that are known are not worth a wait, and neither is a second one for words that aren't.
  std::optional<SenzaAttesa> subito;
  if (letta || occupata) subito.emplace(connessione);
  const quint64 adesso = connessione.versione_tabella(tabella());
  if (letta && versione == adesso) return true;
  rifiutati.clear();
  return leggi(connessione, adesso);
}

bool Traduttore::Memoria::leggi(Connection& connessione, quint64 adesso) {
  Vocabolario nuovo;
  errore = nuovo.leggi(connessione);
  occupata = occupato(errore);
  if (occupata) return letta;
  vocabolario = std::move(nuovo);
  versione = adesso;
  letta = !errore.fallito();
  return letta;
}

void Traduttore::Memoria::registra(Connection& connessione, const QString& testo) {
  if (rifiutati.contains(testo)) return;
  if (rimandati.isEmpty()) {
    const Errore errore = inserisci(connessione, testo);
    if (!errore.fallito()) return;
    scritte = connessione.righe_scritte();
    if (!occupato(errore)) {
      rifiutati.insert(testo);
      return;
    }
  }
  rimandati.insert(testo);
}

void Traduttore::Memoria::registra_rimandati(Connection& connessione) {
  if (rimandati.isEmpty() || connessione.righe_scritte() == scritte) return;
  for (const QString& testo : std::exchange(rimandati, {}))
    if (!vocabolario.trova(testo.toUtf8())) registra(connessione, testo);
}

Errore Traduttore::Memoria::inserisci(Connection& connessione, const QString& testo) {
  std::optional<SenzaAttesa> subito;
  if (occupata) subito.emplace(connessione);
  const QString sql = u"insert into traduzioni (italiano, inglese) values (?, ' ')"_s;
  if (Errore e = connessione.Execute(sql, {testo}); e.fallito()) return e;
  vocabolario.aggiungi(testo.toUtf8(), " ");
  const quint64 prima = std::exchange(versione, connessione.versione_tabella(tabella()));
  if (versione != prima + 1) versione = 0;  // not our own row only: another console wrote at that moment
  return {};
}

Traduttore::Traduttore(Database& db) : db_(db), memoria_(std::make_unique<Memoria>()) {}

Traduttore::~Traduttore() = default;

bool Traduttore::pronto() {
  if (db_.lingua_interfaccia == 0 || !memoria_->aggiorna(db_.connessione_db)) return false;
  memoria_->registra_rimandati(db_.connessione_db);
  return true;
}

Errore Traduttore::leggibile() {
  return db_.lingua_interfaccia == 0 || memoria_->aggiorna(db_.connessione_db) ? Errore{} : memoria_->errore;
}

QString Traduttore::traduci(const QString& testo) {
  return pronto() ? traduci(testo, false) : testo;
}

QString Traduttore::traduci(const QString& testo, bool forse_gia_tradotto) {
  const QStringView nudo = senza_blank(testo);
  if (nudo.isEmpty()) return testo;
  const QByteArray cercato = nudo.toUtf8();
  const auto trovato = memoria_->vocabolario.trova(cercato);
  if (!trovato) {
    if (!forse_gia_tradotto || !memoria_->vocabolario.ha_traduzione(cercato))
      memoria_->registra(db_.connessione_db, nudo.toString());
    return testo;
  }
  if (trovato->trimmed().isEmpty()) return testo;
  return QString(testo).replace(nudo.begin() - QStringView(testo).begin(), nudo.size(),
                                QString::fromUtf8(*trovato));
}

void Traduttore::traduci_form(Finestra& finestra) {
  if (!pronto()) return;
  const auto traduci_di_nuovo = [this](const QString& testo) { return traduci(testo, true); };
  for (Controllo* c : finestra.Controls()) c->traduci_titoli(traduci_di_nuovo);
}

}  // namespace lokera
