#pragma once

#include "platform/printer.h"

class QPrinter;

namespace lokera {

/// The pages of a document in a dialog, until it is closed.
void mostra_anteprima(QPrinter& stampante, const Documento& documento, const TestiAnteprima& testi);

}  // namespace lokera
