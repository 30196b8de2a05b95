#include "simulation/giornata/scrivania.h"

#include <algorithm>

#include "simulation/giornata/mano_chiavi.h"
#include "simulation/giornata/mano_tessere.h"

namespace lokera::simulazione {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

namespace {

constexpr const char16_t* finestre[] = {u"frm_tessere", u"frm_tessere_operatori"};
constexpr Monotonic coda_di_risposte = 60s;  // a late reply comes within that time
constexpr auto ultima_mezza_ora = 30min;

constexpr const char16_t* box[] = {u"Registrazione eseguita!",
                                   u"Errore in aggiornamento dati su lokera. Riprovare...",
                                   u"Errore in apertura connessione TCP-IP alla lokera!",
                                   u"Errore di ",
                                   u"Errore in comunicazione",
                                   u"Aggiornamento Tessere Chiavi riuscito",
                                   u"Aggiornamento eseguito!",
                                   u"Vuoi riaggiornare",
                                   u"La posizione ",
                                   u"Tessera ",
                                   u"codice e verifica diversi!",
                                   u"procedura obsoleta!",
                                   u"Seriale nr. "};  // the desk has no reader

}  // namespace

Scrivania::Scrivania(const ImpostazioniGiornata& impostazioni, SitoGiornata& sito, VirtualMachine& vm,
                     EventLoop& ciclo, Console& console)
    : impostazioni_(impostazioni),
      sito_(sito),
      vm_(vm),
      ciclo_(ciclo),
      console_(console),
      caso_(seme_di(impostazioni.seme, 88)),
      mano_{caso_,
            sito_,
            vm_,
            attesi_,
            [this](const QString& testo) {
              if (Errata) Errata(testo);
            },
            {},
            0} {
  vm_.messaggi().mentre_aperto = [this](const Messaggio& m) { risponde(m); };
}

Scrivania::~Scrivania() {
  vm_.messaggi().mentre_aperto = nullptr;
}

Errore Scrivania::arreda(Connection& c) {
  const auto gruppi = [&](const QString& tabella, int quanti) {
    Errore e;
    for (int i = 1; i <= quanti && !e.fallito(); ++i)
      e = c.Execute(u"insert into %1 (codice, descrizione) values (?, ?)"_s.arg(tabella),
                    {i, u"gruppo %1"_s.arg(i)});
    return e;
  };
  Errore e = gruppi(u"gruppi"_s, Mano::gruppi_chiavi);
  if (!e.fallito()) e = gruppi(u"gruppi_utente"_s, SitoGiornata::gruppi_operatori);
  if (!e.fallito())
    e = c.Execute(u"update tessere_operatori set valido_dal = #01/01/2008#, valido_al = #12/31/2009#"_s);
  return e;
}

Errore Scrivania::programma() {
  fra_secondi(300, 2400, [this] { viene(); });
  return leggi_registri(console_.db().connessione_db, attesi_);
}

void Scrivania::fra_secondi(qint64 da, qint64 a, std::function<void()> evento) {
  vm_.ciclo().fra(std::chrono::milliseconds(caso_.fra(da * 1000, a * 1000)), std::move(evento));
}

Finestra* Scrivania::aperta() const {
  for (const char16_t* nome : finestre)
    if (Finestra* f = console_.elenco().trova(QStringView(nome)); f && !f->chiusa()) return f;
  return nullptr;
}

bool Scrivania::tiene_la_sessione() const {
  return aperta() || vm_.orologio().monotono() - chiusa_ < coda_di_risposte;
}

// Somebody who finds a window open has another look later.
void Scrivania::viene() {
  const bool finisce = vm_.orologio().monotono() > std::chrono::hours(impostazioni_.ore) - ultima_mezza_ora;
  if (finisce) return;
  fra_secondi(600, 3000, [this] { viene(); });
  if (aperta()) return;
  const int sessione = ++sessione_;
  console_.finestre().apri(QString::fromUtf16(finestre[caso_.sotto(std::size(finestre))]));
  const int mosse = static_cast<int>(caso_.fra(1, 5));
  fra_secondi(1, 20, [this, sessione, mosse] { continua(sessione, mosse); });
}

void Scrivania::continua(int sessione, int mosse) {
  Finestra* finestra = aperta();
  if (!finestra || sessione != sessione_) return appendi_chiavi();
  if (mosse == 0) return se_ne_va(*finestra);
  if (caso_.per_mille(80))
    fra_secondi(0, 6, [this, sessione] {
      if (Finestra* f = aperta(); f && sessione == sessione_) se_ne_va(*f);
    });
  mossa(*finestra);
  fra_secondi(1, 60, [this, sessione, mosse] { continua(sessione, mosse - 1); });
}

void Scrivania::mossa(Finestra& finestra) {
  ++mosse_;
  if (auto* chiavi = dynamic_cast<frm_tessere*>(&finestra))
    ManoChiavi(mano_, *chiavi).mossa();
  else if (auto* tessere = dynamic_cast<frm_tessere_operatori*>(&finestra))
    ManoTessere(mano_, *tessere).mossa();
  chiusa_ = vm_.orologio().monotono();
}

void Scrivania::se_ne_va(Finestra& finestra) {
  chiusa_ = vm_.orologio().monotono();
  finestra.chiudi();
  appendi_chiavi();
}

// Each key hangs where it is registered; one that somebody carries is hung when it is back.
void Scrivania::appendi_chiavi() {
  for (qlonglong id = 1; const SitoGiornata::Posto& p : sito_.posti()) {
    std::vector<QByteArray> tolte;
    for (const auto& [codice, chiave] : p.cabinet->chiavi())
      if (!chiave.fuori && !attesi_.chiavi.contains(QString::fromLatin1(codice))) tolte.push_back(codice);
    for (const QByteArray& codice : tolte) p.cabinet->stacca(codice);
    for (const auto& [codice, chiave] : attesi_.chiavi)
      if (chiave.lokera == id && !p.cabinet->chiavi().contains(codice.toLatin1()))
        p.cabinet->appendi(static_cast<int>(chiave.posizione), codice.toLatin1(), false);
    ++id;
  }
}

void Scrivania::risponde(const Messaggio& messaggio) {
  if (messaggio.bottoni == Bottoni::si_no) vm_.messaggi().risposte = {caso_.per_mille(700)};
  if (ripete_ || !caso_.per_mille(300)) return;
  const Monotonic fine = vm_.orologio().monotono() + std::chrono::milliseconds(caso_.fra(200, 8000));
  while (vm_.orologio().monotono() < fine) ciclo_.esegui_eventi(fine);
}

bool Scrivania::box_attesa(const QString& testo) {
  return std::ranges::any_of(box,
                             [&](const char16_t* inizio) { return testo.startsWith(QStringView(inizio)); });
}

void Scrivania::ripeti() {
  ripete_ = true;
  std::set<qlonglong> lokere;
  for (const auto& [lokera, chiave] : attesi_.da_ripetere) lokere.insert(lokera);
  for (const qlonglong lokera : lokere) ripeti_in(lokera);
  ripete_ = false;
}

void Scrivania::ripeti_in(qlonglong lokera) {
  auto* finestra = static_cast<frm_tessere*>(console_.finestre().apri(u"frm_tessere"_s));
  ManoChiavi mano(mano_, *finestra);
  mano.scegli(lokera);
  const bool tutte = attesi_.da_ripetere.erase({lokera, QString()}) > 0;
  std::set<QString> chiavi;
  for (const auto& [codice, chiave] : attesi_.chiavi)
    if (chiave.lokera == lokera && (tutte || attesi_.da_ripetere.contains({lokera, codice})))
      chiavi.insert(codice);
  for (const QString& codice : chiavi)
    if (!mano.ripeti(codice)) mano_.errata(u"key %1 can't be registered once more"_s.arg(codice));
  se_ne_va(*finestra);
  vm_.esegui_per(1s);
}

}  // namespace lokera::simulazione
