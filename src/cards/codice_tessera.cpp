#include "cards/codice_tessera.h"

#include <algorithm>

#include "ledger/record_transazione.h"

namespace lokera {

bool codice_registrabile(const QString& testo) {
  const auto stampabile = [](QChar c) { return c >= u' ' && c <= u'~'; };
  return testo.size() == testo.trimmed().size() && codice_valido(testo) &&
         std::ranges::all_of(testo, stampabile);
}

}  // namespace lokera
