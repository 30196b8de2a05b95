#include "commissioning/parametri_lokera.h"

#include <algorithm>

#include "forms/formato.h"
#include "platform/letterali.h"

namespace lokera {

using namespace Qt::StringLiterals;

TempoLokera leggi_tempo(const QString& testo, const LimitiTempo& limiti) {
  const double valore = std::clamp<double>(leggi_numero(testo).value_or(0), limiti.minimo, limiti.massimo);
  const int spedito = static_cast<int>(valore) / limiti.unita;
  return {spedito, spedito * limiti.unita};
}

QByteArray esadecimale2(qint32 valore) {
  return QByteArray::number(valore, 16).toUpper().rightJustified(2, '0');
}

QByteArray testo_parametri(const ParametriLokera& p) {
  QByteArray testo = "00095";
  for (const int valore :
       {p.funzionamento, p.lingua, p.dataora, p.retroilluminazione, p.comunicazione.spedito,
        p.sblocco_porta.spedito, p.attesa_inizio.spedito, p.attesa_fine.spedito})
    testo += esadecimale2(valore);
  return testo + "01" + QByteArray(14, '0');
}

QByteArray testo_orologio(const QDateTime& adesso) {
  const int giorno = adesso.date().dayOfWeek() % 7 + 1;
  return "00020" + QByteArray::number(giorno) + adesso.toString(u"ddMMyyyyHHmmss"_s).toLatin1();
}

}  // namespace lokera
