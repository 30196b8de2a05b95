#include "simulation/servizio/rete_propria.h"

#include <QNetworkInterface>

#include "platform/letterali.h"

namespace lokera::simulazione {

// Asked of the kernel: in a namespace /sys still shows the interfaces of the network around it. A kind says
// nothing, since a container's way out is a veth too; the name is the one that the script gives.
QString via_verso_altri() {
  for (const QNetworkInterface& una : QNetworkInterface::allInterfaces()) {
    const auto segni = una.flags();
    if (!segni.testFlag(QNetworkInterface::IsUp) || segni.testFlag(QNetworkInterface::IsLoopBack)) continue;
    if (!una.name().startsWith(u"rete_propria"_s)) return una.name();
  }
  return {};
}

}  // namespace lokera::simulazione
