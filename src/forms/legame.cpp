#include "forms/legame.h"

#include "forms/controlli.h"

namespace lokera {

Legame legame(const Controllo& controllo) {
  Legame l;
  QString tag = controllo.Tag();
  const qsizetype uguale = controllo.e_opzione() ? tag.indexOf(u'=') : -1;
  if (uguale >= 0) {
    l.valore = tag.sliced(uguale + 1).trimmed();
    tag.truncate(uguale);
  }
  const qsizetype aperta = tag.indexOf(u'(');
  if (aperta >= 0) {
    const qsizetype chiusa = tag.indexOf(u')', aperta);
    l.qualifica = tag.mid(aperta + 1, chiusa < 0 ? -1 : chiusa - aperta - 1).trimmed();
    tag.truncate(aperta);
  }
  l.colonna = tag.trimmed();
  return l;
}

bool Legame::partecipa_a_popola(const QString& gruppo) const {
  if (colonna.isEmpty()) return false;
  const auto in_blank = [](const QString& t) { return QString(u' ' + t.toUpper() + u' '); };
  return qualifica.isEmpty() || in_blank(qualifica).contains(in_blank(gruppo.trimmed()));
}

bool Legame::partecipa_a_salva(const QString& gruppo) const {
  return !colonna.isEmpty() && (qualifica.isEmpty() || qualifica == gruppo);
}

}  // namespace lokera
