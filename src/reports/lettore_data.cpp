#include "reports/lettore_data.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace lokera {

namespace {

bool stampabile(char c) {
  return c >= ' ' && c <= '~';
}

}  // namespace

void LettoreData::porzione(QByteArrayView dati) {
  dati_ = dati;
  da_ = 0;
  lf_ = cerca('\n');
  cr_ = cerca('\r');
}

qsizetype LettoreData::cerca(char fine) const {
  if (da_ >= dati_.size()) return dati_.size();
  const void* dove = std::memchr(dati_.data() + da_, fine, static_cast<size_t>(dati_.size() - da_));
  return dove == nullptr ? dati_.size() : static_cast<const char*>(dove) - dati_.data();
}

std::optional<RigaData> LettoreData::prossima() {
  while (da_ < dati_.size()) {
    const qsizetype fine = std::min(lf_, cr_);
    const QByteArrayView testo = dati_.sliced(da_, fine - da_);
    if (fine == dati_.size()) {
      trattieni(testo);
      da_ = fine;
      break;
    }
    const bool lf = fine == lf_;
    da_ = fine + 1;
    (lf ? lf_ : cr_) = cerca(dati_[fine]);
    // The second half of CR LF, also where a portion ends between them.
    const bool coda = lf && dopo_cr_ && testo.isEmpty() && sospesa_.isEmpty();
    dopo_cr_ = !lf;
    if (coda) continue;
    if (const auto riga = chiudi(testo)) return riga;
  }
  return std::nullopt;
}

std::optional<RigaData> LettoreData::ultima() {
  return chiudi({});
}

// One character too many is enough to know a line as none of a cabinet.
void LettoreData::trattieni(QByteArrayView parte) {
  sospesa_ += parte.first(std::min(parte.size(), caratteri_massimi + 1 - sospesa_.size()));
}

std::optional<RigaData> LettoreData::chiudi(QByteArrayView testo) {
  ++numero_;
  if (!sospesa_.isEmpty()) {
    trattieni(testo);
    intera_ = std::exchange(sospesa_, {});
    testo = intera_;
  }
  if (testo.isEmpty()) return std::nullopt;
  const bool movimento = testo.size() >= caratteri_minimi && testo.size() <= caratteri_massimi &&
                         std::ranges::all_of(testo, stampabile);
  return RigaData{numero_, testo, movimento};
}

}  // namespace lokera
