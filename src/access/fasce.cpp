#include "access/fasce.h"

#include <algorithm>
#include <functional>
#include <span>
#include <vector>

#include "access/tessere_di_fascia.h"
#include "ledger/coda_tessere.h"
#include "platform/momento.h"
#include "store/date_jet.h"
#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

using namespace std::chrono_literals;

constexpr auto tratto_massimo = 15ms;

struct Fascia {
  qlonglong gruppo_oper;
  qlonglong gruppo_chiavi;
  QDateTime dalle_ore;
  QDateTime alle_ore;
  QDateTime data_esecuzione;
};

qint64 minuti_tra_momenti(const QDateTime& a, const QDateTime& b) {
  return a.date().daysTo(b.date()) * 24 * 60 + minuti_tra(a.time(), b.time());
}

// The last time that the band was handled lies more than ten minutes before this moment of today.
bool da_rifare(const Fascia& fascia, const QDateTime& riferimento) {
  const QDateTime ultima =
      fascia.data_esecuzione.isValid() ? fascia.data_esecuzione : riferimento.addDays(-1);
  return minuti_tra_momenti(riferimento, ultima) + 10 < 0;
}

bool da_applicare(const Fascia& fascia, const QDateTime& adesso) {
  const QTime dalle = fascia.dalle_ore.time();
  const QTime alle = fascia.alle_ore.time();
  const bool si_apre = minuti_tra(dalle, adesso.time()) + 5 > 0 && minuti_tra(adesso.time(), alle) > 0;
  const bool chiusa = minuti_tra(alle, adesso.time()) > 0;
  return (si_apre && da_rifare(fascia, momento(adesso.date(), dalle))) ||
         (chiusa && da_rifare(fascia, momento(adesso.date(), alle)));
}

Errore leggi_fasce(Connection& c, const QString& giorno, std::vector<Fascia>& fasce) {
  Recordset rs;
  Errore e = rs.Open(
      u"select * from fascie_orarie where giorno = ? order by gruppo_oper, gruppo_chiavi,"
      " dalle_ore, alle_ore"_s,
      c, {giorno});
  while (!e.fallito() && !rs.eof()) {
    fasce.push_back({rs.numero(u"gruppo_oper"), rs.numero(u"gruppo_chiavi"),
                     rs.valore(u"dalle_ore").toDateTime(), rs.valore(u"alle_ore").toDateTime(),
                     rs.valore(u"data_esecuzione").toDateTime()});
    e = rs.MoveNext();
  }
  return e;
}

/// The run: first the cards that the bands touch are looked up, then they are queued, then the bands are
/// marked. Each transaction is one short stretch, and the loop runs between them.
class Applicazione {
 public:
  Applicazione(Connection& c, PolledWait& attesa, const QString& giorno)
      : c_(c), attesa_(attesa), giorno_(giorno), inizio_(attesa.orologio().monotono()), tessere_(c) {}

  Errore cerca(const GruppiDiFascia& gruppi) {
    return tessere_.cerca(
        gruppi, [this] { return tratto_finito(); }, [this] { respira(); });
  }

  Errore accoda() {
    CodaTessere coda(c_);
    const std::span<const TesseraInLokera> coppie = tessere_.coppie();
    const size_t blocchi = (coppie.size() + insieme - 1) / insieme;
    return a_tratti(blocchi, [&](size_t i) {
      return coda.accoda_scritture_se_mancano(
          coppie.subspan(i * insieme, std::min(insieme, coppie.size() - i * insieme)));
    });
  }

  Errore segna_eseguite(const std::vector<Fascia>& fasce) {
    return a_tratti(fasce.size(), [&](size_t i) { return segna_eseguita(fasce[i]); });
  }

 private:
  Errore segna_eseguita(const Fascia& fascia) {
    return c_.Execute(
        u"update fascie_orarie set data_esecuzione = ? where gruppo_oper = ? and"
        " gruppo_chiavi = ? and giorno = ? and dalle_ore = ? and alle_ore = ?"_s,
        {attesa_.orologio().adesso(), fascia.gruppo_oper, fascia.gruppo_chiavi, giorno_, fascia.dalle_ore,
         fascia.alle_ore});
  }

  // As many steps in a transaction as fit into one stretch.
  Errore a_tratti(size_t quanti, const std::function<Errore(size_t)>& passo) {
    for (size_t i = 0; i < quanti; respira()) {
      if (Errore e = in_transazione(c_, [&] { return tratto(i, quanti, passo); }); e.fallito()) return e;
    }
    return {};
  }

  Errore tratto(size_t& i, size_t quanti, const std::function<Errore(size_t)>& passo) {
    Errore errore;
    do errore = passo(i++);
    while (!errore.fallito() && i < quanti && !tratto_finito());
    return errore;
  }

  bool tratto_finito() const { return attesa_.orologio().monotono() - inizio_ >= tratto_massimo; }

  void respira() {
    if (!tratto_finito()) return;
    attesa_.cedi();
    inizio_ = attesa_.orologio().monotono();
  }

  static constexpr size_t insieme = CodaTessere::piu_scritture;

  Connection& c_;
  PolledWait& attesa_;
  const QString giorno_;
  Monotonic inizio_;
  TessereDiFascia tessere_;
};

Errore applica(Connection& c, PolledWait& attesa, const QString& giorno) {
  std::vector<Fascia> fasce;
  if (Errore e = leggi_fasce(c, giorno, fasce); e.fallito()) return e;
  const QDateTime adesso = attesa.orologio().adesso();
  std::erase_if(fasce, [&](const Fascia& f) { return !da_applicare(f, adesso); });
  GruppiDiFascia gruppi;
  for (const Fascia& f : fasce) gruppi[f.gruppo_oper].insert(f.gruppo_chiavi);
  Applicazione applicazione(c, attesa, giorno);
  if (Errore e = applicazione.cerca(gruppi); e.fallito()) return e;
  if (Errore e = applicazione.accoda(); e.fallito()) return e;
  return applicazione.segna_eseguite(fasce);
}

}  // namespace

FasceOrarie::FasceOrarie(Database& db, PolledWait& attesa, Giorno& giorno)
    : db_(db), attesa_(attesa), giorno_(giorno) {}

bool FasceOrarie::applica_fasce_orarie() {
  if (in_corso_) return true;
  in_corso_ = true;
  Errore errore = giorno_.tipo_giorno();
  if (!errore.fallito()) errore = applica(db_.connessione_db, attesa_, giorno_.giorno_corrente());
  in_corso_ = false;
  if (errore.fallito() && segnala) segnala(errore);
  return !errore.fallito();
}

}  // namespace lokera
