// Windows made for the test: lists by keyboard, and either end going first.
#include "windows/lista.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QPushButton>
#include <QSet>
#include <QShortcut>

#include "cards/frm_tessere.h"
#include "windows/ambiente.h"

namespace lokera::prova {
namespace {

class Regole : public Finestra {
 public:
  explicit Regole(ElencoFinestre& elenco) : Finestra(elenco, u"frm_prova"_s) {
    std::vector<Colonna> colonne(4);
    const QStringList nomi{u"codice"_s, u"descrizione"_s, u"nota"_s, u"attivo"_s};
    for (int i = 0; i < 4; ++i) colonne[static_cast<size_t>(i)].Caption = nomi[i];
    colonne[0].elenco = &drp;
    colonne[1].caratteri = 5;
    colonne[2].bloccata = true;
    colonne[3].stile = StileCella::spunta;
    grd.imposta_colonne(colonne);
    grd.AllowAddNew = grd.AllowDelete = grd.AllowUpdate = true;
    drp.AddItem({u"10"_s, u"officina"_s});
    drp.AddItem({u"20"_s, u"uffici"_s});
    grd.AddItem(QStringList{u"10"_s, u"uno"_s, u"a"_s, u"0"_s});
    grd.AddItem(QStringList{u"20"_s, u"due"_s, u"b"_s, u"0"_s});
    grd.Row(0);
  }
  SSOleDBGrid grd{*this, u"grd"_s};
  SSOleDBDropDown drp{*this, u"drp"_s};
  CommandButton Command5{*this, u"Command5"_s, u"registra modifiche"_s};
};

QWidget* disegno_di_prova() {
  auto* forma = new QWidget;
  forma->resize(600, 400);
  auto* grd = new Lista(forma);
  grd->setObjectName(u"grd"_s);
  grd->setGeometry(0, 0, 600, 300);
  auto* pulsante = new QPushButton(forma);
  pulsante->setObjectName(u"Command5"_s);
  pulsante->setGeometry(0, 320, 200, 30);
  return forma;
}

class ListaDisegnata : public testing::Test {
 protected:
  ListaDisegnata() {
    forma->show();
    forma->activateWindow();
    tabella().setFocus();
    QCoreApplication::processEvents();
  }
  TabellaLista& tabella() { return *forma->findChild<TabellaLista*>(); }
  template <class W>
  W& editor() {
    auto* w = tabella().viewport()->findChild<W*>();
    EXPECT_TRUE(w);
    return *w;
  }
  QStringList riga(int i) const {
    return {r->grd.cella(i, 0), r->grd.cella(i, 1), r->grd.cella(i, 2), r->grd.cella(i, 3)};
  }

  Banco banco;
  ElencoFinestre elenco;
  std::unique_ptr<Regole> r = std::make_unique<Regole>(elenco);
  std::unique_ptr<QWidget> forma{disegno_di_prova()};
  std::unique_ptr<Collegamento> c = std::make_unique<Collegamento>(*r, *forma, banco.console->traduttore());
};

TEST_F(ListaDisegnata, ReturnHandsTheEditOverAndGoesOnToANewRow) {
  EXPECT_TRUE(c->discordanze().isEmpty());
  QStringList uscite;
  r->grd.AfterUpdate = [&uscite](int i) { uscite.append(QString::number(i)); };
  r->grd.utente_sceglie(1, 1);
  premi(tabella(), Qt::Key_F2);
  EXPECT_EQ(editor<QLineEdit>().maxLength(), 5);
  editor<QLineEdit>().setText(u"nuovo"_s);
  premi(editor<QLineEdit>(), Qt::Key_Return);
  EXPECT_EQ(riga(1).at(1), u"nuovo"_s);
  EXPECT_EQ(r->grd.Col(), 3) << "the locked column is passed over";
  premi(tabella(), Qt::Key_Space);
  EXPECT_TRUE(r->grd.spuntata(1, 3));
  premi(tabella(), Qt::Key_Return);
  EXPECT_EQ(r->grd.Rows(), 3);
  EXPECT_EQ(r->grd.Row(), 2);
  EXPECT_EQ(tabella().currentIndex(), tabella().model()->index(2, 0));
  EXPECT_EQ(uscite, QStringList{u"1"_s});
  premi(tabella(), Qt::Key_Up);
  EXPECT_EQ(r->grd.Rows(), 2) << "a row that nobody wrote in goes away again";
  EXPECT_EQ(tabella().model()->rowCount(), 2);
}

TEST_F(ListaDisegnata, EscapeKeepsTheCellAndDeleteTakesTheRow) {
  r->grd.utente_sceglie(0, 1);
  premi(tabella(), Qt::Key_F2);
  editor<QLineEdit>().setText(u"altro"_s);
  premi(editor<QLineEdit>(), Qt::Key_Escape);
  EXPECT_EQ(riga(0).at(1), u"uno"_s);
  premi(tabella(), Qt::Key_Delete, {}, Qt::ControlModifier);
  EXPECT_EQ(r->grd.Rows(), 1);
  EXPECT_EQ(riga(0).at(1), u"due"_s);
  EXPECT_EQ(tabella().model()->rowCount(), 1);
}

TEST_F(ListaDisegnata, ChoiceIsPickedOrTyped) {
  int chiusi = 0;
  r->drp.CloseUp = [&chiusi](int voce) { chiusi += voce == 1; };
  premi(tabella(), Qt::Key_F2);
  auto& scelta = editor<QComboBox>();
  EXPECT_EQ(scelta.itemText(1), u"20   uffici"_s);
  scelta.setEditText(u"20"_s);
  premi(scelta, Qt::Key_Return);
  EXPECT_EQ(riga(0).at(0), u"20"_s);
  EXPECT_EQ(chiusi, 1);
  r->grd.utente_sceglie(0, 0);
  premi(tabella(), Qt::Key_1, u"1"_s);
  premi(editor<QComboBox>(), Qt::Key_Return);
  EXPECT_EQ(riga(0).at(0), u"10"_s) << "what the first letters were completed to";
}

TEST_F(ListaDisegnata, RowsAreSelectedByTheUserOnlyAndColumnsKeepTheWidthOfADrag) {
  const auto clic = [this](int riga, Qt::KeyboardModifiers modi) {
    clicca(*tabella().viewport(), tabella().visualRect(tabella().model()->index(riga, 1)).center(), modi);
    return r->grd.selezionate();
  };
  using Righe = std::vector<int>;
  r->grd.Row(1);
  EXPECT_EQ(r->grd.selezionate(), Righe()) << "the current row isn't selected for being current";
  EXPECT_EQ(clic(0, {}), Righe());
  EXPECT_EQ(clic(0, Qt::ControlModifier), Righe{0});
  EXPECT_EQ(clic(1, Qt::ControlModifier), (Righe{0, 1}));
  EXPECT_EQ(clic(0, {}), Righe());
  EXPECT_EQ(clic(1, Qt::ShiftModifier), (Righe{0, 1}));
  const int prima = r->grd.Columns(0).Width;
  tabella().horizontalHeader()->resizeSection(1, 123);
  EXPECT_EQ(r->grd.Columns(1).Width, 123 * 15);
  EXPECT_EQ(r->grd.Columns(0).Width, prima);
}

TEST_F(ListaDisegnata, ALongFillingIsShownWholeAndOnlyDrawnRowsAreLoaded) {
  constexpr int righe = 100'000;
  r->grd.RemoveAll();
  for (int i = 0; i < righe; ++i) r->grd.AddItem(QByteArrayView("10\tuno\ta\t0"));
  EXPECT_LT(tabella().model()->rowCount(), righe) << "not one by one: each costs the view";
  r->grd.Row(righe - 1);
  EXPECT_EQ(tabella().model()->rowCount(), righe);
  EXPECT_EQ(tabella().currentIndex().row(), righe - 1);
  r->grd.Row(0);
  QSet<int> lette;
  int chiamate = 0;
  r->grd.RowLoaded = [&](int riga, AspettoRiga& a) {
    lette.insert(riga);
    ++chiamate;
    a.stile = u"scaduto"_s;
    a.celle = {{2, u"OUT"_s}};
  };
  r->grd.ActiveRowStyleSet = u"BOLD"_s;
  QCoreApplication::processEvents();
  lette.clear();
  chiamate = 0;
  tabella().viewport()->repaint();
  EXPECT_LE(lette.size(), tabella().height() / tabella().rowHeight(0) + 1);
  EXPECT_EQ(chiamate, lette.size()) << "once for all cells of a row";
  const QModelIndex cella = tabella().model()->index(5, 2);
  EXPECT_EQ(cella.data().toString(), u"OUT"_s);
  EXPECT_TRUE(cella.data(Qt::FontRole).value<QFont>().italic());
  EXPECT_EQ(cella.data(Qt::AccessibleDescriptionRole).toString(), u"scaduto"_s);
  for (const int riga : {0, 5})
    EXPECT_EQ(cella.siblingAtRow(riga).data(Qt::FontRole).value<QFont>().bold(), riga == 0);
  EXPECT_EQ(riga(5), (QStringList{u"10"_s, u"uno"_s, u"a"_s, u"0"_s})) << "the list stays as it was filled";
}

TEST_F(ListaDisegnata, OneGestureHandsAnEditOverOnce) {
  const struct {
    const char* gesto;
    int colonna;
    std::function<void(QWidget&)> fai;
    bool lascia_la_riga = false;
  } gesti[] = {
      {"Return", 1, [](QWidget& w) { premi(w, Qt::Key_Return); }},
      {"Tab", 1, [](QWidget& w) { premi(w, Qt::Key_Tab); }},
      {"Ctrl+Tab", 1, [](QWidget& w) { premi(w, Qt::Key_Tab, {}, Qt::ControlModifier); }},
      {"Return in a choice", 0, [](QWidget& w) { premi(w, Qt::Key_Return); }},
      {"Return in its list", 0,
       [](QWidget& w) {
         QComboBox& scelta = *qobject_cast<QComboBox*>(&w);
         scelta.showPopup();
         scelta.view()->setCurrentIndex(scelta.model()->index(1, 0));
         premi(*scelta.view(), Qt::Key_Return);
       }},
      {"elsewhere", 1, [this](QWidget&) { forma->findChild<QPushButton*>()->setFocus(); }},
      {"Shift+Tab", 1, [](QWidget& w) { premi(w, Qt::Key_Backtab, {}, Qt::ShiftModifier); }},
      {"another row", 1, [this](QWidget&) { r->grd.utente_sceglie(1, 0); }, true},
      {"a new row", 1, [this](QWidget&) { r->grd.utente_aggiunge_riga(); }, true},
      {"save", 1, [this](QWidget&) { r->grd.Update(); }, true},
  };
  int consegne = 0, uscite = 0, lasciate = 0;
  // What a handler says in a box takes the focus out of the cell, and the cell's editor goes away meanwhile.
  const auto altrove = [this] {
    forma->findChild<QPushButton*>()->setFocus();
    ripulisci();
  };
  r->grd.Change = [&](int, int) {
    ++consegne;
    altrove();
  };
  r->drp.CloseUp = [&](int) {
    ++uscite;
    altrove();
  };
  r->grd.AfterUpdate = [&](int) { ++lasciate; };
  for (const auto& [gesto, colonna, fai, lascia] : gesti) {
    tabella().setFocus();
    r->grd.utente_sceglie(0, colonna);
    r->grd.imposta_cella(0, colonna, u"10"_s);
    premi(tabella(), Qt::Key_F2);
    auto* w = tabella().viewport()->findChild<QWidget*>(QString(), Qt::FindDirectChildrenOnly);
    ASSERT_TRUE(w) << gesto;
    if (auto* riga = qobject_cast<QLineEdit*>(w)) riga->setText(u"a"_s);
    if (auto* scelta = qobject_cast<QComboBox*>(w)) scelta->setEditText(u"20"_s);
    consegne = uscite = lasciate = 0;
    fai(*w);
    ripulisci();
    EXPECT_EQ(consegne, 1) << gesto;
    EXPECT_EQ(uscite, colonna == 0) << gesto;
    EXPECT_EQ(lasciate, lascia) << gesto;
  }
}

TEST_F(ListaDisegnata, EitherEndMayGoFirst) {
  premi(tabella(), Qt::Key_F2);
  bool finita = false;
  c->Finita = [&finita] { finita = true; };
  r.reset();
  EXPECT_TRUE(finita);
  EXPECT_EQ(tabella().model()->rowCount(), 0);
  forma->repaint();
  forma->findChild<QPushButton*>()->click();
  premi(tabella(), Qt::Key_Return);
}

TEST_F(ListaDisegnata, RulesGoOnWithoutTheirDrawing) {
  forma.reset();
  r->grd.AddItem(QStringList{u"30"_s});
  r->Command5.Caption = u"altro"_s;
  c.reset();
  r->grd.RemoveAll();
  r->Command5.SetFocus();
}

TEST(Collegamento, MismatchesAreNamed) {
  Banco banco;
  ElencoFinestre elenco;
  Regole r(elenco);
  CommandButton orfano(r, u"Command9"_s, u"x"_s);
  const std::unique_ptr<QWidget> forma(disegno_di_prova());
  auto* di_troppo = new QLineEdit(forma.get());
  di_troppo->setObjectName(u"txtDiTroppo"_s);
  forma->findChild<QPushButton*>()->setObjectName(u"drp"_s);
  const Collegamento c(r, *forma, banco.console->traduttore());
  QStringList trovate = c.discordanze();
  trovate.sort();
  EXPECT_EQ(
      trovate,
      (QStringList{u"Command5: a control without a widget"_s, u"Command9: a control without a widget"_s,
                   u"drp: a widget without a control"_s, u"txtDiTroppo: a widget without a control"_s}));
}

TEST_F(ListaDisegnata, AHeadOrdersByMouseAndByKeyboard) {
  QHeaderView& testata = *tabella().horizontalHeader();
  const auto codici = [&] { return riga(0).at(0) + u' ' + riga(1).at(0); };
  const QPointF descrizione(testata.sectionPosition(1) + 20, 8);
  clicca(*testata.viewport(), descrizione);
  EXPECT_EQ(codici(), u"10 20"_s);
  EXPECT_FALSE(testata.isSortIndicatorShown());
  r->grd.OrdinabileDaTestata = true;
  clicca(*testata.viewport(), descrizione);
  EXPECT_EQ(codici(), u"20 10"_s);
  EXPECT_EQ(tabella().currentIndex().row(), 1) << "the record that was current";
  EXPECT_EQ(testata.sortIndicatorSection(), 1);
  premi(tabella(), Qt::Key_1, {}, Qt::ControlModifier);
  EXPECT_EQ(codici(), u"10 20"_s);
  r->grd.RemoveAll();
  EXPECT_FALSE(testata.isSortIndicatorShown());
}

TEST(RicercaDisegnata, ITastiDellaFinestra) {
  BancoDisegnato b;
  b.lokera(1);
  for (int i = 1; i <= 3; ++i) b.chiave(u"000000000%1"_s.arg(i), 1, i);
  b.carica();
  Finestra& f = *b.console->finestre().apri(u"frm_tessere"_s);
  QWidget& forma = *b.schermo().forma(f);
  auto& casella = *forma.findChild<QLineEdit*>(u"txtCerca"_s);
  const SSOleDBGrid& grd = static_cast<frm_tessere&>(f).grd;
  const auto tasto = [&](const char* quale) {
    for (auto* s : casella.findChildren<QShortcut*>())
      if (s->key() == QKeySequence(QLatin1StringView(quale))) Q_EMIT s->activated();
  };
  forma.activateWindow();
  QCoreApplication::processEvents();
  tasto("Ctrl+F");
  EXPECT_TRUE(casella.hasFocus());
  scrivi(casella, u"00000"_s);
  EXPECT_EQ(grd.Row(), 0);
  premi(casella, Qt::Key_Return);
  EXPECT_EQ(grd.Row(), 1);
  EXPECT_TRUE(casella.hasFocus()) << "Return is the box's own";
  tasto("F3");
  EXPECT_EQ(grd.Row(), 2);
}

}  // namespace
}  // namespace lokera::prova
