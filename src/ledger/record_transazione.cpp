#include "ledger/record_transazione.h"

#include <algorithm>

#include "platform/campo_frame.h"
#include "platform/momento.h"

namespace lokera {

namespace {

constexpr qsizetype caratteri_codice = 10;
constexpr qsizetype cifre_momento = 12;

QString testo_ascii(QByteArrayView v) {
  return QString::fromLatin1(v.data(), v.size());
}

}  // namespace

Movimento record_transazione(QByteArrayView record, const DisposizioneRecord& d) {
  Movimento m;
  m.operatore = testo_ascii(campo_frame(record, d.operatore, caratteri_codice));
  m.chiave = testo_ascii(campo_frame(record, d.chiave, caratteri_codice));
  m.operazione = campo_frame(record, d.codice, 2) == "00" ? tipo_prelievo : tipo_riconsegna;
  m.data = momento_da_cifre(campo_frame(record, d.momento, cifre_momento));
  return m;
}

bool codice_valido(const QString& codice) {
  return codice.size() == caratteri_codice && !codice.contains(u'.');
}

QDateTime momento_da_cifre(QByteArrayView cifre) {
  const auto cifra = [](char c) { return c >= '0' && c <= '9'; };
  if (cifre.size() != cifre_momento || !std::ranges::all_of(cifre, cifra)) return {};
  const auto numero = [cifre](qsizetype i) { return (cifre[i] - '0') * 10 + (cifre[i + 1] - '0'); };
  const int anno = numero(4);
  const QDate giorno(anno < 30 ? 2000 + anno : 1900 + anno, numero(2), numero(0));
  return momento(giorno, QTime(numero(6), numero(8), numero(10)));
}

}  // namespace lokera
