// What reaches paper and sheets of texts that have gone wrong somewhere before.
#include <QProcess>

#include <gtest/gtest.h>

#include "forms/traduttore.h"
#include "platform/comuni/macchina_di_prova.h"
#include "reports/esporta_griglia.h"
#include "reports/report_grafico.h"

namespace lokera {
namespace {

QStringList difficili() {
  return {u"a;b \"c\" 'd'"_s,    u"=cmd|' /C calc'!A0"_s, u"+1+1"_s,       u"@SUM(A1)"_s,
          u"<b>grassetto</b>"_s, u"è già là ß"_s,         u"0000001001"_s, u"1.250,50"_s,
          u"30/11/2008"_s,       QString(50, u'm'),       u"مفتاح"_s,      u"שלום"_s,
          u"\u202Eabc"_s,        u"due\nrighe\t3"_s};
}

QByteArray esegui(const QString& programma, const QStringList& argomenti) {
  QProcess p;
  p.start(programma, argomenti);
  EXPECT_TRUE(p.waitForFinished(60'000)) << programma.toStdString();
  EXPECT_EQ(p.exitCode(), 0) << p.readAllStandardError().toStdString();
  return p.readAllStandardOutput();
}

class ReportVeri : public ::testing::Test {
 protected:
  ReportVeri() {
    Colonna nome;
    nome.Caption = u"descrizione"_s;
    nome.Width = 6000;
    Colonna posto = nome;
    posto.Caption = u"posizione"_s;
    posto.Width = 1200;
    posto.allineamento = Allineamento::destra;
    Colonna data = nome;
    data.Caption = u"data"_s;
    data.Width = 2400;
    data.allineamento = Allineamento::centro;
    grd.imposta_colonne({nome, posto, data});
    for (const QString& testo : difficili()) grd.AddItem({testo, u"12"_s, u"30/11/2008 07.45.12"_s});
  }
  const std::unique_ptr<MacchinaDiProva> m = crea_macchina_di_prova();
  const Machine pc = m->macchina();
  PolledWait attesa{pc.orologio, pc.ciclo};
  Database db;
  Traduttore traduttore{db};
  ElencoFinestre elenco;
  Finestra finestra{elenco, u"frm_prova"_s};
  SSOleDBGrid grd{finestra, u"grd"_s};
  Lavoro lavoro{finestra, attesa, traduttore};
};

TEST_F(ReportVeri, OgniTestoArrivaSullaCarta) {
  ProprietaStampa p = pc.stampante.proprieta();
  p.stampante = stampante_pdf();
  pc.stampante.imposta(p);
  for (int i = 0; i < 150; ++i) grd.AddItem({u"riga %1"_s.arg(i), QString::number(i), QString()});
  ReportGrafico report(grd, pc.stampante,
                       {{u"Rossi & C."_s}, u"Movimenti"_s, u"30/11/2008"_s, u"  data: "_s, u"   pagina: "_s},
                       {{u"DejaVu Sans"_s, 8, false}, false});
  const QString file = m->file(u"movimenti.pdf"_s);
  m->sceglie(file);
  ASSERT_TRUE(pc.stampante.stampa(report.documento()).stampato);
  EXPECT_EQ(m->pagine(file), report.pagine());
  const QString testo = QString::fromUtf8(esegui(u"pdftotext"_s, {u"-layout"_s, file, u"-"_s}));
  const QStringList pagine = testo.split(u'\f', Qt::SkipEmptyParts);
  ASSERT_EQ(pagine.size(), report.pagine());
  for (int i = 0; i < pagine.size(); ++i) {
    EXPECT_TRUE(pagine[i].contains(u"Rossi & C."_s)) << i;
    EXPECT_TRUE(pagine[i].contains(u"data: 30/11/2008 pagina: %1\n"_s.arg(i + 1)))
        << pagine[i].left(300).toStdString();
  }
  QStringList latini = difficili().first(9);
  latini += {u"due righe 3"_s, u"riga 0"_s, u"riga 149"_s, u"30/11/2008 07.45.12"_s};
  for (const QString& t : latini) EXPECT_TRUE(testo.contains(t)) << t.toStdString();
  EXPECT_EQ(testo.count(u"riga "_s), 150);
  EXPECT_EQ(testo.count(u"mmmmmmmmmm"_s) > 0 && !testo.contains(QString(51, u'm')), true);
}

TEST_F(ReportVeri, NessunaCellaEUnaFormula) {
  const QString file = m->file(u"movimenti.xlsx"_s);
  const auto libro = pc.fogli.nuovo(file);
  ASSERT_TRUE(esporta_foglio(grd, u"Movimenti"_s, *libro, lavoro));
  ASSERT_EQ(libro->salva(), QString());
  const QStringList attesi = difficili();
  for (int i = 0; i < attesi.size(); ++i) {
    QString testo = attesi[i];
    EXPECT_EQ(m->cella(file, 4 + i, 1), testo.replace(u'\t', u' ')) << i;
    EXPECT_EQ(m->cella(file, 4 + i, 2), u"12"_s);
    EXPECT_EQ(m->cella(file, 4 + i, 3).left(11), u"39782.32305"_s) << "the number of a day";
  }
  const QByteArray xml = esegui(
      u"python3"_s,
      {u"-c"_s,
       u"import sys, zipfile\nsys.stdout.buffer.write(zipfile.ZipFile(sys.argv[1]).read('xl/worksheets/sheet1.xml'))"_s,
       file});
  EXPECT_FALSE(xml.contains("<f>"));
  EXPECT_EQ(xml.count("t=\"inlineStr\""), attesi.size() + 4) << "the names, the heads and the title";
}

}  // namespace
}  // namespace lokera
