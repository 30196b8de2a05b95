#include "simulation/giornata/vicende.h"

#include "store/recordset.h"

namespace lokera::simulazione {

using namespace Qt::StringLiterals;
using std::chrono::minutes;

namespace {

constexpr int al_giorno = 14;
constexpr int eliminate_al_massimo = 5;

}  // namespace

Vicende::Vicende(const ImpostazioniGiornata& impostazioni, SitoGiornata& sito, VirtualMachine& vm,
                 Connection& connessione)
    : impostazioni_(impostazioni),
      sito_(sito),
      vm_(vm),
      connessione_(connessione),
      caso_(seme_di(impostazioni.seme, 77)),
      tessere_(sito.tessere()) {}

void Vicende::programma() {
  const int quante = al_giorno * impostazioni_.ore / 24;
  for (int i = 0; i < quante; ++i) {
    const Monotonic quando = minutes(caso_.fra(20, impostazioni_.ore * 60 - 30));
    vm_.ciclo().fra(quando, [this] { una(); });
  }
  // Between 22 and 5 of the last night, while no band can open or close.
  const qint64 quando_minuti = impostazioni_.ore * 60LL - 14 * 60 + caso_.fra(-115, 295);
  if (quando_minuti > 0) vm_.ciclo().fra(minutes(quando_minuti), [this] { sposta_indietro(); });
}

void Vicende::sposta_indietro() {
  vm_.orologio().imposta(vm_.orologio().adesso().addSecs(-60 * caso_.fra(3, 55)));
}

void Vicende::esegui(const QString& sql, const QVariantList& valori) {
  if (const Errore e = connessione_.Execute(sql, valori); e && Errata) Errata(e.descrizione);
}

// A card in the registry that isn't on its way out.
QString Vicende::tessera_viva() {
  Recordset rs;
  QStringList tutte;
  Errore e = rs.Open(
      u"select codice from tessere_operatori where codice not in (select id_tessera from"
      " aggiorn_tessere_oper where operazione = 'D') order by codice"_s,
      connessione_);
  for (; !e && !rs.eof(); e = rs.MoveNext()) tutte << rs.testo(u"codice");
  return tutte.isEmpty() ? QString()
                         : tutte[static_cast<qsizetype>(caso_.sotto(static_cast<quint64>(tutte.size())))];
}

void Vicende::una() {
  const quint64 quale = caso_.sotto(10);
  const QString tessera = tessera_viva();
  if (tessera.isEmpty()) return;
  if (quale < 4) return cambia_gruppo(tessera);
  if (quale < 6) return accoda_ovunque(tessera);
  if (quale < 8) return aggiungi();
  elimina(tessera);
}

void Vicende::accoda_ovunque(const QString& tessera) {
  for (int id = 1; id <= impostazioni_.lokere; ++id) {
    esegui(
        u"insert into aggiorn_tessere_oper (ID_tessera, ID_lokera, operazione) select ?, ?, 'I' where not"
        " exists (select 1 from aggiorn_tessere_oper where ID_tessera = ? and ID_lokera = ?)"_s,
        {tessera, id, tessera, id});
  }
}

void Vicende::cambia_gruppo(const QString& tessera) {
  const qint64 gruppo = caso_.fra(1, SitoGiornata::gruppi_chiavi);
  qint64 tolte = 0;
  const Errore e = connessione_.Execute(u"delete from gruppi_tessera where tessera = ? and codice = ?"_s,
                                        {tessera, gruppo}, &tolte);
  if (e && Errata) Errata(e.descrizione);
  if (tolte == 0) esegui(u"insert into gruppi_tessera (tessera, codice) values (?, ?)"_s, {tessera, gruppo});
  accoda_ovunque(tessera);
}

void Vicende::aggiungi() {
  const QString tessera = SitoGiornata::codice_tessera(tessere_++);
  esegui(u"insert into tessere_operatori (codice, intestazione, gruppo, NrMaxPrelievi) values (?, ?, ?, 0)"_s,
         {tessera, u"operatore nuovo"_s, caso_.fra(1, SitoGiornata::gruppi_operatori)});
  esegui(u"insert into gruppi_tessera (tessera, codice) values (?, ?)"_s,
         {tessera, caso_.fra(1, SitoGiornata::gruppi_chiavi)});
  accoda_ovunque(tessera);
}

void Vicende::elimina(const QString& tessera) {
  if (eliminate_++ >= eliminate_al_massimo) return;
  esegui(u"delete from aggiorn_tessere_oper where ID_tessera = ?"_s, {tessera});
  for (int id = 1; id <= impostazioni_.lokere; ++id) {
    esegui(u"insert into aggiorn_tessere_oper (ID_tessera, ID_lokera, operazione) values (?, ?, 'D')"_s,
           {tessera, id});
  }
}

}  // namespace lokera::simulazione
