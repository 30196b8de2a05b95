#pragma once

#include "cards/frm_tessere.h"
#include "simulation/giornata/mano.h"

namespace lokera::simulazione {

/// Somebody at the key window: one move at a time, each a button or two.
class ManoChiavi {
 public:
  ManoChiavi(Mano& mano, frm_tessere& finestra) : m_(mano), f_(finestra) {}

  void mossa();
  /// Goes to the cabinet.
  void scegli(qlonglong lokera);
  /// Registers the key once more as it stands.
  bool ripeti(const QString& codice);

 private:
  void dopo_un_guasto();
  void altra_lokera();
  void nuova();
  void modifica();
  void cambia(const QString& codice);
  void sposta();
  void elimina();
  void tutte();
  bool registra();
  void scritta(const QString& identita, const ChiaveAttesa& chiave, bool in_lokera);
  bool vai_a(const QString& codice);

  qlonglong lokera() const { return f_.comboLKR.Text().toLongLong(); }
  QString corrente() const { return f_.grd.cella(f_.grd.Row(), u"codice"); }
  /// A group with bands keeps a key in each cabinet, which is told of its bands.
  bool del_gruppo_resta(const QString& codice) const;
  /// The key hangs in its place, as far as anybody knows.
  bool appesa(const QString& codice) const;

  Mano& m_;
  frm_tessere& f_;
};

}  // namespace lokera::simulazione
