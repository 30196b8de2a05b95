#include "adapters/persona.h"

#include <QApplication>
#include <QFileDialog>
#include <QInputDialog>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>

namespace lokera {

namespace {

void chiudi(QDialog& dialogo, bool accetta) {
  if (accetta)
    dialogo.accept();  // may ask something more, in a loop of its own
  else
    dialogo.reject();
}

void rispondi(QMessageBox& box, bool acconsente) {
  for (QAbstractButton* bottone : box.buttons()) {
    const auto ruolo = box.buttonRole(bottone);
    if (acconsente && (ruolo == QMessageBox::AcceptRole || ruolo == QMessageBox::YesRole))
      return bottone->click();
  }
  box.reject();
}

}  // namespace

// A timer isn't delivered inside its own handler, so each look has its own.
void Persona::aspetta() {
  QTimer::singleShot(2, this, [this] {
    aspetta();
    if (!gesti_.empty()) agisci();
  });
}

void Persona::agisci() {
  QWidget* aperto = QApplication::activeModalWidget();
  const Gesto gesto = gesti_.front();
  auto* box = qobject_cast<QMessageBox*>(aperto);
  auto* testo = qobject_cast<QInputDialog*>(aperto);
  auto* file = qobject_cast<QFileDialog*>(aperto);
  const bool suo = (gesto.tipo == Gesto::risponde && box) || (gesto.tipo == Gesto::scrive && testo) ||
                   (gesto.tipo == Gesto::sceglie && file);
  if (!suo) return;
  gesti_.pop_front();
  if (box) return rispondi(*box, gesto.acconsente);
  if (testo) testo->setTextValue(gesto.testo.value_or(QString()));
  if (file && gesto.testo) file->selectFile(*gesto.testo);
  chiudi(*static_cast<QDialog*>(aperto), gesto.testo.has_value());
}

}  // namespace lokera
