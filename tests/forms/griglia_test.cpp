#include "forms/griglia.h"

#include "forms/archivio.h"
#include "store/date_jet.h"

namespace lokera {
namespace {

QString riga(const SSOleDBGrid& grd, int n) {
  QStringList celle;
  for (int i = 0; i < grd.Cols(); ++i) celle += grd.cella(n, i);
  return celle.join(u'|');
}

class Griglia : public Archivio {
 protected:
  Griglia() {
    esegui(
        QStringLiteral("create table gruppi (codice integer, descrizione text(20), primary key (codice))"));
    esegui(QStringLiteral("create table prova (n integer, l long, r double, d date, b yesno, t text(10))"));
  }
  void colonne(const QStringList& campi) {
    std::vector<Colonna> tutte;
    for (const QString& campo : campi) {
      tutte.emplace_back();
      tutte.back().campo = tutte.back().Caption = campo;
    }
    grd.imposta_colonne(tutte);
  }
  void gruppi(const QStringList& righe_con_barra) {
    colonne({QStringLiteral("codice"), QStringLiteral("descrizione")});
    for (const QString& r : righe_con_barra) grd.AddItem(r.split(u'|'));
  }
  bool registra() {
    return sostituisci_tabelle(
        conn, {{lista, QStringLiteral("delete from gruppi"), QStringLiteral("select * from gruppi")}});
  }
  void molti_gruppi(int quanti) {
    Transazione t(conn);
    for (int i = 1; i <= quanti; ++i) esegui(QStringLiteral("insert into gruppi values (?, 'g')"), {i});
    EXPECT_FALSE(t.conferma());
  }

  Finestra finestra{elenco, QStringLiteral("frm_prova")};
  SSOleDBGrid grd{finestra, QStringLiteral("grd")};
  griglia lista{grd, servizi};
  const QString tutti = QStringLiteral("select * from gruppi order by codice");
};

class OrologioChePassa : public Clock {
 public:
  QDateTime adesso() const override { return {}; }
  Monotonic monotono() const override { return ora_ += std::chrono::milliseconds(15); }

 private:
  mutable Monotonic ora_{0};
};

TEST_F(Griglia, ColumnsOfTheModelQueryHaveTheWidthsOfTheirTypes) {
  lista.layout(conn, QStringLiteral("frm_prova"), QStringLiteral("grd"), conn,
               QStringLiteral("select * from prova"));
  QStringList visto;
  for (int i = 0; i < grd.Cols(); ++i) {
    const Colonna& c = grd.Columns(i);
    visto += QStringLiteral("%1:%2:%3:%4:%5")
                 .arg(c.Caption)
                 .arg(c.Width)
                 .arg(static_cast<int>(c.allineamento))
                 .arg(c.stile == StileCella::spunta)
                 .arg(c.caratteri);
  }
  EXPECT_EQ(visto.join(u' '),
            QStringLiteral("n:700:2:0:0 l:800:2:0:0 r:1700:2:0:0 d:1100:1:0:0 b:800:1:1:0 t:1200:0:0:10"));
  lista.layout(conn, {}, {}, conn, QStringLiteral("select * from nessuna"));
  EXPECT_EQ(grd.Cols(), 6) << "a model that can't be read changes nothing";
}

TEST_F(Griglia, VisibleColumnsNarrowerThanTheListFillItExactly) {
  colonne({QStringLiteral("codice"), QStringLiteral("descrizione"), QStringLiteral("calcolata")});
  Colonna nascosta = grd.Columns(2);
  nascosta.Visible = false;
  grd.imposta_colonna(2, nascosta);
  servizi.larghezza_schermo = 1280;
  lista.layout(conn, {}, {}, conn, tutti, 10'007);
  EXPECT_EQ(grd.Columns(0).Width + grd.Columns(1).Width, 10'007 - 800);
  EXPECT_EQ(grd.Columns(2).Width, 1000);
  lista.layout(conn, {}, {}, conn, tutti, 2000);
  EXPECT_EQ(grd.Columns(1).Width, 2200) << "wider columns keep their widths";
}

TEST_F(Griglia, RowsOfTheLayoutTableDecideInTheirOrder) {
  esegui(QStringLiteral(
      "create table layout_griglie (programma text(20), nome_form text(50), nome_griglia text(50), "
      "nr_colonna integer, titolo_colonna text(50), campo text(50), larghezza long, visibile yesno, "
      "tipo_dato text(10), formato_numerico text(20), caratteri integer)"));
  const auto riga_di = [&](int n, const char* titolo, const char* tipo, bool visibile) {
    esegui(QStringLiteral("insert into layout_griglie values ('Zandor', 'frm_gruppi', 'GRD', ?, ?, ' ', 900, "
                          "?, ?, '0000', 3)"),
           {n, QString::fromUtf8(titolo), visibile, QString::fromUtf8(tipo)});
  };
  riga_di(2, "Attiva", "check", true);
  riga_di(1, "Numero", "numero", false);
  lista.layout(conn, QStringLiteral("frm_gruppi"), QStringLiteral("grd"), conn, tutti, 99'999);
  ASSERT_EQ(grd.Cols(), 2);
  EXPECT_EQ(grd.Columns(0).Caption, QStringLiteral("Numero"));
  EXPECT_EQ(grd.Columns(0).allineamento, Allineamento::destra);
  EXPECT_FALSE(grd.Columns(0).Visible);
  EXPECT_EQ(grd.Columns(0).formato, QStringLiteral("0000"));
  EXPECT_EQ(grd.Columns(1).stile, StileCella::spunta);
  EXPECT_EQ(grd.Columns(1).Width, 900) << "no fitting";
  EXPECT_EQ(grd.Columns(1).caratteri, 3);
}

TEST_F(Griglia, CellsShowTheValuesOfTheirFields) {
  esegui(QStringLiteral("insert into prova values (7, null, 2.5, ?, ?, 'a')"),
         {QDateTime(QDate(2008, 11, 30), QTime(8, 5)), true});
  esegui(QStringLiteral("insert into prova (t) values (' ')"));
  lista.layout(conn, {}, {}, conn, QStringLiteral("select * from prova"));
  std::vector<Colonna> piu;
  for (int i = 0; i < grd.Cols(); ++i) piu.push_back(grd.Columns(i));
  piu.emplace_back().campo = QStringLiteral("manca");
  grd.imposta_colonne(piu);
  EXPECT_TRUE(lista.popola(conn, QStringLiteral("select * from prova")));
  EXPECT_EQ(riga(grd, 0), QStringLiteral("7||2,5|30/11/2008 08.05.00|-1|a|"));
  EXPECT_EQ(riga(grd, 1), QStringLiteral("||||0| |"));
  EXPECT_EQ(grd.Row(), 0);
}

TEST_F(Griglia, AFailureShowsItsDescriptionAndLeavesTheListEmpty) {
  gruppi({QStringLiteral("1|a")});
  EXPECT_FALSE(lista.popola(conn, QStringLiteral("select * from nessuna")));
  EXPECT_EQ(grd.Rows(), 0);
  ASSERT_EQ(messaggi.mostrati.size(), 1);
  EXPECT_FALSE(messaggi.testi().first().isEmpty());
}

TEST_F(Griglia, ANewerFillingTakesThePlaceOfTheOneThatYieldsToIt) {
  molti_gruppi(1000);
  gruppi({});
  const OrologioChePassa orologio;
  PolledWait attesa_breve(orologio, macchina.ciclo());
  ServiziGriglia frettolosi{traduttore, messaggi, attesa_breve};
  griglia a(grd, frettolosi);
  bool nuova = false;
  macchina.ciclo().fra(Monotonic(0), [&] {
    nuova = a.popola(conn, QStringLiteral("select * from gruppi where codice <= 350"));
  });
  EXPECT_FALSE(a.popola(conn, tutti));
  EXPECT_TRUE(nuova);
  EXPECT_EQ(grd.Rows(), 350);
  EXPECT_EQ(riga(grd, 349), QStringLiteral("350|g"));
}

TEST_F(Griglia, AWindowClosedDuringAFillingClosesAfterIt) {
  molti_gruppi(1000);
  gruppi({});
  const OrologioChePassa orologio;
  PolledWait attesa_breve(orologio, macchina.ciclo());
  ServiziGriglia frettolosi{traduttore, messaggi, attesa_breve};
  griglia a(grd, frettolosi);
  int righe_alla_chiusura = -1;
  finestra.Chiusa = [&] { righe_alla_chiusura = grd.Rows(); };
  macchina.ciclo().fra(Monotonic(0), [&] { finestra.chiudi(); });
  EXPECT_TRUE(a.popola(conn, tutti));
  EXPECT_EQ(righe_alla_chiusura, 1000);
}

TEST_F(Griglia, SavedRowsHoldWhatTheCellsSay) {
  struct Caso {
    const char *cella, *campo, *atteso;
  };
  const Caso casi[] = {{"12", "n", "12"},     {"abc", "n", "0"},
                       {"", "l", "0"},        {"1.250", "l", "1250"},
                       {"2,5", "r", "2.5"},   {"8", "d", "1899-12-30 08:00:00"},
                       {"", "d", "-"},        {"", "t", " "},
                       {"èò%'", "t", "èò%'"}, {"30/11/2008 08.05.01", "d", "2008-11-30 08:05:01"}};
  for (const Caso& c : casi) {
    const QString campo = QString::fromUtf8(c.campo);
    esegui(QStringLiteral("delete from prova"));
    colonne({QStringLiteral("inesistente"), campo});
    grd.RemoveAll();
    grd.AddItem({QStringLiteral("x"), QString::fromUtf8(c.cella)});
    Recordset rs;
    EXPECT_FALSE(rs.Open(QStringLiteral("select * from prova"), conn, {}, Cursore::aggiornabile));
    lista.salva_tutto(rs);
    EXPECT_FALSE(lista.errore_salvataggio()) << c.cella;
    EXPECT_EQ(righe(QStringLiteral("select %1 from prova").arg(campo)),
              QStringList(QString::fromUtf8(c.atteso)));
  }
  colonne({QStringLiteral("n")});
  grd.RemoveAll();
  grd.AddItem({QStringLiteral("abc")});
  Recordset rs;
  EXPECT_FALSE(rs.Open(QStringLiteral("select * from prova"), conn, {}, Cursore::aggiornabile));
  lista.salva_tutto(rs, QStringLiteral("l\t42\tt\tfisso\tb"));
  EXPECT_EQ(grd.cella(0, 0), QStringLiteral("0"));
  EXPECT_EQ(righe(QStringLiteral("select l, t, d from prova where l = 42")),
            QStringList(QStringLiteral("42|fisso|-")));
}

TEST_F(Griglia, ASavedCheckComesBackChecked) {
  lista.layout(conn, {}, {}, conn, QStringLiteral("select b from prova"));
  grd.AddItem({testo_spuntato.toString()});
  grd.AddItem({testo_non_spuntato.toString()});
  Recordset rs;
  EXPECT_FALSE(rs.Open(QStringLiteral("select b from prova"), conn, {}, Cursore::aggiornabile));
  lista.salva_tutto(rs);
  EXPECT_TRUE(lista.popola(conn, QStringLiteral("select b from prova")));
  EXPECT_TRUE(grd.spuntata(0, 0));
  EXPECT_FALSE(grd.spuntata(1, 0));
}

TEST_F(Griglia, AReplacementIsAllOrNothing) {
  const QStringList vecchi{QStringLiteral("1|vecchio"), QStringLiteral("2|vecchio")};
  const QString lungo(21, u'l');
  struct Caso {
    QStringList lista;
    int rifiutata;
  };
  const Caso casi[] = {{{QStringLiteral("1|a"), QStringLiteral("2|b"), QStringLiteral("1|c")}, 2},
                       {{QStringLiteral("1|a"), QStringLiteral("40000|b")}, 1},
                       {{QStringLiteral("1|") + lungo, QStringLiteral("2|b")}, 0}};
  for (const Caso& c : casi) {
    esegui(QStringLiteral("delete from gruppi"));
    for (const QString& v : vecchi)
      esegui(QStringLiteral("insert into gruppi values (?, 'vecchio')"), {v.left(1).toInt()});
    grd.RemoveAll();
    gruppi(c.lista);
    messaggi.mostrati.clear();
    messaggi.mentre_aperto = [&](const auto&) { EXPECT_FALSE(conn.in_transazione()); };
    EXPECT_FALSE(registra());
    EXPECT_EQ(righe(tutti), vecchi);
    EXPECT_TRUE(lista.errore_salvataggio());
    EXPECT_EQ(grd.Row(), c.rifiutata);
    ASSERT_EQ(messaggi.mostrati.size(), 1);
    EXPECT_TRUE(messaggi.mostrati[0].testo.contains(QStringLiteral(" durante la registrazione.\r")));
    EXPECT_EQ(messaggi.mostrati[0].titolo, QStringLiteral("Errore"));
  }
  gruppi({});
  grd.RemoveAll();
  EXPECT_TRUE(registra());
  EXPECT_TRUE(righe(tutti).isEmpty()) << "an empty list empties the table";
  EXPECT_FALSE(lista.errore_salvataggio());
}

TEST_F(Griglia, ADateThatCannotBeReadIsRefusedNotDropped) {
  colonne({QStringLiteral("d")});
  grd.AddItem({QStringLiteral("domani")});
  Recordset rs;
  EXPECT_FALSE(rs.Open(QStringLiteral("select * from prova"), conn, {}, Cursore::aggiornabile));
  lista.salva_tutto(rs);
  EXPECT_TRUE(lista.errore_salvataggio());
  EXPECT_EQ(messaggi.mostrati.size(), 1);
  EXPECT_TRUE(righe(QStringLiteral("select * from prova")).isEmpty());
  EXPECT_FALSE(rs.aperto());
}

TEST_F(Griglia, ThePendingEditIsSavedAndAnUntouchedNewRowIsNot) {
  gruppi({QStringLiteral("1|a")});
  grd.AllowAddNew = grd.AllowUpdate = true;
  grd.utente_modifica(0, 1, QStringLiteral("nuovo"));
  grd.utente_aggiunge_riga();
  EXPECT_TRUE(registra());
  EXPECT_EQ(righe(tutti), QStringList(QStringLiteral("1|nuovo")));
}

TEST_F(Griglia, EachRowCanBeCompletedBeforeItIsStored) {
  gruppi({QStringLiteral("1|a"), QStringLiteral("2|b")});
  const auto completa = [](Recordset& rs, int n) {
    if (n == 1) (void)rs.imposta(u"descrizione", QStringLiteral("completata"));
  };
  EXPECT_TRUE(sostituisci_tabelle(conn, {{lista, QStringLiteral("delete from gruppi"),
                                          QStringLiteral("select * from gruppi"), completa}}));
  EXPECT_EQ(righe(tutti), QStringList({QStringLiteral("1|a"), QStringLiteral("2|completata")}));
}

}  // namespace
}  // namespace lokera
