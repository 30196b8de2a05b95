#include "reports/file_scritto.h"

#include <QDir>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "platform/letterali.h"
#include "reports/spazio_finito.h"

namespace lokera {
namespace {

QByteArray contenuto(const QString& file) {
  QFile f(file);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : QByteArray();
}

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
    const prova::SpazioFinito poco(3 << 20);
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
