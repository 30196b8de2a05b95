#include "commissioning/avanzamento_ricerca.h"

#include <algorithm>

namespace lokera {

using namespace Qt::StringLiterals;

namespace {
constexpr int durata_ms = 5000;
constexpr int passo_ms = 100;
}  // namespace

AvanzamentoRicerca::AvanzamentoRicerca(Finestra& finestra, const Clock& orologio, TimerFactory& timer,
                                       Traduttore& traduttore)
    : lblSearch(finestra, u"lblSearch"_s, u"ricerca in corso..."_s),
      pgbRicerca(finestra, u"pgbRicerca"_s),
      lblRisposte(finestra, u"lblRisposte"_s),
      orologio_(orologio),
      traduttore_(traduttore),
      timer_(timer.crea_timer()) {
  pgbRicerca.Max = durata_ms;
  lblSearch.Visible = pgbRicerca.Visible = false;
  timer_->Interval(passo_ms);
  timer_->Evento = [this] {
    const auto passati =
        std::chrono::duration_cast<std::chrono::milliseconds>(orologio_.monotono() - inizio_);
    pgbRicerca.Value = static_cast<int>(std::min<qint64>(passati.count(), durata_ms));
  };
}

void AvanzamentoRicerca::inizia() {
  inizio_ = orologio_.monotono();
  risposte_ = 0;
  conta();
  pgbRicerca.Value = 0;
  lblSearch.Caption = traduttore_.traduci(u"ricerca in corso..."_s);
  lblSearch.Visible = pgbRicerca.Visible = true;
  timer_->Enabled(true);
}

void AvanzamentoRicerca::risposta() {
  ++risposte_;
  conta();
}

void AvanzamentoRicerca::conta() {
  lblRisposte.Caption =
      traduttore_.traduci(u"Lokere che hanno risposto:"_s) + u' ' + QString::number(risposte_);
}

void AvanzamentoRicerca::legge(const QString& indirizzo) {
  timer_->Enabled(false);
  pgbRicerca.Value = durata_ms;
  lblSearch.Caption = traduttore_.traduci(u"Lettura di seriale e orario:"_s) + u' ' + indirizzo;
}

void AvanzamentoRicerca::fine() {
  timer_->Enabled(false);
  lblSearch.Visible = pgbRicerca.Visible = false;
}

}  // namespace lokera
