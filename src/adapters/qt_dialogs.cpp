#include "adapters/qt_dialogs.h"

#include <QApplication>
#include <QMessageBox>
#include <QPointer>
#include <QPushButton>

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

// The window below may close while the box is open and take the box with it.
QPointer<QMessageBox> crea_box(QMessageBox::Icon icona, const QString& testo, const QString& titolo) {
  QPointer<QMessageBox> box = new QMessageBox(QApplication::activeWindow());
  box->setIcon(icona);
  box->setTextFormat(Qt::PlainText);
  box->setText(testo);
  box->setWindowTitle(titolo.isEmpty() ? QCoreApplication::applicationName() : titolo);
  return box;
}

}  // namespace

void QtMessageBox::mostra(const QString& testo, const QString& titolo) {
  const auto box = crea_box(QMessageBox::NoIcon, testo, titolo);
  box->addButton(u"OK"_s, QMessageBox::AcceptRole);
  box->exec();
  delete box;
}

bool QtMessageBox::chiedi(const QString& testo, const QString& titolo) {
  const auto box = crea_box(QMessageBox::Question, testo, titolo);
  // Qt's own buttons: they are in the language of the interface, as its file dialogs are.
  const QPushButton* si = box->addButton(QMessageBox::Yes);
  QPushButton* no = box->addButton(QMessageBox::No);
  box->setDefaultButton(no);
  box->setEscapeButton(no);
  box->exec();
  const bool risposta = box && box->clickedButton() == si;
  delete box;
  return risposta;
}

}  // namespace lokera
