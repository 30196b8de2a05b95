#pragma once

#include "forms/traduttore.h"
#include "platform/dialogs.h"

namespace lokera {

/// The program's own wording in a box, in the language of the interface.
void avvisa(Traduttore& traduttore, MessageBox& messaggi, const QString& testo, const QString& titolo = {},
            Icona icona = Icona::nessuna);
bool conferma(Traduttore& traduttore, MessageBox& messaggi, const QString& testo, const QString& titolo = {});

}  // namespace lokera
