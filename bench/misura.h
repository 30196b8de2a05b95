#pragma once

#include <chrono>
#include <vector>

namespace lokera::bench {

/// Durations of one side of a measurement, in microseconds.
class Campioni {
 public:
  void aggiungi(double us) { valori_.push_back(us); }
  size_t quanti() const { return valori_.size(); }
  double percentile(double p) const;  ///< 0 to 100; 0 without samples
  double mediana() const { return percentile(50); }
  double massimo() const { return percentile(100); }

 private:
  std::vector<double> valori_;
};

/// How long the call takes.
template <class F>
double cronometra(F&& lavoro) {
  const auto prima = std::chrono::steady_clock::now();
  lavoro();
  return std::chrono::duration<double, std::micro>(std::chrono::steady_clock::now() - prima).count();
}

struct Confronto {
  Campioni nostro, pavimento;
};

/// Runs the two sides in turn, so that whatever else loads the machine falls on both. The first round is not
/// counted.
template <class F, class G>
Confronto a_turno(int giri, F&& nostro, G&& pavimento) {
  Confronto c;
  for (int i = 0; i <= giri; ++i) {
    const double a = cronometra(nostro);
    const double b = cronometra(pavimento);
    if (i == 0) continue;
    c.nostro.aggiungi(a);
    c.pavimento.aggiungi(b);
  }
  return c;
}

/// One line of the table: ours, its floor, their ratio and the largest ratio that is wanted (0 for none).
/// Fields are separated by tabs; `esegui` puts the lines of all programs under one another.
void stampa_rapporto(const char* che_cosa, double nostro, double pavimento, double limite,
                     const char* unita = "us");

/// The same for speeds: the ratio must be at least `minimo` (0 for none).
void stampa_velocita(const char* che_cosa, double nostro, double pavimento, double minimo, const char* unita);

/// A value that has a limit of its own, or none (0).
void stampa_valore(const char* che_cosa, double valore, double limite, const char* unita = "us");

/// p50, p99 and p99.9, in one line without a limit.
void stampa_percentili(const char* che_cosa, const Campioni& campioni);

/// Ends the program when something that the measurement needs can't be had.
[[noreturn]] void rinuncia(const char* che_cosa);

}  // namespace lokera::bench
