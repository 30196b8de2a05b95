#pragma once

#include <QPageLayout>
#include <QSize>

#include <memory>

#include "platform/printer.h"

class QPrinter;

namespace lokera {

/// Twips; empty for a paper code that isn't known.
QSize misura_foglio(int formato);

/// The printer of these properties, to measure on, to set up and to print with.
std::unique_ptr<QPrinter> crea_dispositivo(const ProprietaStampa& proprieta);

/// `proprieta` with the paper, the orientation and the margins of `pagina`.
ProprietaStampa con_pagina(ProprietaStampa proprieta, const QPageLayout& pagina);

}  // namespace lokera
