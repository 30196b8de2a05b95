#pragma once

#include <QHash>
#include <QIODevice>
#include <QPointer>
#include <QTextStream>
#include <QTimer>

#include "forms/finestra.h"
#include "supervisor/supervisore.h"

namespace lokera {

/// Writes one line for each thing that the console tells on its main window: "HH:mm:ss.zzz KIND TEXT". Stands
/// between the window and its view. Kinds: visita, socket, socket_slave, lettura, movimento, pannello,
/// errore.
class Cronaca : public QObject, public VistaFinestra {
 public:
  /// `vista`: who draws the main window, which gets every call after this. `uscita` stays open.
  Cronaca(Supervisore& parti, VistaFinestra& vista, FILE* uscita);
  ~Cronaca() override;
  Q_DISABLE_COPY_MOVE(Cronaca)

  void cambiata(Finestra& finestra) override { vista_.cambiata(finestra); }
  void cambiato(Controllo& controllo) override;
  void fuoco(Controllo& controllo) override { vista_.fuoco(controllo); }
  void distrutta(Finestra& finestra) override;

  /// The live panel took a new state; told once, after the whole of it is set.
  std::function<void(const QString& stato)> Pannello;

 private:
  void scrivi(const char* tipo, const QString& testo);
  QString stato_pannello() const;
  void annota_pannello();

  Supervisore& parti_;
  VistaFinestra& vista_;
  bool viva_ = true;
  QTextStream uscita_;
  QHash<const Controllo*, const char*> tipi_;
  QTimer dopo_;
  QString pannello_;
};

}  // namespace lokera
