// A list with the box that searches it, by keyboard.
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QShortcut>

#include "forms/ricerca_in_lista.h"
#include "windows/ambiente.h"
#include "windows/lista.h"

namespace lokera::prova {
namespace {

struct Regole : Finestra {
  Regole(ElencoFinestre& elenco, Traduttore& traduttore)
      : Finestra(elenco, u"frm_prova"_s), ricerca(grd, traduttore, {u"nome"_s}) {
    Colonna nome;
    nome.campo = nome.Caption = u"nome"_s;
    grd.imposta_colonne({nome});
    for (const QString& riga : {u"uno"_s, u"due"_s, u"duecento"_s}) grd.AddItem(QStringList{riga});
    grd.Row(0);
    Command1.Click = [this] { ++premuto; };
  }
  SSOleDBGrid grd{*this, u"grd"_s};
  CommandButton Command1{*this, u"Command1"_s, u"registra"_s};
  RicercaInLista ricerca;
  int premuto = 0;
};

template <class W>
W* con_nome(QWidget& forma, const QString& nome) {
  auto* w = new W(&forma);
  w->setObjectName(nome);
  return w;
}

TEST(RicercaDisegnata, ITastiDellaFinestra) {
  Banco banco;
  ElencoFinestre elenco;
  Regole r(elenco, banco.console->traduttore());
  QWidget forma;
  forma.setProperty("predefinito", u"Command1"_s);
  auto* lista = con_nome<Lista>(forma, u"grd"_s);
  con_nome<QPushButton>(forma, u"Command1"_s);
  con_nome<QLabel>(forma, u"lblCerca"_s);
  auto* casella = con_nome<QLineEdit>(forma, u"txtCerca"_s);
  casella->setProperty("scorciatoia", u"Ctrl+F"_s);
  casella->setProperty("invio", u"F3"_s);
  const Collegamento c(r, forma, banco.console->traduttore());
  EXPECT_TRUE(c.discordanze().isEmpty());
  forma.show();
  forma.activateWindow();
  lista->tabella().setFocus();
  QCoreApplication::processEvents();
  const auto tasto = [&](const char* quale) {
    for (auto* s : casella->findChildren<QShortcut*>())
      if (s->key() == QKeySequence(QLatin1StringView(quale))) Q_EMIT s->activated();
  };
  tasto("Ctrl+F");
  EXPECT_TRUE(casella->hasFocus());
  scrivi(*casella, u"due"_s);
  EXPECT_EQ(r.grd.Row(), 1);
  premi(*casella, Qt::Key_Return);
  EXPECT_EQ(r.grd.Row(), 2);
  EXPECT_EQ(r.premuto, 0) << "Return is the box's own";
  EXPECT_TRUE(casella->hasFocus());
  lista->tabella().setFocus();
  tasto("F3");
  EXPECT_EQ(r.grd.Row(), 1);
}

}  // namespace
}  // namespace lokera::prova
