#include "forms/archivio.h"
#include "forms/salvataggio_lista.h"

namespace lokera {
namespace {

class Griglia : public Archivio {
 protected:
  Griglia() {
    sql(u"create table gruppi (codice integer, descrizione text(20), primary key (codice))"_s);
    sql(u"create table prova (n integer, l long, r double, d date, b yesno, t text(10))"_s);
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
    colonne({u"codice"_s, u"descrizione"_s});
    for (const QString& r : righe_con_barra) grd.AddItem(r.split(u'|'));
  }
  bool registra() {
    return sostituisci_tabelle(conn, {{lista, u"delete from gruppi"_s, u"select * from gruppi"_s}});
  }
  /// Of each column: caption, width, alignment, check mark, characters, format, whether it is shown.
  QStringList aspetto() const {
    QStringList tutte;
    for (int i = 0; i < grd.Cols(); ++i) {
      const Colonna& c = grd.Columns(i);
      tutte += u"%1:%2:%3:%4:%5:%6:%7"_s.arg(c.Caption)
                   .arg(c.Width)
                   .arg(static_cast<int>(c.allineamento))
                   .arg(c.stile == StileCella::spunta)
                   .arg(c.caratteri)
                   .arg(c.formato)
                   .arg(c.Visible);
    }
    return tutte;
  }
  void salva(const QString& in, const QString& fissi = {}) {
    Recordset rs;
    EXPECT_FALSE(rs.Open(in, conn, {}, Cursore::aggiornabile).fallito());
    lista.salva_tutto(rs, fissi);
  }

  Finestra finestra{elenco, u"frm_prova"_s};
  SSOleDBGrid grd{finestra, u"grd"_s};
  griglia lista{grd, griglie};
  const QString tutti = u"select * from gruppi order by codice"_s;
};

class OrologioChePassa : public Clock {
 public:
  QDateTime adesso() const override { return {}; }
  Monotonic monotono() const override { return ora_ += std::chrono::milliseconds(15); }

 private:
  mutable Monotonic ora_{0};
};

TEST_F(Griglia, ColumnsOfTheModelQueryHaveTheWidthsOfTheirTypes) {
  lista.layout(conn, u"frm_prova"_s, u"grd"_s, conn, u"select * from prova"_s);
  EXPECT_EQ(
      aspetto().join(u' '),
      u"n:700:2:0:0::1 l:800:2:0:0::1 r:1700:2:0:0::1 d:1100:1:0:0::1 b:800:1:1:0::1 t:1200:0:0:10::1"_s);
  lista.layout(conn, {}, {}, conn, u"select * from nessuna"_s);
  EXPECT_EQ(grd.Cols(), 6) << "a model that can't be read changes nothing";
}

TEST_F(Griglia, RowsOfTheLayoutTableDecideInTheirOrder) {
  sql(u"create table layout_griglie (programma text(20), nome_form text(50), nome_griglia text(50), "
      "nr_colonna integer, titolo_colonna text(50), campo text(50), larghezza long, visibile yesno, "
      "tipo_dato text(10), formato_numerico text(20), caratteri integer)"_s);
  sql(u"insert into layout_griglie values "
      "('Zandor', 'frm_gruppi', 'GRD', 2, 'Attiva', ' ', 900, 1, 'check', '0000', 3), "
      "('Zandor', 'frm_gruppi', 'GRD', 1, 'Numero', ' ', 900, 0, 'numero', '0000', 3)"_s);
  lista.layout(conn, u"frm_gruppi"_s, u"grd"_s, conn, tutti, 99'999);
  const int destra = static_cast<int>(Allineamento::destra);
  EXPECT_EQ(aspetto()[0], u"Numero:900:%1:0:3:0000:0"_s.arg(destra));
  EXPECT_TRUE(aspetto()[1].startsWith(u"Attiva:900:"_s)) << "no fitting";
  EXPECT_TRUE(aspetto()[1].endsWith(u":1:3:0000:1"_s));
}

class Riempimento : public Griglia {
 protected:
  Riempimento() {
    EXPECT_FALSE(in_transazione(conn, [&] {
                   for (int i = 1; i <= 1000; ++i) sql(u"insert into gruppi values (?, 'g')"_s, {i});
                   return Errore{};
                 }).fallito());
    gruppi({});
    sql(u"create table voci (gruppo integer, nome text(20))"_s);
  }
  /// Numbers that aren't in the order of their rows, with few different texts, and none in places.
  void riempi_di_nuovo() {
    sql(u"delete from gruppi"_s);
    sql(u"delete from voci"_s);
    EXPECT_FALSE(conn.BeginTrans().fallito());
    for (int i = 1; i <= 2000; ++i)
      sql(u"insert into gruppi values (?, ?)"_s,
          {i * 7 % 2001, i % 5 == 0 ? QVariant() : QVariant(QString::number(i % 3))});
    for (int i = 0; i < 300; ++i) sql(u"insert into voci values (?, ?)"_s, {i / 2, QString::number(i % 4)});
    EXPECT_FALSE(conn.CommitTrans().fallito());
  }
  const OrologioChePassa orologio;
  PolledWait attesa_breve{orologio, vm.ciclo()};
  ServiziGriglia frettolosi{traduttore, messaggi, attesa_breve};
  griglia a{grd, frettolosi};
};

TEST_F(Riempimento, ANewerFillingTakesThePlaceOfTheOneThatYieldsToItAndAClosedWindowClosesAfterIt) {
  bool nuova = false;
  vm.ciclo().fra(Monotonic(0),
                 [&] { nuova = a.popola(conn, u"select * from gruppi where codice <= 350"_s); });
  EXPECT_FALSE(a.popola(conn, tutti));
  EXPECT_TRUE(nuova);
  EXPECT_EQ(grd.Rows(), 350);
  EXPECT_EQ(grd.cella(349, 0), u"350"_s);
  int righe_alla_chiusura = -1;
  finestra.Chiusa = [&] { righe_alla_chiusura = grd.Rows(); };
  vm.ciclo().fra(Monotonic(0), [&] { finestra.chiudi(); });
  EXPECT_TRUE(a.popola(conn, tutti));
  EXPECT_EQ(righe_alla_chiusura, 1000);
}

// Another console writes at every turn of the loop: above and below the place that the list has reached, and
// takes rows away in many places, also the one that comes next.
TEST_F(Riempimento, OthersWriteMeanwhileAndWhatTheyLeaveAloneComesOnceInItsOrder) {
  Connection altra;
  ASSERT_FALSE(altra.Open(file, u"prova"_s).fallito());
  int giri = 0;
  QStringList tolte;
  const auto togli = [&](int codice) {
    if (codice > 2000) return;
    prova::esegui(altra, u"delete from gruppi where codice = ?"_s, {codice});
    tolte += QString::number(codice);
  };
  std::function<void()> scrivi = [&] {
    ++giri;
    prova::esegui(altra, u"insert into gruppi values (?, 'altra'), (?, 'z')"_s, {-giri, 5000 + giri});
    togli(giri * 37);
    togli(grd.Rows() + 1);
    vm.ciclo().fra(Monotonic(0), scrivi);
  };
  vm.ciclo().fra(Monotonic(0), scrivi);
  const auto lasciata = [&](const QString& codice) {
    return codice.toInt() > 0 && codice.toInt() <= 2000 && !tolte.contains(codice);
  };
  const struct {
    const char* query;
    bool a_pezzi;  ///< its rows have an order; one without it is read at one moment
  } casi[] = {
      {"select * from gruppi order by codice", true},
      {"Select * From gruppi Where codice > 0 Order By descrizione collate nocase asc, [codice]", true},
      {"select gruppi.*, v.nome from (gruppi left join voci as v on v.gruppo = gruppi.codice) order by "
       "v.nome",
       true},
      {"select distinct codice, descrizione from gruppi", false}};
  for (const auto& [query, a_pezzi] : casi) {
    riempi_di_nuovo();
    const QString q = QString::fromLatin1(query);
    QStringList prima = righe(q), dopo;
    for (QString& r : prima) r = r.section(u'|', 0, 0);
    tolte.clear();
    giri = 0;
    EXPECT_TRUE(a.popola(conn, q)) << query;
    EXPECT_EQ(giri > 2, a_pezzi) << query;
    for (int i = 0; i < grd.Rows(); ++i) dopo += grd.cella(i, 0);
    for (QStringList* codici : {&prima, &dopo})
      codici->removeIf([&](const QString& r) { return !lasciata(r); });
    EXPECT_EQ(dopo, prima) << query;
  }
}

TEST_F(Griglia, SavedRowsHoldWhatTheCellsSay) {
  struct Caso {
    const char *cella, *campo, *atteso;
  };
  const Caso casi[] = {{"abc", "n", "0"},
                       {"1.250", "l", "1250"},
                       {"2,5", "r", "2.5"},
                       {"8", "d", "1899-12-30 08:00:00"},
                       {"", "d", "-"},
                       {"", "t", " "},
                       {"-1", "b", "1"},
                       {"èò%'", "t", "èò%'"},
                       {"30/11/2008 08.05.01", "d", "2008-11-30 08:05:01"}};
  for (const Caso& c : casi) {
    const QString campo = QString::fromUtf8(c.campo);
    sql(u"delete from prova"_s);
    colonne({u"inesistente"_s, campo});
    grd.RemoveAll();
    grd.AddItem({u"x"_s, QString::fromUtf8(c.cella)});
    salva(u"select * from prova"_s);
    EXPECT_FALSE(lista.errore_salvataggio()) << c.cella;
    EXPECT_EQ(righe(u"select %1 from prova"_s.arg(campo)), QStringList(QString::fromUtf8(c.atteso)));
  }
  salva(u"select * from prova"_s, u"l\t42\tt\tfisso\tb"_s);
  EXPECT_EQ(righe(u"select l, t from prova where l = 42"_s), QStringList(u"42|fisso"_s));
}

TEST_F(Griglia, AReplacementIsAllOrNothing) {
  const QStringList vecchi{u"1|vecchio"_s, u"2|vecchio"_s};
  const std::pair<QStringList, int> casi[] = {{{u"1|a"_s, u"2|b"_s, u"1|c"_s}, 2},
                                              {{u"1|"_s + QString(21, u'l'), u"2|b"_s}, 0}};
  for (const auto& [nuovi, rifiutata] : casi) {
    sql(u"delete from gruppi"_s);
    for (const QString& v : vecchi) sql(u"insert into gruppi values (?, 'vecchio')"_s, {v.left(1).toInt()});
    grd.RemoveAll();
    gruppi(nuovi);
    messaggi.mostrati.clear();
    messaggi.mentre_aperto = [&](const auto&) { EXPECT_FALSE(conn.in_transazione()); };
    EXPECT_FALSE(registra());
    EXPECT_EQ(righe(tutti), vecchi);
    EXPECT_TRUE(lista.errore_salvataggio());
    EXPECT_EQ(grd.Row(), rifiutata);
    ASSERT_EQ(messaggi.mostrati.size(), 1);
    EXPECT_TRUE(messaggi.mostrati[0].testo.contains(u" durante la registrazione.\r"_s));
  }
  gruppi({});
  grd.RemoveAll();
  EXPECT_TRUE(registra());
  EXPECT_TRUE(righe(tutti).isEmpty()) << "an empty list empties the table";
  EXPECT_FALSE(lista.errore_salvataggio());
}

}  // namespace
}  // namespace lokera
