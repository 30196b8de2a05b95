
#include <array>
#include <vector>

#include "store/confronto.h"
#include "store/schema_base.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

struct Parola {
  QStringView access;
  QStringView sql;
  QStringView oracle;
};

constexpr std::array parole{
    Parola{u"LONG", u"INT", u"NUMBER(38)"},     Parola{u"INTEGER", u"SMALLINT", u"NUMBER(38)"},
    Parola{u"BYTE", u"TINYINT", u"NUMBER(38)"}, Parola{u"YESNO", u"BIT", u"NUMBER(38)"},
    Parola{u"DOUBLE", u"FLOAT", u"FLOAT"},      Parola{u"SINGLE", u"REAL", u"FLOAT"},
    Parola{u"DATE", u"DATETIME", u"DATE"},      Parola{u"TEXT", u"NVARCHAR", u"VARCHAR2"},
    Parola{u"MEMO", u"NTEXT", u"LONG"},
};

QString togli(QString s, std::initializer_list<QStringView> pezzi) {
  for (const QStringView p : pezzi) s.remove(p.toString());
  return s;
}

QString sostituisci_tipi(QString s, QStringView Parola::*dialetto) {
  for (const Parola& p : parole) s.replace(p.access.toString(), (p.*dialetto).toString());
  return s;
}

/// What a column that is really new holds in the rows that are there; nothing for dates, which stay Null.
QString valore_iniziale(const QString& tipo) {
  if (tipo.compare("date"_L1, Qt::CaseInsensitive) == 0) return {};
  for (const QStringView numero : {u"long", u"integer", u"double", u"single", u"yesno"}) {
    if (tipo.compare(numero, Qt::CaseInsensitive) == 0) return u"0"_s;
  }
  return u"' '"_s;
}

struct ColonnaAggiunta {
  const char16_t* nome;
  const char16_t* tipo;
};

struct Passo {
  const char16_t* tabella;
  const char16_t* colonne;
  std::vector<ColonnaAggiunta> campi;
};

/// In the order in which the releases brought them.
std::vector<Passo> passi() {
  return {
      {u"parametri",
       u"([ID] integer, CONSTRAINT agendaKEY PRIMARY KEY ([ID]))",
       {{u"ID", u"integer"},
        {u"descrizione", u"text(50)"},
        {u"IP_lokera", u"text(15)"},
        {u"funzionamento", u"long"},
        {u"lingua", u"long"},
        {u"dataora", u"long"},
        {u"retroilluminazione", u"long"},
        {u"tempo_di_comunicazione", u"long"},
        {u"tempo_sblocco_porta", u"long"},
        {u"tempo_attesa_inizio", u"long"},
        {u"tempo_attesa_fine", u"long"},
        {u"tempo_attesa_download", u"long"},
        {u"porta_slave", u"long"},
        {u"slot", u"long"},
        {u"computer_ctrl", u"text(50)"},
        {u"orario_aggiornamento_tessere", u"Date"},
        {u"release_aggiornamento_programma", u"Date"}}},
      {u"PIANIF_RESET", u"([ID_lokera] integer)", {{u"ora", u"Date"}}},
      {u"aggiorn_tessere_oper",
       u"([ID_tessera] text(10), [ID_lokera] integer, CONSTRAINT aggiorn_tessere_oper_KEY PRIMARY KEY "
       u"([ID_tessera], [ID_lokera]))",
       {{u"operazione", u"text(1)"}}},
      {u"posiz_tessere_oper",
       u"([ID_tessera] text(10), [ID_lokera] integer, CONSTRAINT posiz_tessere_oper_KEY PRIMARY KEY "
       u"([ID_tessera], [ID_lokera]))",
       {{u"posizione", u"long"}}},
      {u"fascie_orarie",
       u"([gruppo_oper] integer, [gruppo_chiavi] integer, [giorno] text(20), [dalle_ore] date, [alle_ore] "
       u"date, "
       u"CONSTRAINT fascie_orarie_KEY PRIMARY KEY ([gruppo_oper], [gruppo_chiavi], [giorno], [dalle_ore], "
       u"[alle_ore]))",
       {{u"data_esecuzione", u"Date"}}},
      {u"giorni_particolari",
       u"([GG] integer, [MM] integer, [AAAA] long,  CONSTRAINT giorni_particolari_KEY PRIMARY KEY ([GG], "
       u"[MM], "
       u"[AAAA]))",
       {{u"giorno", u"text(20)"}}},
      {u"tessere_da_conservare",
       u"([ID_tessera] text(10), [ID_lokera] integer, CONSTRAINT tessere_da_conservare_KEY PRIMARY KEY "
       u"([ID_tessera], [ID_lokera]))",
       {{u"motivo", u"text(20)"}}},
      {u"cancellazioni_da_confermare",
       u"([ID_lokera] integer, [posizione] long, CONSTRAINT cancellazioni_da_confermare_KEY PRIMARY KEY "
       u"([ID_lokera], [posizione]))",
       {{u"ID_tessera", u"text(10)"}}},
  };
}

/// What the console asks for at every visit and at every request.
constexpr std::array indici{
    u"parametri_computer on parametri (computer_ctrl, ID)",
    u"aggiorn_tessere_oper_lokera on aggiorn_tessere_oper (ID_lokera)",
    u"posiz_tessere_oper_lokera on posiz_tessere_oper (ID_lokera, posizione)",
    u"fascie_orarie_giorno on fascie_orarie (giorno, gruppo_oper, gruppo_chiavi, dalle_ore, alle_ore)",
    u"tessere_chiavi_operatore on tessere_chiavi (operatore)",
    u"tessere_chiavi_lokera on tessere_chiavi (lokera, posizione)",
    u"tessere_chiavi_gruppo on tessere_chiavi (gruppo, posizione)",
    u"tessere_chiavi_gruppo_lokera on tessere_chiavi (gruppo, lokera)",
    u"tessere_operatori_gruppo on tessere_operatori (gruppo)",
    u"gruppi_tessera_codice on gruppi_tessera (codice, tessera)",
    u"movimenti_data on movimenti (data)",
    u"movimenti_operatore on movimenti (operatore, data)",
    u"movimenti_chiave on movimenti (chiave, data)",
};

/// Files of earlier releases have them beside the primary keys that do the same.
constexpr std::array indici_doppi{u"gruppi_tessera_tessera", u"movimenti_id"};

}  // namespace

QString converti_ddl(const QString& statement, const QString& tipo_database) {
  const QString s = maiuscolo(statement);
  const QString tipo = tipo_database.toUpper();
  if (tipo == "SQL"_L1) return sostituisci_tipi(togli(s, {u"[", u"]", u"COLUMN"}), &Parola::sql);
  if (tipo == "ORACLE"_L1) return sostituisci_tipi(togli(s, {u"(", u")", u"COLUMN"}), &Parola::oracle);
  return tipo != "ACCESS"_L1 || s.contains("[NOTE]"_L1) ? s : togli(s, {u"[", u"]"});
}

void esegui_ddl(Database& db, const QString& statement) {
  static_cast<void>(db.connessione_db.Execute(converti_ddl(statement, db.tipo_database)));
}

void aggiungi_campo(Database& db, const QString& tabella, const QString& campo, const QString& tipo) {
  const bool note = campo.compare("[NOTE]"_L1, Qt::CaseInsensitive) == 0;
  const QString nome = note ? campo : u'[' + campo + u']';
  QString ddl =
      converti_ddl(u"ALTER TABLE "_s + tabella + u" ADD COLUMN "_s + nome + u' ' + tipo, db.tipo_database);
  ddl.replace("PASSWORD "_L1, "[PASSWORD] "_L1);
  if (db.connessione_db.Execute(ddl).fallito()) return;  // it is there already, and stays as it is
  const QString valore = valore_iniziale(tipo);
  if (valore.isEmpty()) return;
  static_cast<void>(
      db.connessione_db.Execute(u"update "_s + tabella + u" set "_s + campo + u" = "_s + valore));
}

namespace {

void esegui_passi(Database& db) {
  for (const Passo& p : passi()) {
    const QString tabella = QString::fromUtf16(p.tabella);
    esegui_ddl(db, u"CREATE table "_s + tabella + u' ' + QString::fromUtf16(p.colonne));
    for (const ColonnaAggiunta& c : p.campi)
      aggiungi_campo(db, tabella, QString::fromUtf16(c.nome), QString::fromUtf16(c.tipo));
  }
  for (const char16_t* i : indici_doppi) {
    static_cast<void>(db.connessione_db.Execute(u"drop index if exists "_s + QString::fromUtf16(i)));
  }
  for (const char16_t* i : indici) {
    static_cast<void>(db.connessione_db.Execute(u"create index if not exists "_s + QString::fromUtf16(i)));
  }
}

}  // namespace

std::vector<TabellaAttesa> tabelle_della_migrazione() {
  std::vector<TabellaAttesa> tabelle;
  for (const Passo& p : passi()) {
    TabellaAttesa t{QString::fromUtf16(p.tabella), colonne_definite(QString::fromUtf16(p.colonne))};
    for (const ColonnaAggiunta& c : p.campi) t.colonne += QString::fromUtf16(c.nome);
    t.colonne.removeDuplicates();
    tabelle.push_back(t);
  }
  return tabelle;
}

// All in one, so that no step is left half done where another console takes the file in between.
Errore aggiorna_database(Database& db) {
  return tutto_o_niente(db.connessione_db, [&] {
    esegui_passi(db);
    return Errore{};
  });
}

}  // namespace lokera
