#pragma once

#include <functional>

#include "access/giorno.h"
#include "cards/posizioni_tessere.h"
#include "ledger/coda_tessere.h"
#include "link/sessione_download.h"
#include "store/database.h"

namespace lokera {

/// What a record of a cabinet's archive belongs to.
enum TipoRecord : qint16 { record_operatore = 0, record_chiave = 1 };

/// Asks the connected cabinet how many records of that kind it holds: the four digits of its answer. Runs the
/// loop; who talks with the cabinet meanwhile is interrupted.
Esito<QString> conta_record(SessioneDownload& sessione, TipoRecord tipo);

/// Writes card records to the connected cabinet, the current one when an operation begins, and deletes them.
/// Every operation runs the event loop while it waits for the cabinet; the caller sees to it that nothing
/// else uses the session meanwhile. When somebody connects anew all the same, the operation fails, sends
/// nothing more and leaves the queue alone. The day type is that of the last `Giorno::tipo_giorno`.
class InvioTessere {
 public:
  InvioTessere(Database& db, const Clock& orologio, SessioneDownload& sessione, const Giorno& giorno,
               const LokeraCorrente& corrente);

  /// 0 the record was written and verified, 1 it was not. For an operator card `posizione` comes back as the
  /// allocated position, which is stored before the cabinet is reached; for a key it says where it goes. On
  /// success the card's queue row of this cabinet goes, unless it says something else by now or the card's
  /// mask has become another one meanwhile. Nothing is sent while a deletion waits in the queue.
  qint16 invia_record_operatore(const QString& codice, qint32& posizione, qint16 tipo);

  /// 0 deleted, 1 not. `posizione` comes back as the one the card had; it is free from this moment, whatever
  /// the cabinet says, and remembered until the cabinet has confirmed. What becomes of the card,
  /// `CodaTessere::servita_cancellazione` tells. Nothing is sent while a writing waits in the queue.
  qint16 cancella_operatore_lokera(const QString& codice, qint32& posizione, qint16 tipo);

  /// Sends the deletions again that this cabinet has not confirmed; those of positions where a card has been
  /// written since are left out. 0 none is open any more, 1 some are. Ends at the first without an answer.
  qint16 ripeti_cancellazioni();

  std::function<void(const Errore&)> segnala;

 private:
  /// The cabinet and the conversation that an operation began with.
  struct Inizio {
    qlonglong lokera;
    int conversazione;
  };

  Inizio inizio() const { return {corrente_.id(), sessione_.numero_connessione()}; }
  bool interrotta(const Inizio& c) const { return !sessione_.in_corso(c.conversazione); }
  bool fallito(const Errore& errore) const;

  Esito<bool> permessa(const Inizio& c, const QString& codice, OperazioneCoda operazione);
  Esito<QByteArray> record_di(const QString& codice);
  bool scrivi_e_verifica(const Inizio& c, QByteArrayView testa, const QByteArray& record);
  Errore scritta(const Inizio& c, const QString& codice, qint32 posizione, const QByteArray& record);
  bool ripeti_cancellazione(const Inizio& c, qint32 posizione, bool& muta);

  Database& db_;
  const Clock& orologio_;
  SessioneDownload& sessione_;
  const Giorno& giorno_;
  const LokeraCorrente& corrente_;
  CodaTessere coda_;
  PosizioniTessere posizioni_;
};

}  // namespace lokera
