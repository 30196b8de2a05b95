#include "adapters/base/fuso_orario.h"

#include <QByteArray>

#include <ctime>

namespace lokera {

void fissa_fuso_orario() {
  if (qEnvironmentVariableIsSet("TZ")) return;
  qputenv("TZ", ":/etc/localtime");
  ::tzset();
}

}  // namespace lokera
