#pragma once

#include <QStandardPaths>

#include "adapters/base/fuso_orario.h"
#include "adapters/base/qt_clock.h"
#include "adapters/base/qt_event_loop.h"
#include "adapters/base/qt_mscomm.h"
#include "adapters/base/qt_timer.h"
#include "adapters/base/qt_winsock.h"
#include "adapters/base/xlsx_spreadsheet.h"
#include "adapters/qt_cursor.h"
#include "adapters/qt_desktop.h"
#include "adapters/qt_dialogs.h"
#include "adapters/qt_file_choice.h"
#include "adapters/qt_printer.h"
#include "platform/machine.h"

namespace lokera {

/// The computer that the program runs on. The application object must exist before it and outlive it.
class RealMachine {
 public:
  /// `dispositivi`: the folder of the serial ports, see NomiSeriali.
  explicit RealMachine(const QString& dispositivi = NomiSeriali::di_solito())
      : ciclo_(orologio_), seriali_(dispositivi) {
    fissa_fuso_orario();
  }
  Machine macchina() {
    return {orologio_, ciclo_,     timer_, socket_,    seriali_, messaggi_,  domande_,
            file_,     stampante_, fogli_, puntatore_, desktop_, programma_, documenti()};
  }

 private:
  static QString documenti() { return QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation); }

  QtClock orologio_;
  QtEventLoop ciclo_;
  QtTimers timer_;
  QtWinsocks socket_;
  QtMSComms seriali_;
  QtMessageBox messaggi_;
  QtInputBox domande_;
  QtFileChoice file_{documenti()};
  QtPrinter stampante_{file_};
  XlsxSpreadsheet fogli_;
  QtCursor puntatore_;
  QtDesktop desktop_;
  QtProgram programma_;
};

}  // namespace lokera
