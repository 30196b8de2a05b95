#pragma once

#include <QByteArrayView>

#include "ledger/movimento.h"

namespace lokera {

/// Where the fields of a stored transaction begin, counted from 1: two codes of 10 characters, the movement
/// code of 2, the moment of 12.
struct DisposizioneRecord {
  qsizetype operatore, chiave, codice, momento;
};
constexpr DisposizioneRecord record_del_cabinet{8, 18, 28, 30};   ///< the reply "00036"
constexpr DisposizioneRecord record_della_scheda{1, 12, 23, 26};  ///< a line of DATA.TXT

/// The movement that a record tells, as it stands there: codes are not checked (see `codice_valido`), the
/// holder's name isn't in it, the moment is invalid when its digits are no date. Only "00" is a withdrawal.
Movimento record_transazione(QByteArrayView record, const DisposizioneRecord& disposizione);

/// Ten characters, none of them a dot.
bool codice_valido(const QString& codice);

/// Twelve digits, day, month, year, hours, minutes, seconds, two each. Invalid when they are no date. Years
/// 00 to 29 lie after 2000, 30 to 99 before.
QDateTime momento_da_cifre(QByteArrayView cifre);

}  // namespace lokera
