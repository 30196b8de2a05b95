#pragma once

#include <QStringList>
#include <QWidget>

namespace lokera::prova {

/// Every fault of a drawing that a person would see or a screen reader would miss; empty for a sound one.
/// Texts are measured against their room, and nothing may lie outside what holds it or under another.
QStringList testi_tagliati(const QWidget& forma);
QStringList fuori_posto(const QWidget& forma);
QStringList senza_nome_accessibile(const QWidget& forma);

/// What the Tab key reaches, in its order; only enabled and visible ones.
QList<QWidget*> ordine_tab(QWidget& forma);

}  // namespace lokera::prova
