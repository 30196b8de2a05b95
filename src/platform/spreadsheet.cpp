#include "platform/spreadsheet.h"

namespace lokera {

namespace {

constexpr int righe_massime = 1'048'576;
constexpr int colonne_massime = 16'384;
constexpr qsizetype testo_massimo = 32'767;

bool in_calendario(QDate giorno) {
  return giorno.isValid() && giorno.year() >= 1900 && giorno.year() <= 9999;
}

bool ammesso(const ValoreFoglio& valore) {
  if (const auto* testo = std::get_if<QString>(&valore)) return testo->size() <= testo_massimo;
  if (const auto* utf8 = std::get_if<QByteArrayView>(&valore))
    return utf8->size() <= testo_massimo || QString::fromUtf8(*utf8).size() <= testo_massimo;
  if (const auto* giorno = std::get_if<QDate>(&valore)) return in_calendario(*giorno);
  if (const auto* quando = std::get_if<QDateTime>(&valore)) return in_calendario(quando->date());
  return qIsFinite(std::get<double>(valore));
}

}  // namespace

bool ammesso_nel_foglio(int riga, int colonna, int scritta, const ValoreFoglio& valore) {
  return riga >= 1 && riga >= scritta && riga <= righe_massime && colonna >= 1 &&
         colonna <= colonne_massime && ammesso(valore);
}

}  // namespace lokera
