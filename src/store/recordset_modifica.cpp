#include "store/recordset.h"
#include "store/recordset_stato.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

using Modo = RigheInMemoria::Modo;

Errore sola_lettura() {
  return {SQLITE_READONLY, u"Il recordset è aperto in sola lettura"_s};
}
Errore nessuna_riga() {
  return {SQLITE_RANGE, u"Il recordset non sta su alcun record"_s};
}

QString testo_inserimento(const QString& tabella, const std::vector<Campo>& campi) {
  QString nomi;
  QString segni;
  for (const Campo& c : campi) {
    nomi += (nomi.isEmpty() ? u"["_s : u", ["_s) + c.nome + u']';
    segni += segni.isEmpty() ? u"?"_s : u", ?"_s;
  }
  return u"insert into ["_s + tabella + u"] ("_s + nomi + u") values ("_s + segni + u')';
}

}  // namespace

Errore Recordset::AddNew() {
  if (!stato_->memoria) return sola_lettura();
  if (Errore e = Update(); e.fallito()) return e;
  RigheInMemoria& m = *stato_->memoria;
  const auto quanti = static_cast<qsizetype>(stato_->campi_in_memoria.size());
  m.modo = Modo::nuova;
  m.in_corso = QVariantList(quanti);
  return {};
}

Errore Recordset::imposta(QStringView nome, const QVariant& valore) {
  if (!stato_->memoria) return sola_lettura();
  const int i = indice(nome);
  if (i < 0) return {SQLITE_RANGE, u"Colonna sconosciuta: "_s + nome.toString(), ClasseErrore::schema};
  return imposta(i, valore);
}

Errore Recordset::imposta(int i, const QVariant& valore) {
  if (!stato_->memoria) return sola_lettura();
  RigheInMemoria& m = *stato_->memoria;
  if (i < 0 || i >= conta_campi()) return {SQLITE_RANGE, u"Colonna sconosciuta: "_s + QString::number(i)};
  if (m.valori() == nullptr) return nessuna_riga();
  auto convertito = converti_valore(campo(i), valore);
  if (convertito.fallito()) return convertito.errore();
  if (m.modo == Modo::fermo) {
    m.modo = Modo::modifica;
    m.in_corso = m.righe[m.corrente].valori;
    m.toccate.assign(stato_->campi_in_memoria.size(), false);
  }
  m.in_corso[i] = convertito.prendi();
  if (m.modo == Modo::modifica) m.toccate[static_cast<size_t>(i)] = true;
  return {};
}

Errore Recordset::Update() {
  if (!stato_->memoria) return sola_lettura();
  RigheInMemoria& m = *stato_->memoria;
  if (m.modo == Modo::fermo) return {};
  return m.modo == Modo::nuova ? stato_->inserisci() : stato_->aggiorna();
}

Errore Recordset::Stato::inserisci() {
  RigheInMemoria& m = *memoria;
  if (!m.inserimento) {
    auto preso = motore->prendi(testo_inserimento(m.tabella, campi_in_memoria));
    if (preso.fallito()) return preso.errore();
    m.inserimento = preso.prendi();
  }
  if (Errore e = m.inserimento->lega(m.in_corso); e.fallito()) return e;
  if (const auto scritta = motore->esegui_fino_in_fondo(*m.inserimento); scritta.fallito())
    return scritta.errore();
  m.righe.push_back({sqlite3_last_insert_rowid(motore->db), std::move(m.in_corso), false});
  m.corrente = m.righe.size() - 1;
  m.lascia();
  return {};
}

Errore Recordset::Stato::aggiorna() {
  RigheInMemoria& m = *memoria;
  RigheInMemoria::Riga& riga = m.righe[m.corrente];
  QString assegnazioni;
  QVariantList valori;
  for (size_t i = 0; i < campi_in_memoria.size(); ++i) {
    if (!m.toccate[i]) continue;
    assegnazioni += (assegnazioni.isEmpty() ? u"["_s : u", ["_s) + campi_in_memoria[i].nome + u"] = ?"_s;
    valori.append(m.in_corso[static_cast<qsizetype>(i)]);
  }
  valori.append(riga.identita);
  const QString sql = u"update ["_s + m.tabella + u"] set "_s + assegnazioni + u" where rowid = ?"_s;
  const auto righe = motore->esegui(sql, valori);
  if (righe.fallito()) return righe.errore();
  if (*righe == 0) return {SQLITE_NOTFOUND, u"Il record è stato cancellato da un altro utente"_s};
  riga.valori = m.in_corso;
  m.lascia();
  return {};
}

void Recordset::CancelUpdate() {
  if (stato_->memoria) stato_->memoria->lascia();
}

Errore Recordset::Delete() {
  if (!stato_->memoria) return sola_lettura();
  RigheInMemoria& m = *stato_->memoria;
  m.lascia();
  if (m.valori() == nullptr) return nessuna_riga();
  RigheInMemoria::Riga& riga = m.righe[m.corrente];
  const QString sql = u"delete from ["_s + m.tabella + u"] where rowid = ?"_s;
  if (const auto fatto = stato_->motore->esegui(sql, {riga.identita}); fatto.fallito()) return fatto.errore();
  riga.cancellata = true;
  riga.valori.clear();
  return {};
}

}  // namespace lokera
