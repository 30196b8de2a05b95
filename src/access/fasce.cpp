#include "access/fasce.h"

#include <map>
#include <optional>
#include <set>
#include <vector>

#include "platform/momento.h"
#include "store/date_jet.h"
#include "store/recordset.h"

namespace lokera {

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

/// The run: first the cards that the bands touch are looked up, then they are queued in the order of their
/// codes, so that a transaction writes to few places of the file. Each transaction is one short stretch, and
/// the loop runs between them.
class Applicazione {
 public:
  Applicazione(Connection& c, PolledWait& attesa, const QString& giorno)
      : c_(c), attesa_(attesa), giorno_(giorno), inizio_(attesa.orologio().monotono()) {}

  // Every card of the operator group that may use the key group, and every cabinet that holds a key of it.
  Errore cerca(const Fascia& fascia) {
    QVariantList lokere;
    QVariantList tessere;
    if (Errore e = leggi_colonna(
            c_,
            QStringLiteral(
                "select distinct lokera from tessere_chiavi where gruppo = ? and lokera is not null"),
            {fascia.gruppo_chiavi}, lokere))
      return e;
    if (lokere.isEmpty()) return {};
    if (Errore e = leggi_colonna(
            c_,
            QStringLiteral(
                "select tessere_operatori.codice from (tessere_operatori inner join gruppi_tessera on"
                " tessere_operatori.codice = gruppi_tessera.tessera) where tessere_operatori.gruppo = ? and"
                " gruppi_tessera.codice = ?"),
            {fascia.gruppo_oper, fascia.gruppo_chiavi}, tessere))
      return e;
    for (const QVariant& tessera : tessere) {
      std::set<qlonglong>& dove = coppie_[tessera.toString()];
      for (const QVariant& lokera : lokere) dove.insert(lokera.toLongLong());
    }
    return respira();
  }

  Errore accoda() {
    for (const auto& [tessera, lokere] : coppie_) {
      for (const qlonglong lokera : lokere) {
        if (Errore e = accoda_coppia(tessera, lokera)) return e;
      }
      if (Errore e = respira()) return e;
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
  // A pair that is queued already stays as it is, also a deletion.
  Errore accoda_coppia(const QString& tessera, qlonglong lokera) {
    if (Errore e = inizia()) return e;
    return c_.Execute(
        QStringLiteral(
            "insert into aggiorn_tessere_oper (id_tessera, id_lokera, operazione) select ?, ?, 'I' where"
            " not exists (select 1 from aggiorn_tessere_oper where ID_tessera = ? and ID_lokera = ?)"),
        {tessera, lokera, tessera, lokera});
  }

  Errore inizia() {
    if (transazione_) return {};
    transazione_.emplace(c_);
    return transazione_->inizio();
  }

  Errore respira() {
    if (attesa_.orologio().monotono() - inizio_ < tratto_massimo) return {};
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
  std::map<QString, std::set<qlonglong>> coppie_;  ///< the cabinets that each card is queued for
};

Errore applica(Connection& c, PolledWait& attesa, const QString& giorno) {
  std::vector<Fascia> fasce;
  if (Errore e = leggi_fasce(c, giorno, fasce)) return e;
  const QDateTime adesso = attesa.orologio().adesso();
  std::erase_if(fasce, [&](const Fascia& f) { return !da_applicare(f, adesso); });
  Applicazione applicazione(c, attesa, giorno);
  for (const Fascia& fascia : fasce) {
    if (Errore e = applicazione.cerca(fascia)) return e;
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
