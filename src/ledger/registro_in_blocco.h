#pragma once

#include <QHash>

#include <functional>

#include "ledger/registro.h"
#include "ledger/righe_registro.h"

namespace lokera {

/// The book while many movements go into it at once. What comes of them is what `Registro` makes of one after
/// the other, but a key's row is written only with what happened to it last.
class RegistroInBlocco {
 public:
  /// Books the movement after those before it. The holder's name is looked up; the one that it bears counts
  /// for nothing.
  Errore registra(Movimento movimento);

 private:
  friend Errore registra_in_blocco(Connection&, const std::function<Errore(RegistroInBlocco&)>&);
  explicit RegistroInBlocco(Connection& connessione) : c_(connessione), registro_(connessione) {}
  Esito<QString> intestazione(const QString& tessera);
  Errore scrivi_chiavi();

  struct ChiaveMossa {
    QString codice;
    StatoChiave stato;
  };

  Connection& c_;
  Registro registro_;
  qlonglong id_ = 0;                      ///< of the next row
  QHash<QString, QString> intestazioni_;  ///< by card
  QHash<QString, ChiaveMossa> chiavi_;    ///< by code without regard to case, as the registry compares
};

/// `lavoro` books what it has, as one transaction: durable as a whole when the call returns without a
/// failure, otherwise nothing of it is kept. It must not run the loop.
Errore registra_in_blocco(Connection& connessione, const std::function<Errore(RegistroInBlocco&)>& lavoro);

}  // namespace lokera
