#pragma once

#include <QAbstractTableModel>
#include <QTimer>

#include "forms/ss_ole_db_grid.h"

namespace lokera {

/// A list's rows for its view. It keeps none of them: each cell is read when it is drawn.
class ModelloGriglia : public QAbstractTableModel, public VistaGriglia {
  Q_OBJECT
 public:
  explicit ModelloGriglia(SSOleDBGrid& grd, QObject* padre = nullptr);
  ~ModelloGriglia() override;
  Q_DISABLE_COPY_MOVE(ModelloGriglia)

  /// Null once the list is gone.
  SSOleDBGrid* grd() const { return grd_; }
  /// Lets go of the list; with `vive` false without touching it, since it is gone already.
  void lascia(bool vive);

  int rowCount(const QModelIndex& padre = {}) const override { return padre.isValid() ? 0 : righe_; }
  int columnCount(const QModelIndex& padre = {}) const override;
  QVariant data(const QModelIndex& indice, int ruolo = Qt::DisplayRole) const override;
  bool setData(const QModelIndex& indice, const QVariant& valore, int ruolo = Qt::EditRole) override;
  Qt::ItemFlags flags(const QModelIndex& indice) const override;
  QVariant headerData(int sezione, Qt::Orientation verso, int ruolo = Qt::DisplayRole) const override;

  /// The looks of rows that were drawn hold no longer; before each drawing.
  void dimentica_aspetti() { riga_letta_ = -1; }

  void colonne_cambiate() override;
  void righe_cambiate() override;
  void riga_cambiata(int riga) override;
  void righe_aggiunte(int prima, int quante) override;
  void riga_corrente(int riga) override;
  void modifica_da_confermare() override { Q_EMIT conferma(); }

 Q_SIGNALS:
  void corrente(int riga);
  void conferma();

 private:
  /// Shows as many rows as the list holds by now.
  void allinea();
  QVariant sfondo(int riga) const;
  QVariant carattere(int riga) const;
  QVariant testo(int riga) const;
  const AspettoRiga& aspetto(int riga) const;

  SSOleDBGrid* grd_;
  int righe_ = 0;
  mutable int riga_letta_ = -1;  ///< the row that `letto_` is of: its cells are drawn one after the other
  mutable AspettoRiga letto_;
  QTimer accodate_;  ///< rows of a long filling are shown by and by: a view pays for each time
};

}  // namespace lokera
