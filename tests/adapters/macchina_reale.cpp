#include <QApplication>
#include <QFile>
#include <QFileDialog>
#include <QInputDialog>
#include <QMap>
#include <QMessageBox>
#include <QProcess>
#include <QPushButton>
#include <QRegularExpression>
#include <QTimer>
#include <QXmlStreamReader>

#include <deque>
#include <pty.h>
#include <unistd.h>

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

/// A person who answers the dialogs of the real machine as they open, one gesture each.
class Persona : public QObject {
 public:
  Persona() { aspetta(); }

  struct Gesto {
    enum { risponde, scrive, sceglie } tipo;
    bool acconsente = false;
    std::optional<QString> testo;
  };
  void poi(const Gesto& gesto) { gesti_.push_back(gesto); }

 private:
  void aspetta();
  void agisci();

  std::deque<Gesto> gesti_;
};

void chiudi(QDialog& dialogo, bool accetta) {
  if (accetta)
    dialogo.accept();  // may ask something more, in a loop of its own
  else
    dialogo.reject();
}

void rispondi(QMessageBox& box, bool acconsente) {
  for (QAbstractButton* bottone : box.buttons()) {
    const auto ruolo = box.buttonRole(bottone);
    if (acconsente && (ruolo == QMessageBox::AcceptRole || ruolo == QMessageBox::YesRole))
      return bottone->click();
  }
  box.reject();
}

// A timer isn't delivered inside its own handler, so each look has its own.
void Persona::aspetta() {
  QTimer::singleShot(2, this, [this] {
    aspetta();
    if (!gesti_.empty()) agisci();
  });
}

void Persona::agisci() {
  QWidget* aperto = QApplication::activeModalWidget();
  const Gesto gesto = gesti_.front();
  auto* box = qobject_cast<QMessageBox*>(aperto);
  auto* testo = qobject_cast<QInputDialog*>(aperto);
  auto* file = qobject_cast<QFileDialog*>(aperto);
  const bool suo = (gesto.tipo == Gesto::risponde && box) || (gesto.tipo == Gesto::scrive && testo) ||
                   (gesto.tipo == Gesto::sceglie && file);
  if (!suo) return;
  gesti_.pop_front();
  if (box) return rispondi(*box, gesto.acconsente);
  if (testo) testo->setTextValue(gesto.testo.value_or(QString()));
  if (file && gesto.testo) file->selectFile(*gesto.testo);
  chiudi(*static_cast<QDialog*>(aperto), gesto.testo.has_value());
}

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
  RealMachine pc_{file({})};
  FintaSeriale seriale_{file(u"lokera-lettore1"_s)};
  Persona persona_;
  mutable QMap<QString, QMap<QString, QString>> fogli_;
};

}  // namespace

std::unique_ptr<MacchinaDiProva> crea_macchina_di_prova() {
  return std::make_unique<MacchinaReale>();
}

}  // namespace lokera
