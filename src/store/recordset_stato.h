#pragma once

#include <memory>
#include <vector>

#include "store/motore.h"
#include "store/recordset.h"

namespace lokera {

/// The rows of an updatable recordset and the edit that is pending on one of them.
struct RigheInMemoria {
  struct Riga {
    qint64 identita;
    QVariantList valori;
    bool cancellata;
  };
  enum class Modo { fermo, modifica, nuova };

  std::vector<Riga> righe;
  size_t corrente = 0;
  Modo modo = Modo::fermo;
  QVariantList in_corso;
  std::vector<bool> toccate;
  QString tabella;
  std::shared_ptr<Statement> inserimento;  ///< prepared once for the recordset

  bool eof() const { return modo != Modo::nuova && corrente >= righe.size(); }
  /// Null where there is no row.
  const QVariantList* valori() const {
    if (modo != Modo::fermo) return &in_corso;
    return corrente < righe.size() && !righe[corrente].cancellata ? &righe[corrente].valori : nullptr;
  }
  void lascia() {
    modo = Modo::fermo;
    in_corso.clear();
  }
};

struct Recordset::Stato {
  Connection::Motore* motore = nullptr;
  std::shared_ptr<Statement> statement;
  std::vector<Campo> campi_in_memoria;
  std::unique_ptr<RigheInMemoria> memoria;  ///< only of an updatable recordset
  bool fine = true;
  int prossimo_indice = 0;  ///< columns are mostly asked for in their order

  const std::vector<Campo>& campi() const { return statement ? statement->campi() : campi_in_memoria; }
  Errore passo();
  Errore leggi_tutto(size_t colonne_nascoste);
  Errore inserisci();
  Errore aggiorna();
};

}  // namespace lokera
