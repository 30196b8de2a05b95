#include "forms/controlli.h"

#include "forms/formato.h"
#include "forms/tendina.h"
#include "forms/visita_controlli.h"

namespace lokera {

namespace {

/// True as the store, a check box and the numbers of old rows spell it.
bool vero(const QVariant& valore) {
  if (valore.typeId() == QMetaType::Bool) return valore.toBool();
  const double n = valore.toDouble();
  return n == 1 || n == -1;
}

}  // namespace

Controllo::Controllo(Finestra& finestra, QString nome) : finestra_(finestra), nome_(std::move(nome)) {
  finestra_.controlli_.push_back(this);
}

void Controllo::traduci_titoli(const Traduzione& traduci) {
  if (Proprieta<QString>* titolo = didascalia()) *titolo = traduci(*titolo);
}

// clang-format off
void Label::accetta(VisitaControlli& visita) { visita.visita(*this); }
void CommandButton::accetta(VisitaControlli& visita) { visita.visita(*this); }
void Menu::accetta(VisitaControlli& visita) { visita.visita(*this); }
void TextBox::accetta(VisitaControlli& visita) { visita.visita(*this); }
void MaskEdBox::accetta(VisitaControlli& visita) { visita.visita(*this); }
void CheckBox::accetta(VisitaControlli& visita) { visita.visita(*this); }
void OptionButton::accetta(VisitaControlli& visita) { visita.visita(*this); }
void ProgressBar::accetta(VisitaControlli& visita) { visita.visita(*this); }
void Shape::accetta(VisitaControlli& visita) { visita.visita(*this); }
void NumeroPosizione::accetta(VisitaControlli& visita) { visita.visita(*this); }
void SSPanel::accetta(VisitaControlli& visita) { visita.visita(*this); }
// clang-format on

void Label::mostra_valore(const QVariant& valore, const QString&) {
  Caption = formatta(valore);
}

void TextBox::mostra_valore(const QVariant& valore, const QString&) {
  Text = formatta(valore);
}

QVariant TextBox::valore(const Campo& campo, const QString&) {
  if (e_testo(campo.tipo)) {
    QString testo = Text().trimmed();
    if (campo.dimensione > 0) testo.truncate(campo.dimensione);
    Text = testo;
    return testo.isEmpty() ? u" "_s : testo;
  }
  if (!e_numero(campo.tipo) || Text().contains(u',')) return {};
  const auto numero = leggi_numero(Text());
  return numero ? QVariant(*numero) : QVariant();
}

void MaskEdBox::mostra_valore(const QVariant& valore, const QString&) {
  Text = formatta(valore, u"dd/mm/yyyy");
}

void CheckBox::mostra_valore(const QVariant& valore, const QString&) {
  Value = vero(valore) ? 1 : 0;
}

void OptionButton::mostra_valore(const QVariant& valore, const QString& opzione) {
  Value = formatta(valore).trimmed().compare(opzione, Qt::CaseInsensitive) == 0;
}

}  // namespace lokera
