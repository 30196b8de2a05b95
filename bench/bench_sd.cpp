// A card's file of a million movements, imported and durable, beside a bare loop over the same file with the
// same prepared statements, and beside `.import` of the same movements by the engine's shell into a table
// without checks.
#include <QCoreApplication>
#include <QProcess>
#include <QStandardPaths>

#include <array>
#include <cstdio>
#include <string>
#include <unordered_map>

#include "bench/misura.h"
#include "bench/nudo.h"
#include "bench/sito_misure.h"
#include "platform/momento.h"
#include "reports/importazione_sd.h"
#include "store/database.h"

using namespace lokera;
using namespace lokera::bench;
using namespace Qt::StringLiterals;

namespace {

constexpr int righe = 1'000'000;
constexpr int tessere = 1000;
constexpr int chiavi = 500;
constexpr int giri = 3;

/// The same movements as lines of the card, or as rows for the shell.
void scrivi_file(const QString& nome, bool della_scheda) {
  QFile file(nome);
  if (!file.open(QIODevice::WriteOnly)) rinuncia("file della scheda");
  QDateTime ora = momento(QDate(2026, 1, 1));
  for (int i = 0; i < righe; ++i, ora = ora.addSecs(30)) {
    const QByteArray tessera = SitoMisure::tessera(i * 7 % tessere).toLatin1();
    const QByteArray chiave = SitoMisure::chiave(i / 2 % chiavi).toLatin1();
    const char* codice = i % 2 == 0 ? "00" : "01";
    if (della_scheda)
      file.write(tessera + ',' + chiave + ',' + codice + ',' + ora.toString(u"ddMMyyHHmmss").toLatin1() +
                 "\r\n");
    else
      file.write(QByteArray::number(i + 1) + '|' + tessera + "|operatore|" + chiave + '|' +
                 (i % 2 == 0 ? "P|" : "R|") + ora.toString(u"yyyy-MM-dd HH:mm:ss").toLatin1() + '\n');
  }
}

void importa(Connection& connessione, const QString& file, const QString& cartella) {
  ImportazioneSd importazione(file, cartella);
  while (!importazione.letta() && importazione.guasto() == GuastoImportazione::nessuno) importazione.leggi();
  importazione.registra(connessione, momento(QDate(2026, 12, 31)));
  if (importazione.guasto() != GuastoImportazione::nessuno) rinuncia(qPrintable(importazione.parole()));
}

using Data = std::array<char, 19>;

/// "yyyy-MM-dd HH:mm:ss" from the twelve digits of a line.
Data data(const char* c) {
  return {'2', '0',  c[4], c[5], '-',  c[2], c[3], '-',   c[0], c[1],
          ' ', c[6], c[7], ':',  c[8], c[9], ':',  c[10], c[11]};
}

QByteArrayView testo(const Data& d) {
  return {d.data(), static_cast<qsizetype>(d.size())};
}

void lega_e_passa(Istruzione& s, std::initializer_list<QByteArrayView> testi, int da = 1) {
  for (const QByteArrayView t : testi) s.lega(da++, t);
  s.passo();
  s.azzera();
}

void importa_nudo(Nudo& nudo, const QString& nome) {
  struct Stato {
    std::string operatore;
    Data data;
    bool fuori;
  };
  std::unordered_map<std::string, std::string> intestazioni;
  std::unordered_map<std::string, Stato> mosse;
  Istruzione cerca(nudo, "SELECT * FROM tessere_operatori WHERE codice = ?");
  Istruzione aggiungi(nudo,
                      "INSERT INTO movimenti (id, operatore, intestazione, chiave, operazione, data)"
                      " VALUES (?, ?, ?, ?, ?, ?)");
  Istruzione segna(nudo, "UPDATE tessere_chiavi SET operatore = ?, uscita = ? WHERE codice = ?");
  std::FILE* file = std::fopen(qPrintable(nome), "r");
  if (file == nullptr) rinuncia("file della scheda");
  nudo.esegui("begin immediate");
  char riga[2000];
  for (qlonglong id = 1; std::fgets(riga, sizeof riga, file) != nullptr; ++id) {
    const std::string tessera(riga, 10);
    auto [nota, nuova] = intestazioni.try_emplace(tessera);
    if (nuova) {
      cerca.lega(1, tessera).passo();
      nota->second = cerca.testo(1).toByteArray().toStdString();
      cerca.azzera();
    }
    const bool fuori = riga[22] == '0' && riga[23] == '0';
    const auto quando = data(riga + 25);
    const QByteArrayView chiave(riga + 11, 10);
    aggiungi.lega(1, id);
    lega_e_passa(aggiungi, {tessera, nota->second, chiave, fuori ? "P" : "R", testo(quando)}, 2);
    mosse[std::string(riga + 11, 10)] = {tessera, quando, fuori};
  }
  for (const auto& [codice, m] : mosse)
    lega_e_passa(segna, {m.fuori ? m.operatore : " ", m.fuori ? testo(m.data) : QByteArrayView(), codice});
  nudo.esegui("commit");
  (void)std::fclose(file);
}

// The shell lacks the store's own collation, so its table has the engine's.
double importa_shell(const QString& cartella) {
  scrivi_file(cartella + u"/righe.txt"_s, false);
  QProcess shell;
  shell.setWorkingDirectory(cartella);
  const double us = cronometra([&] {
    shell.start(u"sqlcipher"_s, {u"shell.db"_s});
    shell.write(
        "pragma key = 'prova'; pragma synchronous = extra; pragma cache_size = -65536;\n"
        "create table movimenti (id int primary key not null, operatore text collate nocase, intestazione "
        "text"
        " collate nocase, chiave text collate nocase, operazione text, data datetime);\n"
        "create index m_data on movimenti (data);\n"
        "create index m_operatore on movimenti (operatore, data);\n"
        "create index m_chiave on movimenti (chiave, data);\n"
        ".separator |\n.import righe.txt movimenti\nselect count(*) from movimenti;\n");
    shell.closeWriteChannel();
    if (!shell.waitForFinished(600'000) || !shell.readAllStandardOutput().endsWith("1000000\n"))
      rinuncia("sqlcipher");
  });
  return us;
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  const SitoMisure sito({.chiavi = chiavi, .tessere = tessere});
  const QString scheda = sito.cartella() + u"/scheda.txt"_s;
  scrivi_file(scheda, true);
  Confronto misure;
  for (int i = 0; i < giri; ++i) {
    const QString file = sito.cartella() + u"/DATA.TXT"_s;
    const QString nostra = sito.copia(u"nostra.mdb"_s), nuda = sito.copia(u"nuda.mdb"_s);
    if (!QFile::copy(scheda, file)) rinuncia("file della scheda");
    {
      Connection connessione;
      if (connessione.Open(nostra, password_database()).fallito()) rinuncia("database");
      misure.nostro.aggiungi(cronometra([&] { importa(connessione, file, sito.cartella()); }));
    }
    {
      Nudo nudo(nuda);
      misure.pavimento.aggiungi(cronometra([&] { importa_nudo(nudo, scheda); }));
    }
    QFile::remove(nostra);
    QFile::remove(nuda);
  }
  stampa_rapporto("card file of 1,000,000 movements imported / bare loop", misure.nostro.mediana() / 1e6,
                  misure.pavimento.mediana() / 1e6, 1.3, "s");
  if (!QStandardPaths::findExecutable(u"sqlcipher"_s).isEmpty())
    stampa_rapporto("the same / .import by the shell", misure.nostro.mediana() / 1e6,
                    importa_shell(sito.cartella()) / 1e6, 0, "s");
}
