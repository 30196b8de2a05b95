#include "simulation/virtual_winsock.h"

namespace lokera {

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
      filo_->manda(Lato::console, dati.toByteArray());
    }
  }

  QByteArray GetData() override {
    if (arrivi_.isEmpty()) return {};
    return protocollo_ == Protocol::udp ? arrivi_.takeFirst() : std::exchange(arrivi_, {}).join();
  }

  void Close() override { chiudi(); }
  int State() const override { return stato_; }
  QString LocalHostName() const override { return nome_; }

 private:
  void apri(int stato) {
    stato_ = stato;
    filo_ = std::make_shared<VirtualFilo>(rete_, indirizzo_, porta_);
    filo_->attacca(Lato::console, this);
  }

  void chiudi() {
    if (filo_) std::exchange(filo_, {})->stacca(Lato::console);
    arrivi_.clear();
    stato_ = socket_chiuso;
  }

  void connesso() override { stato_ = socket_connesso; }

  void arriva(const QByteArray& dati) override {
    arrivi_.append(dati);
    qsizetype totale = 0;
    for (const QByteArray& arrivo : std::as_const(arrivi_)) totale += arrivo.size();
    if (const auto evento = DataArrival) evento(totale);
  }

  void caduta() override { stato_ = stato_ == socket_connesso ? socket_lasciato : socket_in_errore; }

  VirtualNetwork& rete_;
  QString nome_;
  enum Protocol protocollo_ = Protocol::tcp;
  QString indirizzo_;
  quint16 porta_ = 0;
  int stato_ = socket_chiuso;
  std::shared_ptr<VirtualFilo> filo_;
  QList<QByteArray> arrivi_;  // datagrams one by one, a stream in the pieces in which it came
};

}  // namespace

std::unique_ptr<Winsock> VirtualWinsocks::crea_winsock() {
  return std::make_unique<VirtualWinsock>(rete_, nome_);
}

}  // namespace lokera
