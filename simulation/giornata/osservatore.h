#pragma once

#include <deque>
#include <map>
#include <vector>

#include "simulation/cabinet/registro_eventi.h"
#include "simulation/macchina/virtual_network.h"
#include "store/connection.h"

namespace lokera::simulazione {

/// What a row of `movimenti` says, or must say.
struct RigaMovimento {
  QString operatore;
  QString chiave;
  QString tipo;
  QDateTime data;
  bool operator==(const RigaMovimento&) const = default;
  QString testo() const;
};

/// Looks on from outside while a day goes by: at everything that arrives on the network, at the ledger of the
/// cabinets, and, through a connection of its own, at what the console has committed. Each row booked must
/// come from a record that arrived, as it arrived, or from the end of a live operation; and when a cabinet
/// drops a record because it was acknowledged, its row must stand in the file.
class Osservatore {
 public:
  /// All of them must outlive the observer, which hooks itself into the first two.
  Osservatore(VirtualNetwork& rete, RegistroEventi& registro, Connection& file, const Clock& clock);
  ~Osservatore();
  Osservatore(const Osservatore&) = delete;
  Osservatore& operator=(const Osservatore&) = delete;

  /// What the whole day must leave behind: nothing lost and nothing without a cause.
  void alla_fine();

  /// Visits since the start that ended with the question for stored records, by the cabinet's address.
  const std::map<QString, int>& visite() const { return visite_; }
  std::function<void(const QString& indirizzo)> Visitata;
  /// While it holds, a record that arrives is perhaps not taken in.
  std::function<bool()> Trattenuti;

  void differenza(const QString& testo);
  const QStringList& differenze() const { return differenze_; }
  quint64 impronta() const { return impronta_; }
  int righe() const { return righe_; }
  int ripetute() const;
  int alterate() const { return alterate_; }
  int in_diretta() const { return in_diretta_; }

 private:
  struct Arrivo {
    QByteArray frame;
    RigaMovimento riga;
    quint64 n = 0;  ///< the movement that it tells of
    bool alterato = false;
    bool doppio = false;  ///< the same bytes as the one before it, or not to be taken in for certain
  };
  struct Conto {
    int arrivi = 0;
    int righe = 0;
  };

  /// What one connection brought and was not a whole line yet.
  struct Resto {
    QByteArray testo;
    qsizetype consegnati = 0;  ///< of `testo`, so long ago that the console had them as they stood
    qint64 us = 0;
  };

  void traccia(const QString& riga);
  QByteArrayList righe_arrivate(const QByteArray& porta, qint64 us, const QByteArray& dati);
  void mescola(const QByteArray& testo);
  void arrivato(const QString& indirizzo, const QByteArray& frame);
  void arrivato_vivo(const QByteArray& frame);
  void scritto(const QByteArray& riga);
  void confermato(quint64 n);
  void risposto(quint64 n, const QByteArray& cifra);
  void leggi_righe();
  bool da_arrivo(const RigaMovimento& riga);
  bool da_operazione_viva(const RigaMovimento& riga);
  void trova_movimento(const QString& indirizzo, Arrivo& arrivo) const;
  void controlla_voce(const VoceRegistro& voce);

  VirtualNetwork& rete_;
  RegistroEventi& registro_;
  Connection& file_;
  const Clock& clock_;
  QStringList differenze_;
  std::map<QString, std::vector<quint64>> lette_;  // by cabinet, the movements sent last
  std::deque<Arrivo> arrivi_;                      // not booked yet
  std::map<QByteArray, Resto> resti_;              // by address and port
  QByteArray ultimo_;
  std::map<quint64, Conto> conti_;
  std::vector<quint64> vivi_;  // live movements whose row has not been seen
  std::map<QString, int> visite_;
  qlonglong ultimo_id_ = 0;
  int vive_alterate_ = 0;        // frames of live sessions that came as other than frames
  int righe_vive_alterate_ = 0;  // rows booked from such, not yet laid to a movement
  int righe_ = 0;
  int alterate_ = 0;
  int in_diretta_ = 0;
  quint64 impronta_ = 14695981039346656037ULL;
};

}  // namespace lokera::simulazione
