#pragma once

#include <QString>

#include <optional>
#include <vector>

#include "store/errore.h"
#include "store/lessico.h"
#include "store/recordset.h"

namespace lokera {

/// A name as the engine is given it: letters beyond ASCII in lower case, since the engine folds only ASCII
/// ones.
QString nome_lessema(const Lessema& lessema);
QString senza_parentesi_quadre(const QString& nome);

/// Lowers `create table` and `alter table ... add`; nothing for any other definition. Each column gets its
/// type, the collation of texts and a check whose name is the message of a refused value.
std::optional<Esito<QString>> abbassa_definizione(const std::vector<Lessema>& lessemi);

/// Type and size of a column from the type that its table declares. An empty declaration gives a text of 255.
Campo campo_dichiarato(const QString& nome, QByteArrayView dichiarato);

}  // namespace lokera
