#pragma once

#include <QTemporaryDir>

#include "adapters/real_machine.h"
#include "aiuti/righe.h"
#include "simulation/macchina/virtual_dialogs.h"
#include "simulation/macchina/virtual_input_box.h"
#include "simulation/servizio/real_rete.h"
#include "store/schema_base.h"
#include "supervisor/console.h"

namespace lokera::prova {

/// A console with a delivered file on the real machine, whose boxes the test answers.
struct ConsoleVera {
  ConsoleVera() {
    EXPECT_FALSE(crea_database(cartella.filePath(nome_file_database())).fallito());
    EXPECT_TRUE(console.apri(cartella.path()));
  }

  QTemporaryDir cartella;
  RealMachine computer;
  const Machine m = computer.macchina();
  simulazione::VirtualMessageBox messaggi;
  simulazione::VirtualInputBox domande;
  Console console{{m.orologio, m.ciclo, m.timer, m.socket, m.seriali, messaggi, domande, m.file, m.stampante,
                   m.fogli, m.puntatore, m.desktop, m.programma, m.documenti}};
};

}  // namespace lokera::prova
