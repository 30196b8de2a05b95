#pragma once

#include <QString>

#include <optional>
#include <span>
#include <utility>
#include <vector>

#include "store/connection.h"

namespace lokera {

/// What waits to be done with the record of a card at a cabinet.
enum class OperazioneCoda : char16_t { scrittura = u'I', cancellazione = u'D' };

/// Why the record of a card is to leave a cabinet while the card stays in the registry.
enum class MotivoConservare { non_raggiunta, attende_chiave };

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

  /// The record is to be written, whatever was queued there.
  Errore accoda_scrittura(const QString& tessera, qlonglong lokera);
  /// The same, unless something is queued there already, or the card is on its way out.
  Errore accoda_scrittura_se_manca(const QString& tessera, qlonglong lokera);
  /// The same for many; quicker by far than one by one. With more than `piu_scritture` at once a failure
  /// leaves some queued, unless a transaction is open.
  Errore accoda_scritture_se_mancano(std::span<const TesseraInLokera> coppie);
  static constexpr size_t piu_scritture = 50;
  /// The record is to be deleted, and the card is on its way out from now on.
  Errore accoda_cancellazione(const QString& tessera, qlonglong lokera);
  /// The record is to be deleted and the card stays, unless it is on its way out already.
  Errore accoda_cancellazione_conservando(const QString& tessera, qlonglong lokera, MotivoConservare motivo);
  /// The person at the desk deletes the card: it leaves every cabinet that may hold it, then the registry;
  /// both at once when no cabinet does.
  Errore elimina_tessera(const QString& tessera);

  /// The condition, for a statement, that a card is on its way out; `tessera` is a column or "?". The names
  /// q and m are its own.
  static QString in_uscita(const QString& tessera);

  /// Cards of the registry queued for a cabinet, in the order in which they are to be served.
  Esito<std::vector<RigaCoda>> per_lokera(qlonglong lokera);
  /// What is queued; nothing when the pair is not.
  Esito<std::optional<OperazioneCoda>> in_attesa(const QString& tessera, qlonglong lokera);

  /// The cabinet has the record. What has become a deletion meanwhile stays queued.
  Errore servita_scrittura(const QString& tessera, qlonglong lokera);
  /// The cabinet has the record no more: the row goes and, with the last one of a card on its way out, the
  /// card. What has become a writing meanwhile stays queued, and so does the card.
  Errore servita_cancellazione(const QString& tessera, qlonglong lokera);

 private:
  Errore accoda_insieme(std::span<const TesseraInLokera> coppie);
  Errore metti(const QString& tessera, qlonglong lokera, OperazioneCoda operazione);
  Errore togli(const QString& tessera, qlonglong lokera, OperazioneCoda operazione);
  Errore segna(const QString& tessera, qlonglong lokera, MotivoConservare motivo);
  Errore togli_segni(const QString& tessera);
  Errore esce_se_servita(const QString& tessera);
  Esito<bool> esiste(const QString& sql, const QVariantList& valori);

  Connection& c_;
};

}  // namespace lokera
