// Every window that the menus open, as a person sees it: in both languages, on a small screen and on a large
// one.
#include <QAccessible>
#include <QApplication>
#include <QDir>
#include <QHeaderView>

#include "aiuti/banco.h"
#include "windows/lista.h"
#include "windows/misura.h"
#include "windows/schermo.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

struct Vista {
  const char* finestra;
  int lingua;
  QSize schermo;
};

std::vector<Vista> viste() {
  std::vector<Vista> tutte;
  for (const char* finestra :
       {"frm_gruppi", "frm_gruppi_utenti", "frm_operatori", "frm_fascie_orarie", "frm_traduzioni"})
    for (const int lingua : {0, 1})
      for (const QSize schermo : {QSize(1280, 800), QSize(1920, 1080)})
        tutte.push_back({finestra, lingua, schermo});
  return tutte;
}

std::string nome(const Vista& v) {
  return std::string(v.finestra) + (v.lingua ? "_en_" : "_it_") + std::to_string(v.schermo.width());
}

void PrintTo(const Vista& v, std::ostream* o) {
  *o << nome(v);
}

class TutteLeFinestre : public ::testing::TestWithParam<Vista> {
 protected:
  TutteLeFinestre() {
    riempi();
    b.console->griglie().larghezza_schermo = GetParam().schermo.width();
    schermo = std::make_unique<Schermo>(*b.console, QRect({0, 0}, GetParam().schermo));
    b.main().Form_Load();
    finestra = &b.main();
    if (const QString nome = QString::fromLatin1(GetParam().finestra); nome != finestra->nome())
      finestra = b.console->finestre().apri(nome);
    forma = finestra ? schermo->forma(*finestra) : nullptr;
    QApplication::processEvents();
  }
  void riempi();
  void titoli_delle_liste();
  void tab_come_si_legge();
  void ognuno_col_suo_nome();
  template <class W>
  QList<W*> visibili() const {
    QList<W*> tutti = forma->findChildren<W*>();
    tutti.removeIf([this](const W* w) { return !w->isVisibleTo(forma); });
    return tutti;
  }
  QList<QWidget*> con_tab() const;

  Banco b;
  std::unique_ptr<Schermo> schermo;
  Finestra* finestra = nullptr;
  QWidget* forma = nullptr;
};

void TutteLeFinestre::riempi() {
  b.lokera(1);
  b.db().lingua_interfaccia = static_cast<qint16>(GetParam().lingua);
  const QString festa = b.console->traduttore().traduci(u"Domenica"_s);
  b.sql(u"update parametri set lingua = ?, descrizione = 'Portineria'"_s, {GetParam().lingua});
  const QStringList chiavi{u"Officina"_s, u"Uffici direzione"_s, u"Magazzino"_s, u"Parco auto"_s};
  const QStringList utenti{u"Manutentori"_s, u"Guardie notturne"_s, u"Impiegati"_s};
  for (int i = 0; i < chiavi.size(); ++i) b.sql(u"insert into gruppi values (?, ?)"_s, {i + 1, chiavi[i]});
  for (int i = 0; i < utenti.size(); ++i)
    b.sql(u"insert into gruppi_utente values (?, ?)"_s, {i + 1, utenti[i]});
  for (int g = 1; g <= 3; ++g)
    for (const QString& giorno : {u"Lunedì"_s, u"Martedì"_s, u"Mercoledì"_s})
      b.fascia(g, g, b.console->traduttore().traduci(giorno), {8, 0}, {12, 30});
  b.sql(u"insert into giorni_particolari values (25, 12, 0, ?)"_s, {festa});
  b.sql(u"insert into giorni_particolari values (6, 1, 2009, ?)"_s, {festa});
  b.sql(
      u"insert into operatori (user, pwd, su, ultima_entrata, pc) values"
      u" ('Anna Bianchi', 'x', 1, #11/29/2008 17:45:12#, 'PC-PORTINERIA')"_s);
  b.sql(u"insert into operatori (user, pwd, su) values ('Bruno', 'y', 0)"_s);
}

QList<QWidget*> TutteLeFinestre::con_tab() const {
  QList<QWidget*> catena;
  for (QWidget* w = forma->nextInFocusChain(); w && w != forma; w = w->nextInFocusChain())
    if (forma->isAncestorOf(w) && (w->focusPolicy() & Qt::TabFocus) && w->isVisibleTo(forma) &&
        !w->focusProxy())
      catena += w;
  return catena;
}

// A list's titles, which are measured against the columns and not against a widget.
void TutteLeFinestre::titoli_delle_liste() {
  for (const QHeaderView* t : visibili<QHeaderView>()) {
    if (t->orientation() != Qt::Horizontal) continue;
    for (int i = 0; i < t->count(); ++i) {
      const QString titolo = t->model()->headerData(i, Qt::Horizontal).toString();
      const int spazio = t->isSectionHidden(i) ? t->sectionSizeHint(i) : t->sectionSize(i);
      EXPECT_LE(t->sectionSizeHint(i), spazio) << titolo.toStdString();
    }
  }
}

// The Tab key goes as one reads: to the right, then down.
void TutteLeFinestre::tab_come_si_legge() {
  const QList<QWidget*> catena = con_tab();
  EXPECT_FALSE(catena.isEmpty());
  for (qsizetype i = 1; i < catena.size(); ++i) {
    const QPoint da = catena[i - 1]->mapTo(forma, QPoint()), a = catena[i]->mapTo(forma, QPoint());
    EXPECT_TRUE(a.y() > da.y() + 8 || a.x() > da.x())
        << catena[i - 1]->objectName().toStdString() << ", " << catena[i]->objectName().toStdString();
  }
}

void TutteLeFinestre::ognuno_col_suo_nome() {
  QStringList nomi;
  for (QWidget* w : con_tab()) {
    const QString nome = QAccessible::queryAccessibleInterface(w)->text(QAccessible::Name);
    EXPECT_FALSE(nome.isEmpty()) << w->objectName().toStdString() << " " << w->metaObject()->className();
    EXPECT_FALSE(nomi.contains(nome)) << nome.toStdString();
    nomi += nome;
  }
}

INSTANTIATE_TEST_SUITE_P(, TutteLeFinestre, ::testing::ValuesIn(viste()),
                         [](const auto& info) { return nome(info.param); });

// With LOKERA_SCHERMATE=FOLDER the pictures for the documentation are made too.
TEST_P(TutteLeFinestre, SiVedeTuttoESiUsaDaTastiera) {
  ASSERT_TRUE(forma);
  EXPECT_EQ(schermo->collegamento(*finestra)->discordanze().join(u'\n'), QString());
  EXPECT_EQ(testi_tagliati(*forma).join(u'\n'), QString());
  EXPECT_EQ(fuori_posto(*forma).join(u'\n'), QString());
  EXPECT_EQ(senza_nome_accessibile(*forma).join(u'\n'), QString());
  EXPECT_LE(forma->width(), GetParam().schermo.width());
  EXPECT_LE(forma->height(), GetParam().schermo.height());
  titoli_delle_liste();
  tab_come_si_legge();
  ognuno_col_suo_nome();
  const QString cartella = qEnvironmentVariable("LOKERA_SCHERMATE");
  if (cartella.isEmpty()) return;
  QDir().mkpath(cartella);
  const QString file = QString::fromStdString(nome(GetParam())) + u".png"_s;
  EXPECT_TRUE(forma->grab().save(QDir(cartella).filePath(file)));
}

}  // namespace
}  // namespace lokera::prova
