#include "bench/misura.h"

#include <algorithm>
#include <cmath>
#include <cstdio>
#include <cstdlib>

namespace lokera::bench {

namespace {

const char* giudizio(bool limite, bool dentro) {
  if (!limite) return "";
  return dentro ? "ok" : "OLTRE";
}

void riga(const char* che_cosa, double nostro, double pavimento, const char* unita, double rapporto,
          const char* segno, double limite, bool dentro) {
  char scritto[32] = "-";
  if (limite > 0) (void)std::snprintf(scritto, sizeof scritto, "%s %g", segno, limite);
  std::printf("%s\t%.4g\t%.4g\t%s\t%.2f\t%s\t%s\n", che_cosa, nostro, pavimento, unita, rapporto, scritto,
              giudizio(limite > 0, dentro));
  (void)std::fflush(stdout);
}

}  // namespace

double Campioni::percentile(double p) const {
  if (valori_.empty()) return 0;
  std::vector<double> v = valori_;
  const auto n = static_cast<double>(v.size());
  const double posto = std::clamp(std::ceil(p / 100 * n) - 1, 0.0, n - 1);
  const auto qui = v.begin() + static_cast<std::ptrdiff_t>(posto);
  std::ranges::nth_element(v, qui);
  return *qui;
}

void stampa_rapporto(const char* che_cosa, double nostro, double pavimento, double limite,
                     const char* unita) {
  const double rapporto = nostro / pavimento;
  riga(che_cosa, nostro, pavimento, unita, rapporto, "<=", limite, rapporto <= limite);
}

void stampa_velocita(const char* che_cosa, double nostro, double pavimento, double minimo,
                     const char* unita) {
  const double rapporto = nostro / pavimento;
  riga(che_cosa, nostro, pavimento, unita, rapporto, ">=", minimo, rapporto >= minimo);
}

void stampa_valore(const char* che_cosa, double valore, double limite, const char* unita) {
  char scritto[32] = "-";
  if (limite > 0) (void)std::snprintf(scritto, sizeof scritto, "<= %g", limite);
  std::printf("%s\t%.4g\t-\t%s\t-\t%s\t%s\n", che_cosa, valore, unita, scritto,
              giudizio(limite > 0, valore <= limite));
  (void)std::fflush(stdout);
}

void stampa_percentili(const char* che_cosa, const Campioni& c) {
  std::printf("%s\tp50 %.4g\tp99 %.4g\tus\tp99.9 %.4g\t-\t\n", che_cosa, c.mediana(), c.percentile(99),
              c.percentile(99.9));
  (void)std::fflush(stdout);
}

void rinuncia(const char* che_cosa) {
  (void)std::fprintf(stderr, "misura impossibile: %s\n", che_cosa);
  std::exit(1);
}

}  // namespace lokera::bench
