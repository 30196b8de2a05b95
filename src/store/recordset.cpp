#include "store/recordset.h"

#include "store/definizioni.h"
#include "store/errori_motore.h"
#include "store/lessico.h"
#include "store/recordset_stato.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

/// The query with each row's own identity as its first column; empty when its rows are not those of one
/// table.
QString con_identita(const QString& sql) {
  const auto lessemi = scomponi(sql);
  qsizetype posizione = 0;
  qsizetype dopo_select = -1;
  bool limite = false;
  for (const Lessema& l : lessemi) {
    posizione += l.testo.size();
    for (const QStringView parola : {u"join", u"distinct", u"group", u"union"}) {
      if (l.e_parola(parola)) return {};
    }
    const bool qui = dopo_select < 0 ? l.e_parola(u"select") : limite && l.tipo == TipoLessema::numero;
    if (qui) dopo_select = posizione;
    if (qui && limite) limite = false;
    if (l.e_parola(u"top")) limite = true;
  }
  return dopo_select < 0 ? QString() : sql.first(dopo_select) + u" rowid, "_s + sql.sliced(dopo_select);
}

}  // namespace

Recordset::Recordset() : stato_(std::make_unique<Stato>()) {}
Recordset::~Recordset() {
  Close();
}

Errore Recordset::Open(const QString& sql, Connection& connessione, const QVariantList& valori,
                       Cursore cursore) {
  Close();
  Stato& s = *stato_;
  const bool in_memoria = cursore == Cursore::aggiornabile;
  const QString istruzione = in_memoria ? con_identita(sql) : sql;
  if (istruzione.isEmpty()) return {SQLITE_ERROR, u"L'interrogazione non è aggiornabile"_s};
  s.motore = connessione.motore_.get();
  auto preso = s.motore->prendi(istruzione);
  if (preso.fallito()) return preso.errore();
  if ((*preso)->tipo() != TipoIstruzione::lettura && sqlite3_column_count((*preso)->grezzo()) == 0)
    return {SQLITE_ERROR, u"L'istruzione non restituisce righe"_s};
  s.statement = preso.prendi();
  Errore errore = s.statement->lega(valori);
  if (!errore.fallito()) errore = s.passo();
  if (!errore.fallito() && !s.fine) s.statement->osserva_riga();
  if (!errore.fallito() && in_memoria) errore = s.leggi_tutto(1);
  if (errore.fallito()) Close();
  return errore;
}

void Recordset::Close() {
  if (stato_->statement) stato_->statement->azzera();
  stato_->statement.reset();
  stato_->memoria.reset();
  stato_->campi_in_memoria.clear();
  stato_->fine = true;
  stato_->prossimo_indice = 0;
}

bool Recordset::aperto() const {
  return stato_->statement || stato_->memoria;
}

bool Recordset::eof() const {
  return stato_->memoria ? stato_->memoria->eof() : stato_->fine;
}

Errore Recordset::Stato::passo() {
  const int rc = sqlite3_step(statement->grezzo());
  fine = rc != SQLITE_ROW;
  if (rc == SQLITE_ROW) return {};
  Errore errore;
  if (rc != SQLITE_DONE) errore = errore_motore(motore->db, rc);
  // At the end nothing is held that could stand in another console's way.
  sqlite3_reset(statement->grezzo());
  return errore;
}

Errore Recordset::Stato::leggi_tutto(size_t nascoste) {
  memoria = std::make_unique<RigheInMemoria>();
  const auto tutti = statement->campi();
  campi_in_memoria.assign(tutti.begin() + static_cast<std::ptrdiff_t>(nascoste), tutti.end());
  memoria->tabella = statement->tabella();
  sqlite3_stmt* stmt = statement->grezzo();
  Errore errore;
  while (!fine && !errore.fallito()) {
    QVariantList valori;
    valori.reserve(static_cast<qsizetype>(campi_in_memoria.size()));
    for (size_t i = 0; i < campi_in_memoria.size(); ++i) {
      valori.append(leggi_valore(stmt, static_cast<int>(i + nascoste), campi_in_memoria[i].tipo));
    }
    memoria->righe.push_back({sqlite3_column_int64(stmt, 0), std::move(valori), false});
    errore = passo();
  }
  statement->azzera();
  statement.reset();
  return errore;
}

Errore Recordset::MoveNext() {
  if (stato_->memoria) {
    if (Errore e = Update(); e.fallito()) return e;
    if (!eof()) ++stato_->memoria->corrente;
    return {};
  }
  return stato_->fine ? Errore{} : stato_->passo();
}

int Recordset::conta_campi() const {
  return static_cast<int>(stato_->campi().size());
}

const Campo& Recordset::campo(int indice) const {
  static const Campo nessuno{{}, TipoCampo::testo, 0};
  return indice >= 0 && indice < conta_campi() ? stato_->campi()[static_cast<size_t>(indice)] : nessuno;
}

int Recordset::indice(QStringView nome) const {
  const auto& campi = stato_->campi();
  const int quanti = static_cast<int>(campi.size());
  for (int i = 0; i < quanti; ++i) {
    const int qui = (stato_->prossimo_indice + i) % quanti;
    if (nome.compare(campi[static_cast<size_t>(qui)].nome, Qt::CaseInsensitive) != 0) continue;
    stato_->prossimo_indice = qui + 1;
    return qui;
  }
  return -1;
}

QVariant Recordset::valore(int indice) const {
  if (indice < 0 || indice >= conta_campi() || eof()) return {};
  if (stato_->memoria) {
    const QVariantList* valori = stato_->memoria->valori();
    return valori != nullptr ? valori->at(indice) : QVariant();
  }
  return leggi_valore(stato_->statement->grezzo(), indice, campo(indice).tipo);
}

QVariant Recordset::valore(QStringView nome) const {
  return valore(indice(nome));
}
QString Recordset::testo(QStringView nome) const {
  return testo_valore(valore(nome));
}
qlonglong Recordset::numero(QStringView nome) const {
  return valore(nome).toLongLong();
}

bool Recordset::nullo(int indice) const {
  if (stato_->memoria || stato_->fine) return !valore(indice).isValid();
  return sqlite3_column_type(stato_->statement->grezzo(), indice) == SQLITE_NULL;
}

QByteArrayView Recordset::testo_grezzo(int indice) const {
  if (stato_->fine || stato_->memoria) return {};
  sqlite3_stmt* stmt = stato_->statement->grezzo();
  const auto* testo = reinterpret_cast<const char*>(sqlite3_column_text(stmt, indice));
  return testo == nullptr ? QByteArrayView() : QByteArrayView(testo, sqlite3_column_bytes(stmt, indice));
}

}  // namespace lokera
