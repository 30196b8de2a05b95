#pragma once

#include <array>
#include <functional>
#include <memory>
#include <vector>

#include "ledger/movimento.h"
#include "link/lokera_corrente.h"
#include "store/database.h"

namespace lokera {

/// The board: 144 numbered lamps in 8 panels of 18, for the key positions of the current cabinet. Displayed
/// positions count from 1; `posizione` of a key counts from 0.
class Tabellone {
 public:
  Tabellone(Finestra& finestra, Database& db, const LokeraCorrente& corrente);

  static constexpr int posizioni = 144;
  static constexpr int pannelli = 8;
  static constexpr int posizioni_pannello = 18;

  /// What the shown panels say.
  struct Totali {
    int presenti = 0, uscite = 0;
    int non_gestite = 0;  ///< positions without a key
    bool operator==(const Totali&) const = default;
  };
  Totali totali() const;
  std::function<void()> contate;  ///< the totals may have changed

  /// Numbers the positions and remembers where the panels stand.
  void prepara();

  /// Draws the current cabinet. A failed query leaves the board without keys, and is returned.
  Errore situazione_chiavi();

  /// The lamp of a key that has moved; one of another cabinet than the current one, or of a position that has
  /// no lamp, is ignored.
  void mostra_movimento(const Movimento& movimento, const ChiaveRegistrata& chiave);

  NumeroPosizione& Num(int posizione) { return *numeri_.at(static_cast<size_t>(posizione - 1)); }
  Shape& lampade_chiave(int posizione) { return *lampade_.at(static_cast<size_t>(posizione - 1)); }
  SSPanel& pnlK(int p) { return *pannelli_.at(static_cast<size_t>(p)); }

  /// The legend; its colours are those of the board.
  Shape keyN, keyP, keyU;
  Label lblKeyN, lblKeyP, lblKeyU;

  CommandButton cmdTotali;  ///< "totali": opens the board of totals

  std::array<qint32, pannelli> pos_pannelli{};  ///< where each panel stood at the start, pixels from the top

 private:
  void avvisa() const {
    if (contate) contate();
  }
  void chiave_uscita(qlonglong posizione) { mostra(posizione, keyU, bianco); }
  void chiave_presente(qlonglong posizione) { mostra(posizione, keyP, nero); }
  void mostra(qlonglong posizione, const Shape& legenda, Colore numero);
  void spegni();  ///< no panel, every lamp as of a position without a key
  void mostra_pannelli(qlonglong ultima);

  Database& db_;
  const LokeraCorrente& corrente_;
  std::vector<std::unique_ptr<SSPanel>> pannelli_;
  std::vector<std::unique_ptr<NumeroPosizione>> numeri_;
  std::vector<std::unique_ptr<Shape>> lampade_;
};

}  // namespace lokera
