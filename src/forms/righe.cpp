#include "forms/righe.h"

#include <algorithm>
#include <cstring>
#include <utility>

namespace lokera {

namespace {

constexpr qsizetype testa = sizeof(quint32);
constexpr qsizetype primo_blocco = 4096;
constexpr qsizetype blocco_massimo = 1 << 20;

quint32 lunghezza_di(const char* posto) {
  quint32 n = 0;
  std::memcpy(&n, posto, sizeof n);
  return n;
}

void scrivi(char* posto, QByteArrayView testo) {
  const auto n = static_cast<quint32>(testo.size());
  std::memcpy(posto, &n, sizeof n);
  if (n > 0) std::memcpy(posto + testa, testo.data(), n);
}

/// Where the cell begins and ends in a row; both at the end of the row when it has fewer cells.
std::pair<qsizetype, qsizetype> confini(QByteArrayView riga, int colonna) {
  qsizetype inizio = 0;
  for (int i = 0; i < colonna; ++i) {
    const qsizetype tab = riga.indexOf('\t', inizio);
    if (tab < 0) return {riga.size(), riga.size()};
    inizio = tab + 1;
  }
  const qsizetype fine = riga.indexOf('\t', inizio);
  return {inizio, fine < 0 ? riga.size() : fine};
}

}  // namespace

void Righe::svuota() {
  *this = Righe();
}

char* Righe::nuovo_posto(quint32 lunghezza) {
  const qsizetype serve = testa + static_cast<qsizetype>(lunghezza);
  if (serve > resto_) {
    const qsizetype misura = std::max(serve, std::clamp(byte_blocchi_, primo_blocco, blocco_massimo));
    blocchi_.push_back(std::make_unique_for_overwrite<char[]>(static_cast<size_t>(misura)));
    libero_ = blocchi_.back().get();
    byte_persi_ += resto_;
    byte_blocchi_ += misura;
    resto_ = misura;
  }
  resto_ -= serve;
  return std::exchange(libero_, libero_ + serve);
}

char* Righe::deposita(QByteArrayView testo) {
  char* posto = nuovo_posto(static_cast<quint32>(testo.size()));
  scrivi(posto, testo);
  return posto;
}

void Righe::aggiungi(QByteArrayView riga) {
  righe_.push_back(deposita(riga));
}

void Righe::togli(int riga) {
  const auto posto = righe_.begin() + riga;
  byte_persi_ += testa + lunghezza_di(*posto);
  righe_.erase(posto);
  ricompatta();
}

void Righe::sostituisci(int riga, QByteArrayView testo) {
  char*& posto = righe_[static_cast<size_t>(riga)];
  const qsizetype prima = lunghezza_di(posto);
  if (testo.size() <= prima) {
    byte_persi_ += prima - testo.size();
    scrivi(posto, testo);
  } else {
    byte_persi_ += testa + prima;
    posto = deposita(testo);
  }
  ricompatta();
}

QByteArrayView Righe::riga(int riga) const {
  const char* posto = righe_[static_cast<size_t>(riga)];
  return {posto + testa, static_cast<qsizetype>(lunghezza_di(posto))};
}

QByteArrayView Righe::cella(int riga, int colonna) const {
  const QByteArrayView testo = this->riga(riga);
  const auto [inizio, fine] = confini(testo, colonna);
  return testo.sliced(inizio, fine - inizio);
}

void Righe::imposta_cella(int riga, int colonna, QByteArrayView testo) {
  QByteArray nuova = this->riga(riga).toByteArray();
  const auto celle = nuova.count('\t') + 1;
  if (colonna >= celle) nuova.append(colonna + 1 - celle, '\t');
  const auto [inizio, fine] = confini(nuova, colonna);
  nuova.replace(inizio, fine - inizio, testo.toByteArray().replace('\t', ' '));
  sostituisci(riga, nuova);
}

void Righe::riordina(const std::vector<int>& ordine) {
  std::deque<char*> nuove;
  for (const int da : ordine) nuove.push_back(righe_[static_cast<size_t>(da)]);
  righe_ = std::move(nuove);
}

/// A list that is written to all day must not grow: once most of the blocks is lost, the rows move to new
/// ones.
void Righe::ricompatta() {
  if (byte_persi_ <= blocco_massimo / 16 || byte_persi_ * 2 <= byte_blocchi_) return;
  Righe nuove;
  for (int i = 0; i < conta(); ++i) nuove.aggiungi(riga(i));
  *this = std::move(nuove);
}

qsizetype Righe::byte_occupati() const {
  return byte_blocchi_ + static_cast<qsizetype>(righe_.size() * sizeof(char*)) +
         static_cast<qsizetype>(blocchi_.capacity() * sizeof(void*));
}

}  // namespace lokera
