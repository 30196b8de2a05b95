#pragma once

#include <QString>

#include "platform/clock.h"
#include "platform/desktop.h"
#include "platform/dialogs.h"
#include "platform/event_loop.h"
#include "platform/file_choice.h"
#include "platform/mscomm.h"
#include "platform/pointer.h"
#include "platform/printer.h"
#include "platform/spreadsheet.h"
#include "platform/timer.h"
#include "platform/winsock.h"

namespace lokera {

/// The parts of a machine, side by side, for the one place that hands them out. Everything else takes in its
/// constructor only those that it uses.
struct Machine {
  Clock& orologio;
  EventLoop& ciclo;
  TimerFactory& timer;
  WinsockFactory& socket;
  MSCommFactory& seriali;
  MessageBox& messaggi;
  InputBox& domande;
  FileChoice& file;
  Printer& stampante;
  Spreadsheet& fogli;
  Pointer& puntatore;
  Desktop& desktop;
  Program& programma;
  QString documenti;  ///< the person's folder for documents; it may not be there yet
};

}  // namespace lokera
