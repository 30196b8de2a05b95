#pragma once

#include <QFont>

#include "platform/documento.h"

class QPainter;
class QPrinter;

namespace lokera {

QFont font(const Carattere& carattere);
double punti_per_twip(const QPrinter& stampante);

enum class Disegnato { tutto, interrotto, guasto };

/// Draws the document's pages, as many as `al_massimo`, and ends the print; one that is given up is aborted.
Disegnato disegna(QPrinter& stampante, const Documento& documento, int al_massimo = -1);

}  // namespace lokera
