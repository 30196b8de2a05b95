#pragma once

#include <QTemporaryDir>

#include <memory>
#include <vector>

#include "platform/machine.h"
#include "platform/momento.h"
#include "simulation/macchina/virtual_dialogs.h"
#include "simulation/macchina/virtual_file_choice.h"
#include "simulation/macchina/virtual_input_box.h"
#include "simulation/macchina/virtual_mscomm.h"
#include "simulation/macchina/virtual_network.h"
#include "simulation/macchina/virtual_pointer.h"
#include "simulation/macchina/virtual_printer.h"
#include "simulation/macchina/virtual_spreadsheet.h"
#include "simulation/macchina/virtual_timer.h"
#include "simulation/macchina/virtual_winsock.h"

namespace lokera::simulazione {

/// What one computer has for itself; time and network it shares with the others.
struct VirtualComputer {
  VirtualComputer(VirtualClock& orologio, VirtualEventLoop& ciclo, VirtualNetwork& rete, const QString& nome);
  Machine macchina();

  VirtualClock& orologio;
  VirtualEventLoop& ciclo;
  VirtualTimers timer;
  VirtualWinsocks socket;
  VirtualMSComms seriali;
  VirtualMessageBox messaggi;
  VirtualInputBox domande;
  VirtualFileChoice file;
  VirtualPrinter stampante{file};
  VirtualSpreadsheet fogli;
  VirtualPointer puntatore;
  VirtualDesktop desktop;
  VirtualProgram programma;
  QTemporaryDir documenti;
};

/// A machine without a screen, a network or real time. Everything happens in the order of the virtual clock,
/// and all chance comes from the seed: the same seed and the same calls give the same run to the last byte.
/// It must outlive the consoles and cabinets that stand on it.
class VirtualMachine {
 public:
  explicit VirtualMachine(quint64 seme = 0,
                          const QDateTime& inizio = momento(QDate(2008, 11, 30), QTime(8, 0)));
  ~VirtualMachine() { ciclo_.svuota(); }  // while the network still stands: events hold its wires
  Q_DISABLE_COPY_MOVE(VirtualMachine)

  /// The first computer, named "PC-CENTRALE".
  Machine macchina() { return primo().macchina(); }
  VirtualMessageBox& messaggi() { return primo().messaggi; }
  VirtualDesktop& desktop() { return primo().desktop; }
  VirtualProgram& programma() { return primo().programma; }
  VirtualComputer& primo() { return *computer_.front(); }

  /// One more computer on the same network. The machine owns it.
  VirtualComputer& crea_computer(const QString& nome);

  VirtualClock& orologio() { return orologio_; }
  VirtualEventLoop& ciclo() { return ciclo_; }
  VirtualNetwork& rete() { return rete_; }
  Caso& caso() { return caso_; }

  /// Let time pass, with everything that falls into it; the clock ends exactly there, or later when a handler
  /// itself waited past that moment.
  void esegui_fino(Monotonic fine);
  void esegui_per(Monotonic durata) { esegui_fino(orologio_.monotono() + durata); }
  /// Lets time pass until `pronto` holds; false when it doesn't within `limite`.
  bool esegui_finche(const std::function<bool()>& pronto, Monotonic limite);

 private:
  VirtualClock orologio_;
  Caso caso_;
  VirtualEventLoop ciclo_;
  VirtualNetwork rete_;
  std::vector<std::unique_ptr<VirtualComputer>> computer_;
};

}  // namespace lokera::simulazione
