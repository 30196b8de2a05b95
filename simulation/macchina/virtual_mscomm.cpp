#include "simulation/macchina/virtual_mscomm.h"

#include <QtGlobal>

#include <utility>

#include "platform/letterali.h"

namespace lokera::simulazione {

class VirtualMSComm : public MSComm {
 public:
  explicit VirtualMSComm(VirtualMSComms& porte) : porte_(porte) {}
  ~VirtualMSComm() override { chiudi(); }
  Q_DISABLE_COPY_MOVE(VirtualMSComm)

  void CommPort(int numero) override { numero_ = numero; }

  bool PortOpen(bool aperta) override {
    chiudi();
    if (!aperta) return true;
    if (!porte_.collegate_.contains(numero_) || porte_.aperte_.contains(numero_)) return false;
    aperta_ = numero_;
    porte_.aperte_[aperta_] = this;
    return true;
  }
  bool PortOpen() const override { return aperta_ != 0; }
  QString dispositivo() const override {
    return PortOpen() ? porte_.dispositivi(aperta_).first() : QString();
  }

  qsizetype InBufferCount() const override { return arrivati_.size(); }
  QByteArray Input() override {
    QByteArray primo = arrivati_.first(std::min<qsizetype>(arrivati_.size(), 1));
    arrivati_.remove(0, primo.size());
    return primo;
  }

  void arriva(const QByteArray& dati) {
    arrivati_ += dati;
    annuncia();
  }

  /// Closed by the event that tells it, as the real one is.
  void perdi() {
    perduta_ = true;
    dal_ciclo([this] {
      if (!perduta_) return;
      chiudi();
      if (const auto evento = Perduta) evento();
    });
  }

  void chiudi() {
    perduta_ = false;
    arrivati_.clear();
    if (aperta_ != 0) porte_.aperte_.erase(std::exchange(aperta_, 0));
  }

 private:
  void annuncia() {
    if (arrivati_.isEmpty() || dentro_ || std::exchange(annunciato_, true)) return;
    dal_ciclo([this] { consegna(); });
  }

  void dal_ciclo(std::function<void()> evento) {
    porte_.ciclo_.fra(Monotonic(0), [evento = std::move(evento), vivo = std::weak_ptr(vita_)] {
      if (!vivo.expired()) evento();
    });
  }

  void consegna() {
    annunciato_ = false;
    if (arrivati_.isEmpty()) return;
    dentro_ = true;
    if (const auto evento = OnComm) evento();
    dentro_ = false;
    annuncia();
  }

  VirtualMSComms& porte_;
  int numero_ = 1;
  int aperta_ = 0;  // the number that it is open with, 0 for closed
  QByteArray arrivati_;
  bool annunciato_ = false;
  bool perduta_ = false;
  bool dentro_ = false;
  std::shared_ptr<char> vita_ = std::make_shared<char>();
};

std::unique_ptr<MSComm> VirtualMSComms::crea_mscomm() {
  return std::make_unique<VirtualMSComm>(*this);
}

void VirtualMSComms::scollega(int numero) {
  collegate_.erase(numero);
  if (const auto aperta = aperte_.find(numero); aperta != aperte_.end()) aperta->second->perdi();
}

QStringList VirtualMSComms::dispositivi(int numero) const {
  return {u"COM%1"_s.arg(numero)};
}

std::vector<PortaSeriale> VirtualMSComms::presenti() const {
  std::vector<PortaSeriale> porte;
  porte.reserve(collegate_.size());
  for (const int numero : collegate_) porte.push_back({numero, dispositivi(numero).first()});
  return porte;
}

void VirtualMSComms::arriva(int numero, const QByteArray& dati) {
  const auto aperta = aperte_.find(numero);
  if (collegate_.contains(numero) && aperta != aperte_.end()) aperta->second->arriva(dati);
}

}  // namespace lokera::simulazione
