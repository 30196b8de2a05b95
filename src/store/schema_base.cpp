#include "store/schema_base.h"

#include <QRegularExpression>

#include <array>

#include "store/dati_consegnati.h"
#include "store/file_parziale.h"
#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

struct Tabella {
  const char16_t* nome;
  const char16_t* colonne;
};

/// The tables that the program finds in its file; the migration makes the others.
constexpr std::array base{
    Tabella{
        u"tessere_chiavi",
        u"[codice] text(10), [lokera] integer, [posizione] long, [descrizione] text(100), [gruppo] integer, "
        u"[operatore] text(10), [uscita] date, CONSTRAINT tessere_chiavi_KEY PRIMARY KEY ([codice])"},
    Tabella{u"tessere_operatori",
            u"[codice] text(10), [intestazione] text(100), [valido_dal] date, [valido_al] date, [posizione] "
            u"long, "
            u"[gruppo] integer, [NrMaxPrelievi] integer, CONSTRAINT tessere_operatori_KEY PRIMARY KEY "
            u"([codice])"},
    Tabella{u"gruppi",
            u"[codice] integer, [descrizione] text(100), CONSTRAINT gruppi_KEY PRIMARY KEY ([codice])"},
    Tabella{
        u"gruppi_utente",
        u"[codice] integer, [descrizione] text(100), CONSTRAINT gruppi_utente_KEY PRIMARY KEY ([codice])"},
    Tabella{u"gruppi_tessera",
            u"[tessera] text(10), [codice] integer, CONSTRAINT gruppi_tessera_KEY PRIMARY KEY ([tessera], "
            u"[codice])"},
    Tabella{u"movimenti",
            u"[id] long, [operatore] text(10), [intestazione] text(100), [chiave] text(10), [operazione] "
            u"text(1), "
            u"[data] date, CONSTRAINT movimenti_KEY PRIMARY KEY ([id])"},
    Tabella{u"operatori",
            u"[user] text(50), [pwd] text(50), [su] integer, [ultima_entrata] date, [pc] text(50), "
            u"CONSTRAINT operatori_KEY PRIMARY KEY ([user])"},
    Tabella{u"computers",
            u"[nome_computer] text(50), [nr_seriale_vidimatore] integer, [controller_sistema] integer, "
            u"CONSTRAINT computers_KEY PRIMARY KEY ([nome_computer])"},
    Tabella{u"traduzioni",
            u"[italiano] text(255), [inglese] text(255), [tedesco] text(255), "
            u"CONSTRAINT traduzioni_KEY PRIMARY KEY ([italiano])"},
    Tabella{u"layout_griglie",
            u"[programma] text(20), [nome_form] text(50), [nome_griglia] text(50), [nr_colonna] integer, "
            u"[titolo_colonna] text(100), [campo] text(50), [larghezza] long, [visibile] yesno, "
            u"[tipo_dato] text(10), [formato_numerico] text(50), [caratteri] integer, "
            u"CONSTRAINT layout_griglie_KEY PRIMARY KEY ([programma], [nome_form], [nome_griglia], "
            u"[nr_colonna])"},
    Tabella{u"securety_locks", u"[tabella] text(50), [chiave] text(255), [operatore] text(50), [data] date"},
    Tabella{u"default_stampagriglia",
            u"[programma] text(50), [dati_anagrafici] yesno, [modalita_grafica] yesno, [modalita_carattere] "
            u"yesno, "
            u"[salva_layout] yesno, [export_Excel] yesno, [stampa_data] yesno, "
            u"CONSTRAINT default_stampagriglia_KEY PRIMARY KEY ([programma])"},
    Tabella{
        u"password_stampe",
        u"[codice] text(50), [ditta_in_uso] text(50), [programma] text(50), [documento] text(50), "
        u"[stampante] text(255), [formato] long, [larghezza] double, [lunghezza] double, [margineSx] double, "
        u"[orientamento] text(20), [Font] text(100), [dimensione] double, [qualita] text(10), "
        u"[interpollice] integer, [alimentatore] text(100)"},
    Tabella{
        u"tabelle_Ditta",
        u"[Nome] text(100), [indirizzo] text(100), [Cap] text(10), [citta] text(50), [provincia] text(50), "
        u"[partitaiva] text(20), [codicefiscale] text(20)"},
};

constexpr std::array indici{
    u"securety_locks_chiave on securety_locks (tabella, chiave)",
    u"password_stampe_chiave on password_stampe (codice, ditta_in_uso, programma, documento)",
    u"operatori_pc on operatori (pc, ultima_entrata)",
};

Errore crea_tabelle(Connection& c) {
  for (const Tabella& t : base) {
    const QString ddl =
        u"CREATE table %1 (%2)"_s.arg(QString::fromUtf16(t.nome), QString::fromUtf16(t.colonne));
    if (Errore e = c.Execute(ddl); e.fallito()) return e;
  }
  for (const char16_t* i : indici) {
    if (Errore e = c.Execute(u"create index "_s + QString::fromUtf16(i)); e.fallito()) return e;
  }
  return {};
}

Errore riempi(Database& db) {
  return in_transazione(db.connessione_db, [&]() -> Errore {
    if (Errore e = crea_tabelle(db.connessione_db); e.fallito()) return e;
    if (Errore e = aggiorna_database(db); e.fallito()) return e;
    if (Errore e = controlla_schema(db.connessione_db); e.fallito()) return e;
    return carica_dati_consegnati(db.connessione_db);
  });
}

}  // namespace

Errore crea_database(const QString& file, const QString& password,
                     const std::function<Errore(Connection&)>& altro) {
  FileParziale parziale(file);
  if (parziale.inizio().fallito()) return parziale.inizio();
  Database db;
  Errore errore = db.connessione_db.crea(parziale.nome(), password);
  if (!errore.fallito()) errore = riempi(db);
  if (!errore.fallito() && altro) errore = altro(db.connessione_db);
  db.connessione_db.Close();
  return errore.fallito() ? errore : parziale.conferma();
}

QStringList colonne_definite(const QString& definizione) {
  static const QRegularExpression colonna(u"\\[(\\w+)\\] \\w"_s);
  QStringList nomi;
  for (auto c = colonna.globalMatch(definizione); c.hasNext();) nomi += c.next().captured(1);
  return nomi;
}

namespace {

std::vector<TabellaAttesa> tabelle_attese() {
  std::vector<TabellaAttesa> attese = tabelle_della_migrazione();
  for (const Tabella& t : base)
    attese.push_back({QString::fromUtf16(t.nome), colonne_definite(QString::fromUtf16(t.colonne))});
  return attese;
}

}  // namespace

Errore controlla_schema(Connection& connessione) {
  QStringList tabelle;
  QStringList colonne;
  for (const TabellaAttesa& t : tabelle_attese()) {
    Recordset rs;
    Errore e = rs.Open(u"select * from "_s + t.nome + u" where 1 = 0"_s, connessione);
    if (e.fallito() && e.classe != ClasseErrore::schema) return e;
    if (e.fallito()) tabelle += t.nome;
    for (const QString& colonna : t.colonne) {
      if (!e.fallito() && rs.indice(colonna) < 0) colonne += t.nome + u'.' + colonna;
    }
  }
  QStringList mancanze;
  if (!tabelle.isEmpty()) mancanze += u"Tabelle mancanti: "_s + tabelle.join(u", "_s);
  if (!colonne.isEmpty()) mancanze += u"Colonne mancanti: "_s + colonne.join(u", "_s);
  if (mancanze.isEmpty()) return {};
  return {1, mancanze.join(u". "_s), ClasseErrore::schema};
}

}  // namespace lokera
