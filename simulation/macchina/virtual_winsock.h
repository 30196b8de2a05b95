#pragma once

#include "platform/winsock.h"
#include "simulation/macchina/virtual_network.h"

namespace lokera::simulazione {

/// The sockets of one computer on the virtual network.
class VirtualWinsocks : public WinsockFactory {
 public:
  VirtualWinsocks(VirtualNetwork& rete, QString nome_computer)
      : rete_(rete), nome_(std::move(nome_computer)) {}
  std::unique_ptr<Winsock> crea_winsock() override;

 private:
  VirtualNetwork& rete_;
  QString nome_;
};

}  // namespace lokera::simulazione
