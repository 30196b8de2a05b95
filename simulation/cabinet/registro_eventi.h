#pragma once

#include <QByteArray>
#include <QString>

#include <functional>
#include <vector>

#include "simulation/cabinet/movimento_chiave.h"

namespace lokera::simulazione {

/// The way on which a movement is meant to reach the console.
enum class Come { memoria, diretta };

enum class PassoMovimento {
  memorizzato,  ///< a live movement that the console did not take, now in the store to be read
  letto,        ///< read by the console; the number of times so far
  confermato,   ///< acknowledged by the console; the cabinet dropped it and answered
  risposto,     ///< the live report was answered: "0" booked, "1" given up, "-" not taken; microseconds
  muto,         ///< the live report stayed without an answer
};

/// What is known of one movement; kept in step with the lines.
struct VoceRegistro {
  quint64 n = 0;
  QString cabinet;
  MovimentoChiave movimento;
  Come come = Come::memoria;
  int letture = 0;
  bool confermata = false;
  bool risposta = false;  ///< the console answered the live report with "0": it has booked it
};

/// The ledger: everything that happened at the cabinets, one line each, fields separated by tabs, for a test
/// to hold against the console's database. The moments are the cabinet's own, "2026-03-01 08:30:00".
///
///   evento       n  moment  cabinet  P|R  card  key  memoria|diretta
///   memorizzato  n  moment  cabinet
///   letto        n  moment  cabinet  times
///   confermato   n  moment  cabinet
///   risposto     n  moment  cabinet  0|1|-  microseconds
///   muto         n  moment  cabinet
///   rifiuto      -  moment  cabinet  P|R  card  key  reason
///   richiesta    -  moment  cabinet  00090|00091|00092  what was sent  answer  microseconds  label
///
/// `n` numbers the movements of all cabinets from 1 in the order in which they happened; later lines refer to
/// it. The answer of a `richiesta` is the digit that came, "-" when the reply held none, "muto" or "caduta".
/// A movement with `letto` more than once may be booked as often as that; one with `risposto 0` is booked
/// live; one with `muto` may have been booked live before it was stored.
class RegistroEventi {
 public:
  std::function<void(const QByteArray& riga)> Riga;  ///< the sink; lines come without a line break

  quint64 evento(const QString& cabinet, const MovimentoChiave& movimento, Come come);
  void passo(quint64 n, PassoMovimento passo, const QDateTime& momento, const QByteArrayList& dettagli = {});
  void rifiuto(const QString& cabinet, const MovimentoChiave& movimento, QByteArrayView motivo);
  void richiesta(const QString& cabinet, const QDateTime& momento, const QByteArrayList& dettagli);

  /// In the order of their numbers: number n stands at n - 1.
  const std::vector<VoceRegistro>& voci() const { return voci_; }

 private:
  void scrivi(const QByteArrayList& campi) const;

  std::vector<VoceRegistro> voci_;
};

}  // namespace lokera::simulazione
