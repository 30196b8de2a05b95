#include "link/protocollo.h"

#include <QStringList>

#include <algorithm>

#include "platform/blocco_controllo.h"

namespace lokera {

using namespace Qt::StringLiterals;

QByteArray calcola_bcc(QByteArrayView testo) {
  const auto bcc = blocco_controllo(testo);
  return {bcc.data(), 2};
}

QByteArray componi_frame(QByteArrayView testo) {
  const auto bcc = blocco_controllo(testo);
  QByteArray frame(testo.size() + 3, Qt::Uninitialized);
  char* fine = std::copy(testo.begin(), testo.end(), frame.data());
  fine = std::copy(bcc.begin(), bcc.end(), fine);
  *fine = '\r';
  return frame;
}

QByteArrayView codice_comando(QByteArrayView frame) {
  return campo_frame(frame, 1, 5);
}

bool risposta_buona(QByteArrayView frame) {
  return campo_frame(frame, 6, 2) == "00";
}

bool frame_intero(QByteArrayView frame) {
  return frame.endsWith('\r');
}

bool solo_cifre(QByteArrayView testo) {
  return !testo.isEmpty() && std::ranges::all_of(testo, [](char c) { return c >= '0' && c <= '9'; });
}

bool solo_ascii(QByteArrayView frame) {
  return std::ranges::all_of(frame, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

QString messaggio_risposta(QByteArrayView codice) {
  struct Voce {
    const char* codice;
    const char* messaggio;
  };
  static constexpr Voce voci[] = {
      {"00", ""},
      {"02", "Errore BCC"},
      {"03", "Uno o più campi dati sono oltre il range ammesso"},
      {"04", "Comando sconosciuto o non supportato"},
      {"05", "Impossibile eseguire il comando"},
      {"06", "Errore eeprom"},
      {"13", "Comando non valido"},
      {"14", "Record non presente"},
  };
  for (const Voce& v : voci) {
    if (codice == v.codice) return QString::fromUtf8(v.messaggio);
  }
  return u"Errore non previsto"_s;
}

QString normalizza_ip(const QString& testo) {
  QStringList gruppi;
  for (const int inizio : {0, 4, 8, 12}) gruppi << QString::number(testo.mid(inizio, 3).toInt());
  return gruppi.join(u'.');
}

}  // namespace lokera
