#pragma once

#include "access/giorno.h"
#include "forms/controlli.h"
#include "link/sessione_download.h"
#include "store/database.h"

namespace lokera {

/// What a record of a cabinet's archive belongs to.
enum TipoRecord : qint16 { record_operatore = 0, record_chiave = 1 };

/// Writes card records to the connected cabinet, the one whose number stands in `lblID`, and deletes them.
/// Every operation runs the event loop while it waits for the cabinet; the caller sees to it that nothing
/// else uses `wskDownload` meanwhile. The day type is that of the last `Giorno::tipo_giorno`.
class InvioTessere {
 public:
  InvioTessere(Database& db, SessioneDownload& sessione, const Giorno& giorno, const Label& lblID);

  /// 0 the record was written and verified, 1 it was not. For an operator card `posizione` comes back as the
  /// allocated position, which is stored before the cabinet is reached; for a key it says where it goes. On
  /// success the card's queue row of this cabinet is deleted.
  qint16 invia_record_operatore(const QString& codice, qint32& posizione, qint16 tipo);

  /// 0 deleted, 1 not. `posizione` comes back as the one the card had; it is free from this moment, whatever
  /// the cabinet says. When no other cabinet has the card in its queue, the card leaves the registry too.
  qint16 cancella_operatore_lokera(const QString& codice, qint32& posizione, qint16 tipo);

 private:
  qlonglong id() const { return lblID_.Caption().toLongLong(); }
  Errore assegna_posizione(const QString& codice, qint32& posizione);
  Errore prima_posizione_libera(qint32& posizione);
  Errore libera_posizione(const QString& codice, qint32& posizione, bool& trovata);
  bool scrivi_e_verifica(QByteArrayView testa, const QByteArray& record);
  void togli_dalla_coda(const QString& codice);
  void togli_dal_registro(const QString& codice);

  Database& db_;
  SessioneDownload& sessione_;
  const Giorno& giorno_;
  const Label& lblID_;
};

}  // namespace lokera
