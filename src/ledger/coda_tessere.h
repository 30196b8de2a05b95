#pragma once

#include <functional>
#include <utility>

#include "ledger/tessere_scelte.h"

namespace lokera {

/// What waits to be done with the record of a card at a cabinet.
enum class OperazioneCoda : char16_t { scrittura = u'I', cancellazione = u'D' };

/// Why the record of a card is to leave a cabinet while the card stays in the registry.
enum class MotivoConservare {
  non_raggiunta,   ///< its groups reach the cabinet no more
  attende_chiave,  ///< a key there is not registered at the cabinet yet
  chiave_tolta,    ///< a key there is gone; what the card still reaches there is written once it is deleted
};

/// A card and a cabinet that its record concerns.
using TesseraInLokera = std::pair<QString, qlonglong>;

struct RigaCoda {
  QString tessera;
  QString intestazione;
  QString operazione;
};

/// The queue of card changes that the cabinets have not been told yet, at most one for a card at a cabinet,
/// and the marks of those deletions that leave the card in the registry.
///
/// A waiting deletion without a mark says that the card is on its way out: the last one served takes it out
/// of the registry. A mark lasts as long as its deletion waits; a card never has marked deletions beside ones
/// without a mark. Each operation is all or nothing, within the caller's transaction when one is open.
class CodaTessere {
 public:
  explicit CodaTessere(Connection& connessione) : c_(connessione) {}

  /// The records are to be written, whatever was queued there; but never that of a card on its way out.
  Errore accoda_scritture(const TessereScelte& tessere);
  /// The records are to be deleted and the cards stay, but for one that is on its way out already.
  Errore accoda_cancellazioni(const TessereScelte& tessere, MotivoConservare motivo);
  /// The records are to be written, unless something is queued there already, or the card is on its way out.
  /// With more than `piu_scritture` at once a failure leaves some queued, unless a transaction is open.
  Errore accoda_scritture_se_mancano(std::span<const TesseraInLokera> coppie);
  static constexpr size_t piu_scritture = 50;
  /// A key of the group has come to another position of this cabinet, or left it. A mask counts the keys of
  /// all cabinets by position, so the group's cards are to be written anew at every other one that holds a
  /// record of them, unless something is queued there already.
  Errore accoda_altrove(qlonglong gruppo, qlonglong lokera);

  /// The person at the desk registers the card: `scrivi` writes its row and its groups. What it reaches then
  /// is to be written, and where it was before and is no more to be deleted. Fails for a card on its way out,
  /// which stays deleted.
  Errore registra_tessera(const QString& tessera, const std::function<Errore()>& scrivi);
  /// The same for a new card. One on its way out that had the code stays in the registry as this; the
  /// deletions that wait for it still come first wherever this isn't to be written.
  Errore registra_nuova_tessera(const QString& tessera, const std::function<Errore()>& scrivi);
  /// The card has another code from now on: a row of its own with what the old one had, its groups, and its
  /// record queued. The old code goes as by `elimina_tessera`. Fails when a card has the new code that isn't
  /// on its way out, or the old one is none or is on its way out.
  Errore cambia_codice(const QString& vecchio, const QString& nuovo);
  /// The person at the desk deletes the card: it leaves every cabinet that may hold it, then the registry;
  /// both at once when no cabinet does.
  Errore elimina_tessera(const QString& tessera);

  /// How many cards wait for a key at the cabinet with their deletion still queued. One that was served is no
  /// longer counted: its mark is gone.
  Esito<qlonglong> trattenute(qlonglong lokera);

  /// The condition, for a statement, that a card is on its way out; `tessera` is a column or "?". The names
  /// q and m are its own.
  static QString in_uscita(const QString& tessera);
  /// The same for a list of many cards: a query, run once, of all that are on their way out.
  static QString tutte_in_uscita();

  /// Cards of the registry queued for a cabinet, in the order in which they are to be served.
  Esito<std::vector<RigaCoda>> per_lokera(qlonglong lokera);
  /// What is queued; nothing when the pair is not.
  Esito<std::optional<OperazioneCoda>> in_attesa(const QString& tessera, qlonglong lokera);

  /// The cabinet has the record. What has become a deletion meanwhile stays queued.
  Errore servita_scrittura(const QString& tessera, qlonglong lokera);
  /// The cabinet has the record no more: the row goes and, with the last one of a card on its way out, the
  /// card. Where only a key was gone and the card reaches others there, its writing is queued instead. What
  /// has become a writing meanwhile stays queued, and so does the card.
  Errore servita_cancellazione(const QString& tessera, qlonglong lokera);

 private:
  Errore accoda_insieme(std::span<const TesseraInLokera> coppie);
  Errore metti(const TessereScelte& tessere, OperazioneCoda operazione, const QString& condizione = {});
  Errore togli(const QString& tessera, qlonglong lokera, OperazioneCoda operazione);
  Errore segna(const TessereScelte& tessere, MotivoConservare motivo);
  Errore riprendi(const QString& tessera);
  Errore lascia(const QString& tessera, const std::vector<qlonglong>& prima);
  Errore copia_riga(const QString& vecchio, const QString& nuovo);
  Errore sposta_gruppi(const QString& vecchio, const QString& nuovo);
  Esito<bool> esce(const QString& tessera);
  Esito<bool> da_riscrivere(const QString& tessera, qlonglong lokera);
  Errore togli_segni(const QString& tessera);
  Errore esce_se_servita(const QString& tessera);
  Esito<bool> esiste(const QString& sql, const QVariantList& valori);

  Connection& c_;
};

}  // namespace lokera
