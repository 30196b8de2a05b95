#include "simulation/macchina/virtual_winsock.h"

#include "platform/ricompositore.h"

namespace lokera::simulazione {

namespace {

// States between closed and connected, and after a loss, that nothing should rely on.
constexpr int socket_aperto = 1;
constexpr int socket_in_connessione = 6;
constexpr int socket_lasciato = 8;
constexpr int socket_in_errore = 9;

class VirtualWinsock : public Winsock, private CapoFilo {
 public:
  VirtualWinsock(VirtualNetwork& rete, QString nome) : rete_(rete), nome_(std::move(nome)) {}
  ~VirtualWinsock() override { chiudi(); }
  Q_DISABLE_COPY_MOVE(VirtualWinsock)

  void Protocol(enum Protocol protocollo) override { protocollo_ = protocollo; }
  void RemoteHost(const QString& indirizzo) override { indirizzo_ = indirizzo; }
  void RemotePort(quint16 porta) override { porta_ = porta; }

  void Connect(const QString& indirizzo, quint16 porta) override {
    chiudi();
    indirizzo_ = indirizzo;
    porta_ = porta;
    apri(socket_in_connessione);
    rete_.connetti(filo_);
  }

  void SendData(QByteArrayView dati) override {
    if (protocollo_ == Protocol::udp) {
      if (!filo_) apri(socket_aperto);
      rete_.manda_datagramma(filo_, indirizzo_, porta_, dati.toByteArray());
    } else if (stato_ == socket_connesso) {
      filo_->manda(Estremo::console, dati.toByteArray());
    }
  }

  QByteArray GetData() override {
    if (protocollo_ == Protocol::tcp) return frame_.prendi();
    return datagrammi_.isEmpty() ? QByteArray() : datagrammi_.takeFirst();
  }

  void Close() override { chiudi(); }
  int State() const override { return stato_; }
  QString LocalHostName() const override { return nome_; }

 private:
  void apri(int stato) {
    stato_ = stato;
    filo_ = std::make_shared<VirtualFilo>(rete_, indirizzo_, porta_);
    filo_->attacca(Estremo::console, this);
  }

  void chiudi() {
    if (filo_) std::exchange(filo_, {})->stacca(Estremo::console);
    frame_.svuota();
    datagrammi_.clear();
    vita_ = std::make_shared<char>();
    annunciato_ = false;
    stato_ = socket_chiuso;
  }

  void connesso() override { stato_ = socket_connesso; }

  void arriva(const QByteArray& dati) override {
    if (protocollo_ == Protocol::udp) {
      datagrammi_.append(dati);
    } else {
      frame_.arriva(dati);
      aspetta_resto();
    }
    annuncia();
  }

  // Each arrival starts the time anew.
  void aspetta_resto() {
    if (!frame_.resto()) return;
    const int arrivo = ++arrivi_;
    rete_.ciclo().fra(Ricompositore::attesa_resto, [this, arrivo, vivo = std::weak_ptr(vita_)] {
      if (vivo.expired() || arrivo != arrivi_) return;
      frame_.consegna_resto();
      annuncia();
    });
  }

  qsizetype quanti() const { return protocollo_ == Protocol::tcp ? frame_.quanti() : datagrammi_.size(); }

  // One event for each frame, the next one also while the handler of this one waits.
  void annuncia() {
    if (quanti() == 0 || std::exchange(annunciato_, true)) return;
    rete_.ciclo().fra(Monotonic(0), [this, vivo = std::weak_ptr(vita_)] {
      if (!vivo.expired()) consegna();
    });
  }

  void consegna() {
    annunciato_ = false;
    const qsizetype prima = quanti();
    if (prima == 0) return;
    if (prima > 1) annuncia();
    const qsizetype lungo = protocollo_ == Protocol::tcp ? frame_.lunghezza() : datagrammi_.first().size();
    if (const auto evento = DataArrival) evento(lungo);
  }

  void caduta() override { stato_ = stato_ == socket_connesso ? socket_lasciato : socket_in_errore; }

  VirtualNetwork& rete_;
  QString nome_;
  enum Protocol protocollo_ = Protocol::tcp;
  QString indirizzo_;
  quint16 porta_ = 0;
  int stato_ = socket_chiuso;
  std::shared_ptr<VirtualFilo> filo_;
  Ricompositore frame_;
  QList<QByteArray> datagrammi_;
  std::shared_ptr<char> vita_ = std::make_shared<char>();  // ends at Close, and what was posted with it
  int arrivi_ = 0;
  bool annunciato_ = false;
};

}  // namespace

std::unique_ptr<Winsock> VirtualWinsocks::crea_winsock() {
  return std::make_unique<VirtualWinsock>(rete_, nome_);
}

}  // namespace lokera::simulazione
