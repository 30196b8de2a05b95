#pragma once

#include <functional>
#include <map>

#include "simulation/cabinet/cabinet_comandi.h"
#include "simulation/cabinet/stato_cabinet.h"

namespace lokera::simulazione {

/// A key as an object: where it hangs, and who carries it when it doesn't.
struct ChiaveAppesa {
  int posizione = 0;
  bool fuori = false;
  QByteArray chi;  ///< card, ten characters; empty while the key hangs in the cabinet
};

/// One simulated key cabinet: what it stores, what it answers, what it decides by itself. It knows no
/// network, and its time is its own clock.
class Cabinet {
 public:
  struct Identita {
    QString indirizzo;  ///< "127.0.0.2"; also its name in the ledger
    QByteArray seriale = "0000000001";
    LimitiCabinet limiti = {};
    bool orologio_regolato = true;  ///< false: nobody has ever set its clock
  };

  /// As it comes out of its box: nothing registered, the clock never set, an address that many share.
  static Identita di_fabbrica(const QByteArray& seriale, const QString& indirizzo = u"192.168.15.200"_s);

  /// The clock and the ledger must outlive the cabinet.
  Cabinet(const Identita& identita, const Clock& clock, RegistroEventi& registro);

  /// The answer to one frame of the command port; empty when the cabinet keeps silent.
  QByteArray comando(QByteArrayView frame, SessioneCabinet& sessione);
  QByteArray comando(QByteArrayView frame) { return comando(frame, propria_); }

  /// The answer to a datagram. A reset happens before the return and has no answer.
  QByteArray datagramma(QByteArrayView frame);

  /// The cabinet is switched on: stored parameters and network settings come into use; archives, store, clock
  /// and keys stay.
  void accendi();
  /// The same by a reset.
  void riavvia();
  std::function<void()> Riavvio;  ///< called at the end of riavvia()
  int riavvii() const { return riavvii_; }

  /// A person acts at a cabinet that decides alone: `tipo` P or R. A withdrawal needs a record of the key,
  /// one of the card with the bit of the key's position, and the key in its place; a return needs only a key
  /// that is out, so that no key is shut out. What is granted stands in the store afterwards, and a full
  /// store grants nothing.
  bool evento(char tipo, const QByteArray& tessera, const QByteArray& chiave);

  /// Whether the cabinet's own records allow this card this key now.
  bool permette(QByteArrayView tessera, QByteArrayView chiave) const;

  /// A key moves without a decision of the cabinet's own (the console has decided). Codes that hang nowhere
  /// here are let pass. Returns the movement with its moment.
  MovimentoChiave muovi(char tipo, const QByteArray& tessera, const QByteArray& chiave);

  /// Puts movement `n` of the ledger into the store; for tests and for live movements that the console
  /// missed.
  void memorizza(quint64 n, const MovimentoChiave& movimento);

  /// Hangs a key on its hook; `registra` also writes its record.
  void appendi(int posizione, const QByteArray& chiave, bool registra = true);
  /// Takes a key away for good; its record stays.
  void stacca(const QByteArray& chiave) { chiavi_.erase(chiave); }
  const std::map<QByteArray, ChiaveAppesa>& chiavi() const { return chiavi_; }

  /// The parameters in use say that the console decides.
  bool gestito() const { return stato_.parametri_in_uso.funzionamento == 1; }
  /// Stores the mode and takes it into use at once.
  void imposta_gestito(bool gestito);

  const QString& nome() const { return nome_; }
  StatoCabinet& stato() { return stato_; }
  const StatoCabinet& stato() const { return stato_; }

 private:
  const char* motivo_rifiuto(char tipo, const QByteArray& tessera, const QByteArray& chiave) const;

  QString nome_;
  StatoCabinet stato_;
  SessioneCabinet propria_;
  std::map<QByteArray, ChiaveAppesa> chiavi_;
  int riavvii_ = 0;
};

}  // namespace lokera::simulazione
