#include <QAbstractButton>
#include <QApplication>
#include <QDir>
#include <QLabel>
#include <QLibraryInfo>
#include <QMessageBox>
#include <QPushButton>
#include <QTemporaryDir>
#include <QTimer>
#include <QTranslator>

#include <gtest/gtest.h>

#include "adapters/base/istanza_unica.h"
#include "adapters/qt_desktop.h"
#include "adapters/qt_dialogs.h"

namespace lokera {
namespace {

using namespace Qt::StringLiterals;

TEST(IstanzaUnica, refuses_a_second_one_names_the_first_and_frees_at_the_end) {
  const QTemporaryDir cartella;
  const QString database = cartella.filePath(u"lokera.mdb"_s);
  {
    const IstanzaUnica prima(database);
    EXPECT_TRUE(prima.presa());
    const IstanzaUnica seconda(database);
    EXPECT_FALSE(seconda.presa());
    EXPECT_TRUE(seconda.chi().contains(QString::number(QCoreApplication::applicationPid())));
  }
  EXPECT_EXIT(std::_Exit(IstanzaUnica(database).presa() ? 7 : 1), ::testing::ExitedWithCode(7), "");
  EXPECT_FALSE(QDir(cartella.path()).isEmpty());  // the mark of a process that crashed is still there
  EXPECT_TRUE(IstanzaUnica(database).presa());
  const IstanzaUnica altrove(cartella.filePath(u"missing/lokera.mdb"_s));
  EXPECT_FALSE(altrove.presa());
  EXPECT_TRUE(altrove.chi().isEmpty());
}

TEST(QtDesktop, a_notice_stands_until_it_is_taken_away_and_ends_nothing) {
  QtDesktop desktop;
  const auto avvisi = [] {
    QStringList testi;
    for (QWidget* w : QApplication::topLevelWidgets())
      if (const auto* avviso = qobject_cast<QLabel*>(w); avviso && avviso->isVisible())
        testi += avviso->text();
    return testi;
  };
  int finita = 0;
  const QObject qui;
  QObject::connect(qApp, &QGuiApplication::lastWindowClosed, &qui, [&] { ++finita; });
  desktop.mostra_avviso(u"primo"_s);
  desktop.mostra_avviso(u"secondo"_s);
  QApplication::processEvents();
  EXPECT_EQ(avvisi(), QStringList{u"secondo"_s});
  EXPECT_FALSE(QApplication::activeModalWidget());
  desktop.togli_avviso();
  desktop.togli_avviso();
  QApplication::processEvents();
  EXPECT_EQ(avvisi(), QStringList());
  EXPECT_EQ(finita, 0);
}

TEST(QtProgram, ends_the_process_from_inside_any_number_of_loops) {
  EXPECT_EXIT(
      {
        QEventLoop esterno;
        QTimer::singleShot(0, [&] {
          QEventLoop interno;
          QTimer::singleShot(0, [] { QtProgram().fine(); });
          interno.exec();
          std::_Exit(1);
        });
        esterno.exec();
        std::_Exit(2);
      },
      ::testing::ExitedWithCode(0), "");
}

/// What the person sees of the open box; presses the button of that text, or Escape when it is empty.
struct Visto {
  QString testo, titolo, predefinito;
  QStringList bottoni;
};

Visto rispondi_con(const QString& bottone, const std::function<void()>& apri) {
  Visto visto;
  QTimer::singleShot(0, qApp, [&] {
    auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
    if (!box) return;
    visto.testo = box->text();
    visto.titolo = box->windowTitle();
    EXPECT_EQ(box->textFormat(), Qt::PlainText);
    for (QAbstractButton* uno : box->buttons()) visto.bottoni.append(uno->text());
    if (box->defaultButton()) visto.predefinito = box->defaultButton()->text();
    for (QAbstractButton* uno : box->buttons()) {
      if (uno->text() == bottone) return uno->click();
    }
    box->reject();
  });
  apri();
  return visto;
}

TEST(QtMessageBox, asks_in_its_language_with_No_as_default_and_shows_text_as_it_stands) {
  QtMessageBox box;
  const QString testo = u"Cancellare <b>%1</b>?"_s.arg(u"dell'acqua"_s);
  bool risposta = false;
  const auto chiedi = [&] { risposta = box.chiedi(testo, u"Errore"_s); };
  const Visto visto = rispondi_con(u"&Yes"_s, chiedi);
  EXPECT_TRUE(risposta);
  EXPECT_EQ(visto.testo, testo);
  EXPECT_EQ(visto.titolo, u"Errore"_s);
  EXPECT_EQ(visto.predefinito, u"&No"_s);
  EXPECT_EQ(visto.bottoni.size(), 2);
  QTranslator italiano;
  ASSERT_TRUE(italiano.load(u"qtbase_it"_qs, QLibraryInfo::path(QLibraryInfo::TranslationsPath)));
  QCoreApplication::installTranslator(&italiano);
  rispondi_con(u"&Sì"_s, chiedi);
  EXPECT_TRUE(risposta);
  QCoreApplication::removeTranslator(&italiano);
  rispondi_con(QString(), chiedi);
  EXPECT_FALSE(risposta);
  EXPECT_EQ(rispondi_con(u"OK"_s, [&] { box.mostra(testo, {}); }).bottoni, QStringList{u"OK"_qs});
}

}  // namespace
}  // namespace lokera
