#pragma once

#include <map>
#include <set>

#include "platform/mscomm.h"
#include "simulation/macchina/virtual_event_loop.h"

namespace lokera::simulazione {

class VirtualMSComm;

/// The serial ports of one computer, with whatever is plugged in there.
class VirtualMSComms : public MSCommFactory {
 public:
  explicit VirtualMSComms(VirtualEventLoop& ciclo) : ciclo_(ciclo) {}
  std::unique_ptr<MSComm> crea_mscomm() override;
  QStringList dispositivi(int numero) const override;
  std::vector<PortaSeriale> presenti() const override;

  void collega(int numero) { collegate_.insert(numero); }
  /// The device goes away; an open port closes and tells it.
  void scollega(int numero);
  /// What the device sends, one event for all of it. Lost when nobody has the port open.
  void arriva(int numero, const QByteArray& dati);

 private:
  friend class VirtualMSComm;
  VirtualEventLoop& ciclo_;
  std::set<int> collegate_;
  std::map<int, VirtualMSComm*> aperte_;
};

}  // namespace lokera::simulazione
