#pragma once

#include <functional>

#include "ledger/registro.h"
#include "link/sessione_download.h"
#include "supervisor/tabellone.h"

namespace lokera {

/// The stored transactions of a cabinet on their way into the book.
class Acquisizione {
 public:
  Acquisizione(Finestra& finestra, Connection& connessione, SessioneDownload& sessione, Tabellone& tabellone,
               const LokeraCorrente& corrente, Label& lblLetturaTrans);

  /// Reads that many stored records, each booked and acknowledged before the next is asked for. Runs the
  /// loop; input to the window is off meanwhile. Ends at the first record that isn't confirmed in time, and
  /// when the conversation with the cabinet ends. A call that comes while a read of the same conversation is
  /// under way does nothing.
  void leggi_transazioni(qint16 numero);

  /// Books the record of the frame and acknowledges it after the commit.
  void acquisisci_transazione(const QByteArray& frame);

  Label lblNumTrans, lblUltimaTrans;
  Shape shpTrans;

  /// A stored movement could not be booked: tells the person at the desk.
  std::function<void(const Errore&)> segnala;

 private:
  void leggi_uno_alla_volta(qint16 numero);
  bool leggi_uno();
  Esito<ChiaveRegistrata> registra(Movimento& movimento);
  void mostra_ultima(const Movimento& movimento, const QString& data_ora, const QString& descrizione);

  Finestra& finestra_;
  Registro registro_;
  SessioneDownload& sessione_;
  Tabellone& tabellone_;
  const LokeraCorrente& corrente_;
  Label& lblLetturaTrans_;
  int lettura_di_ = -1;       ///< the conversation whose records are being read
  QByteArray da_registrare_;  ///< a record that could not be booked for the moment
};

}  // namespace lokera
