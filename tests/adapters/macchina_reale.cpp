#include <QApplication>
#include <QFile>
#include <QMap>
#include <QProcess>
#include <QRegularExpression>
#include <QXmlStreamReader>

#include <pty.h>
#include <unistd.h>

#include "adapters/persona.h"
#include "adapters/real_machine.h"
#include "platform/comuni/macchina_di_prova.h"

namespace lokera {

namespace {

/// The sheet of a book by the names of its cells.
QMap<QString, QString> leggi_foglio(const QString& file) {
  QProcess python;
  python.start(u"python3"_s,
               {u"-c"_s,
                u"import sys, zipfile\n"
                "sys.stdout.buffer.write(zipfile.ZipFile(sys.argv[1]).read('xl/worksheets/sheet1.xml'))"_s,
                file});
  python.waitForFinished();
  QXmlStreamReader xml(python.readAllStandardOutput());
  QMap<QString, QString> celle;
  QString dove;
  while (!xml.atEnd()) {
    xml.readNext();
    if (xml.isStartElement() && xml.name() == "c"_L1) dove = xml.attributes().value("r"_L1).toString();
    if (xml.isCharacters() && !dove.isEmpty()) celle[dove] += xml.text();
  }
  return celle;
}

/// A terminal whose other end is the device's, by the name that port 1 has.
class FintaSeriale {
 public:
  explicit FintaSeriale(const QString& nome) : nome_(nome) {
    char lettore[256];
    if (::openpty(&capo_, &altro_, lettore, nullptr, nullptr) == 0)
      QFile::link(QFile::decodeName(lettore), nome_);
  }
  ~FintaSeriale() { stacca(); }
  Q_DISABLE_COPY_MOVE(FintaSeriale)

  void manda(const QByteArray& dati) {
    if (::write(capo_, dati.data(), static_cast<size_t>(dati.size())) < 0) perror("pty");
  }
  void stacca() {
    for (int* capo : {&capo_, &altro_}) {
      if (*capo >= 0) ::close(std::exchange(*capo, -1));
    }
    QFile::remove(nome_);
  }

 private:
  const QString nome_;
  int capo_ = -1;
  int altro_ = -1;
};

class MacchinaReale : public MacchinaDiProva {
 public:
  Machine macchina() override { return pc_.macchina(); }

  void risponde(bool acconsente) override { persona_.poi({Persona::Gesto::risponde, acconsente, {}}); }
  void scrive(const std::optional<QString>& testo) override {
    persona_.poi({Persona::Gesto::scrive, false, testo});
  }
  void sceglie(const std::optional<QString>& file) override {
    persona_.poi({Persona::Gesto::sceglie, false, file});
  }
  void sostituisce(bool si) override { risponde(si); }

  void manda(const QByteArray& dati) override { seriale_.manda(dati); }
  void stacca() override { seriale_.stacca(); }

  bool clessidra() const override { return QApplication::overrideCursor() != nullptr; }
  int pagine(const QString& nome) const override {
    QFile file(nome);
    if (!file.open(QIODevice::ReadOnly)) return 0;
    const QString testo = QString::fromLatin1(file.readAll());
    return static_cast<int>(testo.count(QRegularExpression(u"/Type /Page\\b"_s)));
  }
  QString cella(const QString& file, int riga, int colonna) const override {
    if (fogli_.find(file) == fogli_.end()) fogli_[file] = leggi_foglio(file);
    return fogli_[file].value(QChar(u'A' + colonna - 1) + QString::number(riga));
  }

 private:
  RealMachine pc_{QStringList{file(u"COM%1"_s)}};
  FintaSeriale seriale_{file(u"COM1"_s)};
  Persona persona_;
  mutable QMap<QString, QMap<QString, QString>> fogli_;
};

}  // namespace

std::unique_ptr<MacchinaDiProva> crea_macchina_di_prova() {
  return std::make_unique<MacchinaReale>();
}

}  // namespace lokera
