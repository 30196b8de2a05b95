#include "forms/traduttore.h"

#include <QSet>

#include <utility>

#include "forms/ss_ole_db_combo.h"
#include "forms/vocabolario.h"

namespace lokera {

struct Traduttore::Memoria {
  Vocabolario vocabolario;
  QSet<QString> rifiutati;  ///< texts that the table didn't take; not offered again until it changes
  quint64 versione = 0;
  bool letta = false;

  bool aggiorna(Connection& connessione);
  void registra(Connection& connessione, const QString& testo);
};

namespace {

const QString& tabella() {
  static const QString nome = QStringLiteral("traduzioni");
  return nome;
}

/// The text between its surrounding blanks; line ends and tabs belong to it.
QStringView senza_blank(QStringView testo) {
  while (testo.startsWith(u' ')) testo = testo.sliced(1);
  while (testo.endsWith(u' ')) testo.chop(1);
  return testo;
}

}  // namespace

/// Whether the memory holds the table as it stands.
bool Traduttore::Memoria::aggiorna(Connection& connessione) {
  const quint64 adesso = connessione.versione_tabella(tabella());
  if (letta && versione == adesso) return true;
  rifiutati.clear();
  versione = adesso;
  letta = !vocabolario.leggi(connessione);
  return letta;
}

void Traduttore::Memoria::registra(Connection& connessione, const QString& testo) {
  if (rifiutati.contains(testo)) return;
  const QString sql = QStringLiteral("insert into traduzioni (italiano, inglese) values (?, ' ')");
  if (connessione.Execute(sql, {testo})) {
    rifiutati.insert(testo);
    return;
  }
  vocabolario.aggiungi(testo.toUtf8(), " ");
  const quint64 prima = std::exchange(versione, connessione.versione_tabella(tabella()));
  letta = versione == prima + 1;  // more than our own row: another console wrote at that moment
}

Traduttore::Traduttore(Database& db) : db_(db), memoria_(std::make_unique<Memoria>()) {}

Traduttore::~Traduttore() = default;

bool Traduttore::pronto() {
  return db_.lingua_interfaccia != 0 && memoria_->aggiorna(db_.connessione_db);
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

template <class C>
bool Traduttore::traduci_caption(Controllo& controllo) {
  auto* c = dynamic_cast<C*>(&controllo);
  if (c && !senza_blank(c->Caption()).isEmpty()) c->Caption = traduci(c->Caption(), true);
  return c;
}

template <class C>
bool Traduttore::traduci_colonne(Controllo& controllo) {
  auto* c = dynamic_cast<C*>(&controllo);
  for (int i = 0; c && i < c->Cols(); ++i) {
    Colonna colonna = c->Columns(i);
    colonna.Caption = traduci(colonna.Caption, true);
    if (colonna.Caption != c->Columns(i).Caption) c->imposta_colonna(i, colonna);
  }
  return c;
}

void Traduttore::traduci_form(Finestra& finestra) {
  if (!pronto()) return;
  for (Controllo* c : finestra.Controls()) {
    if (traduci_caption<CommandButton>(*c) || traduci_caption<Label>(*c) || traduci_caption<Menu>(*c))
      continue;
    traduci_caption<SSOleDBGrid>(*c);
    traduci_colonne<SSOleDBGrid>(*c) || traduci_colonne<SSOleDBCombo>(*c);
  }
}

}  // namespace lokera
