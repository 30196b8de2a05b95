#include <QApplication>
#include <QDir>
#include <QPageSetupDialog>
#include <QTemporaryDir>
#include <QTimer>

#include <gtest/gtest.h>

#include "adapters/base/xlsx_spreadsheet.h"
#include "adapters/qt_printer.h"

namespace lokera {
namespace {

struct SempreQuello : FileChoice {
  std::optional<QString> apri(const SceltaFile&) override { return file; }
  std::optional<QString> salva(const SceltaFile&) override { return file; }
  QString file;
};

QString scrivi_libro(const QString& file) {
  const auto libro = XlsxSpreadsheet().nuovo(file);
  libro->scrivi(1, 1, u"x"_s);
  return libro->salva();
}

QString stampa(const QString& file) {
  SempreQuello scelta;
  scelta.file = file;
  return QtPrinter(scelta).stampa({u"x"_s, 1, [](int) { return PaginaStampa(); }}).errore;
}

TEST(FileInteri, stand_in_their_place_whole_or_not_at_all) {
  for (const auto scrivi : {scrivi_libro, stampa}) {
    const QTemporaryDir cartella;
    const QDir dentro(cartella.path());
    const QString file = cartella.filePath(u"uno"_s);
    EXPECT_NE(scrivi(cartella.filePath(u"missing/uno"_s)), QString());
    { EXPECT_TRUE(QFile(file + u".parziale"_s).open(QIODevice::WriteOnly)); }  // of a run that was cut off
    for (int volta = 0; volta < 2; ++volta) {                                  // the second over the first
      EXPECT_EQ(scrivi(file), QString());
      EXPECT_EQ(dentro.entryList(QDir::Files), QStringList{u"uno"_s});
      EXPECT_GT(QFileInfo(file).size(), 500);
    }
    ASSERT_TRUE(dentro.mkdir(u"due"_s));
    EXPECT_NE(scrivi(cartella.filePath(u"due"_s)), QString());  // a folder of that name
    EXPECT_EQ(dentro.entryList(QDir::Files), QStringList{u"uno"_s});
  }
}

TEST(QtPrinter, the_page_dialog_keeps_a_paper_that_has_no_name) {
  SempreQuello scelta;
  QtPrinter stampante(scelta);
  ProprietaStampa p = stampante.proprieta();
  p.formato = formato_libero;
  p.larghezza = 20 * twip_centimetro;
  p.lunghezza = 10 * twip_centimetro;
  p.orientamento = Orientamento::orizzontale;
  for (const bool conferma : {true, false}) {
    QTimer::singleShot(0, [conferma] {
      auto* dialogo = qobject_cast<QPageSetupDialog*>(QApplication::activeModalWidget());
      if (dialogo) dialogo->done(conferma ? QDialog::Accepted : QDialog::Rejected);
    });
    const auto scelte = stampante.imposta_pagina(p);
    ASSERT_EQ(scelte.has_value(), conferma);
    if (!scelte) continue;
    EXPECT_EQ(scelte->formato, formato_libero);
    EXPECT_NEAR(scelte->larghezza, p.larghezza, 20);
    EXPECT_NEAR(scelte->lunghezza, p.lunghezza, 20);
    EXPECT_EQ(scelte->orientamento, p.orientamento);
    EXPECT_NEAR(scelte->margine_alto, p.margine_alto, 20);
  }
}

}  // namespace
}  // namespace lokera
