// The main window as it is drawn.
#include <QLabel>
#include <QLineEdit>
#include <QMenuBar>
#include <QPushButton>

#include "windows/ambiente.h"
#include "windows/lampada_widget.h"
#include "windows/misura.h"

namespace lokera::prova {
namespace {

TEST(FinestraPrincipale, StretchesToTheScreenByTheRatioAndKeepsLabelHeights) {
  BancoDisegnato piccola({0, 0, 1280, 735});
  BancoDisegnato grande({0, 0, 1920, 1080});
  EXPECT_FALSE(piccola.schermo().collegamento(piccola.main())->stirata());
  EXPECT_TRUE(grande.schermo().collegamento(grande.main())->stirata());
  const QRect prima = piccola.widget<QWidget>("riquadroTabellone").geometry();
  const QRect dopo = grande.widget<QWidget>("riquadroTabellone").geometry();
  EXPECT_NEAR(dopo.width(), prima.width() * 1920.0 / 1244, 1);
  EXPECT_EQ(grande.widget<QWidget>("lblNome").height(), piccola.widget<QWidget>("lblNome").height());
  EXPECT_GT(grande.forma().height(), 1080 - 60);
  // Panels take their place from the stretched drawing, before the rules note it.
  grande.carica();
  EXPECT_EQ(grande.parti().tabellone.pos_pannelli[7], grande.widget<QWidget>("pnlK_7").y());
}

TEST(FinestraPrincipale, BoardClosesUpAndLampsTellTheirStateByForm) {
  BancoDisegnato b;
  b.lokera(1);
  b.chiave(u"0000000001"_s, 1, 0);
  b.chiave(u"0000000002"_s, 1, 1);
  b.sql(u"update tessere_chiavi set operatore = '0000000099' where posizione = 1"_s);
  b.carica();
  const int fondo = b.parti().tabellone.pos_pannelli[7];
  EXPECT_EQ(b.widget<QWidget>("pnlK_0").y(), fondo);
  EXPECT_FALSE(b.widget<QWidget>("pnlK_1").isVisible());
  auto& dentro = b.widget<LampadaWidget>("lampade_chiave_1");
  auto& fuori = b.widget<LampadaWidget>("lampade_chiave_2");
  auto& nessuna = b.widget<LampadaWidget>("lampade_chiave_3");
  EXPECT_EQ(dentro.aspetto(), lokera::Aspetto::disco);
  EXPECT_EQ(fuori.aspetto(), lokera::Aspetto::quadro);
  EXPECT_EQ(nessuna.aspetto(), lokera::Aspetto::tratteggio);
  EXPECT_EQ(fuori.numero(), u"2"_s);
  EXPECT_EQ(fuori.accessibleDescription(), u"chiave uscita"_s);
  b.parti().pannello.mostra_lato(PannelloLive::Lato::sinistro, rosso, u"<b>0001</b>"_s, u"3"_s);
  EXPECT_EQ(b.widget<LampadaWidget>("ShapeSX").aspetto(), lokera::Aspetto::croce);
  EXPECT_EQ(b.widget<LampadaWidget>("ShapeSX").accessibleDescription(), u"rifiutato"_s);
  EXPECT_EQ(b.widget<QLabel>("lblSX").text(), u"<b>0001</b>"_s);
  EXPECT_EQ(b.widget<QLabel>("lblSX").textFormat(), Qt::PlainText);
}

TEST(FinestraPrincipale, LoginByKeyboard) {
  BancoDisegnato b;
  b.carica();
  b.sql(u"insert into operatori (user, pwd, su) values ('anna', 'segreta', 0)"_s);
  b.forma().activateWindow();
  b.parti().accesso.mnuAbile_Click();
  auto& utente = b.widget<QLineEdit>("txtUtente");
  auto& password = b.widget<QLineEdit>("txtPassword");
  const QList<QWidget*> giro = ordine_tab(b.forma());
  EXPECT_EQ(
      giro.mid(giro.indexOf(&utente), 4),
      (QList<QWidget*>{&utente, &password, &b.widget<QWidget>("cmdLogin"), &b.widget<QWidget>("Command6")}));
  utente.clear();
  b.main().Enabled(false);
  scrivi(utente, u"x"_s);
  EXPECT_EQ(utente.text(), QString()) << "a window that takes no input gets none";
  b.main().Enabled(true);
  scrivi(utente, u"anna"_s);
  scrivi(password, u"segreta"_s);
  EXPECT_EQ(password.echoMode(), QLineEdit::Password);
  premi(password, Qt::Key_Return);
  EXPECT_TRUE(b.parti().accesso.accesso_abilitato);
  EXPECT_FALSE(b.widget<QWidget>("pctLogin").isVisible());
  b.parti().accesso.mnuAbile_Click();
  b.parti().accesso.mnuAbile_Click();
  EXPECT_TRUE(b.widget<QWidget>("pctLogin").isVisible());
  premi(b.widget<QLineEdit>("txtUtente"), Qt::Key_Escape);
  EXPECT_FALSE(b.widget<QWidget>("pctLogin").isVisible());
}

TEST(FinestraPrincipale, ADoubleClickPressesAButtonOnce) {
  BancoDisegnato b;
  b.carica();
  b.parti().accesso.mnuAbile_Click();
  int premuto = 0;
  b.parti().accesso.cmdLogin.Click = [&] { ++premuto; };
  auto& pulsante = b.widget<QPushButton>("cmdLogin");
  const QPointF centro = QRectF(pulsante.rect()).center();
  clicca(pulsante, centro);
  clicca(pulsante, centro, {}, QEvent::MouseButtonDblClick);
  EXPECT_EQ(premuto, 1);
  clicca(pulsante, centro);
  for (int i = 0; i < 2; ++i) premi(pulsante, Qt::Key_Space);
  EXPECT_EQ(premuto, 4) << "a later click and each key count";
}

TEST(FinestraPrincipale, MenuTreeAsDeclaredAndOnlyItsLastEntryEndsTheProgram) {
  BancoDisegnato b;
  b.carica();
  QStringList voci;
  const auto barra = b.widget<QMenuBar>("menubar").actions();
  for (const QAction* a : barra) voci.append(a->text() + (a->isEnabled() ? u"+"_s : u"-"_s));
  EXPECT_EQ(voci.join(u' ').toStdString(), "abilita+ Tabelle- Movimenti- Utilità- Fine Lavoro+");
  EXPECT_FALSE(b.forma().close());
  EXPECT_TRUE(b.forma().isVisible());
  EXPECT_FALSE(b.vm.programma().finito);
  b.widget<QAction>("mnuEsc").trigger();
  EXPECT_TRUE(b.vm.programma().finito);
}

}  // namespace
}  // namespace lokera::prova
