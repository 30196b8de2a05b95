#pragma once

#include <QByteArray>
#include <QHash>

#include <memory>
#include <sqlite3.h>

#include "store/connection.h"
#include "store/statement.h"

namespace lokera {

/// How often each table was written, and whether another console wrote the file.
class ConteggioModifiche {
 public:
  void riga(const char* tabella);
  void tabella_intera(const QString& tabella);
  void tutte() { ++tutte_; }
  quint64 versione(const QString& tabella) const;

 private:
  QHash<QByteArray, quint64> tabelle_;
  QByteArray ultima_;
  quint64* conto_ultima_ = nullptr;
  quint64 tutte_ = 1;
};

struct Connection::Motore {
  ~Motore() { chiudi(); }

  Errore apri(const QString& file, const QString& password, bool nuovo);
  void chiudi();
  Esito<std::shared_ptr<Statement>> prendi(const QString& sql);
  /// Runs a prepared statement with its values bound, to its end, and resets it.
  /// Returns how many rows it wrote, -1 for what is no insert, update or delete.
  Esito<qint64> esegui_fino_in_fondo(Statement& s);
  Esito<qint64> esegui(const QString& sql, const QVariantList& valori);
  quint64 versione(const QString& tabella);

  sqlite3* db = nullptr;
  CacheStatement statement;
  ConteggioModifiche modifiche;
  qint64 istruzioni = 0;
  int attesa_ms = attesa_blocco_ms;
  /// Begun by us; the engine may have ended it by itself, then nothing more runs until the caller ends it
  /// too.
  bool transazione = false;

 private:
  Errore imposta_file(const QString& password);
  Errore leggi_impostazione(const char* nome, const QString& atteso);
  void sorveglia();

  int versione_file_ = -1;
};

}  // namespace lokera
