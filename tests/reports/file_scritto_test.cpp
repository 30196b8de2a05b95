#include "reports/file_scritto.h"

#include <QDir>
#include <QTemporaryDir>

#include <csignal>
#include <gtest/gtest.h>
#include <sys/resource.h>

#include "platform/letterali.h"

namespace lokera {
namespace {

QByteArray contenuto(const QString& file) {
  QFile f(file);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

/// What can be written to a file, from here on, as on a full disk.
class SpazioFinito {
 public:
  explicit SpazioFinito(rlim_t byte) {
    std::signal(SIGXFSZ, SIG_IGN);
    getrlimit(RLIMIT_FSIZE, &prima_);
    const rlimit poco{byte, prima_.rlim_max};
    setrlimit(RLIMIT_FSIZE, &poco);
  }
  ~SpazioFinito() { setrlimit(RLIMIT_FSIZE, &prima_); }
  Q_DISABLE_COPY_MOVE(SpazioFinito)

 private:
  rlimit prima_{};
};

TEST(FileScritto, takes_an_older_ones_place_when_it_is_whole_and_leaves_nothing_otherwise) {
  const QTemporaryDir cartella;
  const QString nome = cartella.filePath(u"documenti/dati.txt"_s);
  FileScritto primo(nome);
  primo.riga("a;b;");
  primo.riga("");
  EXPECT_FALSE(QFile::exists(nome));
  EXPECT_EQ(primo.completa(), QString());
  EXPECT_EQ(contenuto(nome), "a;b;\r\n\r\n");
  { FileScritto(nome).riga("given up"); }
  {
    const SpazioFinito poco(3 << 20);
    FileScritto grande(nome);
    const QByteArray riga(1 << 20, 'x');
    for (int i = 0; i < 8; ++i) grande.riga(riga);
    EXPECT_NE(grande.completa(), QString());
  }
  FileScritto senza_posto(nome + u"/dati.txt"_s);
  senza_posto.riga("x");
  EXPECT_NE(senza_posto.completa(), QString());
  EXPECT_EQ(contenuto(nome), "a;b;\r\n\r\n");
  EXPECT_EQ(QDir(cartella.filePath(u"documenti"_s)).entryList(QDir::Files), QStringList(u"dati.txt"_s));
}

}  // namespace
}  // namespace lokera
