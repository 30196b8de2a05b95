#pragma once

#include <QHash>

#include "commissioning/rete_lokera.h"
#include "forms/ss_ole_db_grid.h"
#include "store/connection.h"

namespace lokera {

/// The list of the parameter window: the cabinets of the database, and what a search has found.
class ListaLokere {
 public:
  explicit ListaLokere(Finestra& finestra);

  /// Adds the columns that the rules need and the layout doesn't show. After the layout.
  void completa_colonne();
  /// The rows of the database, each "off line" and claimed by no reply.
  Errore carica_lista_lokere(Connection& archivio);
  void svuota();

  /// A reply to a search: the first row of its address that no other has claimed goes "on line"; where there
  /// is none, a new row without number does. So two cabinets of one address are two rows.
  void risponde(const ReteLokera& rete);

  bool in_linea(int riga) const;
  /// Whether another row has the same address.
  bool ha_gemella(int riga) const;

  /// A row for a cabinet that is typed in by hand; it becomes the current one.
  void aggiungi_nuova();

  // Of the current row; empty, or 0, when there is none.
  qlonglong id() const { return cella(u"id").toLongLong(); }
  QString cella(QStringView campo) const { return grdLok.cella(grdLok.Row(), campo); }
  void imposta_cella(QStringView campo, const QString& testo);

  SSOleDBGrid grdLok;

 private:
  void aggiungi(const QString& id, const QString& descrizione, const QString& indirizzo);

  QHash<QString, QList<int>> libere_;  ///< by address, the rows that no reply has claimed, first to last
  QHash<QString, int> quante_;         ///< rows of an address
};

}  // namespace lokera
