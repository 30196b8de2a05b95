#include "store/statement.h"

#include <QDateTime>

#include <array>
#include <utility>

#include "platform/momento.h"
#include "store/date_jet.h"
#include "store/definizioni.h"
#include "store/errori_motore.h"

namespace lokera {

using namespace Qt::StringLiterals;

Statement::~Statement() {
  sqlite3_finalize(stmt_);
}

Esito<std::shared_ptr<Statement>> Statement::prepara(sqlite3* db, QStringView sql) {
  const auto abbassata = abbassa(sql);
  if (abbassata.fallito()) return abbassata.errore();
  auto s = std::make_shared<Statement>();
  const QByteArray utf8 = abbassata->sql.toUtf8();
  const char* coda = nullptr;
  const int rc =
      sqlite3_prepare_v2(db, utf8.constData(), static_cast<int>(utf8.size()) + 1, &s->stmt_, &coda);
  if (rc != SQLITE_OK) return errore_motore(db, rc);
  if (s->stmt_ == nullptr) return Errore{SQLITE_ERROR, u"Istruzione vuota"_s};
  if (!QByteArray(coda).trimmed().isEmpty()) return Errore{SQLITE_ERROR, u"Una sola istruzione alla volta"_s};
  s->tipo_ = abbassata->tipo;
  s->tabella_ = abbassata->tabella;
  s->leggi_campi();
  return s;
}

void Statement::leggi_campi() {
  campi_.clear();
  calcolati_.clear();
  const int quanti = sqlite3_column_count(stmt_);
  campi_.reserve(static_cast<size_t>(quanti));
  for (int i = 0; i < quanti; ++i) {
    const char* dichiarato = sqlite3_column_decltype(stmt_, i);
    const QString nome = QString::fromUtf8(sqlite3_column_name(stmt_, i));
    if (dichiarato == nullptr) calcolati_.push_back(i);
    campi_.push_back(campo_dichiarato(nome, QByteArrayView(dichiarato == nullptr ? "" : dichiarato)));
  }
}

void Statement::osserva_riga() {
  if (static_cast<size_t>(sqlite3_column_count(stmt_)) != campi_.size()) leggi_campi();
  for (const int i : calcolati_) {
    Campo& c = campi_[static_cast<size_t>(i)];
    switch (sqlite3_column_type(stmt_, i)) {
      case SQLITE_INTEGER:
        c.tipo = TipoCampo::intero, c.dimensione = 4;
        break;
      case SQLITE_FLOAT:
        c.tipo = TipoCampo::doppio, c.dimensione = 8;
        break;
      default:
        c.tipo = TipoCampo::testo, c.dimensione = 255;
    }
  }
}

Errore Statement::lega(const QVariantList& valori) {
  if (sqlite3_bind_parameter_count(stmt_) != valori.size()) {
    return {SQLITE_RANGE,
            u"L'istruzione aspetta %1 valori e ne riceve %2"_s.arg(sqlite3_bind_parameter_count(stmt_))
                .arg(valori.size())};
  }
  for (int i = 0; i < valori.size(); ++i) {
    const int rc = lega_valore(stmt_, i + 1, valori[i]);
    if (rc != SQLITE_OK) return errore_motore(sqlite3_db_handle(stmt_), rc);
  }
  return {};
}

void Statement::azzera() {
  sqlite3_reset(stmt_);
  sqlite3_clear_bindings(stmt_);
}

namespace {

/// Short plain texts, which most are, go over without a detour.
int lega_testo(sqlite3_stmt* stmt, int posizione, const QString& t) {
  std::array<char, 256> breve;
  const auto lunghezza = static_cast<size_t>(t.size());
  size_t i = 0;
  if (lunghezza <= breve.size()) {
    for (; i < lunghezza && t[static_cast<qsizetype>(i)].unicode() < 0x80; ++i) {
      breve[i] = static_cast<char>(t[static_cast<qsizetype>(i)].unicode());
    }
    if (i == lunghezza) {
      return sqlite3_bind_text(stmt, posizione, breve.data(), static_cast<int>(i), SQLITE_TRANSIENT);
    }
  }
  const QByteArray utf8 = t.toUtf8();
  return sqlite3_bind_text(stmt, posizione, utf8.constData(), static_cast<int>(utf8.size()),
                           SQLITE_TRANSIENT);
}

int lega_data(sqlite3_stmt* stmt, int posizione, const QDateTime& d) {
  if (!d.date().isValid()) return sqlite3_bind_null(stmt, posizione);
  const QByteArray t = data_memorizzata(d);
  return sqlite3_bind_text(stmt, posizione, t.constData(), static_cast<int>(t.size()), SQLITE_TRANSIENT);
}

}  // namespace

int lega_valore(sqlite3_stmt* stmt, int posizione, const QVariant& v) {
  switch (v.typeId()) {
    case QMetaType::UnknownType:
      return sqlite3_bind_null(stmt, posizione);
    case QMetaType::QString:
      return lega_testo(stmt, posizione, *static_cast<const QString*>(v.constData()));
    case QMetaType::Bool:
      return sqlite3_bind_int(stmt, posizione, v.toBool() ? 1 : 0);
    case QMetaType::Double:
    case QMetaType::Float:
      return sqlite3_bind_double(stmt, posizione, v.toDouble());
    case QMetaType::QDateTime:
      return lega_data(stmt, posizione, v.toDateTime());
    case QMetaType::QDate:
      return lega_data(stmt, posizione, momento(v.toDate()));
    case QMetaType::QTime:
      return lega_data(stmt, posizione, ora(v.toTime()));
    default:
      break;
  }
  bool intero = false;
  const qlonglong n = v.toLongLong(&intero);
  return intero ? sqlite3_bind_int64(stmt, posizione, n) : lega_testo(stmt, posizione, v.toString());
}

QVariant leggi_valore(sqlite3_stmt* stmt, int i, TipoCampo tipo) {
  switch (sqlite3_column_type(stmt, i)) {
    case SQLITE_NULL:
      return {};
    case SQLITE_INTEGER:
      if (tipo == TipoCampo::booleano) return sqlite3_column_int(stmt, i) != 0;
      if (tipo == TipoCampo::doppio) return sqlite3_column_double(stmt, i);
      return static_cast<qlonglong>(sqlite3_column_int64(stmt, i));
    case SQLITE_FLOAT:
      return sqlite3_column_double(stmt, i);
    default:
      break;
  }
  const char* testo = reinterpret_cast<const char*>(sqlite3_column_text(stmt, i));
  const int lunghezza = sqlite3_column_bytes(stmt, i);
  if (tipo == TipoCampo::data) {
    const QDateTime d = da_data_memorizzata(QByteArrayView(testo, lunghezza));
    if (d.date().isValid()) return d;
  }
  return QString::fromUtf8(testo, lunghezza);
}

Esito<std::shared_ptr<Statement>> CacheStatement::prendi(sqlite3* db, const QString& sql) {
  const auto trovata = indice_.constFind(sql);
  if (trovata != indice_.constEnd()) {
    voci_.splice(voci_.begin(), voci_, *trovata);
    const auto& voce = voci_.front();
    if (voce.statement.use_count() == 1) return voce.statement;
    return Statement::prepara(db, sql);
  }
  auto nuova = Statement::prepara(db, sql);
  if (nuova.fallito() || (*nuova)->tipo() == TipoIstruzione::definizione) return nuova;
  if (voci_.size() >= capienza) {
    indice_.remove(voci_.back().sql);
    voci_.pop_back();
  }
  voci_.push_front({sql, *nuova});
  indice_.insert(sql, voci_.begin());
  return nuova;
}

void CacheStatement::svuota() {
  indice_.clear();
  voci_.clear();
}

}  // namespace lokera
