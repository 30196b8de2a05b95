#include "supervisor/attesa_blocco.h"

namespace lokera {

using namespace Qt::StringLiterals;

using namespace std::chrono_literals;

namespace {

constexpr Monotonic limite = 30s;
constexpr Monotonic tra_due_tentativi = 250ms;
constexpr Monotonic senza_avviso = 500ms;

}  // namespace

Errore AttesaBlocco::riprova(const std::function<Errore()>& tentativo) {
  const Monotonic inizio = attesa_.orologio().monotono();
  bool avvisato = false;
  Errore esito;
  const SenzaAttesa senza_attesa(connessione_);
  attesa_.ritenta(tra_due_tentativi, limite, [&] {
    esito = tentativo();
    if (esito.classe != ClasseErrore::bloccato) return true;
    if (!avvisato && attesa_.orologio().monotono() - inizio >= senza_avviso) {
      avvisato = true;
      desktop_.mostra_avviso(
          traduttore_.traduci(u"Il database è occupato da un altro programma: attendere, prego."_s));
    }
    return false;
  });
  if (avvisato) desktop_.togli_avviso();
  return esito;
}

}  // namespace lokera
