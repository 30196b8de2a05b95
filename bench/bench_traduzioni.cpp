// A window of 60 captions with 2,000 texts in the table. Where the table must be read, beside a bare query of
// it; where it was read before, beside what a program does that has it in a hash.
#include <QHash>

#include <memory>

#include "bench/misura.h"
#include "bench/nudo.h"
#include "bench/sito_misure.h"
#include "forms/controlli.h"
#include "forms/traduttore.h"
#include "store/recordset.h"

using namespace lokera;
using namespace lokera::bench;
using namespace Qt::StringLiterals;

namespace {

constexpr int testi = 2000;
constexpr int didascalie = 60;
constexpr int giri = 100;

QString italiano(int i) {
  return u"Dicitura numero %1 della finestra"_s.arg(i);
}

void riempi(Connection& c) {
  Recordset rs;
  (void)rs.Open(u"select count(*) from traduzioni"_s, c);
  const int gia = rs.valore(0).toInt();
  rs.Close();
  const Errore errore = in_transazione(c, [&] {
    Errore e;
    for (int i = 0; !e.fallito() && i < testi - gia; ++i)
      e = c.Execute(u"insert into traduzioni (italiano, inglese) values (?, ?)"_s,
                    {italiano(i), u"Window caption number %1"_s.arg(i)});
    return e;
  });
  if (errore.fallito()) rinuncia("traduzioni");
}

class FinestraMisure : public Finestra {
 public:
  explicit FinestraMisure(ElencoFinestre& elenco) : Finestra(elenco, u"frm_misure"_s) {
    for (int i = 0; i < didascalie; ++i)
      etichette_.push_back(std::make_unique<Label>(*this, u"lbl%1"_s.arg(i)));
  }
  void in_italiano() {
    for (int i = 0; i < didascalie; ++i) etichette_[static_cast<size_t>(i)]->Caption = italiano(i * 7);
  }
  bool tradotta() const {
    return std::ranges::all_of(etichette_, [](const auto& e) { return e->Caption().startsWith(u'W'); });
  }

 private:
  std::vector<std::unique_ptr<Label>> etichette_;
};

/// The table in a hash, by its words in small letters, and the captions of a window.
class PavimentoInMemoria {
 public:
  explicit PavimentoInMemoria(Nudo& nudo) : versione_(nudo, "pragma data_version") {
    Istruzione tabella(nudo, "Select italiano, inglese from traduzioni");
    while (tabella.passo())
      testi_.insert(QString::fromUtf8(tabella.testo(0)).toCaseFolded(), QString::fromUtf8(tabella.testo(1)));
    for (int i = 0; i < didascalie; ++i) italiane_ << italiano(i * 7);
  }
  void traduci() {
    versione_.passo();
    versione_.azzera();
    QStringList tradotte = italiane_;
    for (QString& t : tradotte) t = testi_.value(t.trimmed().toCaseFolded());
    if (!tradotte.last().startsWith(u'W')) rinuncia("pavimento");
  }

 private:
  Istruzione versione_;
  QHash<QString, QString> testi_;
  QStringList italiane_;
};

struct Banco {
  SitoMisure sito{{}};
  Database db;
  ElencoFinestre elenco;
  Traduttore traduttore{db};
  FinestraMisure finestra{elenco};
  std::unique_ptr<Nudo> nudo, altro;

  Banco() {
    if (apri_database(db, sito.cartella()).fallito()) rinuncia("file");
    riempi(db.connessione_db);
    db.lingua_interfaccia = 1;
    nudo = std::make_unique<Nudo>(sito.file());
    altro = std::make_unique<Nudo>(sito.file());
  }

  /// `prima` stands before each side of each round, and is not timed.
  template <class F, class G>
  void misura(const char* nome, F prima, G pavimento) {
    Confronto c;
    for (int i = 0; i < giri; ++i) {
      finestra.in_italiano();
      prima();
      c.nostro.aggiungi(cronometra([&] { traduttore.traduci_form(finestra); }));
      if (!finestra.tradotta()) rinuncia("finestra non tradotta");
      c.pavimento.aggiungi(cronometra(pavimento));
    }
    stampa_rapporto(nome, c.nostro.mediana(), c.pavimento.mediana(), 2);
  }
};

}  // namespace

int main() {
  Banco b;
  Istruzione tabella(*b.nudo, "Select italiano, inglese from traduzioni");
  const auto rilegge = [&] { (void)tabella.leggi_tutto(); };
  PavimentoInMemoria in_memoria(*b.nudo);
  const QString tocca = u"update traduzioni set tedesco = ' ' where italiano = ?"_s;
  b.misura(
      "60 captions, table unchanged / a bare look for changes + 60 of a hash", [] {},
      [&] { in_memoria.traduci(); });
  b.misura(
      "60 captions after a change of one's own / one bare query of the table",
      [&] { (void)b.db.connessione_db.Execute(tocca, {italiano(3)}); }, rilegge);
  b.misura(
      "60 captions after another console's change / one bare query of the table",
      [&] {
        b.altro->esegui("update traduzioni set tedesco = ' ' where italiano like 'Dicitura numero 3 %'");
      },
      rilegge);
}
