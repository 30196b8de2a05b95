#include "adapters/qt_dialogs.h"

#include <QInputDialog>
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>

#include "adapters/modale.h"
#include "platform/letterali.h"

namespace lokera {

namespace {

QString titolo_di(const QString& titolo) {
  return titolo.isEmpty() ? QCoreApplication::applicationName() : titolo;
}

QMessageBox::Icon icona_di(Icona icona) {
  switch (icona) {
    case Icona::informazione:
      return QMessageBox::Information;
    case Icona::domanda:
      return QMessageBox::Question;
    case Icona::esclamazione:
      return QMessageBox::Warning;
    case Icona::critica:
      return QMessageBox::Critical;
    default:
      return QMessageBox::NoIcon;
  }
}

/// A box's buttons; the second is null where there is none. All but OK are Qt's own: they are in the language
/// of the interface, as its file dialogs are.
std::pair<QPushButton*, QPushButton*> metti_bottoni(QMessageBox& box, Bottoni quali) {
  switch (quali) {
    case Bottoni::si_no:
      return {box.addButton(QMessageBox::Yes), box.addButton(QMessageBox::No)};
    case Bottoni::ok_annulla:
      return {box.addButton(u"OK"_s, QMessageBox::AcceptRole), box.addButton(QMessageBox::Cancel)};
    default:
      return {box.addButton(u"OK"_s, QMessageBox::AcceptRole), nullptr};
  }
}

}  // namespace

Risposta QtMessageBox::apri(const Messaggio& messaggio) {
  Modale<QMessageBox> box;
  box->setIcon(icona_di(messaggio.icona));
  box->setTextFormat(Qt::PlainText);
  box->setText(messaggio.testo);
  box->setWindowTitle(titolo_di(messaggio.titolo));
  const auto [primo, secondo] = metti_bottoni(*box, messaggio.bottoni);
  box->setDefaultButton(secondo && messaggio.secondo_bottone ? secondo : primo);
  box->setEscapeButton(secondo ? secondo : primo);
  const bool acconsente = box.esegui() && box->clickedButton() == primo;
  switch (messaggio.bottoni) {
    case Bottoni::si_no:
      return acconsente ? Risposta::si : Risposta::no;
    case Bottoni::ok_annulla:
      return acconsente ? Risposta::ok : Risposta::annulla;
    default:
      return Risposta::ok;
  }
}

std::optional<QString> QtInputBox::chiedi(const QString& testo, const QString& titolo,
                                          const QString& iniziale) {
  Modale<QInputDialog> box;
  box->setInputMode(QInputDialog::TextInput);
  box->setWindowTitle(titolo_di(titolo));
  box->setLabelText(testo);
  for (QLabel* label : box->findChildren<QLabel*>()) label->setTextFormat(Qt::PlainText);
  box->setTextValue(iniziale);
  if (!box.esegui() || box->result() != QDialog::Accepted) return std::nullopt;
  return box->textValue();
}

}  // namespace lokera
