#include "simulation/servizio/opzioni.h"

#include <QCommandLineParser>
#include <QFile>
#include <QHostAddress>

#include <algorithm>
#include <limits>

namespace lokera::simulazione {

using namespace Qt::StringLiterals;

namespace {

struct Numero {
  const char* nome;
  const char* valore;
  const char* descrizione;
  qint64 iniziale;
  qint64 minimo;
  qint64 massimo;
};

constexpr Numero numeri[] = {
    {"lokere", "n", "number of cabinets, at 127.0.0.2 and up", 3, 1, 250},
    {"seriale", "n", "serial number of the first cabinet, the others follow", 1, 1, 1'000'000'000},
    {"seme", "n", "seed of everything that chance decides", 1, 0, std::numeric_limits<qint64>::max()},
    {"ritmo", "n", "withdrawals and returns an hour at each cabinet; 0: nobody comes", 60, 0, 1'000'000},
    {"durata", "s", "seconds until the program ends by itself", 600, 1, 86'400},
    {"prelievi", "s", "seconds after which nobody takes a key any more; 0: never", 0, 0, 86'400},
    {"lento", "ms", "every reply takes this long", 0, 0, 60'000},
    {"rifiuta", "per-mille", "connections closed as soon as made", 0, 0, 1000},
    {"cade", "per-mille", "replies that stop in the middle, with the connection", 0, 0, 1000},
    {"ritarda", "per-mille", "replies that come late", 0, 0, 1000},
    {"ritardo", "ms", "how late", 5000, 1, 60'000},
    {"spezza", "per-mille", "replies that come in two pieces", 0, 0, 1000},
    {"lettore-ogni", "s", "seconds from one tag at the desk reader to the next", 5, 1, 86'400},
};

struct Testo {
  const char* nome;
  const char* valore;
  const char* descrizione;
};

constexpr Testo testi[] = {
    {"indirizzi", "a,b,...",
     "addresses of the cabinets instead of their number; with --broadcast an address can stand there twice"},
    {"gestite", "a,b,...", "cabinets that ask the console: addresses or numbers from 1, or \"tutte\""},
    {"sito", "file",
     "keys and cards: lines \"chiave<TAB>cabinet<TAB>position<TAB>code\" and "
     "\"tessera<TAB>code[<TAB>group]\"; the cabinet is its address or its number from 1"},
    {"richieste", "file",
     "a scenario: lines \"ms<TAB>cabinet<TAB>card<TAB>key<TAB>P|R<TAB>"
     "completa|rinuncia[<TAB>label]\", key \"-\" to show the card only"},
    {"registro", "file", "ledger of all that happens, one line each"},
    {"lettore", "file",
     "a desk reader: a serial device behind this link, to which the keys and cards of the site file are "
     "held, "
     "each twice; tags of nobody where that has none that a reader can tell (hexadecimal, not from \"00\" "
     "on)"},
    {"archivio", "file", "written at the end: records, keys and what is still stored"},
};

constexpr Testo interruttori[] = {
    {"parla", "", "print every frame"},
    {"senza-chiavi", "", "the key archives start empty; the keys of the site file only hang there"},
    {"fabbrica", "",
     "cabinets as they come out of their box: empty archives, factory parameters, the clock never set; the "
     "keys of the site file only hang there"},
    {"broadcast", "",
     "the cabinets hear what is sent to all; only in a network of its own, as scripts/rete_propria makes "
     "one"},
};

void dichiara(QCommandLineParser& parser) {
  parser.setApplicationDescription(
      u"Key cabinets on this computer's loopback addresses: ports 10001, 10002 and UDP 3040.\n"
      u"Prints \"pronto\" when all of them listen; ends after its time, or on SIGINT or SIGTERM."_s);
  for (const Numero& n : numeri) {
    const QString iniziale = u" [%1]"_s.arg(n.iniziale);
    parser.addOption({QString::fromLatin1(n.nome), QString::fromLatin1(n.descrizione) + iniziale,
                      QString::fromLatin1(n.valore), QString::number(n.iniziale)});
  }
  for (const Testo& t : testi) {
    parser.addOption(
        {QString::fromLatin1(t.nome), QString::fromLatin1(t.descrizione), QString::fromLatin1(t.valore)});
  }
  for (const Testo& t : interruttori) {
    parser.addOption({QString::fromLatin1(t.nome), QString::fromLatin1(t.descrizione)});
  }
  parser.addOption({{u"h"_s, u"help"_s}, u"show this help"_s});
}

QString controlla_numeri(const QCommandLineParser& parser) {
  for (const Numero& n : numeri) {
    bool buono = false;
    const qint64 valore = parser.value(QString::fromLatin1(n.nome)).toLongLong(&buono);
    if (!buono || valore < n.minimo || valore > n.massimo) {
      return u"--%1 is a number from %2 to %3"_s.arg(QString::fromLatin1(n.nome))
          .arg(n.minimo)
          .arg(n.massimo);
    }
  }
  return {};
}

bool locale(const QString& indirizzo) {
  QHostAddress host;
  return host.setAddress(indirizzo) && host.toString() == indirizzo && host.isLoopback() &&
         host.protocol() == QAbstractSocket::IPv4Protocol;
}

QString scegli_indirizzi(const QCommandLineParser& parser, OpzioniSimulatore& o) {
  o.indirizzi = parser.value(u"indirizzi"_s).split(u',', Qt::SkipEmptyParts);
  if (o.indirizzi.isEmpty()) {
    const int quante = parser.value(u"lokere"_s).toInt();
    for (int i = 0; i < quante; ++i) o.indirizzi << u"127.0.0.%1"_s.arg(i + 2);
  }
  for (const QString& indirizzo : std::as_const(o.indirizzi)) {
    if (!locale(indirizzo)) return u"%1 is not an address within 127.0.0.0/8"_s.arg(indirizzo);
  }
  if (!o.broadcast && QStringList(o.indirizzi).removeDuplicates() > 0) {
    return u"an address stands twice in --indirizzi, and without --broadcast nobody would hear the second"_s;
  }
  return {};
}

QString trova_cabinet(const QString& nome, const QStringList& indirizzi) {
  for (int i = 0; i < indirizzi.size(); ++i) {
    if (nomina_cabinet(nome, indirizzi[i], i + 1)) return indirizzi[i];
  }
  return {};
}

QString scegli_gestiti(const QCommandLineParser& parser, OpzioniSimulatore& o) {
  const QString scelta = parser.value(u"gestite"_s);
  if (o.fabbrica && !scelta.isEmpty()) return u"--fabbrica: no cabinet asks the console yet"_s;
  if (scelta == u"tutte") o.gestiti = o.indirizzi;
  if (scelta == u"tutte") return {};
  for (const QString& nome : scelta.split(u',', Qt::SkipEmptyParts)) {
    const QString indirizzo = trova_cabinet(nome, o.indirizzi);
    if (indirizzo.isEmpty()) return u"--gestite: there is no cabinet %1"_s.arg(nome);
    o.gestiti << indirizzo;
  }
  return {};
}

template <typename Lettore>
QString leggi_file(const QString& nome, Lettore lettore) {
  if (nome.isEmpty()) return {};
  QFile file(nome);
  if (!file.open(QIODevice::ReadOnly)) return u"%1: %2"_s.arg(nome, file.errorString());
  const QString errore = lettore(file.readAll());
  return errore.isEmpty() ? QString() : u"%1, %2"_s.arg(nome, errore);
}

QString leggi_files(const QCommandLineParser& parser, OpzioniSimulatore& o) {
  QString errore =
      leggi_file(parser.value(u"sito"_s), [&](const QByteArray& t) { return leggi_sito(t, o.sito); });
  if (!errore.isEmpty()) return errore;
  const QString nome = parser.value(u"richieste"_s);
  QString altro = leggi_file(nome, [&](const QByteArray& t) { return leggi_richieste(t, o.richieste); });
  if (!altro.isEmpty()) return altro;
  for (const RigaRichiesta& riga : o.richieste) {
    if (trova_cabinet(riga.cabinet, o.indirizzi).isEmpty()) {
      return u"%1: there is no cabinet %2"_s.arg(nome, riga.cabinet);
    }
  }
  return {};
}

void leggi_numeri(const QCommandLineParser& parser, OpzioniSimulatore& o) {
  const auto numero = [&](const char* nome) { return parser.value(QString::fromLatin1(nome)).toInt(); };
  o.seme = parser.value(u"seme"_s).toULongLong();
  o.seriale = numero("seriale");
  o.eventi_ora = numero("ritmo");
  o.durata_s = numero("durata");
  o.prelievi_s = numero("prelievi");
  o.comportamento.lento_ms = numero("lento");
  o.comportamento.rifiuta = numero("rifiuta");
  o.comportamento.cade = numero("cade");
  o.comportamento.ritarda = numero("ritarda");
  o.comportamento.ritardo_ms = numero("ritardo");
  o.comportamento.spezza = numero("spezza");
  o.lettore_ogni_s = numero("lettore-ogni");
}

}  // namespace

QString leggi_opzioni(const QStringList& argomenti, OpzioniSimulatore& o) {
  QCommandLineParser parser;
  dichiara(parser);
  if (!parser.parse(argomenti)) return parser.errorText();
  o.aiuto = parser.isSet(u"help"_s);
  if (o.aiuto) return {};
  if (!parser.positionalArguments().isEmpty()) {
    return u"unexpected argument %1"_s.arg(parser.positionalArguments().first());
  }
  if (QString errore = controlla_numeri(parser); !errore.isEmpty()) return errore;
  leggi_numeri(parser, o);
  o.registro = parser.value(u"registro"_s);
  o.archivio = parser.value(u"archivio"_s);
  o.lettore = parser.value(u"lettore"_s);
  o.parla = parser.isSet(u"parla"_s);
  o.fabbrica = parser.isSet(u"fabbrica"_s);
  o.broadcast = parser.isSet(u"broadcast"_s);
  o.registra_chiavi = !o.fabbrica && !parser.isSet(u"senza-chiavi"_s);
  for (const auto passo : {scegli_indirizzi, scegli_gestiti, leggi_files}) {
    if (QString errore = passo(parser, o); !errore.isEmpty()) return errore;
  }
  return {};
}

QString testo_aiuto() {
  QCommandLineParser parser;
  dichiara(parser);
  return parser.helpText();
}

}  // namespace lokera::simulazione
