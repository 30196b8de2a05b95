#pragma once

#include <QByteArray>
#include <QDateTime>
#include <QString>

namespace lokera {

/// A time of a cabinet as it goes out and as the database keeps it.
struct TempoLokera {
  int spedito = 0;
  int memorizzato = 0;
};

/// What a time may be, as a person types it; the cabinet counts in units of `unita`.
struct LimitiTempo {
  int minimo = 1;
  int massimo = 1;
  int unita = 1;
};

constexpr LimitiTempo limiti_comunicazione{10, 2500, 10};
constexpr LimitiTempo limiti_sblocco_porta{100, 2500, 10};
constexpr LimitiTempo limiti_attesa{1, 250, 1};

/// The number that was typed, put within its limits without a word; a text that is no number counts as 0.
TempoLokera leggi_tempo(const QString& testo, const LimitiTempo& limiti);

/// What a cabinet is told to work by. The first four are numbers of their lists (0 or 1).
struct ParametriLokera {
  int funzionamento = 0;
  int lingua = 0;
  int dataora = 1;
  int retroilluminazione = 1;
  TempoLokera comunicazione, sblocco_porta, attesa_inizio, attesa_fine;
};

/// Upper-case hexadecimal digits of the value, two at least.
QByteArray esadecimale2(qint32 valore);

/// "00095" with its fields, still without block check.
QByteArray testo_parametri(const ParametriLokera& p);

/// "00020": the day of the week (1 is Sunday), then DDMMYYYYHHNNSS; still without block check.
QByteArray testo_orologio(const QDateTime& adesso);

}  // namespace lokera
