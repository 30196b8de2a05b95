#pragma once

#include <QHash>
#include <QRect>
#include <QString>
#include <QWidget>

namespace lokera {

/// The widgets of a drawing by name. What lies inside a list, a text box or a lamp belongs to it and isn't
/// counted, nor are unnamed widgets.
QHash<QString, QWidget*> widget_con_nome(const QWidget& forma);

/// Whether a widget only holds or frames others, and so needs no control.
bool solo_contiene(const QWidget& widget);

/// Centres a freshly drawn window on the screen or, when `adatta`, applies the sizing rule to it: `schermo`
/// is the free part of the screen. A stretched window takes all of it. Returns whether it was stretched.
bool stira(QWidget& forma, const QRect& schermo, bool adatta = true);

}  // namespace lokera
