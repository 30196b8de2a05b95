#include "commissioning/rete_lokera.h"

#include <QStringList>

#include "link/protocollo.h"
#include "platform/letterali.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

// "192168015250" with its dots; empty when it is no twelve digits.
QString con_punti(QByteArrayView cifre) {
  if (cifre.size() != 12 || !solo_cifre(cifre)) return {};
  const QString testo = QString::fromLatin1(cifre);
  return QStringList{testo.first(3), testo.sliced(3, 3), testo.sliced(6, 3), testo.sliced(9)}.join(u'.');
}

QByteArray senza_punti(const QString& indirizzo) {
  return QString(indirizzo).remove(u'.').toLatin1();
}

}  // namespace

std::optional<ReteLokera> leggi_scoperta(QByteArrayView frame) {
  if (frame.size() < lunghezza_scoperta) return {};
  const ReteLokera rete{con_punti(campo_frame(frame, 20, 12)), QString::fromLatin1(campo_frame(frame, 32, 5)),
                        con_punti(campo_frame(frame, 37, 12)), con_punti(campo_frame(frame, 49, 12))};
  if (rete.indirizzo.isEmpty() || rete.maschera.isEmpty() || rete.gateway.isEmpty()) return {};
  return rete;
}

QByteArray testo_impostazioni(const ReteLokera& rete) {
  return "000A1" + senza_punti(rete.indirizzo) + rete.porta.toLatin1() + senza_punti(rete.maschera) +
         senza_punti(rete.gateway);
}

}  // namespace lokera
