#include "simulation/registro.h"

namespace lokera::simulazione {

using namespace Qt::StringLiterals;

namespace {

QByteArray testo(const QDateTime& momento) {
  return momento.toString(u"yyyy-MM-dd hh:mm:ss"_s).toLatin1();
}

const char* nome(Passo passo) {
  switch (passo) {
    case Passo::Memorizzato:
      return "memorizzato";
    case Passo::Letto:
      return "letto";
    case Passo::Confermato:
      return "confermato";
    case Passo::Risposto:
      return "risposto";
    case Passo::Muto:
      return "muto";
  }
  return "";
}

}  // namespace

quint64 Registro::evento(const QString& cabinet, const Movimento& movimento, Come come) {
  const quint64 n = voci_.size() + 1;
  voci_.push_back({n, cabinet, movimento, come, 0, false, false});
  scrivi({"evento", QByteArray::number(n), testo(movimento.momento), cabinet.toLatin1(),
          QByteArray(1, movimento.tipo), movimento.tessera, movimento.chiave,
          come == Come::Memoria ? "memoria" : "diretta"});
  return n;
}

void Registro::passo(quint64 n, Passo passo, const QDateTime& momento, const QByteArrayList& dettagli) {
  if (n == 0 || n > voci_.size()) return;
  VoceRegistro& voce = voci_[n - 1];
  if (passo == Passo::Letto) ++voce.letture;
  if (passo == Passo::Confermato) voce.confermata = true;
  if (passo == Passo::Risposto) voce.risposta = dettagli.value(0) == "0";
  QByteArrayList campi{nome(passo), QByteArray::number(n), testo(momento), voce.cabinet.toLatin1()};
  if (passo == Passo::Letto) campi << QByteArray::number(voce.letture);
  scrivi(campi + dettagli);
}

void Registro::rifiuto(const QString& cabinet, const Movimento& movimento, QByteArrayView motivo) {
  scrivi({"rifiuto", "-", testo(movimento.momento), cabinet.toLatin1(), QByteArray(1, movimento.tipo),
          movimento.tessera, movimento.chiave, motivo.toByteArray()});
}

void Registro::richiesta(const QString& cabinet, const QDateTime& momento, const QByteArrayList& dettagli) {
  scrivi(QByteArrayList{"richiesta", "-", testo(momento), cabinet.toLatin1()} + dettagli);
}

void Registro::scrivi(const QByteArrayList& campi) const {
  if (Riga) Riga(campi.join('\t'));
}

}  // namespace lokera::simulazione
