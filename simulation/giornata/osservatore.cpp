#include "simulation/giornata/osservatore.h"

#include <algorithm>

#include "link/protocollo.h"
#include "platform/momento.h"
#include "simulation/cabinet/transazioni.h"
#include "store/recordset.h"

namespace lokera::simulazione {

using namespace Qt::StringLiterals;

namespace {

constexpr size_t lette_tenute = 4;
constexpr qsizetype differenze_tenute = 40;
constexpr qint64 tolleranza_viva_s = 2;
constexpr qint64 resto_us = 200000;  // the console waits that long for a line to go on

QString testo_ascii(QByteArrayView v) {
  return QString::fromLatin1(v.data(), v.size());
}

// Twelve digits, DDMMYYHHMMSS; anything else is no date.
QDateTime data_record(QByteArrayView cifre) {
  if (cifre.size() != 12 || !std::ranges::all_of(cifre, [](char c) { return c >= '0' && c <= '9'; }))
    return {};
  const auto n = [&](qsizetype da) { return cifre.sliced(da, 2).toInt(); };
  const QDate giorno(n(4) < 30 ? 2000 + n(4) : 1900 + n(4), n(2), n(0));
  const QTime ora(n(6), n(8), n(10));
  return momento(giorno, ora);
}

// A whole or truncated record that the console books; anything else gives false.
bool leggi_record(const QByteArray& frame, RigaMovimento& riga) {
  const QByteArrayView operatore = campo_frame(frame, 8, 10);
  const QByteArrayView chiave = campo_frame(frame, 18, 10);
  if (frame.size() <= 30 || !frame.startsWith("00036") || !solo_ascii(frame)) return false;
  if (operatore.contains('.') || chiave.contains('.')) return false;
  riga = {testo_ascii(operatore), testo_ascii(chiave), campo_frame(frame, 28, 2) == "00" ? u"P"_s : u"R"_s,
          data_record(campo_frame(frame, 30, 12))};
  return true;
}

bool sana(QByteArrayView riga) {
  return riga.size() >= 8 && componi_frame(riga.chopped(3)) == riga;
}

int diversi(QByteArrayView a, QByteArrayView b) {
  int quanti = 0;
  for (qsizetype i = 0; i < std::min(a.size(), b.size()); ++i) quanti += a[i] == b[i] ? 0 : 1;
  return quanti;
}

}  // namespace

QString RigaMovimento::testo() const {
  return u"%1 card %2 key %3 at %4"_s.arg(tipo, operatore, chiave, data.toString(u"yyyy-MM-dd HH:mm:ss"_s));
}

Osservatore::Osservatore(VirtualNetwork& rete, RegistroEventi& registro, Connection& file, const Clock& clock)
    : rete_(rete), registro_(registro), file_(file), clock_(clock) {
  rete.traccia = [this](const QString& riga) { traccia(riga); };
  registro.Riga = [this](const QByteArray& riga) { scritto(riga); };
}

Osservatore::~Osservatore() {
  rete_.traccia = nullptr;
  registro_.Riga = nullptr;
}

void Osservatore::differenza(const QString& testo) {
  if (differenze_.size() < differenze_tenute)
    differenze_ << clock_.adesso().toString(u"dd/MM HH:mm:ss  "_s) + testo;
}

void Osservatore::mescola(const QByteArray& testo) {
  for (const char c : testo) impronta_ = (impronta_ ^ static_cast<unsigned char>(c)) * 1099511628211ULL;
}

// Fields: microseconds, direction, address and port, content.
void Osservatore::traccia(const QString& riga) {
  const QByteArray grezza = riga.toLatin1();
  mescola(grezza);
  const QList<QByteArray> campi = grezza.split(' ');
  const QByteArray dati = QByteArray::fromPercentEncoding(campi.value(3));
  const QString indirizzo = QString::fromLatin1(campi[2].left(campi[2].indexOf(':')));
  const bool comandi = campi[2].endsWith(":10001");
  if (campi[1] == "+") resti_.erase(campi[2]);
  if (campi[1] == "<") {
    for (const QByteArray& frame : righe_arrivate(campi[2], campi[0].toLongLong(), dati)) {
      if (comandi) arrivato(indirizzo, frame);
      if (!comandi) arrivato_vivo(frame);
    }
  }
  if (campi[1] != ">" || !comandi || dati != frame_conta_transazioni) return;
  ++visite_[indirizzo];
  if (Visitata) Visitata(indirizzo);
}

// The lines that this piece completes. Of one whose head the console had long before, what came now alone
// when only that is sound.
QByteArrayList Osservatore::righe_arrivate(const QByteArray& porta, qint64 us, const QByteArray& dati) {
  Resto& r = resti_[porta];
  if (us - r.us >= resto_us) r.consegnati = r.testo.size();
  r.us = us;
  QByteArrayList righe;
  for (const char c : dati) {
    r.testo += c;
    if (c != '\r') continue;
    const QByteArray nuova = r.testo.mid(r.consegnati);
    righe << (sana(nuova) && !sana(r.testo) ? nuova : r.testo);
    r = {{}, 0, us};
  }
  return righe;
}

void Osservatore::arrivato_vivo(const QByteArray& frame) {
  rete_.ciclo().fra(std::chrono::milliseconds(1), [this] { leggi_righe(); });  // once it has been handled
  if (!sana(frame)) ++vive_alterate_;
}

void Osservatore::arrivato(const QString& indirizzo, const QByteArray& frame) {
  Arrivo arrivo{frame, {}};
  if (!leggi_record(frame, arrivo.riga)) return;
  leggi_righe();  // what came before has been booked by now
  trova_movimento(indirizzo, arrivo);
  arrivo.doppio = std::exchange(ultimo_, frame) == frame || (Trattenuti && Trattenuti());
  ++conti_[arrivo.n].arrivi;
  arrivi_.push_back(arrivo);
}

// The record as it was sent that the arrival is nearest to; the newest of them when several are as near.
void Osservatore::trova_movimento(const QString& indirizzo, Arrivo& arrivo) const {
  const auto lette = lette_.find(indirizzo);
  if (lette == lette_.end()) return;
  int minimo = 5;
  for (const quint64 n : lette->second) {
    const QByteArray mandato =
        componi_frame("0003600" + testo_transazione(registro_.voci()[n - 1].movimento));
    const int quanti = diversi(mandato, arrivo.frame);
    if (quanti > minimo) continue;
    minimo = quanti;
    arrivo.n = n;
  }
  arrivo.alterato = minimo > 0 || arrivo.frame.size() < 41;
}

void Osservatore::scritto(const QByteArray& riga) {
  const QList<QByteArray> campi = riga.split('\t');
  const quint64 n = campi.value(1).toULongLong();
  if (campi[0] == "letto") {
    auto& lette = lette_[QString::fromLatin1(campi.value(3))];
    if (lette.empty() || lette.back() != n) lette.push_back(n);
    if (lette.size() > lette_tenute) lette.erase(lette.begin());
  } else if (campi[0] == "evento" && campi.value(7) == "diretta") {
    vivi_.push_back(n);
  } else if (campi[0] == "confermato") {
    confermato(n);
  } else if (campi[0] == "risposto") {
    risposto(n, campi.value(4));
  }
}

void Osservatore::confermato(quint64 n) {
  leggi_righe();
  if (conti_[n].righe == 0) differenza(u"movement %1 was acknowledged before it was booked"_s.arg(n));
}

void Osservatore::risposto(quint64 n, const QByteArray& cifra) {
  leggi_righe();
  if (cifra != "0" || conti_[n].righe > 0) return;
  // A garbled request is booked as it came: then its row stands on the account of the garbled ones.
  if (righe_vive_alterate_ == 0) return differenza(u"live movement %1 was confirmed and not booked"_s.arg(n));
  --righe_vive_alterate_;
  ++conti_[n].righe;
}

void Osservatore::leggi_righe() {
  Recordset rs;
  Errore e =
      rs.Open(u"select id, operatore, chiave, operazione, data from movimenti where id > ? order by id"_s,
              file_, {ultimo_id_});
  for (; !e.fallito() && !rs.eof(); e = rs.MoveNext()) {
    ultimo_id_ = rs.numero(u"id");
    ++righe_;
    const RigaMovimento riga{rs.testo(u"operatore"), rs.testo(u"chiave"), rs.testo(u"operazione"),
                             rs.valore(u"data").toDateTime()};
    mescola(riga.testo().toUtf8());
    if (!da_arrivo(riga) && !da_operazione_viva(riga))
      differenza(u"row %1 has no cause: %2"_s.arg(ultimo_id_).arg(riga.testo()));
  }
  if (e.fallito()) differenza(u"can't read the rows: "_s + e.descrizione);
}

// Records are booked in the order in which they arrive; one that is passed over was not booked.
bool Osservatore::da_arrivo(const RigaMovimento& riga) {
  const auto suo = std::ranges::find(arrivi_, riga, &Arrivo::riga);
  if (suo == arrivi_.end()) return false;
  for (auto a = arrivi_.begin(); a != suo; ++a) {
    if (!a->doppio) differenza(u"a record that arrived was not booked: "_s + a->riga.testo());
  }
  ++conti_[suo->n].righe;
  if (suo->alterato) ++alterate_;
  arrivi_.erase(arrivi_.begin(), suo + 1);
  return true;
}

bool Osservatore::da_operazione_viva(const RigaMovimento& riga) {
  if (vivi_.empty()) return false;
  const bool adesso = std::abs(riga.data.secsTo(clock_.adesso())) <= tolleranza_viva_s;
  // The newest first: older ones that the console never heard of stay without a row.
  const auto suo = std::find_if(vivi_.rbegin(), vivi_.rend(), [&](quint64 n) {
    const MovimentoChiave& m = registro_.voci()[n - 1].movimento;
    return testo_ascii(m.tessera) == riga.operatore && testo_ascii(m.chiave) == riga.chiave &&
           QLatin1Char(m.tipo) == riga.tipo;
  });
  if (!adesso || (suo == vivi_.rend() && vive_alterate_ == 0)) return false;
  ++in_diretta_;
  if (suo == vivi_.rend()) {
    --vive_alterate_;
    ++righe_vive_alterate_;
    ++alterate_;
    return true;
  }
  ++conti_[*suo].righe;
  vivi_.erase(std::next(suo).base());
  return true;
}

int Osservatore::ripetute() const {
  int quante = 0;
  for (const auto& [n, conto] : conti_) quante += std::max(0, conto.righe - 1);
  return quante;
}

void Osservatore::alla_fine() {
  leggi_righe();
  for (const Arrivo& a : arrivi_) {
    if (!a.doppio) differenza(u"a record that arrived was not booked: "_s + a.riga.testo());
  }
  for (const VoceRegistro& voce : registro_.voci()) controlla_voce(voce);
}

void Osservatore::controlla_voce(const VoceRegistro& voce) {
  const Conto& conto = conti_[voce.n];
  if (!voce.confermata && !voce.risposta)
    differenza(u"movement %1 of %2 was never taken in"_s.arg(voce.n).arg(voce.cabinet));
  if (conto.righe == 0) differenza(u"movement %1 of %2 is not booked"_s.arg(voce.n).arg(voce.cabinet));
  const int cause = std::max(voce.letture, conto.arrivi) + (voce.come == Come::diretta ? 1 : 0);
  if (conto.righe > std::max(1, cause))
    differenza(
        u"movement %1 is booked %2 times, and was sent %3 times"_s.arg(voce.n).arg(conto.righe).arg(cause));
}

}  // namespace lokera::simulazione
