#include "forms/vocabolario.h"

#include <algorithm>

#include "store/confronto.h"
#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr quint64 seme = 14695981039346656037U;

constexpr quint64 mescola(quint64 h, char32_t lettera) {
  return (h ^ lettera) * 1099511628211U;
}

/// A hash that is the same for texts that differ in case only.
quint64 impronta(QByteArrayView testo) {
  quint64 h = seme;
  for (const char c : testo) {
    const auto b = static_cast<unsigned char>(c);
    if (b >= 0x80) {
      h = seme;
      for (const char32_t lettera : lettere_piegate(testo)) h = mescola(h, lettera);
      return h;
    }
    h = mescola(h, b >= 'A' && b <= 'Z' ? b + 32U : b);
  }
  return h;
}

}  // namespace

Errore Vocabolario::leggi(Connection& connessione) {
  *this = Vocabolario();
  Recordset rs;
  if (Errore e = rs.Open(u"Select italiano, inglese from traduzioni"_s, connessione); e.fallito()) return e;
  while (!rs.eof()) {
    aggiungi(rs.testo_grezzo(0), rs.testo_grezzo(1));
    if (Errore e = rs.MoveNext(); e.fallito()) return e;
  }
  return {};
}

void Vocabolario::aggiungi(QByteArrayView italiano, QByteArrayView inglese) {
  const auto numero = static_cast<qsizetype>(voci_.size());
  voci_.push_back({testi_.size(), italiano.size(), inglese.size()});
  testi_.append(italiano).append(inglese);
  const quint64 h = impronta(italiano);
  if (!prima_.contains(h)) prima_.insert(h, numero);
}

std::optional<QByteArrayView> Vocabolario::trova(QByteArrayView testo) const {
  const bool jolly = testo.contains('%') || testo.contains('_');
  if (!jolly) {
    const qsizetype i = prima_.value(impronta(testo), -1);
    if (i < 0) return {};
    const Voce& v = voci_[static_cast<size_t>(i)];
    if (confronta(italiano(v), testo) == 0) return inglese(v);
  }
  const auto modello = lettere_piegate(testo);
  const auto it = std::ranges::find_if(voci_, [&](const Voce& v) { return somiglia(modello, italiano(v)); });
  return it == voci_.end() ? std::nullopt : std::optional(inglese(*it));
}

bool Vocabolario::ha_traduzione(QByteArrayView testo) const {
  return std::ranges::any_of(voci_, [&](const Voce& v) { return inglese(v).trimmed() == testo; });
}

}  // namespace lokera
