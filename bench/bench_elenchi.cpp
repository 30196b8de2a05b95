// The list of movements in its window: searched, ordered, exported as text and as a sheet, printed. Each
// beside the same work by hand. The number of rows may be given.
#include <QApplication>
#include <QFile>
#include <QPainter>
#include <QPrinter>
#include <QProcess>

#include <array>
#include <sys/resource.h>
#include <unistd.h>
#include <xlsxwriter.h>

#include "adapters/real_machine.h"
#include "bench/ciclo_sorvegliato.h"
#include "bench/misura.h"
#include "bench/nudo.h"
#include "bench/sito_misure.h"
#include "reports/esporta_griglia.h"
#include "reports/frm_movimenti.h"
#include "reports/report_grafico.h"

using namespace Qt::StringLiterals;
using namespace lokera;
using namespace lokera::bench;

namespace {

constexpr int righe_stampate = 20'000;
#define RICERCA                                                                       \
  "select movimenti.*, tessere_chiavi.descrizione from (movimenti left join tessere_" \
  "chiavi on movimenti.chiave = tessere_chiavi.codice)  where id <> 0"
// The shell knows the file's own order of texts not, so it is spared the join.
#define MOSTRATE "select data, operazione, operatore, intestazione, chiave, 'chiave' from movimenti"

double memoria_mb() {
  rusage uso{};
  getrusage(RUSAGE_SELF, &uso);
  return static_cast<double>(uso.ru_maxrss) / 1024;
}

class Banco {
 public:
  explicit Banco(int righe)
      : sito_({.lokere = 7, .chiavi = 1000, .tessere = 5000, .movimenti = righe}),
        righe_(righe),
        pc_(computer_.macchina()),
        ciclo_(pc_.ciclo),
        attesa_(pc_.orologio, ciclo_) {
    if (apri_database(db_, sito_.cartella()).fallito()) rinuncia("database");
    servizi_.utente = [] { return u" "_s; };
    movimenti_.Form_Load();
  }

  void tutti() {
    Nudo nudo(sito_.file());
    Istruzione lettura(nudo, RICERCA "  order by movimenti.data");
    movimenti_.txtAl.Text = u"31/12/2099"_s;
    const Confronto c = a_turno(
        righe_ > 200'000 ? 2 : 5,
        [&] {
          ciclo_.apri();
          movimenti_.Command1_Click();
          ciclo_.chiudi();
        },
        [&] { (void)lettura.leggi_tutto(); });
    if (movimenti_.grd.Rows() != righe_) rinuncia("righe perse");
    stampa_rapporto("all movements found / bare read", c.nostro.mediana() / 1000,
                    c.pavimento.mediana() / 1000, 2, "ms");
    stampa_valore("  longest stretch of it without input", ciclo_.massimo_ms(), 100, "ms");
  }

  void di_una_tessera() {
    movimenti_.cmbOper.Text = SitoMisure::tessera(17);
    movimenti_.txtDal.Text = u"01/03/2004"_s;
    movimenti_.txtAl.Text = u"31/03/2004"_s;
    Campioni tempi;
    for (int i = 0; i < 20; ++i) tempi.aggiungi(cronometra([&] { movimenti_.Command1_Click(); }));
    stampa_valore("  movements of one card in a month", movimenti_.grd.Rows(), 0, "rows");
    stampa_valore("found in", tempi.massimo() / 1000, 50, "ms");
    movimenti_.cmbOper.Text = movimenti_.txtDal.Text = QString();
  }

  void cerca() {
    movimenti_.ricerca.txtCerca.Text = u"nowhere"_s;
    const double us = cronometra([&] { movimenti_.ricerca.txtCerca.Change(); });
    stampa_valore("a word looked for that stands nowhere", us / 1000, 0, "ms");
  }

  void in_ordine() {
    for (const QString& campo : {u"data"_s, u"intestazione"_s, u"chiave"_s}) {
      const int colonna = movimenti_.grd.colonna(campo);
      const double us = cronometra([&] { movimenti_.grd.utente_ordina(colonna); });
      stampa_valore(qPrintable(u"rows put in order by "_s + campo), us / 1000, 0, "ms");
    }
  }

  void testo() {
    const QString csv = sito_.cartella() + u"/sqlcipher.csv"_s;
    const QString nostro = sito_.cartella() + u"/dati.txt"_s;
    const Confronto c = a_turno(
        2,
        [&] {
          FileScritto file(nostro);
          if (!esporta_testo(movimenti_.grd, file, lavoro_) || !file.completa().isEmpty()) rinuncia("testo");
        },
        [&] {
          QProcess p;
          p.start(u"sqlcipher"_s, {u"-csv"_s, sito_.file()});
          p.write("pragma key='" + password_database().toUtf8() + "';\n.output " + csv.toUtf8() +
                  "\n" MOSTRATE ";\n");
          p.closeWriteChannel();
          if (!p.waitForFinished(600'000) || QFile(csv).size() < righe_)
            rinuncia(p.readAllStandardError().constData());
        });
    stampa_velocita("list written as text / sqlcipher -csv", righe_ / c.nostro.mediana() * 1e6,
                    righe_ / c.pavimento.mediana() * 1e6, 1, "rows/s");
  }

  void foglio() {
    const double prima = memoria_mb();
    Campioni nostro, pavimento;
    const auto misura = [](Campioni& campioni, const auto& lavoro) {
      ::sync();  // ours waits for the disk, and not for what the other has left to write
      campioni.aggiungi(cronometra(lavoro));
    };
    const auto a_mano = [&] { foglio_a_mano(); };
    const auto esporta = [&] {
      const auto libro = pc_.fogli.nuovo(sito_.cartella() + u"/nostro.xlsx"_s);
      if (!esporta_foglio(movimenti_.grd, u"Movimenti"_s, *libro, lavoro_) || !libro->salva().isEmpty())
        rinuncia("foglio");
    };
    for (int i = 0; i < 2; ++i) {  // each goes first as often: a machine that warms up favours the second
      misura(nostro, esporta);
      misura(pavimento, a_mano);
      misura(pavimento, a_mano);
      misura(nostro, esporta);
    }
    stampa_velocita("list written as a sheet / bare loop of its library", righe_ / nostro.mediana() * 1e6,
                    righe_ / pavimento.mediana() * 1e6, 0.9, "rows/s");
    stampa_valore("  more memory for it", memoria_mb() - prima, 20, "MB");
  }

  void carta() {
    SempreQui qui;
    qui.file = sito_.cartella() + u"/nostro.pdf"_s;
    QtPrinter stampante(qui);
    ProprietaStampa p = stampante.proprieta();
    p.stampante = stampante_pdf();
    stampante.imposta(p);
    while (movimenti_.grd.Rows() > righe_stampate) {
      movimenti_.txtAl.Text = QString();
      SSOleDBGrid& grd = movimenti_.grd;
      std::vector<QByteArray> prime;
      prime.reserve(righe_stampate);
      for (int i = 0; i < righe_stampate; ++i) prime.push_back(grd.riga_utf8(i).toByteArray());
      grd.RemoveAll();
      for (const QByteArray& riga : prime) grd.AddItem(QByteArrayView(riga));
    }
    const Carattere carattere{u"DejaVu Sans"_s, 8, false};
    Campioni nostro, pavimento;
    int pagine = 0;
    for (int i = 0; i < 4; ++i) {
      QList<PaginaStampa> fatte;
      {
        ReportGrafico report(movimenti_.grd, stampante, {{}, u"Movimenti"_s, {}, {}, u"pagina: "_s},
                             {carattere, false});
        for (int n = 1; n <= report.pagine(); ++n) fatte.append(report.pagina(n));
      }
      pagine = static_cast<int>(fatte.size());
      const double a = cronometra([&] {
        ReportGrafico report(movimenti_.grd, stampante, {{}, u"Movimenti"_s, {}, {}, u"pagina: "_s},
                             {carattere, false});
        if (!stampante.stampa(report.documento()).stampato) rinuncia("stampa");
      });
      const double b = cronometra([&] { disegna_a_mano(fatte); });
      if (i == 0) continue;
      nostro.aggiungi(a);
      pavimento.aggiungi(b);
    }
    stampa_valore("  pages", pagine, 0, "pages");
    stampa_rapporto("20,000 rows printed to PDF / bare painter drawing the same texts",
                    nostro.mediana() / 1000, pavimento.mediana() / 1000, 1.5, "ms");
  }

 private:
  struct SempreQui : FileChoice {
    std::optional<QString> apri(const SceltaFile&) override { return file; }
    std::optional<QString> salva(const SceltaFile&) override { return file; }
    QString file;
  };

  void foglio_a_mano() {
    const QByteArray nome = (sito_.cartella() + u"/nudo.xlsx"_s).toUtf8();
    QByteArray cartella = sito_.cartella().toUtf8();
    lxw_workbook_options modo{LXW_TRUE, cartella.data(), LXW_TRUE};
    lxw_workbook* libro = workbook_new_opt(nome.constData(), &modo);
    lxw_worksheet* foglio = workbook_add_worksheet(libro, nullptr);
    lxw_format* data = workbook_add_format(libro);
    format_set_num_format(data, "dd/mm/yyyy hh:mm:ss");
    lxw_format* a_sinistra = workbook_add_format(libro);
    format_set_align(a_sinistra, LXW_ALIGN_LEFT);
    worksheet_set_column(foglio, 1, 5, 20, a_sinistra);
    std::array<char, 512> cella{};
    for (int r = 0; r < righe_; ++r) {
      QByteArrayView riga = movimenti_.grd.riga_utf8(r);
      lxw_col_t colonna = 0;
      for (;;) {
        const qsizetype tab = riga.indexOf('\t');
        const QByteArrayView testo = tab < 0 ? riga : riga.first(tab);
        std::copy(testo.begin(), testo.end(), cella.begin());
        cella[static_cast<size_t>(testo.size())] = 0;
        const auto n = static_cast<lxw_row_t>(r + 3);
        if (colonna == 0) {
          const auto d = [&](int i) { return (testo[i] - '0') * 10 + testo[i + 1] - '0'; };
          lxw_datetime quando{d(6) * 100 + d(8), d(3), d(0), d(11), d(14), static_cast<double>(d(17))};
          worksheet_write_datetime(foglio, n, colonna, &quando, data);
        } else {
          worksheet_write_string(foglio, n, colonna, cella.data(), nullptr);
        }
        ++colonna;
        if (tab < 0) break;
        riga = riga.sliced(tab + 1);
      }
    }
    if (workbook_close(libro) != LXW_NO_ERROR) rinuncia("libxlsxwriter");
  }

  void disegna_a_mano(const QList<PaginaStampa>& pagine) const {
    QPrinter su(QPrinter::HighResolution);
    su.setOutputFormat(QPrinter::PdfFormat);
    su.setOutputFileName(sito_.cartella() + u"/nudo.pdf"_s);
    const double scala = su.resolution() / 1440.0;
    QPainter pittore(&su);
    QFont font(u"DejaVu Sans"_s);
    font.setPointSizeF(8);
    pittore.setFont(font);
    for (qsizetype i = 0; i < pagine.size(); ++i) {
      if (i > 0) su.newPage();
      for (const SegnoStampa& s : pagine[i].segni())
        if (s.tipo == SegnoStampa::Tipo::testo) pittore.drawText(QPointF(s.x, s.y + 160) * scala, s.testo);
    }
  }

  const SitoMisure sito_;
  const int righe_;
  RealMachine computer_;
  const Machine pc_;
  CicloSorvegliato ciclo_;
  PolledWait attesa_;
  Database db_;
  Traduttore traduttore_{db_};
  ServiziGriglia griglie_{traduttore_, pc_.messaggi, attesa_};
  ElencoFinestre elenco_;
  ServiziStampa servizi_{elenco_,          db_.connessione_db, griglie_,    pc_.orologio,
                         pc_.stampante,    pc_.fogli,          pc_.domande, pc_.desktop,
                         sito_.cartella(), sito_.cartella(),   {},          {}};
  frm_movimenti movimenti_{servizi_};
  Lavoro lavoro_{movimenti_, attesa_, traduttore_};
};

}  // namespace

int main(int argc, char** argv) {
  const QApplication app(argc, argv);
  Banco banco(argc > 1 ? std::atoi(argv[1]) : 200'000);
  banco.di_una_tessera();
  banco.tutti();
  banco.testo();
  banco.foglio();
  banco.cerca();
  banco.in_ordine();
  banco.carta();
}
