#include "adapters/qt_printer.h"

#include <QComboBox>
#include <QFile>
#include <QFontDatabase>
#include <QPageSetupDialog>
#include <QPrinter>
#include <QPrinterInfo>

#include <cerrno>
#include <cmath>

#include "adapters/anteprima.h"
#include "adapters/base/file_intero.h"
#include "adapters/disegno_pagina.h"
#include "adapters/foglio.h"
#include "adapters/modale.h"

namespace lokera {

namespace {

// The writer of the file doesn't look whether the disk took all of it.
bool finito(const QString& nome) {
  constexpr qint64 coda = 16;
  QFile file(nome);
  return file.open(QIODevice::ReadOnly) && file.seek(std::max<qint64>(0, file.size() - coda)) &&
         file.readAll().contains("%%EOF");
}

// The dialog has a list of papers that have a name, and would begin with another one.
void offri_foglio(QPageSetupDialog& dialogo, const ProprietaStampa& p, const QPageSize& carta) {
  auto* fogli = dialogo.findChild<QComboBox*>(u"pageSizeCombo"_s);
  if (!fogli || carta.id() != QPageSize::Custom) return;
  const auto cm = [](int twip) { return QString::number(double{1} * twip / twip_centimetro, 'f', 1); };
  fogli->addItem(u"%1 x %2 cm"_s.arg(cm(p.larghezza), cm(p.lunghezza)), QVariant::fromValue(carta));
  fogli->setCurrentIndex(fogli->count() - 1);
}

}  // namespace

QtPrinter::QtPrinter(FileChoice& file) : file_(file) {}

QtPrinter::~QtPrinter() = default;

QStringList QtPrinter::stampanti() const {
  return QPrinterInfo::availablePrinterNames() + QStringList{stampante_pdf()};
}

QStringList QtPrinter::caratteri() const {
  return QFontDatabase::families();
}

const ProprietaStampa& QtPrinter::attuali() const {
  if (!proprieta_.stampante.isEmpty()) return proprieta_;
  const QString predefinita = QPrinterInfo::defaultPrinterName();
  proprieta_.stampante = predefinita.isEmpty() ? stampante_pdf() : predefinita;
  return proprieta_;
}

void QtPrinter::imposta(const ProprietaStampa& nuove) {
  proprieta_ = combina(attuali(), nuove, stampanti(), misura_foglio);
  metrica_.reset();
  dispositivo_.reset();
}

std::optional<ProprietaStampa> QtPrinter::imposta_pagina(const ProprietaStampa& iniziali) {
  const ProprietaStampa da = combina(attuali(), iniziali, stampanti(), misura_foglio);
  const auto stampante = crea_dispositivo(da);
  Modale<QPageSetupDialog> dialogo(stampante.get());
  offri_foglio(*dialogo, da, stampante->pageLayout().pageSize());
  if (!dialogo.esegui() || dialogo->result() != QDialog::Accepted) return std::nullopt;
  return con_pagina(da, stampante->pageLayout());
}

QPrinter& QtPrinter::dispositivo() const {
  if (!dispositivo_) dispositivo_ = crea_dispositivo(attuali());
  return *dispositivo_;
}

const QFontMetricsF& QtPrinter::metrica(const Carattere& carattere) const {
  if (!metrica_ || misurato_ != carattere) metrica_.emplace(font(carattere), &dispositivo());
  misurato_ = carattere;
  return *metrica_;
}

int QtPrinter::ScaleWidth() const {
  return static_cast<int>(dispositivo().pageLayout().paintRect(QPageLayout::Point).width() * twip_punto);
}

int QtPrinter::ScaleHeight() const {
  return static_cast<int>(dispositivo().pageLayout().paintRect(QPageLayout::Point).height() * twip_punto);
}

int QtPrinter::TextWidth(const Carattere& carattere, const QString& testo) const {
  const double punti = metrica(carattere).horizontalAdvance(testo);
  return static_cast<int>(std::ceil(punti / punti_per_twip(dispositivo())));
}

int QtPrinter::TextHeight(const Carattere& carattere) const {
  return static_cast<int>(std::ceil(metrica(carattere).lineSpacing() / punti_per_twip(dispositivo())));
}

EsitoStampa QtPrinter::stampa(const Documento& documento) {
  if (attuali().stampante == stampante_pdf()) return stampa_su_file(documento);
  const auto stampante = crea_dispositivo(attuali());
  const Disegnato disegnato = disegna(*stampante, documento);
  return {disegnato == Disegnato::tutto, disegnato == Disegnato::guasto ? qt_error_string(EIO) : QString()};
}

EsitoStampa QtPrinter::stampa_su_file(const Documento& documento) {
  const auto stampante =
      crea_dispositivo(attuali());  // of now: the properties may change while a file is chosen
  const auto scelto = file_.salva(scelta_pdf(documento));
  if (!scelto) return {};
  FileIntero file(*scelto);
  if (!file.errore().isEmpty()) return {false, *scelto + u'\n' + file.errore()};
  stampante->setOutputFileName(file.nome());
  const Disegnato disegnato = disegna(*stampante, documento);
  if (disegnato == Disegnato::interrotto) return {};
  const bool scritto = disegnato == Disegnato::tutto && finito(file.nome());
  const QString guasto = scritto ? file.completa() : qt_error_string(EIO);
  return {guasto.isEmpty(), guasto.isEmpty() ? guasto : *scelto + u'\n' + guasto};
}

void QtPrinter::anteprima(const Documento& documento, const TestiAnteprima& testi) {
  const auto stampante = crea_dispositivo(attuali());
  mostra_anteprima(*stampante, documento, testi);
}

}  // namespace lokera
