#include "simulation/giornata/vicende.h"

#include "access/giorno.h"
#include "store/recordset.h"

namespace lokera::simulazione {

using namespace Qt::StringLiterals;
using std::chrono::minutes;

namespace {

constexpr int al_giorno = 18;
constexpr int eliminate_al_massimo = 5;
constexpr qint64 dieci_minuti = 600;
constexpr qint64 dieci_ore = 36000;

}  // namespace

Vicende::Vicende(const ImpostazioniGiornata& impostazioni, SitoGiornata& sito, VirtualMachine& vm,
                 Connection& connessione)
    : impostazioni_(impostazioni),
      sito_(sito),
      vm_(vm),
      connessione_(connessione),
      caso_(seme_di(impostazioni.seme, 77)),
      coda_(connessione) {
  for (int i = 0; i < sito.tessere(); ++i) vive_ << SitoGiornata::codice_tessera(i);
}

void Vicende::programma() {
  const int quante = impostazioni_.registri ? 0 : al_giorno * impostazioni_.ore / 24;
  for (int i = 0; i < quante; ++i) {
    const Monotonic quando = minutes(caso_.fra(20, impostazioni_.ore * 60LL - 30));
    vm_.ciclo().fra(quando, [this] { una(); });
  }
  elimina_a_una_fascia();
  // Between 22 and 5 of the last night, while no band can open or close.
  const qint64 quando_minuti = impostazioni_.ore * 60LL - 14 * 60LL + caso_.fra(-115, 295);
  if (quando_minuti > 0) vm_.ciclo().fra(minutes(quando_minuti), [this] { sposta_indietro(); });
}

void Vicende::sposta_indietro() {
  vm_.orologio().imposta(vm_.orologio().adesso().addSecs(-60 * caso_.fra(3, 55)));
  elimina_a_una_fascia();
}

void Vicende::insieme(const std::function<Errore()>& lavoro) {
  if (const Errore e = in_transazione(connessione_, lavoro); e.fallito() && Errata) Errata(e.descrizione);
}

void Vicende::una() {
  const quint64 quale = caso_.sotto(10);
  if (vive_.isEmpty()) return;
  const QString tessera = vive_[static_cast<qsizetype>(caso_.sotto(static_cast<quint64>(vive_.size())))];
  if (quale >= 8 && eliminate_.size() < eliminate_al_massimo) return elimina(tessera);
  insieme([&] {
    if (quale < 3) return cambia_gruppo(tessera);
    if (quale < 5) return richiama_per_ore(tessera);
    if (quale < 6) return accoda_ovunque(tessera);
    return aggiungi();
  });
}

Errore Vicende::ha_gruppi(const QString& tessera, bool& ne_ha) {
  Recordset rs;
  Errore e = rs.Open(u"select codice from gruppi_tessera where tessera = ?"_s, connessione_, {tessera});
  ne_ha = !rs.eof();
  return e;
}

// Every cabinet holds keys of all groups: a card reaches all of them or none.
Errore Vicende::accoda_ovunque(const QString& tessera) {
  bool raggiunge = false;
  if (Errore e = ha_gruppi(tessera, raggiunge); e.fallito()) return e;
  if (!raggiunge) return richiama(tessera, MotivoConservare::non_raggiunta);
  for (int id = 1; id <= impostazioni_.lokere; ++id) {
    if (Errore e = coda_.accoda_scritture(TessereScelte::coppia(tessera, id)); e.fallito()) return e;
  }
  return {};
}

Errore Vicende::richiama(const QString& tessera, MotivoConservare motivo) {
  for (int id = 1; id <= impostazioni_.lokere; ++id) {
    if (Errore e = coda_.accoda_cancellazioni(TessereScelte::coppia(tessera, id), motivo); e.fallito())
      return e;
  }
  return {};
}

Errore Vicende::cambia_gruppo(const QString& tessera) {
  const qint64 gruppo = caso_.fra(1, SitoGiornata::gruppi_chiavi);
  const auto tolte = connessione_.esegui_contando(
      u"delete from gruppi_tessera where tessera = ? and codice = ?"_s, {tessera, gruppo});
  if (tolte.fallito()) return tolte.errore();
  if (*tolte == 0) {
    if (Errore e = connessione_.Execute(u"insert into gruppi_tessera (tessera, codice) values (?, ?)"_s,
                                        {tessera, gruppo});
        e.fallito())
      return e;
  }
  return accoda_ovunque(tessera);
}

Errore Vicende::aggiungi() {
  const QString tessera = SitoGiornata::codice_tessera(static_cast<int>(vive_.size() + eliminate_.size()));
  if (Errore e = connessione_.Execute(
          u"insert into tessere_operatori (codice, intestazione, gruppo, NrMaxPrelievi) values (?, ?, ?, 0)"_s,
          {tessera, u"operatore nuovo"_s, caso_.fra(1, SitoGiornata::gruppi_operatori)});
      e.fallito())
    return e;
  if (Errore e = connessione_.Execute(u"insert into gruppi_tessera (tessera, codice) values (?, ?)"_s,
                                      {tessera, caso_.fra(1, SitoGiornata::gruppi_chiavi)});
      e.fallito())
    return e;
  vive_ << tessera;
  return accoda_ovunque(tessera);
}

// Until the key that its holder has out is back.
Errore Vicende::richiama_per_ore(const QString& tessera) {
  vm_.ciclo().fra(minutes(caso_.fra(5, 200)), [this, tessera] {
    if (vive_.contains(tessera)) insieme([&] { return accoda_ovunque(tessera); });
  });
  return richiama(tessera, MotivoConservare::attende_chiave);
}

// Bands of today and tomorrow, some hours ahead; a little before the run that looks at them first.
std::vector<Vicende::ApreFascia> Vicende::prossime_fasce() {
  std::vector<ApreFascia> fasce;
  const QDateTime adesso = vm_.orologio().adesso();
  for (const QDate giorno : {adesso.date(), adesso.date().addDays(1)}) {
    Recordset rs;
    Errore e = rs.Open(u"select * from fascie_orarie where giorno = ? order by gruppo_oper, gruppo_chiavi"_s,
                       connessione_, {nome_giorno(giorno.dayOfWeek())});
    for (; !e.fallito() && !rs.eof(); e = rs.MoveNext()) {
      const QDateTime apre(giorno, rs.valore(u"dalle_ore").toDateTime().time());
      const qint64 fra_secondi = adesso.secsTo(apre) - dieci_minuti / 2;
      if (fra_secondi > dieci_minuti && fra_secondi < dieci_ore)
        fasce.push_back({rs.numero(u"gruppo_oper"), rs.numero(u"gruppo_chiavi"), fra_secondi});
    }
  }
  return fasce;
}

void Vicende::elimina_a_una_fascia() {
  const std::vector<ApreFascia> fasce = prossime_fasce();
  if (fasce.empty() || impostazioni_.registri) return;
  const ApreFascia fascia = fasce[static_cast<size_t>(caso_.sotto(fasce.size()))];
  const std::chrono::seconds quando(fascia.fra_secondi + caso_.fra(-120, 240));
  vm_.ciclo().fra(quando, [this, fascia] {
    if (const QString tessera = viva_di(fascia); !tessera.isEmpty()) elimina(tessera);
  });
}

QString Vicende::viva_di(const ApreFascia& fascia) {
  Recordset rs;
  Errore e = rs.Open(
      u"select t.codice from tessere_operatori as t inner join gruppi_tessera as g on t.codice = g.tessera"
      " where t.gruppo = ? and g.codice = ? order by t.codice"_s,
      connessione_, {fascia.gruppo_oper, fascia.gruppo_chiavi});
  for (; !e.fallito() && !rs.eof(); e = rs.MoveNext()) {
    if (vive_.contains(rs.testo(u"codice"))) return rs.testo(u"codice");
  }
  return {};
}

void Vicende::elimina(const QString& tessera) {
  insieme([&] { return coda_.elimina_tessera(tessera); });
  eliminate_ << tessera;
  vive_.removeOne(tessera);
}

}  // namespace lokera::simulazione
