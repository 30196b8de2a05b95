#include "adapters/qt_file_choice.h"

#include <QFileDialog>
#include <QStringList>

#include "adapters/modale.h"
#include "platform/letterali.h"

namespace lokera {

namespace {

QStringList filtri(const QString& filtro) {
  const QStringList parti = filtro.split(u'|');
  QStringList filtri;
  for (qsizetype i = 0; i + 1 < parti.size(); i += 2)
    filtri.append(u"%1 (%2)"_s.arg(parti[i], QString(parti[i + 1]).replace(u';', u' ')));
  return filtri;
}

/// What a name that is written without it gets: the first pattern's ending, "pdf" for "*.pdf".
QString suffisso(const QString& filtro) {
  const QString primo = filtro.section(u'|', 1, 1).section(u';', 0, 0);
  return primo.startsWith("*."_L1) && primo.count(u'*') == 1 ? primo.sliced(2) : QString();
}

void prepara(QFileDialog& dialogo, const SceltaFile& scelta, const QString& ultima) {
  if (!scelta.titolo.isEmpty()) dialogo.setWindowTitle(scelta.titolo);
  if (const QStringList noti = filtri(scelta.filtro); !noti.isEmpty()) dialogo.setNameFilters(noti);
  dialogo.setDirectory(scelta.cartella.isEmpty() ? ultima : scelta.cartella);
  if (!scelta.nome.isEmpty()) dialogo.selectFile(scelta.nome);
}

std::optional<QString> scelto(Modale<QFileDialog>& dialogo, QString& ultima) {
  if (!dialogo.esegui() || dialogo->result() != QDialog::Accepted) return std::nullopt;
  ultima = dialogo->directory().path();
  return dialogo->selectedFiles().value(0);
}

}  // namespace

std::optional<QString> QtFileChoice::apri(const SceltaFile& scelta) {
  Modale<QFileDialog> dialogo;
  dialogo->setFileMode(QFileDialog::ExistingFile);
  prepara(*dialogo, scelta, ultima_);
  return scelto(dialogo, ultima_);
}

// Qt's own dialog asks before it gives the name of a file that exists.
std::optional<QString> QtFileChoice::salva(const SceltaFile& scelta) {
  Modale<QFileDialog> dialogo;
  dialogo->setAcceptMode(QFileDialog::AcceptSave);
  dialogo->setFileMode(QFileDialog::AnyFile);
  dialogo->setDefaultSuffix(suffisso(scelta.filtro));
  prepara(*dialogo, scelta, ultima_);
  return scelto(dialogo, ultima_);
}

}  // namespace lokera
