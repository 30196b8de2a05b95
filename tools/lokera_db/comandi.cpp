#include "comandi.h"

#include <QFile>

#include <array>
#include <optional>

#include "demo.h"
#include "primo_supervisore.h"
#include "store/recordset.h"
#include "store/schema_base.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

struct Contesto {
  QStringList argomenti;  ///< those behind the command's name
  QTextStream& uscita;
  std::optional<QString> utente = {};  ///< of "--utente"
};

// Nobody is asked for a file that can't be made, and none is begun while somebody thinks about the answer.
Errore comando_crea(Contesto& c) {
  const QString& file = c.argomenti[0];
  if (QFile::exists(file)) return crea_database(file);
  const auto primo = chiedi_supervisore(c.utente);
  if (primo.fallito()) return primo.errore();
  return crea_database(file, password_database(), [&](Connection& connessione) {
    return primo->nome.isEmpty() ? Errore{} : aggiungi_supervisore(connessione, *primo);
  });
}

Errore comando_demo(Contesto& c) {
  return crea_database(c.argomenti[0], password_database(), riempi_demo);
}

/// A cell on one line: what would part cells or lines is escaped.
QByteArray cella(const Recordset& rs, int indice) {
  if (rs.nullo(indice)) return "\\N";
  QByteArray testo = rs.testo_grezzo(indice).toByteArray();
  return testo.replace('\\', "\\\\").replace('\t', "\\t").replace('\n', "\\n").replace('\r', "\\r");
}

Errore leggi_righe(Connection& connessione, const QString& istruzione, QByteArray& uscita) {
  Recordset rs;
  if (Errore e = rs.Open(istruzione, connessione); e.fallito()) return e;
  while (!rs.eof()) {
    for (int i = 0; i < rs.conta_campi(); ++i) uscita += (i == 0 ? "" : "\t") + cella(rs, i);
    uscita += '\n';
    if (Errore e = rs.MoveNext(); e.fallito()) return e;
  }
  return {};
}

Errore esegui(Connection& connessione, const QString& istruzione, QByteArray& uscita) {
  const auto righe = connessione.esegui_contando(istruzione);
  if (righe.fallito()) return righe.errore();
  if (*righe >= 0) uscita = "righe: " + QByteArray::number(*righe) + '\n';
  return {};
}

Errore interroga(const QString& file, const QString& istruzione, QByteArray& uscita) {
  Connection connessione;
  if (Errore e = connessione.Open(file, password_database()); e.fallito()) return e;
  const auto righe = connessione.restituisce_righe(istruzione);
  if (righe.fallito()) return righe.errore();
  return *righe ? leggi_righe(connessione, istruzione, uscita) : esegui(connessione, istruzione, uscita);
}

/// Printing may wait for whoever reads along; the file is closed by then, so that no console waits with it.
Errore comando_sql(Contesto& c) {
  QByteArray uscita;
  if (Errore e = interroga(c.argomenti[0], c.argomenti[1], uscita); e.fallito()) return e;
  c.uscita << QString::fromUtf8(uscita);
  return {};
}

Errore comando_controlla(Contesto& c) {
  Connection connessione;
  if (Errore e = connessione.Open(c.argomenti[0], password_database()); e.fallito()) return e;
  if (Errore e = controlla_database(connessione); e.fallito()) return e;
  if (Errore e = controlla_schema(connessione); e.fallito()) return e;
  c.uscita << "ok\n";
  return {};
}

// A file of an earlier release is copied as it is, but nobody should take the copy for a complete file.
Errore comando_copia(Contesto& c) {
  Connection connessione;
  if (Errore e = connessione.Open(c.argomenti[0], password_database()); e.fallito()) return e;
  if (Errore e = copia_database(connessione, c.argomenti[0], c.argomenti[1]); e.fallito()) return e;
  Errore incompleto = controlla_schema(connessione);
  if (incompleto.fallito()) incompleto.descrizione.prepend(u"Il file è stato copiato, ma è incompleto. "_s);
  return incompleto;
}

struct Comando {
  QLatin1StringView nome;
  QStringView argomenti;
  QStringView spiegazione;
  Errore (*esegui)(Contesto&);
};

constexpr std::array comandi{
    Comando{"crea"_L1, u"FILE [--utente NOME]",
            u"crea il file come viene consegnato, con il primo supervisore", comando_crea},
    Comando{"demo"_L1, u"FILE", u"crea un file con un impianto dimostrativo per questo computer",
            comando_demo},
    Comando{"sql"_L1, u"FILE ISTRUZIONE", u"esegue un'istruzione nel dialetto della console", comando_sql},
    Comando{"controlla"_L1, u"FILE", u"controlla che il file sia integro e completo", comando_controlla},
    Comando{"copia"_L1, u"FILE COPIA", u"copia un file, anche in uso; la copia è cifrata e controllata",
            comando_copia},
};

void aiuto(QTextStream& uscita) {
  uscita << u"Uso: lokera_db COMANDO ARGOMENTI\n\nComandi:\n"_s;
  for (const Comando& c : comandi) {
    uscita << u"  "_s << QString(c.nome + u' ' + c.argomenti.toString()).leftJustified(28) << c.spiegazione
           << '\n';
  }
  uscita << u"\nA un terminale \"crea\" chiede nome e password del primo supervisore. Con --utente il nome è "
            u"quello\n"
            u"dato e la password è la prima riga dello standard input; altrimenti non c'è nessun utente.\n"
            u"Nessun comando sovrascrive un file. \"sql\" scrive una riga per record, i valori separati da\n"
            u"tabulazioni: \\N è Null; tabulazioni, a capo e barre inverse diventano \\t, \\n, \\r e \\\\.\n"
            u"Di un inserimento, una modifica o una cancellazione scrive quante righe ha toccato.\n"
            u"Stato di uscita: 0 riuscito, 1 fallito (il motivo sullo standard error), 2 uso errato.\n"_s;
}

/// How many there are before the options.
qsizetype obbligatori(QStringView argomenti) {
  const qsizetype opzioni = argomenti.indexOf(u" [");
  return (opzioni < 0 ? argomenti : argomenti.first(opzioni)).count(u' ') + 1;
}

constexpr QStringView opzione_utente = u"--utente";

/// Takes the option and its value out of the arguments.
std::optional<QString> prendi_utente(QStringList& argomenti) {
  const qsizetype dove = argomenti.indexOf(opzione_utente);
  if (dove < 0 || dove + 1 >= argomenti.size()) return std::nullopt;
  argomenti.removeAt(dove);
  return argomenti.takeAt(dove);
}

const Comando* trova(const QString& nome) {
  for (const Comando& c : comandi) {
    if (nome == c.nome) return &c;
  }
  return nullptr;
}

}  // namespace

CodiceUscita esegui_comando(const QStringList& argomenti, QTextStream& uscita, QTextStream& errori) {
  const QString nome = argomenti.value(0);
  if (nome == "--help"_L1 || nome == "-h"_L1 || nome == "aiuto"_L1) {
    aiuto(uscita);
    return CodiceUscita::riuscito;
  }
  const Comando* comando = trova(nome);
  if (comando == nullptr) {
    errori << (nome.isEmpty() ? u"lokera_db: manca il comando\n"_s
                              : u"lokera_db: comando sconosciuto: "_s + nome + u'\n');
    aiuto(errori);
    return CodiceUscita::uso_errato;
  }
  Contesto contesto{argomenti.sliced(1), uscita};
  if (comando->argomenti.contains(opzione_utente)) contesto.utente = prendi_utente(contesto.argomenti);
  if (contesto.argomenti.size() != obbligatori(comando->argomenti)) {
    errori << u"Uso: lokera_db "_s << comando->nome << ' ' << comando->argomenti << '\n';
    return CodiceUscita::uso_errato;
  }
  const Errore errore = comando->esegui(contesto);
  if (!errore.fallito()) return CodiceUscita::riuscito;
  uscita.flush();
  errori << u"lokera_db: "_s << errore.descrizione << '\n';
  return CodiceUscita::fallito;
}

}  // namespace lokera
