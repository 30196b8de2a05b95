#pragma once

#include <QStringList>

namespace lokera::simulazione {

/// What a day is made of. The same settings give the same day to the last byte.
struct ImpostazioniGiornata {
  quint64 seme = 1;
  int lokere = 6;
  int ore = 24;
  bool gestita = false;      ///< the first cabinet asks the console
  bool lente = false;        ///< cabinets take their time, so that reads last longer than a tick
  bool guasti = true;        ///< the network goes wrong
  bool vicende = true;       ///< cards are changed, added and deleted, and the clock is set back
  bool segui_fasce = false;  ///< after every visit the cabinet's masks are held against the bands; without
                             ///< faults and without changes
  bool registri = false;  ///< somebody registers keys and cards in their windows; no other changes of cards
  int eventi_ora = 12;    ///< at each cabinet
};

/// What came out. `differenze` is empty on a good day.
struct EsitoGiornata {
  QStringList differenze;
  quint64 impronta = 0;  ///< of everything that arrived anywhere, and when
  int visite = 0;
  int movimenti = 0;   ///< rows booked
  int ripetuti = 0;    ///< rows beyond the first of their movement
  int alterati = 0;    ///< rows booked as the network garbled them
  int in_diretta = 0;  ///< booked at the end of a live operation
  int eliminate = 0;   ///< cards that people deleted
  int mosse = 0;       ///< of the person at the windows of keys and cards
  int vecchie_posizioni = 0, trattenute = 0, senza_risposta = 0;  ///< see `EccezioniRegistri`
  int azzeramenti = 0;                                            ///< resets that cabinets carried out
  qint64 attesa_ms = 0;                                           ///< the longest single wait
  int annidate = 0;                                               ///< waits inside one another, at most
};

/// The day, from its start to the quiet after it.
EsitoGiornata vivi_giornata(const ImpostazioniGiornata& impostazioni);

}  // namespace lokera::simulazione
