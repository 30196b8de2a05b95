#include "aiuti/finestre.h"
#include "reports/frm_print.h"
#include "reports/spazio_finito.h"

namespace lokera::prova {
namespace {

QByteArray contenuto(const QString& file) {
  QFile f(file);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : "-";
}

/// A list of a text, a hidden column, a number, a check box and a date, and what prints it.
class Stampe : public BancoFinestre {
 protected:
  Stampe() {
    Colonna nascosta = colonna(u"nascosta"_s, 900);
    nascosta.Visible = false;
    Colonna spunta = colonna(u"abil"_s, 500, Allineamento::centro);
    spunta.stile = StileCella::spunta;
    grd.imposta_colonne({colonna(u"chiave"_s, 2000), nascosta,
                         colonna(u"posto"_s, 1000, Allineamento::destra), spunta,
                         colonna(u"data"_s, 2500, Allineamento::centro)});
    riga(u"0000001001"_s, u"7"_s, u"-1"_s);
    riga(u"a;b\n=1+1"_s, u"-3,5"_s, u"0"_s);
    riga(QString(60, u'W'), u"007"_s, u"0"_s);
    sql(u"insert into operatori (user, pwd, su) values ('Anna', 'x', 1)"_s);
    sql(u"update tabelle_Ditta set Nome = 'Rossi & C.', indirizzo = 'Via Po 1', Cap = '10100', citta = "
        u"'Torino',"
        " provincia = ' ', partitaiva = '01234567890', codicefiscale = ' '"_s);
    pc.stampante.imposta(pc.stampante.proprieta());
  }
  static Colonna colonna(const QString& nome, int larghezza, Allineamento come = Allineamento::sinistra) {
    Colonna c;
    c.Caption = c.campo = nome;
    c.Width = larghezza;
    c.allineamento = come;
    return c;
  }
  void riga(const QString& testo, const QString& numero, const QString& spunta) {
    grd.AddItem(QStringList{testo, u"nobody sees it"_s, numero, spunta, u"30/11/2008 07.45.12"_s});
  }
  /// The window with what the person sets in it.
  std::unique_ptr<frmPrint> apri(const std::function<void(frmPrint&)>& imposta = {}) {
    auto f = std::make_unique<frmPrint>(servizi, grd, u"Movimenti"_s);
    f->Form_Load();
    if (imposta) imposta(*f);
    return f;
  }
  /// Whether it was done, and so closed.
  bool conferma(const std::function<void(frmPrint&)>& imposta = {}) {
    const auto f = apri(imposta);
    f->Command4_Click();
    return f->chiusa();
  }
  QString documento(const QString& nome) const { return QDir(servizi.documenti).filePath(nome); }

  VirtualComputer& pc = vm.primo();
  Finestra finestra{elenco, u"frm_prova"_s};
  SSOleDBGrid grd{finestra, u"grd"_s};
  ServiziStampa servizi{elenco,
                        db.connessione_db,
                        griglie,
                        vm.orologio(),
                        pc.stampante,
                        pc.fogli,
                        pc.domande,
                        pc.desktop,
                        pc.documenti.path(),
                        cartella.path(),
                        [] { return u"Anna"_s; },
                        {}};
};

TEST_F(Stampe, LeImpostazioniSonoDelReportEDiChiStampa) {
  EXPECT_TRUE(conferma([](frmPrint& f) {
    EXPECT_EQ(f.cmbFont.Value() + f.txtDimensione.Text() + f.cmbQualità.Value() + f.cmbAlimentatore.Value(),
              u"Times New Roman8-01"_s);
    EXPECT_TRUE(f.optVerticale.Value());
    f.cmbQualità.Value(u"-3"_s);
    f.optOrizzontale.Value = true;
    f.cmbFormato.Value(u"256"_s);
    f.txtLarghezza.Text = u"20,5"_s;
    f.txtMargineSx.Text = u"2"_s;
    f.txtDimensione.Text = u"2,5"_s;
    f.chkFacilitata.Value = 1;
    f.cmbAlimentatore.Value(u"2"_s);
  }));
  const ProprietaStampa& p = pc.stampante.proprieta();
  EXPECT_EQ(p.larghezza, 11624);
  EXPECT_EQ(p.lunghezza, 16838) << "0 leaves what there was";
  EXPECT_EQ(p.qualita, -3);
  EXPECT_EQ(p.alimentatore, 2);
  EXPECT_EQ(p.margine_sinistro, 1134);
  const auto tenute =
      u"select codice, ditta_in_uso, programma, documento, formato, larghezza, lunghezza, "
      "margineSx, orientamento, dimensione, qualita, interpollice from password_stampe"_s;
  const QString attese = u"Anna| |Movimenti| |256|20.5|0.0|2.0|Landscape|4.0|-3|1"_s;
  EXPECT_EQ(righe(tenute), QStringList{attese});
  sql(u"update password_stampe set qualita = '0', margineSx = 3, alimentatore = '7'"_s);
  EXPECT_TRUE(conferma([](frmPrint& f) { EXPECT_EQ(f.cmbQualità.Value(), u"-0"_s); }));
  EXPECT_EQ(pc.stampante.proprieta().margine_sinistro, 1701);
  EXPECT_EQ(pc.stampante.proprieta().alimentatore, 2) << "as the printer has it";
  servizi.utente = [] { return u"Bruno"_s; };
  EXPECT_TRUE(conferma([](frmPrint& f) { EXPECT_TRUE(f.optVerticale.Value()); }));
  EXPECT_EQ(righe(tenute).size(), 2);
  sql(u"alter table password_stampe add column marginesinistro double"_s);
  sql(u"update password_stampe set margineSx = 5, marginesinistro = 0 where codice = 'Bruno'"_s);
  EXPECT_TRUE(conferma());
  EXPECT_EQ(pc.stampante.proprieta().margine_sinistro, 567) << "no margin of its own";
}

TEST_F(Stampe, OgniRigaSuUnaPaginaColSuoCapo) {
  for (int i = 0; i < 200; ++i) riga(u"riga %1"_s.arg(i), QString::number(i + 100), u"0"_s);
  EXPECT_TRUE(conferma());
  ASSERT_EQ(pc.stampante.stampati.size(), 1);
  const auto& stampato = pc.stampante.stampati[0];
  ASSERT_GT(stampato.pagine.size(), 2);
  int numero = 0;
  QStringList codici;
  for (const PaginaStampa& pagina : stampato.pagine) {
    const QStringList testi = pagina.testi();
    EXPECT_EQ(
        testi.first(6).join(u'|'),
        u"Rossi & C.|Via Po 1|Partita iva: 01234567890|10100 Torino|Movimenti|  data: 30/11/2008   pagina: %1"_s
            .arg(++numero));
    EXPECT_EQ(testi.sliced(6, 4).join(u'|'), u"chiave|posto|abil|data"_s);
    for (const SegnoStampa& s : pagina.segni()) {
      const int fine = s.x + pc.stampante.TextWidth(pagina.caratteri()[s.carattere], s.testo);
      EXPECT_LE(fine, pc.stampante.ScaleWidth() + 1) << s.testo.toStdString();
      EXPECT_LE(s.y, pc.stampante.ScaleHeight());
    }
    for (qsizetype i = 10; i < testi.size(); i += 4) codici += testi[i];
  }
  ASSERT_EQ(codici.size(), 203);
  EXPECT_EQ(codici[0], u"0000001001"_s);
  EXPECT_EQ(codici[1], u"a;b =1+1"_s);
  EXPECT_TRUE(codici[2].size() > 20 && codici[2].size() < 60) << "cut where its column ends";
  EXPECT_EQ(codici.last(), u"riga 199"_s);
  const PaginaStampa& prima = stampato.pagine[0];
  EXPECT_EQ(prima.testi().sliced(10, 8).join(u'|'),
            u"0000001001|7|*|30/11/2008 07.45.12|a;b =1+1|-3,5| |30/11/2008 07.45.12"_s);
  QList<int> fini;  // of the two numbers
  for (const SegnoStampa& s : prima.segni())
    if (s.testo == u"7"_s || s.testo == u"-3,5"_s)
      fini += s.x + pc.stampante.TextWidth(prima.caratteri()[s.carattere], s.testo);
  EXPECT_EQ(fini.size(), 2);
  EXPECT_NEAR(fini.first(), fini.last(), 2);
  EXPECT_EQ(prima.segni().last().tipo, SegnoStampa::Tipo::linea) << "its foot";
}

TEST_F(Stampe, LaPaginaScelta) {
  ProprietaStampa scelta = pc.stampante.proprieta();
  scelta.formato = formato_libero;
  scelta.larghezza = 20 * twip_centimetro;
  scelta.lunghezza = 10 * twip_centimetro;
  scelta.orientamento = Orientamento::orizzontale;
  scelta.margine_sinistro = 2 * twip_centimetro;
  pc.stampante.fogli_scelti = {std::nullopt, scelta};
  const auto f = apri([](frmPrint& f) { f.txtMargineSx.Text = u"3"_s; });
  const auto mostrato = [&] {
    return QStringList{f->cmbFormato.Value(), f->txtLarghezza.Text(), f->txtAltezza.Text(),
                       f->txtMargineSx.Text(), QString::number(f->optOrizzontale.Value())}
        .join(u'|');
  };
  f->Command3_Click();
  EXPECT_EQ(mostrato(), u"9|||3|0"_s) << "cancelled";
  EXPECT_EQ(pc.stampante.fogli_mostrati.last().margine_sinistro, 1701) << "it begins with what is set";
  f->Command3_Click();
  EXPECT_EQ(mostrato(), u"256|20|10|2|1"_s);
  EXPECT_TRUE(f->txtLarghezza.Enabled()) << "a paper of its own size";
  grd.Row(2);
  f->Command4_Click();
  EXPECT_EQ(grd.Row(), 0) << "a report leaves the list on its first row";
}

TEST_F(Stampe, CioCheLInstallazioneHaScelto) {
  const struct {
    const char* caso;
    const char16_t* scelte;  // company, drawn, lines, text, sheet, date
    int stampati;
    const char16_t* inizio;
  } casi[] = {{"all drawn", u"1, 1, 0, 0, 0, 1", 1, u"Rossi & C."},
              {"both modes are drawn", u"0, 1, 1, 0, 0, 1", 1, u"Movimenti|  data: 30/11/2008   pagina: 1"},
              {"no date", u"0, 0, 0, 0, 0, 0", 1, u"Movimenti|   pagina: 1"},
              {"lines", u"0, 0, 1, 0, 0, 1", 0, u""},
              {"text", u"1, 1, 0, 1, 0, 1", 0, u""}};
  pc.domande.risposte = {u"20"_s};
  for (const auto& c : casi) {
    pc.stampante.stampati.clear();
    sql(u"delete from default_stampagriglia"_s);
    sql(u"insert into default_stampagriglia values ('Movimenti', %1)"_s.arg(QString::fromUtf16(c.scelte)));
    EXPECT_TRUE(conferma()) << c.caso;
    ASSERT_EQ(pc.stampante.stampati.size(), c.stampati) << c.caso;
    if (c.stampati == 0) continue;
    EXPECT_TRUE(pc.stampante.stampati[0].testi().join(u'|').startsWith(QString::fromUtf16(c.inizio)))
        << c.caso;
  }
  sql(u"delete from tabelle_Ditta"_s);
  sql(u"delete from default_stampagriglia"_s);
  EXPECT_TRUE(conferma());
  EXPECT_EQ(pc.stampante.stampati.last().testi().first(), u"Movimenti"_s) << "no company";
  db.lingua_interfaccia = 1;
  EXPECT_TRUE(conferma());
  EXPECT_EQ(pc.stampante.stampati.last().testi().first(2).join(u'|'),
            u"Movements|  Date: 30/11/2008   Page: 1"_s);
}

TEST_F(Stampe, ChiRinunciaNonStampaNiente) {
  for (int i = 0; i < 2000; ++i) riga(u"riga %1"_s.arg(i), u"1"_s, u"0"_s);
  const ProprietaStampa prima = pc.stampante.proprieta();
  {
    const auto f = apri([](frmPrint& f) { f.optOrizzontale.Value = true; });
    f->Command6_Click();
    ASSERT_EQ(pc.stampante.mostrati.size(), 1);
    EXPECT_EQ(pc.stampante.mostrati[0].proprieta.orientamento, Orientamento::orizzontale);
    f->Command5_Click();
    EXPECT_TRUE(f->chiusa());
  }
  EXPECT_EQ(pc.stampante.proprieta(), prima);
  EXPECT_EQ(righe(u"select count(*) from password_stampe"_s), QStringList{u"0"_s});

  EXPECT_FALSE(conferma([&](frmPrint& f) { f.cmbStampanti.Value(stampante_pdf()); })) << "no file was chosen";
  pc.stampante.guasto = u"carta finita"_s;
  EXPECT_FALSE(conferma([&](frmPrint& f) { f.cmbStampanti.Value(u"Stampante virtuale"_s); }));
  EXPECT_TRUE(messaggi.testi().last().contains(u"carta finita"_s));
  pc.stampante.guasto.clear();
  const auto f = apri();
  pc.stampante.prima_di_ogni_pagina = [&](int pagina) {
    if (pagina == 3) f->lavoro.cmdInterrompi.Click();
  };
  f->Command4_Click();
  EXPECT_FALSE(f->chiusa());
  EXPECT_TRUE(f->lavoro.lblLavoro.Caption().startsWith(u"interrotto: 2 di "_s))
      << f->lavoro.lblLavoro.Caption().toStdString();
  EXPECT_TRUE(pc.stampante.stampati.isEmpty());
  EXPECT_FALSE(conferma([](frmPrint& f) {
    f.optOrizzontale.Value = true;
    f.cmbFormato.Value(u"256"_s);
    f.txtLarghezza.Text = f.txtAltezza.Text = u"4"_s;
    f.txtDimensione.Text = u"30"_s;
  })) << "no row has room";
  EXPECT_TRUE(pc.stampante.stampati.isEmpty());
}

TEST_F(Stampe, RigheDiLarghezzaFissa) {
  const auto lettere = [](frmPrint& f) { f.chkCarattere.Value = 1; };
  EXPECT_FALSE(conferma(lettere)) << "nobody said how many lines";
  EXPECT_TRUE(pc.domande.fatte[0].testo.contains(u"mod. A/4     70    117"_s));
  pc.domande.risposte = {u"tante"_s};
  EXPECT_FALSE(conferma(lettere));
  EXPECT_FALSE(QFile::exists(documento(u"stampa.txt"_s)));
  {
    QFile cfg(cartella.filePath(u"stampa.cfg"_s));
    ASSERT_TRUE(cfg.open(QIODevice::WriteOnly));
    cfg.write("RIGHE/PAGINA:910 99");
  }
  EXPECT_TRUE(conferma(lettere));
  EXPECT_EQ(vm.desktop().file_aperti, QStringList{documento(u"stampa.txt"_s)});
  const QByteArray capo = "Rossi & C.\r\nVia Po 1\r\nPartita iva: 01234567890\r\n10100 Torino\r\n";
  const QByteArray sotto = QByteArray(69, '-') + "\r\n" +
                           "|chiave               |     posto |abil  |data                      |\r\n" +
                           "---------------------- ----------- ------ ---------------------------\r\n";
  const auto titolo = [](int pagina) {
    return "Movimenti" + QByteArray(52, ' ') + "Pagina:" + QByteArray::number(pagina) + "\r\n";
  };
  const QByteArray testo = contenuto(documento(u"stampa.txt"_s));
  const auto linee = testo.split('\n');
  ASSERT_EQ(linee.size(), 8 + 2 + 8 + 1 + 1) << testo.constData();
  EXPECT_EQ(linee.first(8).join('\n') + '\n', capo + titolo(1) + sotto);
  EXPECT_EQ(linee[8], "|0000001001           |         7 |*     |30/11/2008 07.45.12       |\r");
  EXPECT_EQ(linee[9], "|a;b =1+1             |      -3,5 |      |30/11/2008 07.45.12       |\r");
  EXPECT_EQ(linee[10] + '\n', "Rossi & C.\r\n") << "a page of 10 lines";
  EXPECT_EQ(linee[14] + '\n', titolo(2));
  EXPECT_TRUE(linee[18].startsWith("|" + QByteArray(20, 'W') + " |"));
}

TEST_F(Stampe, TestoEFoglioPortanoQuelCheSiVede) {
  grd.Row(2);
  grd.utente_seleziona({1, 2});
  vm.desktop().apre_file = false;
  EXPECT_TRUE(conferma([](frmPrint& f) { f.chkTesto.Value = f.chkExcel.Value = 1; }));
  EXPECT_EQ(contenuto(documento(u"dati.txt"_s)),
            "chiave;posto;abil;data;\r\n"
            "a;b =1+1;-3,5;0;30/11/2008 07.45.12;\r\n" +
                QByteArray(60, 'W') + ";007;0;30/11/2008 07.45.12;\r\n");
  EXPECT_EQ(grd.selezionate(), (std::vector{1, 2}));
  EXPECT_EQ(grd.Row(), 2) << "a drawn list drops its selection when it moves";
  const QString foglio = documento(u"Movimenti 2008-11-30 08.00.00.xlsx"_s);
  ASSERT_EQ(messaggi.testi().size(), 2) << "the text first";
  EXPECT_EQ(messaggi.testi()[0],
            u"Esportazione riuscita. Creato file \"%1\""_s.arg(documento(u"dati.txt"_s)));
  EXPECT_EQ(messaggi.testi()[1], u"Creato file \"%1\""_s.arg(foglio)) << "no program opens it";
  const auto& libro = pc.fogli.salvati[foglio];
  const auto cella = [&](int riga, int colonna) { return libro.celle.at({riga, colonna}).valore; };
  EXPECT_EQ(cella(1, 1), ValoreFoglio(u"Movimenti - "_s));
  EXPECT_EQ(cella(3, 4), ValoreFoglio(u"data"_s));
  EXPECT_EQ(cella(4, 1), ValoreFoglio(u"0000001001"_s)) << "all rows, selected or not";
  EXPECT_EQ(cella(4, 2), ValoreFoglio(7.0));
  EXPECT_EQ(cella(4, 4), ValoreFoglio(momento(QDate(2008, 11, 30), QTime(7, 45, 12))));
  EXPECT_EQ(cella(5, 1), ValoreFoglio(u"a;b\n=1+1"_s));
  EXPECT_EQ(cella(5, 2), ValoreFoglio(-3.5));
  EXPECT_EQ(cella(6, 2), ValoreFoglio(u"007"_s)) << "a code";
  EXPECT_EQ(libro.colonne.at(2), (VirtualSpreadsheet::Colonna{1000 / 130.0, Workbook::Allineamento::destra}));
}

TEST_F(Stampe, CioCheNonSiScriveNonLasciaTracce) {
  ASSERT_TRUE(QFile(documento(u"x"_s)).open(QIODevice::WriteOnly));
  servizi.documenti = documento(u"x"_s);  // no folder at all
  EXPECT_FALSE(conferma([](frmPrint& f) { f.chkTesto.Value = 1; }));
  pc.fogli.guasto = u"disco pieno"_s;
  EXPECT_FALSE(conferma([](frmPrint& f) { f.chkExcel.Value = 1; }));
  pc.domande.risposte = {u"20"_s};
  EXPECT_FALSE(conferma([](frmPrint& f) { f.chkCarattere.Value = 1; }));
  ASSERT_EQ(messaggi.testi().size(), 3);
  for (const QString& testo : messaggi.testi())
    EXPECT_TRUE(testo.startsWith(u"Impossibile scrivere il file: \"%1/"_s.arg(servizi.documenti)))
        << testo.toStdString();
  EXPECT_TRUE(vm.desktop().file_aperti.isEmpty());
}

TEST_F(Stampe, IlFoglioFinisceAllaColonnaBI) {
  std::vector<Colonna> colonne;
  QStringList celle;
  for (int i = 1; i <= 63; ++i) {
    colonne.push_back(colonna(QString::number(i), 500));
    celle += u"c%1"_s.arg(i);
  }
  grd.RemoveAll();
  grd.imposta_colonne(colonne);
  grd.AddItem(celle);
  EXPECT_TRUE(conferma([](frmPrint& f) { f.chkExcel.Value = 1; }));
  const auto& libro = pc.fogli.salvati.begin()->second;
  EXPECT_EQ(libro.celle.at({4, 61}).valore, ValoreFoglio(u"c61"_s));
  EXPECT_FALSE(libro.celle.contains({4, 62}));
}

}  // namespace
}  // namespace lokera::prova
