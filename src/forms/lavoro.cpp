#include "forms/lavoro.h"

#include <algorithm>

namespace lokera {

using namespace Qt::StringLiterals;

namespace {
constexpr Monotonic tempo_senza_cedere = std::chrono::milliseconds(20);
}  // namespace

Lavoro::Lavoro(Finestra& finestra, PolledWait& attesa, Traduttore& traduttore)
    : pgbLavoro(finestra, u"pgbLavoro"_s),
      lblLavoro(finestra, u"lblLavoro"_s),
      cmdInterrompi(finestra, u"cmdInterrompi"_s, u"interrompi"_s),
      finestra_(finestra),
      attesa_(attesa),
      traduttore_(traduttore) {
  cmdInterrompi.Click = [this] { interrotto_ = true; };
  mostra_comandi(false);
}

void Lavoro::mostra_comandi(bool in_corso) {
  in_corso_ = in_corso;
  pgbLavoro.Visible = cmdInterrompi.Visible = in_corso;
}

Lavoro::Corsa::Corsa(Lavoro& lavoro, int quanti, const QString& forma)
    : attesa_(lavoro.finestra_),
      lavoro_(lavoro),
      quanti_(quanti),
      forma_(lavoro.traduttore_.traduci(forma)),
      sua_(!lavoro.in_corso_),
      ceduto_(lavoro.attesa_.orologio().monotono()) {
  if (!sua_) return;
  lavoro_.interrotto_ = false;
  lavoro_.pgbLavoro.Max = std::max(quanti, 1);
  mostra();
  lavoro_.mostra_comandi(true);
}

Lavoro::Corsa::~Corsa() {
  if (!sua_) return;
  mostra();
  if (!finito())
    lavoro_.lblLavoro.Caption =
        lavoro_.traduttore_.traduci(u"interrotto: %1 di %2"_s).arg(fatti_).arg(quanti_);
  lavoro_.mostra_comandi(false);
}

void Lavoro::Corsa::mostra() {
  lavoro_.pgbLavoro.Value = fatti_;
  lavoro_.lblLavoro.Caption = forma_.arg(fatti_).arg(quanti_);
}

bool Lavoro::Corsa::continua(int fatti) {
  if (!sua_) return false;
  fatti_ = std::min(fatti, quanti_);
  const Clock& orologio = lavoro_.attesa_.orologio();
  if (orologio.monotono() - ceduto_ >= tempo_senza_cedere) {
    mostra();
    lavoro_.attesa_.cedi();
    ceduto_ = orologio.monotono();
  }
  return !finito() && !lavoro_.interrotto_ && !lavoro_.finestra_.in_chiusura();
}

}  // namespace lokera
