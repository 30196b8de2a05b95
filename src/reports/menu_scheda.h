#pragma once

#include "forms/traduttore.h"
#include "platform/dialogs.h"
#include "platform/file_choice.h"

namespace lokera {

/// What the entries "Importa SD" and "Esporta SD" begin with.
struct ServiziScheda {
  Connection& archivio;
  FileChoice& file;
  Traduttore& traduttore;
  MessageBox& messaggi;
};

/// "Importa SD": the file that is to be imported; none when the choice was cancelled or the file isn't there.
std::optional<QString> scegli_importazione(const ServiziScheda& servizi);
/// "Esporta SD": asks where KEYS.TXT goes and writes it, then USERS.TXT, whatever came of the first. Only
/// failures are told.
void esporta_su_scheda(const ServiziScheda& servizi);

}  // namespace lokera
