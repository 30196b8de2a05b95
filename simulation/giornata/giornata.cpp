#include "simulation/giornata/giornata.h"

#include <QDir>
#include <QFileInfo>
#include <QTemporaryDir>

#include "platform/momento.h"
#include "simulation/giornata/ciclo_misurato.h"
#include "simulation/giornata/controlli.h"
#include "simulation/giornata/osservatore.h"
#include "simulation/giornata/prova_registri.h"
#include "simulation/giornata/vicende.h"
#include "store/schema_base.h"
#include "supervisor/console.h"

namespace lokera::simulazione {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

// The longest limit of a wait is "more than 10 seconds".
constexpr Monotonic attesa_massima = 11s;
// A tick may fall into a read, and the read of the next cabinet into nothing else.
constexpr int annidate_al_massimo = 4;
// A window's wait, and the box that it ends with.
constexpr int annidate_alla_scrivania = 2;
// Of a slow cabinet a visit reads no more records than fit between two ticks.
constexpr int giri_al_massimo = 60;
// From one band run to the next, and the visit itself.
constexpr int minuti_di_ritardo = 7;

// Every booking is a durable commit: in memory where the system has a folder for it.
QString cartella_veloce() {
  const QString memoria = u"/dev/shm"_s;
  const QString base = QFileInfo(memoria).isWritable() ? memoria : QDir::tempPath();
  return base + u"/giornata-XXXXXX"_s;
}

// The day ends at 14, when every band of the morning has closed and none of the evening is near.
QDateTime inizio(int ore) {
  return momento(QDate(2008, 11, 30), QTime(14, 0)).addSecs(-3600LL * ore);
}

class Giornata {
 public:
  explicit Giornata(const ImpostazioniGiornata& impostazioni)
      : impostazioni_(impostazioni),
        cartella_(cartella_veloce()),
        vm_(impostazioni.seme, inizio(impostazioni.ore)),
        sito_(impostazioni, vm_, registro_),
        ciclo_(vm_.ciclo(), vm_.orologio()) {}

  EsitoGiornata vivi() {
    if (!prepara()) return esito_;
    guasti();
    console_->principale().Form_Load();
    vm_.esegui_fino(std::chrono::hours(impostazioni_.ore));
    riposa();
    riscontra();
    raccogli();
    return esito_;
  }

 private:
  bool prepara();
  bool prepara_registri();
  void guasti();
  void riposa();
  void gira_finche_quieto();
  bool giro(Monotonic limite);
  void visitata(const QString& indirizzo);
  void riscontra();
  void raccogli();
  bool fallita(const QString& motivo) {
    esito_.differenze << motivo;
    return false;
  }

  ImpostazioniGiornata impostazioni_;
  EsitoGiornata esito_;
  QTemporaryDir cartella_;
  VirtualMachine vm_;
  RegistroEventi registro_;
  SitoGiornata sito_;
  CicloMisurato ciclo_;
  Connection seconda_;
  std::unique_ptr<Console> console_;
  std::unique_ptr<Osservatore> osservatore_;
  std::unique_ptr<Vicende> vicende_;
  std::unique_ptr<ProvaRegistri> registri_;
};

bool Giornata::prepara() {
  const QString file = cartella_.filePath(nome_file_database());
  const auto riempi = [this](Connection& c) {
    const Errore e = sito_.riempi(c);
    return e.fallito() || !impostazioni_.registri ? e : Scrivania::arreda(c);
  };
  if (Errore e = crea_database(file, password_database(), riempi); e.fallito()) return fallita(e.descrizione);
  if (Errore e = seconda_.Open(file, password_database()); e.fallito()) return fallita(e.descrizione);
  const Machine m = vm_.macchina();
  console_ = std::make_unique<Console>(Machine{m.orologio, ciclo_, m.timer, m.socket, m.seriali, m.messaggi,
                                               m.domande, m.file, m.stampante, m.fogli, m.puntatore,
                                               m.desktop, m.programma, m.documenti});
  if (!console_->apri(cartella_.path())) return fallita(u"the console can't open its file"_s);
  if (!sito_.apri()) return fallita(u"an address is taken"_s);

  osservatore_ = std::make_unique<Osservatore>(vm_.rete(), registro_, seconda_, vm_.orologio());
  Connection& sua = console_->db().connessione_db;
  ciclo_.Cede = [this, &sua] {
    if (sua.in_transazione()) osservatore_->differenza(u"a transaction is open across a wait"_s);
  };
  if (impostazioni_.segui_fasce)
    osservatore_->Visitata = [this](const QString& indirizzo) { visitata(indirizzo); };
  vicende_ = std::make_unique<Vicende>(impostazioni_, sito_, vm_, sua);
  vicende_->Errata = [this](const QString& testo) { osservatore_->differenza(u"at the desk: "_s + testo); };
  if (impostazioni_.vicende) vicende_->programma();
  sito_.persone(true);
  return !impostazioni_.registri || prepara_registri();
}

bool Giornata::prepara_registri() {
  registri_ = std::make_unique<ProvaRegistri>(impostazioni_, sito_, vm_, ciclo_, *console_, seconda_);
  registri_->scrivania.Errata = vicende_->Errata;
  osservatore_->Trattenuti = [this] { return registri_->scrivania.tiene_la_sessione(); };
  const Errore e = registri_->scrivania.programma();
  return !e.fallito() || fallita(e.descrizione);
}

// Some days are bad, some are worse, and each kind of fault has days on which it doesn't come.
void Giornata::guasti() {
  Caso& caso = sito_.caso();
  const auto per_mille = [&](qint64 massimo) {
    return static_cast<int>(std::max<qint64>(0, caso.fra(-5, massimo)));
  };
  Guasti g;
  g.rifiuta = per_mille(60);
  g.muto = per_mille(30);
  g.ritarda = per_mille(40);
  g.perde = per_mille(25);
  g.spezza = per_mille(40);
  g.unisce = per_mille(30);
  g.ripete = per_mille(50);
  g.altera = per_mille(25);
  g.cade = per_mille(15);
  if (impostazioni_.guasti) vm_.rete().guasti(g);
  // A live session that is lost stays lost: it must last for a good part of the day.
  g.cade = g.muto = g.rifiuta = 0;
  if (impostazioni_.guasti && impostazioni_.gestita) vm_.rete().guasti_di(u"127.0.0.2"_s, g);
}

// Every cabinet once more.
bool Giornata::giro(Monotonic limite) {
  const auto prima = osservatore_->visite();
  const auto tutte = [&] {
    return std::ranges::all_of(sito_.posti(), [&](const SitoGiornata::Posto& p) {
      const QString& nome = p.cabinet->nome();
      const auto era = prima.find(nome);
      const auto ora = osservatore_->visite().find(nome);
      return ora != osservatore_->visite().end() && ora->second > (era == prima.end() ? 0 : era->second);
    });
  };
  return vm_.esegui_finche(tutte, limite);
}

// Nothing goes wrong any more and nobody comes; the cycle goes round until nothing is left to do, and once
// more.
void Giornata::riposa() {
  vm_.rete().guasti_accesi(false);
  sito_.persone(false);
  vm_.esegui_per(1min);
  if (registri_ && !vm_.esegui_finche([this] { return registri_->scrivania.via(); }, 30min))
    osservatore_->differenza(u"a window does not close"_s);
  gira_finche_quieto();
  if (!registri_) return;
  for (const QString& d : registri_->ripeti()) osservatore_->differenza(d);
  gira_finche_quieto();
}

void Giornata::gira_finche_quieto() {
  const Monotonic un_giro = 10min * impostazioni_.lokere;
  for (int giri = 0; giri < giri_al_massimo; ++giri) {
    if (!giro(un_giro)) return osservatore_->differenza(u"the cycle does not come round"_s);
    vm_.esegui_per(1min);
    if (giri > 0 && sito_.quieto() && coda_vuota(seconda_)) return;
  }
  for (const SitoGiornata::Posto& p : sito_.posti()) {
    if (p.server->occupato() || p.cabinet->stato().transazioni.numero() > 0)
      osservatore_->differenza(u"%1 does not come to rest, %2 records in store"_s.arg(p.cabinet->nome())
                                   .arg(p.cabinet->stato().transazioni.numero()));
  }
}

void Giornata::visitata(const QString& indirizzo) {
  Riscontro r;
  for (int id = 1; const SitoGiornata::Posto& p : sito_.posti()) {
    if (p.cabinet->nome() == indirizzo)
      riscontra_fasce(seconda_, *p.cabinet, id, console_->parti().giorno.giorno_corrente(),
                      vm_.orologio().adesso().time(), minuti_di_ritardo, r);
    ++id;
  }
  for (const QString& d : std::as_const(r.differenze)) osservatore_->differenza(d);
}

void Giornata::riscontra() {
  osservatore_->alla_fine();
  Riscontro r;
  riscontra_chiavi(seconda_, r);
  riscontra_coda(seconda_, r);
  if (registri_)
    registri_->riscontra(r);
  else
    riscontra_registro(seconda_, vicende_->vive(), vicende_->eliminate(), r);
  Supervisore& parti = console_->parti();
  (void)parti.giorno.tipo_giorno();
  riscontra_tessere(seconda_, sito_, parti.giorno.giorno_corrente(), vm_.orologio().adesso().time(), r);
  if (ciclo_.oltre() > 0) r.differenze << u"%1 waits went on past their limit"_s.arg(ciclo_.oltre());
  if (ciclo_.massima() > attesa_massima) r.differenze << u"a wait has a limit beyond all"_s;
  if (ciclo_.profonda() > annidate_al_massimo + (registri_ ? annidate_alla_scrivania : 0))
    r.differenze << u"%1 waits stood in one another"_s.arg(ciclo_.profonda());
  if (vm_.ciclo().inondato()) r.differenze << u"time stood still"_s;
  if (!parti.principale.lblErrore.Caption().isEmpty())
    r.differenze << u"shown at the desk: "_s + parti.principale.lblErrore.Caption();
  for (const QString& testo : vm_.messaggi().testi())
    if (!registri_ || !Scrivania::box_attesa(testo)) r.differenze << u"message: "_s + testo;
  if (vm_.programma().finito) r.differenze << u"the program ended"_s;
  esito_.differenze = osservatore_->differenze() + r.differenze;
}

void Giornata::raccogli() {
  esito_.impronta = osservatore_->impronta();
  for (const auto& [indirizzo, quante] : osservatore_->visite()) esito_.visite += quante;
  esito_.movimenti = osservatore_->righe();
  esito_.ripetuti = osservatore_->ripetute();
  esito_.alterati = osservatore_->alterate();
  esito_.in_diretta = osservatore_->in_diretta();
  esito_.eliminate = static_cast<int>(vicende_->eliminate().size());
  if (registri_) registri_->racconta(esito_);
  for (const SitoGiornata::Posto& p : sito_.posti()) esito_.azzeramenti += p.cabinet->riavvii();
  esito_.attesa_ms = std::chrono::duration_cast<std::chrono::milliseconds>(ciclo_.massima()).count();
  esito_.annidate = ciclo_.profonda();
}

}  // namespace

EsitoGiornata vivi_giornata(const ImpostazioniGiornata& impostazioni) {
  return Giornata(impostazioni).vivi();
}

}  // namespace lokera::simulazione
