#include "simulation/cabinet/registro_eventi.h"

namespace lokera::simulazione {

using namespace Qt::StringLiterals;

namespace {

QByteArray testo(const QDateTime& momento) {
  return momento.toString(u"yyyy-MM-dd hh:mm:ss"_s).toLatin1();
}

const char* nome(PassoMovimento passo) {
  switch (passo) {
    case PassoMovimento::memorizzato:
      return "memorizzato";
    case PassoMovimento::letto:
      return "letto";
    case PassoMovimento::confermato:
      return "confermato";
    case PassoMovimento::risposto:
      return "risposto";
    case PassoMovimento::muto:
      return "muto";
  }
  return "";
}

}  // namespace

quint64 RegistroEventi::evento(const QString& cabinet, const MovimentoChiave& movimento, Come come) {
  const quint64 n = voci_.size() + 1;
  voci_.push_back({n, cabinet, movimento, come, 0, false, false});
  scrivi({"evento", QByteArray::number(n), testo(movimento.momento), cabinet.toLatin1(),
          QByteArray(1, movimento.tipo), movimento.tessera, movimento.chiave,
          come == Come::memoria ? "memoria" : "diretta"});
  return n;
}

void RegistroEventi::passo(quint64 n, PassoMovimento passo, const QDateTime& momento,
                           const QByteArrayList& dettagli) {
  if (n == 0 || n > voci_.size()) return;
  VoceRegistro& voce = voci_[n - 1];
  if (passo == PassoMovimento::letto) ++voce.letture;
  if (passo == PassoMovimento::confermato) voce.confermata = true;
  if (passo == PassoMovimento::risposto) voce.risposta = dettagli.value(0) == "0";
  QByteArrayList campi{nome(passo), QByteArray::number(n), testo(momento), voce.cabinet.toLatin1()};
  if (passo == PassoMovimento::letto) campi << QByteArray::number(voce.letture);
  scrivi(campi + dettagli);
}

void RegistroEventi::rifiuto(const QString& cabinet, const MovimentoChiave& movimento,
                             QByteArrayView motivo) {
  scrivi({"rifiuto", "-", testo(movimento.momento), cabinet.toLatin1(), QByteArray(1, movimento.tipo),
          movimento.tessera, movimento.chiave, motivo.toByteArray()});
}

void RegistroEventi::richiesta(const QString& cabinet, const QDateTime& momento,
                               const QByteArrayList& dettagli) {
  scrivi(QByteArrayList{"richiesta", "-", testo(momento), cabinet.toLatin1()} + dettagli);
}

void RegistroEventi::scrivi(const QByteArrayList& campi) const {
  if (Riga) Riga(campi.join('\t'));
}

}  // namespace lokera::simulazione
