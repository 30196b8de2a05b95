#include "access/fasce.h"

#include <algorithm>
#include <map>
#include <optional>
#include <set>
#include <span>
#include <utility>
#include <vector>

#include "forms/lettura_a_tratti.h"
#include "store/date_jet.h"
#include "store/recordset.h"

namespace lokera {

namespace {

using namespace std::chrono_literals;

constexpr auto tratto_massimo = 15ms;
constexpr size_t insieme = 50;  ///< pairs that one statement queues

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
  return (si_apre && da_rifare(fascia, QDateTime(adesso.date(), dalle))) ||
         (chiusa && da_rifare(fascia, QDateTime(adesso.date(), alle)));
}

Errore leggi_fasce(Connection& c, const QString& giorno, std::vector<Fascia>& fasce) {
  Recordset rs;
  Errore e = rs.Open(
      QStringLiteral("select * from fascie_orarie where giorno = ? order by gruppo_oper, gruppo_chiavi,"
                     " dalle_ore, alle_ore"),
      c, {giorno});
  while (!e && !rs.eof()) {
    fasce.push_back({rs.numero(u"gruppo_oper"), rs.numero(u"gruppo_chiavi"),
                     rs.valore(u"dalle_ore").toDateTime(), rs.valore(u"alle_ore").toDateTime(),
                     rs.valore(u"data_esecuzione").toDateTime()});
    e = rs.MoveNext();
  }
  return e;
}

Errore leggi_colonna(Connection& c, const QString& sql, const QVariantList& valori, QVariantList& colonna) {
  Recordset rs;
  Errore e = rs.Open(sql, c, valori);
  while (!e && !rs.eof()) {
    colonna << rs.valore(0);
    e = rs.MoveNext();
  }
  return e;
}

using Coppia = std::pair<QString, qlonglong>;  ///< a card and a cabinet

/// Queues the pairs that aren't queued; one that is stays as it is, also a deletion. All in one statement: by
/// themselves they would take several times as long.
Errore accoda(Connection& c, std::span<const Coppia> coppie) {
  QString sql = QStringLiteral(
      "insert into aggiorn_tessere_oper (id_tessera, id_lokera, operazione) with nuove (tessera, lokera) as"
      " (values (?, ?)");
  QVariantList valori;
  valori.reserve(2 * static_cast<qsizetype>(coppie.size()));
  for (const auto& [tessera, lokera] : coppie) valori << tessera << lokera;
  for (size_t i = 1; i < coppie.size(); ++i) sql += QStringLiteral(", (?, ?)");
  sql += QStringLiteral(
      ") select tessera, lokera, 'I' from nuove where not exists (select 1 from aggiorn_tessere_oper where"
      " ID_tessera = nuove.tessera and ID_lokera = nuove.lokera)");
  return c.Execute(sql, valori);
}

using GruppiDovuti = std::map<qlonglong, std::set<qlonglong>>;  ///< operator group -> key groups

/// The run: first the cards that the bands touch are looked up, then they are queued in the order of their
/// codes, so that a transaction writes to few places of the file. Each transaction is one short stretch, and
/// the loop runs between them.
class Applicazione {
 public:
  Applicazione(Connection& c, PolledWait& attesa, const QString& giorno)
      : c_(c), attesa_(attesa), giorno_(giorno), inizio_(attesa.orologio().monotono()) {}

  /// Every card of the operator group that may use one of the key groups, and every cabinet that holds a key
  /// of that.
  Errore cerca(qlonglong gruppo_oper, const std::set<qlonglong>& gruppi_chiavi) {
    LetturaATratti lettura(
        c_,
        QStringLiteral(
            "select tessere_operatori.codice, gruppi_tessera.codice as gruppo from (tessere_operatori inner"
            " join gruppi_tessera on tessere_operatori.codice = gruppi_tessera.tessera) where"
            " tessere_operatori.gruppo = ?"),
        {gruppo_oper});
    do {
      if (Errore e = cerca_tratto(lettura, gruppi_chiavi)) return e;
      if (Errore e = respira()) return e;
    } while (lettura.sospesa());
    return {};
  }

  Errore accoda() {
    std::ranges::sort(coppie_);
    coppie_.erase(std::unique(coppie_.begin(), coppie_.end()), coppie_.end());
    for (std::span<const Coppia> restano = coppie_; !restano.empty();) {
      // Few wordings, since each is prepared once.
      const size_t quante = restano.size() < insieme ? 1 : insieme;
      if (Errore e = inizia()) return e;
      if (Errore e = lokera::accoda(c_, restano.first(quante))) return e;
      if (Errore e = respira()) return e;
      restano = restano.subspan(quante);
    }
    return {};
  }

  Errore segna_eseguita(const Fascia& fascia) {
    if (Errore e = inizia()) return e;
    if (Errore e =
            c_.Execute(QStringLiteral("update fascie_orarie set data_esecuzione = ? where gruppo_oper = ? and"
                                      " gruppo_chiavi = ? and giorno = ? and dalle_ore = ? and alle_ore = ?"),
                       {attesa_.orologio().adesso(), fascia.gruppo_oper, fascia.gruppo_chiavi, giorno_,
                        fascia.dalle_ore, fascia.alle_ore}))
      return e;
    return respira();
  }

  Errore finisci() {
    if (!transazione_) return {};
    Errore e = transazione_->conferma();
    transazione_.reset();
    return e;
  }

 private:
  Errore cerca_tratto(LetturaATratti& lettura, const std::set<qlonglong>& gruppi_chiavi) {
    if (Errore e = lettura.apri()) return e;
    Recordset& rs = lettura.righe();
    while (!rs.eof()) {
      const qlonglong gruppo = rs.valore(1).toLongLong();
      if (gruppi_chiavi.contains(gruppo)) {
        if (Errore e = aggiungi(rs.valore(0).toString(), gruppo)) return e;
      }
      lettura.annota();
      if (Errore e = rs.MoveNext()) return e;
      if (tratto_finito() && lettura.sospendi()) break;
    }
    return {};
  }

  Errore aggiungi(const QString& tessera, qlonglong gruppo_chiavi) {
    const auto [dove, nuovo] = lokere_.try_emplace(gruppo_chiavi);
    if (nuovo) {
      if (Errore e = leggi_colonna(
              c_,
              QStringLiteral(
                  "select distinct lokera from tessere_chiavi where gruppo = ? and lokera is not null"),
              {gruppo_chiavi}, dove->second))
        return e;
    }
    for (const QVariant& lokera : dove->second) coppie_.emplace_back(tessera, lokera.toLongLong());
    return {};
  }

  Errore inizia() {
    if (transazione_) return {};
    transazione_.emplace(c_);
    return transazione_->inizio();
  }

  bool tratto_finito() const { return attesa_.orologio().monotono() - inizio_ >= tratto_massimo; }

  Errore respira() {
    if (!tratto_finito()) return {};
    if (Errore e = finisci()) return e;
    attesa_.cedi();
    inizio_ = attesa_.orologio().monotono();
    return {};
  }

  Connection& c_;
  PolledWait& attesa_;
  const QString giorno_;
  Monotonic inizio_;
  std::optional<Transazione> transazione_;
  std::map<qlonglong, QVariantList> lokere_;  ///< the cabinets that hold keys of each key group
  std::vector<Coppia> coppie_;
};

Errore applica(Connection& c, PolledWait& attesa, const QString& giorno) {
  std::vector<Fascia> fasce;
  if (Errore e = leggi_fasce(c, giorno, fasce)) return e;
  const QDateTime adesso = attesa.orologio().adesso();
  std::erase_if(fasce, [&](const Fascia& f) { return !da_applicare(f, adesso); });
  Applicazione applicazione(c, attesa, giorno);
  GruppiDovuti dovuti;
  for (const Fascia& f : fasce) dovuti[f.gruppo_oper].insert(f.gruppo_chiavi);
  for (const auto& [gruppo_oper, gruppi_chiavi] : dovuti) {
    if (Errore e = applicazione.cerca(gruppo_oper, gruppi_chiavi)) return e;
  }
  if (Errore e = applicazione.accoda()) return e;
  for (const Fascia& fascia : fasce) {
    if (Errore e = applicazione.segna_eseguita(fascia)) return e;
  }
  return applicazione.finisci();
}

}  // namespace

FasceOrarie::FasceOrarie(Database& db, PolledWait& attesa, Giorno& giorno)
    : db_(db), attesa_(attesa), giorno_(giorno) {}

void FasceOrarie::applica_fasce_orarie() {
  if (in_corso_) return;
  in_corso_ = true;
  (void)giorno_.tipo_giorno();
  const Errore errore = applica(db_.connessione_db, attesa_, giorno_.giorno_corrente());
  in_corso_ = false;
  if (errore && segnala) segnala(errore);
}

}  // namespace lokera
