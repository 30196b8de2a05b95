#include "link/lokera_corrente.h"

#include "link/protocollo.h"

namespace lokera {

using namespace Qt::StringLiterals;

LokeraCorrente::LokeraCorrente(Finestra& principale)
    : lblID(principale, u"lblID"_s),
      lblNome(principale, u"lblNome"_s),
      lblIndirizzoIP(principale, u"lblIndirizzoIP"_s, u"192.168.15.200"_s) {}

QString LokeraCorrente::indirizzo() const {
  return normalizza_ip(lblIndirizzoIP.Caption);
}

void LokeraCorrente::porta_a(const QString& id, const QString& nome, const QString& indirizzo) {
  lblID.Caption = id;
  lblNome.Caption = nome;
  lblIndirizzoIP.Caption = indirizzo;
}

}  // namespace lokera
