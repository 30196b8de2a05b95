#pragma once

#include <functional>

#include "access/giorno.h"
#include "access/pannello_live.h"
#include "ledger/movimenti_in_attesa.h"
#include "link/sessione_slave.h"
#include "store/database.h"
#include "store/recordset.h"

namespace lokera {

/// Live answers to the managed cabinet. Each request is decided from the database and answered inside the
/// socket's event, at once: nothing here runs the event loop. A request whose query fails is refused. The end
/// of an operation is booked here and confirmed to the cabinet once it is in the book.
class Decisioni {
 public:
  Decisioni(Database& db, const Clock& orologio, Giorno& giorno, PannelloLive& pannello,
            MovimentiInAttesa& in_attesa, SessioneSlave& sessione);

  /// Looks at the frame that came and calls one of the three handlers, each of which empties it, or leaves it
  /// as it is; so it does with a fragment, which has no carriage return at its end.
  void smista(QByteArray& frame);

  void richiesta_operatore(QByteArray& testo);  ///< "00090", operator card at the reader
  void richiesta_chiave(QByteArray& testo);     ///< "00091", key movement wanted
  void esito_operazione(QByteArray& testo);     ///< "00092", end of the operation

  /// The operation in progress: ' ' none, 'P' a withdrawal, 'R' a return was authorised and its end is
  /// awaited.
  char stato_operazione = ' ';

  /// Books the movement, 'P' or 'R', of the operator and the key on the panel. A failure says that it waits
  /// in `MovimentiInAttesa`.
  Errore registra_movimento(char tipo);

  /// A query failed and the request was refused: tells the person at the desk.
  std::function<void(const Errore&)> segnala;

 private:
  bool operatore_ammesso(const QString& codice);
  bool entro_validita(const QDateTime& dal, const QDateTime& al) const;
  bool entro_limite(const QString& codice, qlonglong massimo);
  bool prelievo_ammesso(const QString& codice, QString& gruppo);
  bool gruppo_abilitato(const QString& gruppo);
  bool entro_fascia(const QString& gruppo);
  bool esiste(const QString& sql, const QVariantList& valori);
  bool apri(Recordset& rs, const QString& sql, const QVariantList& valori);
  void esito_lato(PannelloLive::Lato lato, bool prelievo, const QByteArray& codice, QByteArray& risposta);
  void rispondi(QByteArray& testo, QByteArrayView risposta);

  Database& db_;
  const Clock& orologio_;
  Giorno& giorno_;
  PannelloLive& pannello_;
  MovimentiInAttesa& in_attesa_;
  SessioneSlave& sessione_;
  bool tessera_rifiutata_ = false;  ///< the card that was shown last; the panel names it all the same
};

}  // namespace lokera
