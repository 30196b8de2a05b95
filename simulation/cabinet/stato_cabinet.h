#pragma once

#include <QString>

#include "platform/letterali.h"
#include "simulation/cabinet/archivio.h"
#include "simulation/cabinet/orologio_cabinet.h"
#include "simulation/cabinet/registro_eventi.h"
#include "simulation/cabinet/transazioni.h"

namespace lokera::simulazione {

/// How much a cabinet can hold. A position beyond a limit is out of range.
struct LimitiCabinet {
  int operatori = 10000;
  int chiavi = posizioni_maschera;
  int transazioni = 9999;
};

/// What the console registers, as numbers of the wire: `comunicazione` and `sblocco_porta` are a tenth of
/// what a person typed.
struct ParametriCabinet {
  int funzionamento = 0;  ///< 0 decides alone, 1 asks the console
  int lingua = 0;
  int dataora = 1;
  int retroilluminazione = 1;
  int comunicazione = 100;
  int sblocco_porta = 50;
  int attesa_inizio = 30;
  int attesa_fine = 30;
  bool operator==(const ParametriCabinet&) const = default;
};

constexpr quint16 porta_viva = 10002;
constexpr quint16 porta_udp = 3040;

/// Addresses in the form of a socket, "192.168.15.250".
struct ReteCabinet {
  QString indirizzo;
  quint16 porta = 10001;
  QString maschera = u"255.255.255.0"_s;
  QString gateway = u"0.0.0.0"_s;
  bool operator==(const ReteCabinet&) const = default;
};

/// Everything that a cabinet keeps through a reset.
struct StatoCabinet {
  StatoCabinet(const QString& indirizzo, QByteArray numero_di_serie, const LimitiCabinet& limiti,
               const OrologioCabinet& ora, RegistroEventi& registro_eventi)
      : seriale(std::move(numero_di_serie)),
        operatori(limiti.operatori),
        chiavi(limiti.chiavi),
        transazioni(limiti.transazioni),
        orologio(ora),
        registro(registro_eventi) {
    rete.indirizzo = indirizzo;
    prendi_in_uso();
  }

  /// What is stored comes into use, as at every start.
  void prendi_in_uso() {
    parametri_in_uso = parametri;
    rete_in_uso = rete;
  }

  QByteArray seriale;  ///< ten digits
  Archivio operatori;
  Archivio chiavi;
  Transazioni transazioni;
  OrologioCabinet orologio;
  RegistroEventi& registro;
  ParametriCabinet parametri;  ///< as stored; in use from the next start
  ReteCabinet rete;            ///< the same
  ParametriCabinet parametri_in_uso;
  ReteCabinet rete_in_uso;
};

/// What a cabinet remembers of one connection: the number of the transaction that was read on it last and not
/// acknowledged yet, 0 for none. So an acknowledgement drops only what its own connection has read.
struct SessioneCabinet {
  quint64 letta = 0;
};

}  // namespace lokera::simulazione
