#include "app/avvio.h"

#include <QApplication>
#include <QDir>
#include <QLibraryInfo>
#include <QStyleFactory>

namespace lokera {

using namespace Qt::StringLiterals;

void prepara_aspetto() {
  QApplication::setStyle(QStyleFactory::create(u"Fusion"_s));
  QPalette colori = QApplication::palette();
  colori.setColor(QPalette::Highlight, QColor(0x1F, 0x6F, 0xB2));
  colori.setColor(QPalette::HighlightedText, Qt::white);
  colori.setColor(QPalette::Mid, QColor(0xC3, 0xC9, 0xD0));
  // What can't be changed now is read all the same.
  for (const QPalette::ColorRole testo : {QPalette::WindowText, QPalette::Text})
    colori.setColor(QPalette::Disabled, testo, QColor(0x50, 0x58, 0x60));
  QApplication::setPalette(colori);
  colori.setColor(QPalette::Disabled, QPalette::ButtonText, QColor(0x50, 0x58, 0x60));
  QApplication::setPalette(colori, "QComboBox");
}

Avvio::Avvio(const QString& cartella, const QRect& disponibile)
    : cartella_(cartella),
      disponibile_(disponibile),
      console_(macchina_.macchina(), [this] { return !istanza_->presa() && !istanza_->chi().isEmpty(); }) {}

bool Avvio::apri() {
  istanza_ = std::make_unique<IstanzaUnica>(QDir(cartella_).filePath(nome_file_database()));
  if (!console_.apri(cartella_)) return false;
  schermo_ = std::make_unique<SchermoConsole>(console_, disponibile_);
  schermo_->PrimaDiMostrare = [this] { testi_di_qt(); };
  return true;
}

// Qt's own words are English; where the console speaks the second language they stay so.
void Avvio::testi_di_qt() {
  if (console_.db().lingua_interfaccia == 0 &&
      testi_.load(u"qtbase_it"_s, QLibraryInfo::path(QLibraryInfo::TranslationsPath)))
    QCoreApplication::installTranslator(&testi_);
}

}  // namespace lokera
