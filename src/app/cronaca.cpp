#include "app/cronaca.h"

#include <QTime>

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

const char* parola(const Shape& lampada) {
  switch (lampada.FillColor()) {
    case verde:
      return "verde";
    case rosso:
      return "rosso";
    default:
      return "grigio";
  }
}

}  // namespace

Cronaca::Cronaca(Supervisore& parti, VistaFinestra& vista, FILE* uscita)
    : parti_(parti), vista_(vista), uscita_(uscita, QIODevice::WriteOnly) {
  frm_Main& m = parti.principale;
  tipi_ = {{&m.corrente.lblID, "visita"},
           {&m.lblStatusD, "socket"},
           {&m.lblStatus, "socket_slave"},
           {&m.lblLetturaTrans, "lettura"},
           {&parti.acquisizione.lblUltimaTrans, "movimento"},
           {&m.lblErrore, "errore"}};
  const PannelloLive& p = parti.pannello;
  for (const Controllo* c : std::initializer_list<const Controllo*>{
           &p.ShapeP, &p.ShapeSX, &p.ShapeDX, &p.lblIntestazione, &p.lblP, &p.lblSX, &p.lblDX,
           &p.lampade_esito_5, &p.lampade_esito_6, &p.lampade_esito_7, &p.lampade_esito_8})
    tipi_.insert(c, "pannello");
  dopo_.setSingleShot(true);
  dopo_.callOnTimeout(this, &Cronaca::annota_pannello);
  m.vista(this);
}

Cronaca::~Cronaca() {
  if (viva_) parti_.principale.vista(&vista_);
}

void Cronaca::distrutta(Finestra& finestra) {
  viva_ = false;
  vista_.distrutta(finestra);
}

void Cronaca::cambiato(Controllo& controllo) {
  vista_.cambiato(controllo);
  const char* tipo = tipi_.value(&controllo);
  if (!tipo) return;
  const auto* label = dynamic_cast<Label*>(&controllo);
  if (qstrcmp(tipo, "pannello") == 0)
    dopo_.start(0);
  else if (label && !label->Caption().isEmpty())
    scrivi(tipo, label->Caption);
}

void Cronaca::scrivi(const char* tipo, const QString& testo) {
  uscita_ << QTime::currentTime().toString(u"HH:mm:ss.zzz"_s) << ' ' << tipo << ' ' << testo << '\n';
  uscita_.flush();
}

QString Cronaca::stato_pannello() const {
  const PannelloLive& p = parti_.pannello;
  return u"operatore=%1 [%2] %3 | prelievo=%4 [%5] esito=%6,%7 | riconsegna=%8 [%9] "_s
             .arg(QLatin1StringView(parola(p.ShapeP)), p.lblP.Caption, p.lblIntestazione.Caption)
             .arg(QLatin1StringView(parola(p.ShapeSX)), p.lblSX.Caption)
             .arg(QLatin1StringView(parola(p.lampade_esito_5)), QLatin1StringView(parola(p.lampade_esito_7)))
             .arg(QLatin1StringView(parola(p.ShapeDX)), p.lblDX.Caption) +
         u"esito=%1,%2"_s.arg(QLatin1StringView(parola(p.lampade_esito_6)),
                              QLatin1StringView(parola(p.lampade_esito_8)));
}

void Cronaca::annota_pannello() {
  const QString stato = stato_pannello();
  if (stato == pannello_) return;
  pannello_ = stato;
  scrivi("pannello", stato);
  if (Pannello) Pannello(stato);
}

}  // namespace lokera
