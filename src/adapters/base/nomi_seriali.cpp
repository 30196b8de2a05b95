#include "adapters/base/nomi_seriali.h"

#include <QDir>
#include <QSerialPortInfo>

#include <algorithm>

#include "platform/letterali.h"

namespace lokera {

namespace {

/// A kind of device: how its names begin, and what the system calls the first one.
struct Specie {
  QLatin1StringView nome;
  int primo;
};

#ifdef Q_OS_WIN
constexpr bool in_cartella = false;
constexpr Specie specie[] = {{"COM"_L1, 1}};
#else
constexpr bool in_cartella = true;
constexpr Specie specie[] = {{"lokera-lettore"_L1, 1}, {"ttyS"_L1, 0}, {"ttyUSB"_L1, 0}, {"ttyACM"_L1, 0}};
#endif

/// The number that means the device; 0 for one of another kind.
int numero_di(const QString& nome, const Specie& s) {
  if (!nome.startsWith(s.nome)) return 0;
  bool buono = false;
  const int suo = QStringView(nome).sliced(s.nome.size()).toInt(&buono);
  return buono && suo >= s.primo ? suo - s.primo + 1 : 0;
}

QStringList porte_del_sistema() {
  QStringList nomi;
  for (const QSerialPortInfo& porta : QSerialPortInfo::availablePorts()) nomi += porta.portName();
  return nomi;
}

/// What has a name in the folder and is there. A computer names four ports of its board or more, with or
/// without a plug to them, so of these only what the system itself counts is.
QStringList porte_in(const QString& cartella) {
  const QStringList vere = porte_del_sistema();
  QStringList nomi;
  for (const QFileInfo& file : QDir(cartella).entryInfoList(QDir::Files | QDir::System)) {
    const QString dove = file.canonicalFilePath();
    const bool della_scheda = dove.startsWith(u"/dev/ttyS"_s);
    if (file.exists() && (!della_scheda || vere.contains(QFileInfo(dove).fileName())))
      nomi += file.fileName();
  }
  return nomi;
}

}  // namespace

QString NomiSeriali::di_solito() {
  return u"/dev"_s;
}

QStringList NomiSeriali::dispositivi(int numero) const {
  QStringList nomi;
  for (const Specie& s : specie) {
    const QString nome = s.nome + QString::number(numero - 1 + s.primo);
    nomi += in_cartella ? QDir(cartella_).filePath(nome) : nome;
  }
  return nomi;
}

std::vector<PortaSeriale> NomiSeriali::presenti() const {
  std::vector<PortaSeriale> porte;
  const QStringList nomi = in_cartella ? porte_in(cartella_) : porte_del_sistema();
  for (const Specie& s : specie) {
    for (const QString& nome : nomi) {
      const int numero = numero_di(nome, s);
      if (numero > 0) porte.push_back({numero, in_cartella ? QDir(cartella_).filePath(nome) : nome});
    }
  }
  std::ranges::stable_sort(porte, {}, &PortaSeriale::numero);
  return porte;
}

}  // namespace lokera
