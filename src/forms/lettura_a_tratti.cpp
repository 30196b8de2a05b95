#include "forms/lettura_a_tratti.h"

#include <utility>

namespace lokera {

namespace {
constexpr int istruzione_rifiutata = 1;  // the engine's number for what it can't prepare
}

LetturaATratti::LetturaATratti(Connection& connessione, const QString& sql, QVariantList valori)
    : connessione_(connessione), sql_(sql), valori_(std::move(valori)), divisa_(QueryDivisa::dividi(sql)) {}

Errore LetturaATratti::apri() {
  sospesa_ = false;
  if (!posto_.isEmpty())
    return rs_.Open(divisa_->dal(posto_), connessione_, valori_ + QueryDivisa::valori(posto_));
  if (divisa_) {
    Errore e = rs_.Open(divisa_->dall_inizio(), connessione_, valori_);
    if (e.numero != istruzione_rifiutata) return e;
    divisa_.reset();  // its sorting names a column of the result, say, that isn't one of a table
  }
  return rs_.Open(sql_, connessione_, valori_);
}

int LetturaATratti::identita() const {
  return rs_.conta_campi() - 1;
}

/// The value as it is stored, so that it is found again: a text that isn't what its column promises too.
QVariant LetturaATratti::valore(int colonna) const {
  QVariant v = rs_.valore(colonna);
  switch (v.typeId()) {
    case QMetaType::QString:
    case QMetaType::QDateTime:
      return QString::fromUtf8(rs_.testo_grezzo(colonna));
    case QMetaType::Bool:
      return rs_.testo_grezzo(colonna).toLongLong();
    default:
      return v;
  }
}

void LetturaATratti::annota() {
  if (divisa_) annotata_ = rs_.testo_grezzo(identita()).toByteArray();
}

bool LetturaATratti::sospendi() {
  // A row of the first table that has several of another beside it is not parted from itself.
  if (!divisa_ || rs_.eof() || rs_.nullo(identita()) || rs_.testo_grezzo(identita()) == annotata_)
    return false;
  posto_.clear();
  for (qsizetype i = divisa_->colonne_posto(); i > 0; --i)
    posto_ << valore(rs_.conta_campi() - static_cast<int>(i));
  rs_.Close();
  return sospesa_ = true;
}

}  // namespace lokera
