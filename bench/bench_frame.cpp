// Block check and frames, beside a bare XOR loop over the same bytes.
#include "bench/misura.h"
#include "link/protocollo.h"

using namespace lokera;
using namespace lokera::bench;

namespace {

volatile int fuori = 0;  // keeps the results from being left out

/// The loop as plainly as it can be written; not inlined, as the program's own isn't.
[[gnu::noinline]] int xor_nudo(const char* testo, qsizetype quanti) {
  int x = 0;
  for (qsizetype i = 0; i < quanti; ++i) x ^= static_cast<unsigned char>(testo[i]);
  return x;
}

template <class F, class G>
void misura(const char* nome, const QByteArray& testo, F nostro, G nudo) {
  const int volte = static_cast<int>(4'000'000 / testo.size());
  const auto ripeti = [&](auto& f) {
    return [&] {
      for (int i = 0; i < volte; ++i) fuori = fuori + f(testo);
    };
  };
  const Confronto c = a_turno(30, ripeti(nostro), ripeti(nudo));
  const auto byte = static_cast<double>(volte * testo.size());
  stampa_velocita(nome, byte / c.nostro.mediana(), byte / c.pavimento.mediana(), 0, "MB/s");
}

}  // namespace

int main() {
  const auto nudo = [](const QByteArray& t) { return xor_nudo(t.constData(), t.size()); };
  const auto bcc = [](const QByteArray& t) { return calcola_bcc(t).front(); };
  const auto frame = [](const QByteArray& t) { return componi_frame(t).front(); };
  const QByteArray breve(67, 'A');  // a record of a card with its mask
  const QByteArray lungo(65536, 'A');
  misura("calcola_bcc of 67 characters / bare XOR loop", breve, bcc, nudo);
  misura("componi_frame of 67 characters / bare XOR loop", breve, frame, nudo);
  misura("calcola_bcc of 64 kB / bare XOR loop", lungo, bcc, nudo);
  misura("componi_frame of 64 kB / bare XOR loop", lungo, frame, nudo);
}
