#pragma once

#include <functional>

#include "access/pannello_live.h"
#include "link/sessione_download.h"
#include "store/database.h"
#include "supervisor/movimenti_in_attesa.h"
#include "supervisor/registro.h"
#include "supervisor/tabellone.h"

namespace lokera {

/// The two roads by which movements come in: the stored transactions of a cabinet, and the end of a live
/// operation.
class Acquisizione {
 public:
  Acquisizione(Finestra& finestra, Database& db, TimerFactory& timer, SessioneDownload& sessione,
               PannelloLive& pannello, Tabellone& tabellone, const LokeraCorrente& corrente,
               Label& lblLetturaTrans);

  /// Reads that many stored records, each booked and acknowledged before the next is asked for. Runs the
  /// loop; input to the window is off meanwhile. Ends at the first record that isn't confirmed in time, and
  /// when the conversation with the cabinet ends. A call that comes while a read of the same conversation is
  /// under way does nothing.
  void leggi_transazioni(qint16 numero);

  /// Books the record of the frame and acknowledges it after the commit.
  void acquisisci_transazione(const QByteArray& frame);

  /// Books the live movement that the panel shows, of this moment. A failure says that it waits in
  /// `in_attesa`.
  Errore registra_movimento(char tipo, const QDateTime& adesso);

  Label lblNumTrans, lblUltimaTrans;
  Shape shpTrans;
  MovimentiInAttesa in_attesa;  ///< the live movements that could not be booked yet

  /// A stored movement could not be booked: tells the person at the desk.
  std::function<void(const Errore&)> segnala;

 private:
  void leggi_uno_alla_volta(qint16 numero);
  bool leggi_uno();
  QString intestazione_tessera(const QString& codice, Errore& errore);
  void mostra_lampada(const Movimento& movimento, const ChiaveRegistrata& chiave);
  void mostra_ultima(const Movimento& movimento, const QString& data_ora, const QString& descrizione);

  Finestra& finestra_;
  Database& db_;
  Registro registro_;
  SessioneDownload& sessione_;
  PannelloLive& pannello_;
  Tabellone& tabellone_;
  const LokeraCorrente& corrente_;
  Label& lblLetturaTrans_;
  int lettura_di_ = -1;       ///< the conversation whose records are being read
  QByteArray da_registrare_;  ///< a record that could not be booked for the moment
};

}  // namespace lokera
