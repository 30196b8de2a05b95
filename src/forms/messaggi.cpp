#include "forms/messaggi.h"

namespace lokera {

namespace {
QString tradotto(Traduttore& traduttore, const QString& testo) {
  return testo.isEmpty() ? testo : traduttore.traduci(testo);
}
}  // namespace

void avvisa(Traduttore& traduttore, MessageBox& messaggi, const QString& testo, const QString& titolo,
            Icona icona) {
  messaggi.apri({tradotto(traduttore, testo), tradotto(traduttore, titolo), icona});
}

bool conferma(Traduttore& traduttore, MessageBox& messaggi, const QString& testo, const QString& titolo) {
  return messaggi.chiedi(tradotto(traduttore, testo), tradotto(traduttore, titolo));
}

}  // namespace lokera
