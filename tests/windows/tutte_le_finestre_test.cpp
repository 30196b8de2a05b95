// The main window and every one that the menus open, as a person sees it: in both languages, on a small
// screen and on a large one.
#include <QAccessible>
#include <QApplication>
#include <QDir>

#include "aiuti/banco.h"
#include "app/schermo_console.h"
#include "reports/frm_memoria_sd.h"
#include "reports/frm_movimenti.h"
#include "reports/frm_sitkey.h"
#include "windows/misura.h"

namespace lokera::prova {
namespace {

/// Window, language, and the width of the screen.
using Vista = std::tuple<std::string, int, int>;

constexpr auto senza_lokere = "frm_Main_senza_lokere"_L1;

std::string nome(const Vista& v) {
  const auto& [finestra, lingua, larghezza] = v;
  return finestra + (lingua ? "_en_" : "_it_") + std::to_string(larghezza);
}

class TutteLeFinestre : public ::testing::TestWithParam<Vista> {
 protected:
  TutteLeFinestre() {
    riempi();
    b.console->griglie().larghezza_schermo = larghezza;
    schermo = std::make_unique<SchermoConsole>(*b.console, QRect(0, 0, larghezza, altezza));
    b.main().Form_Load();
    finestra = &b.main();
    scrivi_a_lungo();
    const QString nome = QString::fromStdString(std::get<0>(GetParam()));
    if (nome == senza_lokere)
      togli_lokere();
    else if (nome != finestra->nome())
      finestra = apri(nome);
    importa_a_lungo();
    forma = finestra ? schermo->forma(*finestra) : nullptr;
    QApplication::processEvents();
  }
  Finestra* apri(const QString& nome);
  void riempi();
  void scrivi_a_lungo();
  void togli_lokere();
  void importa_a_lungo();
  void tab_come_si_legge();
  void ognuno_col_suo_nome();
  const int lingua = std::get<1>(GetParam());
  const int larghezza = std::get<2>(GetParam());
  const int altezza = larghezza == 1024 ? 768 : larghezza == 1280 ? 735 : 1080;
  Banco b;
  std::unique_ptr<SchermoConsole> schermo;
  Finestra* finestra = nullptr;
  QWidget* forma = nullptr;
};

Finestra* TutteLeFinestre::apri(const QString& nome) {
  if (nome == u"frmPrint"_s) {
    dynamic_cast<frm_sitKey&>(*apri(u"frm_sitKey"_s)).Command1_Click();
    return b.console->elenco().trova(nome);
  }
  Finestra* aperta = b.console->finestre().apri(nome);
  if (auto* movimenti = dynamic_cast<frm_movimenti*>(aperta)) movimenti->Command1_Click();
  if (nome == u"frm_sit_chiavi"_s) b.parti().tabellone.cmdTotali.Click();
  return aperta;
}

void TutteLeFinestre::riempi() {
  for (int i = 1; i <= 3; ++i) b.lokera(i, i == 1);
  b.db().lingua_interfaccia = static_cast<qint16>(lingua);
  const QString festa = b.console->traduttore().traduci(u"Domenica"_s);
  b.sql(u"update parametri set lingua = ?, descrizione = 'Portineria'"_s, {lingua});
  b.sql(
      u"insert into gruppi values (1, 'Officina'), (2, 'Uffici direzione'), (3, 'Magazzino'), (4, 'Parco auto')"_s);
  b.sql(u"insert into gruppi_utente values (1, 'Manutentori'), (2, 'Guardie notturne'), (3, 'Impiegati')"_s);
  for (int g = 1; g <= 3; ++g)
    for (const QString& giorno : {u"Lunedì"_s, u"Martedì"_s, u"Mercoledì"_s})
      b.fascia(g, g, b.console->traduttore().traduci(giorno), {8, 0}, {12, 30});
  const QStringList nomi = {u"Barbieri Giuseppe"_s, u"Bianchi Paolo"_s, u"Colombo Marco"_s,
                            u"D'Angelo Lucia"_s};
  for (int i = 0; i < 12; ++i) {
    b.chiave(u"00001000%1"_s.arg(i, 2, 10, '0'_L1), 1 + i % 3, i, 1 + i % 4);
    b.sql(u"insert into tessere_operatori values (?, ?, #1/1/2008#, ?, ?, ?, 3)"_s,
          {u"00000010%1"_s.arg(i, 2, 10, '0'_L1), nomi[i % 4], momento(QDate(2008, 11, 25).addDays(i)), i,
           1 + i % 3});
    b.abilita(u"00000010%1"_s.arg(i, 2, 10, '0'_L1), 1 + i % 4);
  }
  b.sql(
      u"update tessere_chiavi set operatore = '0000001005', uscita = #11/30/2008 7:45:12# where posizione in (3, 6)"_s);
  for (int i = 0; i < 30; ++i)
    b.sql(u"insert into movimenti values (?, '0000001001', 'Bianchi Paolo', ?, ?, ?)"_s,
          {i + 1, u"00001000%1"_s.arg(i % 12, 2, 10, '0'_L1), i % 2 ? u"R"_s : u"P"_s,
           momento(QDate(2008, 11, 28), QTime(8, 0)).addSecs(i * 977LL)});
  b.sql(u"insert into giorni_particolari values (25, 12, 0, ?), (6, 1, 2009, ?)"_s, {festa, festa});
  b.sql(
      u"insert into operatori (user, pwd, su, ultima_entrata, pc) values ('Bruno', 'y', 0, Null, Null),"
      u" ('Anna Bianchi', 'x', 1, #11/29/2008 17:45:12#, 'PC-PORTINERIA')"_s);
}

// What the main window shows at work, as long as it gets.
void TutteLeFinestre::scrivi_a_lungo() {
  b.parti().accesso.mnuAbile_Click();
  b.main().lblOrario.Caption = u"Wednesday   30/11/2008  08:00"_s;
  b.main().corrente.lblNome.Caption = u"Portineria centrale (0)"_s;
  PannelloLive& p = b.parti().pannello;
  for (Label* codice : {&p.lblP, &p.lblSX, &p.lblDX}) codice->Caption = u"0000100002"_s;
  b.parti().acquisizione.lblUltimaTrans.Caption =
      u"28/11/08 15.45.01 OUT Bianchi Giuseppe - chiave: 0000100002 lok. 1"_s;
}

void TutteLeFinestre::togli_lokere() {
  b.sql(u"delete from parametri"_s);
  b.parti().partenza.trova_lokere_sistema();
  EXPECT_TRUE(b.main().lblNessunaLokera.Visible());
}

// The window of an import while it reads.
void TutteLeFinestre::importa_a_lungo() {
  auto* sd = dynamic_cast<frm_memoria_sd*>(finestra);
  if (!sd) return;
  sd->lblFile.Caption = u"/media/portineria/LOKERA/DATA.TXT"_s;
  sd->lblFase.Caption = b.console->traduttore().traduci(u"Registrazione dei movimenti"_s);
  sd->lavoro.lblLavoro.Caption = u"1234567 di 2345678"_s;
  sd->lavoro.pgbLavoro.Visible = sd->lavoro.cmdInterrompi.Visible = true;
}

// The Tab key goes as one reads: to the right, then down.
void TutteLeFinestre::tab_come_si_legge() {
  const QList<QWidget*> catena = ordine_tab(*forma);
  EXPECT_FALSE(catena.isEmpty());
  for (qsizetype i = 1; i < catena.size(); ++i) {
    const QPoint da = catena[i - 1]->mapTo(forma, QPoint()), a = catena[i]->mapTo(forma, QPoint());
    EXPECT_TRUE(a.y() > da.y() + 8 || a.x() > da.x())
        << catena[i - 1]->objectName().toStdString() << ", " << catena[i]->objectName().toStdString();
  }
}

void TutteLeFinestre::ognuno_col_suo_nome() {
  QStringList nomi;
  for (QWidget* w : ordine_tab(*forma)) {
    const QString nome = QAccessible::queryAccessibleInterface(w)->text(QAccessible::Name);
    EXPECT_FALSE(nome.isEmpty()) << w->objectName().toStdString() << " " << w->metaObject()->className();
    EXPECT_FALSE(nomi.contains(nome)) << nome.toStdString();
    nomi += nome;
  }
}

const auto dei_menu =
    ::testing::Values("frm_gruppi", "frm_gruppi_utenti", "frm_operatori", "frm_param_lokere",
                      "frm_fascie_orarie", "frm_tessere", "frm_tessere_operatori", "frm_traduzioni",
                      "frm_memoria_sd", "frm_movimenti", "frm_sitKey", "frm_sit_chiavi", "frmPrint");
const auto lingue = ::testing::Values(0, 1);
const auto nome_del_caso = [](const auto& info) { return nome(info.param); };

INSTANTIATE_TEST_SUITE_P(Principale, TutteLeFinestre,
                         ::testing::Combine(::testing::Values("frm_Main", "frm_Main_senza_lokere"), lingue,
                                            ::testing::Values(1280, 1920)),
                         nome_del_caso);
INSTANTIATE_TEST_SUITE_P(Menu, TutteLeFinestre,
                         ::testing::Combine(dei_menu, lingue, ::testing::Values(1024, 1280, 1920)),
                         nome_del_caso);

// With LOKERA_SCHERMATE=FOLDER the pictures for the documentation are made too.
TEST_P(TutteLeFinestre, SiVedeTuttoESiUsaDaTastiera) {
  ASSERT_TRUE(forma);
  EXPECT_EQ(schermo->collegamento(*finestra)->discordanze().join(u'\n'), QString());
  EXPECT_EQ(testi_tagliati(*forma).join(u'\n'), QString());
  if (b.parti().ciclo.grdLokere.Visible()) {  // the queue takes the room of a list that isn't shown
    EXPECT_EQ(fuori_posto(*forma).join(u'\n'), QString());
  }
  EXPECT_EQ(senza_nome_accessibile(*forma).join(u'\n'), QString());
  EXPECT_LE(forma->frameGeometry().width(), larghezza);
  EXPECT_LE(forma->frameGeometry().height(), altezza);
  if (finestra != &b.main()) tab_come_si_legge();
  ognuno_col_suo_nome();
  const QString cartella = qEnvironmentVariable("LOKERA_SCHERMATE");
  if (cartella.isEmpty()) return;
  QDir().mkpath(cartella);
  const QString file = QString::fromStdString(nome(GetParam())) + u".png"_s;
  EXPECT_TRUE(forma->grab().save(QDir(cartella).filePath(file)));
}

}  // namespace
}  // namespace lokera::prova
