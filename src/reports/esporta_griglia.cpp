#include "reports/esporta_griglia.h"

#include <algorithm>

#include "forms/formato.h"
#include "reports/elenco_mostrato.h"

namespace lokera {

namespace {

constexpr int tratto = 100;  // rows between two looks at the clock
constexpr int prima_riga = 4;
constexpr int riga_intestazioni = 3;
constexpr double unita_per_carattere = 130;

/// Runs over `quante` rows while the person lets it; whether all were done.
template <class F>
bool per_ogni(Lavoro& lavoro, int quante, F&& riga) {
  Lavoro::Corsa corsa(lavoro, quante);
  for (int i = 0; corsa.continua(i);)
    for (const int fine = std::min(i + tratto, quante); i < fine; ++i) riga(i);
  return corsa.finito();
}

/// A number as a person writes it; not what only looks like one, such as a code with its leading zeros.
std::optional<double> numero(const QString& testo) {
  const bool codice = testo.size() > 1 && testo[0] == u'0' && testo[1].isDigit();
  return codice ? std::nullopt : leggi_numero(testo);
}

ValoreFoglio valore(const ElencoMostrato::Colonna& colonna, QByteArrayView cella) {
  if (colonna.spunta || colonna.allineamento == Allineamento::sinistra) return cella;
  if (colonna.allineamento == Allineamento::destra) {
    if (const auto n = numero(QString::fromUtf8(cella))) return *n;
    return cella;
  }
  const QDateTime data = leggi_data_mostrata(cella);
  if (!data.isValid()) return cella;
  return cella.contains(' ') ? ValoreFoglio(data) : ValoreFoglio(data.date());
}

Workbook::Allineamento nel_foglio(Allineamento a) {
  switch (a) {
    case Allineamento::destra:
      return Workbook::Allineamento::destra;
    case Allineamento::centro:
      return Workbook::Allineamento::centro;
    case Allineamento::sinistra:
      break;
  }
  return Workbook::Allineamento::sinistra;
}

}  // namespace

bool esporta_testo(const SSOleDBGrid& grd, FileScritto& file, Lavoro& lavoro) {
  ElencoMostrato elenco(grd);
  const size_t colonne = elenco.colonne().size();
  QByteArray linea;
  for (const auto& c : elenco.colonne()) linea += c.titolo.toUtf8() + ';';
  in_una_riga(linea);
  file.riga(linea);
  const std::vector<int>& scelte = grd.selezionate();
  const int quante = scelte.empty() ? grd.Rows() : static_cast<int>(scelte.size());
  return per_ogni(lavoro, quante, [&](int i) {
    elenco.prendi(scelte.empty() ? i : scelte[static_cast<size_t>(i)]);
    linea.resize(0);
    for (size_t c = 0; c < colonne; ++c) {
      linea += elenco.cella(c);
      linea += ';';
    }
    in_una_riga(linea);
    file.riga(linea);
  });
}

bool esporta_foglio(const SSOleDBGrid& grd, const QString& titolo, Workbook& libro, Lavoro& lavoro) {
  ElencoMostrato elenco(grd);
  const int colonne = std::min(static_cast<int>(elenco.colonne().size()), colonne_foglio);
  const auto colonna = [&](int n) -> const auto& {
    return elenco.colonne()[static_cast<size_t>(n)];
  };
  for (int n = 0; n < colonne; ++n)
    libro.colonna(n + 1, colonna(n).larghezza / unita_per_carattere, nel_foglio(colonna(n).allineamento));
  libro.scrivi(1, 1, titolo + u" - "_s);
  for (int n = 0; n < colonne; ++n) libro.scrivi(riga_intestazioni, n + 1, colonna(n).titolo, true);
  return per_ogni(lavoro, std::min(elenco.righe(), righe_foglio), [&](int i) {
    elenco.prendi(i);
    for (int n = 0; n < colonne; ++n) {
      const QByteArrayView cella = elenco.cella(static_cast<size_t>(n));
      if (!cella.trimmed().isEmpty()) libro.scrivi(prima_riga + i, n + 1, valore(colonna(n), cella));
    }
  });
}

}  // namespace lokera
