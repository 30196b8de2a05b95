#include "reports/report_testo.h"

#include <QFile>

#include <algorithm>
#include <utility>

namespace lokera {

namespace {

constexpr int unita_per_carattere = 100;
constexpr int righe_testata = 4;  // without the company: title, rule, heads, rule

QString a_misura(const QString& testo, qsizetype larghezza, bool a_destra) {
  QString tagliato = testo.left(larghezza);
  if (!tagliato.isEmpty() && tagliato.back().isHighSurrogate()) tagliato.chop(1);
  return a_destra ? tagliato.rightJustified(larghezza) : tagliato.leftJustified(larghezza);
}

}  // namespace

ReportTesto::ReportTesto(const SSOleDBGrid& grd, TestataReport testata, int righe_per_pagina,
                         FileScritto& file)
    : elenco_(grd),
      testata_(std::move(testata)),
      righe_per_pagina_(
          std::max(righe_per_pagina, static_cast<int>(testata_.ditta.size()) + righe_testata + 1)),
      file_(file) {
  for (const auto& c : elenco_.colonne()) {
    larghezze_.push_back(std::max(1, c.larghezza / unita_per_carattere));
    larghezza_ += larghezze_.back() + 2;
  }
}

void ReportTesto::scrivi(const QString& linea) {
  file_.riga(linea.toUtf8());
  ++scritte_;
}

void ReportTesto::scrivi(int riga) {
  if (riga == 0 || scritte_ >= righe_per_pagina_) testata();
  elenco_.prendi(riga);
  scrivi(linea([this](size_t i) {
    if (!elenco_.colonne()[i].spunta) return elenco_.testo(i);
    return elenco_.testo(i) == testo_spuntato ? u"*"_s : u" "_s;
  }));
}

void ReportTesto::testata() {
  scritte_ = 0;
  for (const QString& riga : testata_.ditta) scrivi(riga);
  const QString& titolo = testata_.titolo;
  const QString pagina = testata_.testo_pagina + QString::number(++pagina_);
  scrivi(titolo.leftJustified(std::max(larghezza_ - pagina.size(), titolo.size() + 1)) + pagina);
  scrivi(filo(false));
  scrivi(linea([this](size_t i) { return elenco_.colonne()[i].titolo; }));
  scrivi(filo(true));
}

QString ReportTesto::linea(const std::function<QString(size_t)>& cella) const {
  QString linea = u"|"_s;
  for (size_t i = 0; i < larghezze_.size(); ++i) {
    const bool numero = elenco_.colonne()[i].allineamento == Allineamento::destra;
    linea += a_misura(cella(i), larghezze_[i], numero) + u" |"_s;
  }
  return linea;
}

// Under the heads a gap stands below each mark between two columns.
QString ReportTesto::filo(bool diviso) const {
  if (!diviso) return QString(larghezza_, u'-');
  QString filo = u"-"_s;
  for (const qsizetype larghezza : larghezze_) filo += QString(larghezza, u'-') + u"- "_s;
  filo.back() = u'-';
  return filo;
}

std::optional<QString> righe_da_configurazione(const QString& file) {
  constexpr qint64 letti = 17;
  constexpr qsizetype da = 14;
  QFile f(file);
  if (!f.open(QIODevice::ReadOnly)) return std::nullopt;
  const QString righe = QString::fromLatin1(f.read(letti).mid(da)).trimmed();
  return righe.toInt() > 0 ? std::optional(righe) : std::nullopt;
}

}  // namespace lokera
