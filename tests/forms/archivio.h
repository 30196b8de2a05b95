#pragma once

#include "aiuti/finestre.h"

namespace lokera {

/// An empty encrypted file of its own, a machine, and what a list needs.
class Archivio : public prova::BancoFinestre {
 protected:
  Archivio() : BancoFinestre(u"prova.mdb"_s) {}

  const QString file = cartella.filePath(u"prova.mdb"_s);
  Connection& conn = db.connessione_db;
};

}  // namespace lokera
