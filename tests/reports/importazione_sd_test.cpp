// Files of a memory card as they come: from every system, cut off, by mistake; and imports that don't get to
// their end.
#include <QDir>

#include <sys/resource.h>
#include <sys/stat.h>

#include "aiuti/finestre.h"
#include "reports/frm_memoria_sd.h"
#include "reports/spazio_finito.h"

namespace lokera::prova {
namespace {

const QByteArray presa = "0000000001,1000000001,00,301108101500";
const QByteArray resa = "0000000002;1000000001;01;301108113000;and more";
const QString riga_presa = u"1|0000000001|Rossi|1000000001|P|2008-11-30 10:15:00"_s;
const QString riga_resa = u"2|0000000002|Tessera non registrata|1000000001|R|2008-11-30 11:30:00"_s;

/// Time passes whenever somebody looks at the clock, and the loop does what the test says.
struct Mondo : Clock, EventLoop {
  QDateTime adesso() const override { return momento(QDate(2008, 11, 30), QTime(15, 45, 1)); }
  Monotonic monotono() const override { return ora += std::chrono::milliseconds(15); }
  void esegui_eventi(Monotonic /*scadenza*/) override {
    if (giro) giro();
  }
  mutable Monotonic ora{};
  std::function<void()> giro;
};

class ImportazioneSdTest : public BancoFinestre {
 protected:
  ImportazioneSdTest() {
    sql(u"insert into tessere_operatori (codice, intestazione) values ('0000000001', 'Rossi')"_s);
    sql(u"insert into tessere_chiavi (codice, operatore) values ('1000000001', ' ')"_s);
  }
  void scrivi(const QByteArray& contenuto) const {
    QFile f(file);
    EXPECT_TRUE(f.open(QIODevice::WriteOnly) && f.write(contenuto) == contenuto.size());
  }
  /// The import from its opening to the closing of its window. What was told, each behind its first line left
  /// out.
  QStringList importa(const QString& quale) {
    messaggi.mostrati.clear();
    frm_memoria_sd finestra(elenco, db.connessione_db, servizi, vm.primo().puntatore, documenti);
    finestra.Form_Load();
    mondo.giro = [&] {
      if (al_giro) al_giro(finestra);
    };
    finestra.importa(quale);
    EXPECT_TRUE(finestra.chiusa());
    mondo.giro = nullptr;
    QStringList detti;
    for (const QString& t : messaggi.testi()) detti += t.section(u'\n', 0, 0);
    return detti;
  }
  QStringList importa() { return importa(file); }
  QStringList movimenti() { return righe(u"select * from movimenti order by id"_s); }
  QStringList archiviati() const { return QDir(documenti).entryList(QDir::Files | QDir::Hidden); }
  void svuota() {
    sql(u"delete from movimenti"_s);
    QDir(documenti).removeRecursively();
  }

  const QString documenti = cartella.filePath(u"documenti"_s);
  const QString file = cartella.filePath(u"DATA.TXT"_s);
  Mondo mondo;
  PolledWait attesa_mondo{mondo, mondo};
  ServiziGriglia servizi{traduttore, messaggi, attesa_mondo};
  std::function<void(frm_memoria_sd&)> al_giro;
};

TEST_F(ImportazioneSdTest, DiOgniFileSiPrendonoLeRigheDiUnCabinet) {
  const QString due = riga_presa + u'/' + riga_resa;
  const QString nessuna_data = u"Nessuna riga del file ha una data valida. Importarlo ugualmente?"_s;
  const auto lasciate = [](const char* quali) {
    return u"Righe che non sono movimenti, lasciate nella copia d'archivio: %1."_s.arg(QLatin1String(quali));
  };
  const struct {
    const char* che_cosa;
    QByteArray contenuto;
    QString registrati, detto;
  } casi[] = {
      {"CR LF", presa + "\r\n" + resa + "\r\n", due, {}},
      {"LF", presa + "\n" + resa + "\n", due, {}},
      {"CR, no last end", presa + "\r" + resa, due, {}},
      {"mixed, empty lines", "\n\r\n" + presa + "\r\r\n\n" + resa + "\n\r", due, {}},
      {"empty", {}, {}, {}},
      {"cut off", presa + "\n" + resa.first(36), riga_presa, lasciate("1 (numeri 2)")},
      {"too long", presa + "\n" + presa.leftJustified(1025, ' ') + "\n" + resa.leftJustified(1024, ' '), due,
       lasciate("1 (numeri 2)")},
      {"not printable",
       QByteArray(400, 0) + "\n" + presa + "\n\n" + presa + "\t\n" + presa + "\xE8\r\n" + resa, due,
       lasciate("3 (numeri 1, 4, 5)")},
      {"many", QByteArray("x\n").repeated(9) + presa, riga_presa, lasciate("9 (numeri 1, 2, 3, 4, 5, ...)")},
      {"no date", presa.first(25) + "310208101500", u"1|0000000001|Rossi|1000000001|P|-"_s,
       nessuna_data + u"/Movimenti registrati senza data: 1."_s},
  };
  for (const auto& caso : casi) {
    scrivi(caso.contenuto);
    messaggi.risposte = {true};
    EXPECT_EQ(importa().join(u'/'), caso.detto) << caso.che_cosa;
    EXPECT_EQ(movimenti().join(u'/'), caso.registrati) << caso.che_cosa;
    EXPECT_FALSE(QFile::exists(file)) << caso.che_cosa;
    EXPECT_EQ(archiviati(), QStringList(u"30112008.154501.txt"_s)) << caso.che_cosa;
    QFile copia(documenti + u"/30112008.154501.txt"_s);
    EXPECT_TRUE(copia.open(QIODevice::ReadOnly) && copia.readAll() == caso.contenuto) << caso.che_cosa;
    svuota();
  }
  EXPECT_EQ(righe(u"select operatore, uscita from tessere_chiavi"_s), QStringList(u"0000000001|-"_s));
  messaggi.risposte.clear();
  scrivi("Gentile signora,\nle scrivo per dirle che la chiave non si trova.\n");
  EXPECT_EQ(importa(), QStringList(nessuna_data));
  EXPECT_TRUE(movimenti().isEmpty() && QFile::exists(file)) << "a letter is no movement";
}

// 256 kB are read at a time: a line, or a CR LF, may lie on both sides.
TEST_F(ImportazioneSdTest, NessunaRigaSiPerdeDoveFinisceUnaPorzione) {
  const QByteArray due = "ab\r\n\ncde\r\r\nf\n\r";
  for (qsizetype taglio = 1; taglio <= due.size(); ++taglio) {
    LettoreData lettore;
    QByteArray letto;
    const auto prendi = [&](const std::optional<RigaData>& r) {
      if (r) letto += QByteArray::number(r->numero) + r->testo.toByteArray() + ' ';
    };
    for (qsizetype da = 0; da < due.size(); da += taglio) {
      const QByteArray porzione = due.mid(da, taglio);
      lettore.porzione(porzione);
      while (const auto riga = lettore.prossima()) prendi(riga);
    }
    prendi(lettore.ultima());
    EXPECT_EQ(letto, "1ab 3cde 5f ") << taglio;
  }
}

TEST_F(ImportazioneSdTest, DueGBDiZeriNonRiempionoNeMemoriaNeDisco) {
  {
    QFile f(file);
    ASSERT_TRUE(f.open(QIODevice::WriteOnly) && f.resize(qint64(2) << 30) && f.seek(f.size()));
    f.write("\n" + presa);
  }
  rusage prima{}, dopo{};
  getrusage(RUSAGE_SELF, &prima);
  EXPECT_EQ(importa().size(), 1);
  getrusage(RUSAGE_SELF, &dopo);
  EXPECT_LT(dopo.ru_maxrss - prima.ru_maxrss, 32 << 10) << "kB";
  EXPECT_EQ(movimenti(), QStringList(riga_presa));
  struct stat copia {};
  ASSERT_EQ(stat(qPrintable(documenti + u"/30112008.154501.txt"_s), &copia), 0);
  EXPECT_EQ(copia.st_size, (qint64(2) << 30) + 1 + presa.size());
  EXPECT_LT(copia.st_blocks, 2048);
}

TEST_F(ImportazioneSdTest, UnImportazioneRottaNonRegistraNullaELasciaIlFile) {
  const QString non_registrato = u"I movimenti non si possono registrare. Il file resta sulla scheda."_s;
  scrivi((presa + "\r\n").repeated(40'000));
  Connection altra;
  ASSERT_FALSE(altra.Open(cartella.filePath(nome_file_database()), password_database()).fallito());
  const SenzaAttesa subito(db.connessione_db);
  Recordset lettura;
  std::optional<SpazioFinito> poco;
  const struct {
    const char* che_cosa;
    std::function<void()> prima;
    std::function<void(frm_memoria_sd&)> giro;
    std::function<void()> dopo;
    QString detto;
  } casi[] = {
      {"stopped", {}, [](frm_memoria_sd& f) { f.lavoro.cmdInterrompi.Click(); }, {}, {}},
      {"window closed", {}, [](frm_memoria_sd& f) { f.chiudi(); }, {}, {}},
      {"locked",
       [&] { esegui(altra, u"begin immediate"_s); },
       {},
       [&] { esegui(altra, u"rollback"_s); },
       non_registrato},
      {"locked at the commit",
       [&] { (void)lettura.Open(u"select * from tessere_chiavi"_s, altra); },
       {},
       [&] { lettura.Close(); },
       non_registrato},
      {"disk full",
       [&] { poco.emplace(1 << 20); },
       {},
       [&] { poco.reset(); },
       u"La copia d'archivio non si può scrivere. Nessun movimento è stato registrato."_s},
  };
  for (const auto& caso : casi) {
    if (caso.prima) caso.prima();
    al_giro = caso.giro;
    EXPECT_EQ(importa().join(u'/'), caso.detto) << caso.che_cosa;
    if (caso.dopo) caso.dopo();
    EXPECT_EQ(movimenti(), QStringList()) << caso.che_cosa;
    EXPECT_EQ(archiviati(), QStringList()) << caso.che_cosa;
    EXPECT_TRUE(QFile::exists(file)) << caso.che_cosa;
  }
  al_giro = nullptr;
  EXPECT_EQ(importa(), QStringList());
  EXPECT_EQ(righe(u"select count(*), max(id) from movimenti"_s), QStringList(u"40000|40000"_s));
}

TEST_F(ImportazioneSdTest, QuelCheNonELaSchedaRestaDovE) {
  scrivi("a letter\nto somebody");
  EXPECT_EQ(importa(), QStringList(u"Nel file non c'è alcun movimento. Il file resta dov'è."_s));
  EXPECT_TRUE(QFile::exists(file));
  for (const QString& illeggibile : {cartella.path(), u"/proc/self/mem"_s, file + u"/none"_s})
    EXPECT_EQ(importa(illeggibile),
              QStringList(u"Il file non si può leggere. Nessun movimento è stato registrato."_s));
  EXPECT_EQ(archiviati(), QStringList());
}

TEST_F(ImportazioneSdTest, LoStessoFileSiImportaUnaVoltaSeNessunoVuoleAltro) {
  const QString domanda = u"File già importato il 30/11/2008 15:45:01. Importarlo un'altra volta?"_s;
  al_giro = [this](const frm_memoria_sd& f) {  // the card is locked
    if (f.lblFase.Caption() != u"Registrazione dei movimenti"_s || QDir(file).exists()) return;
    EXPECT_TRUE(QFile::remove(file) && QDir().mkdir(file));
  };
  scrivi(presa);
  EXPECT_EQ(
      importa(),
      QStringList(u"I movimenti sono registrati, ma il file non si può cancellare: cancellarlo a mano."_s));
  EXPECT_EQ(movimenti().size(), 1);
  al_giro = nullptr;
  QDir().rmdir(file);
  scrivi(presa);
  EXPECT_EQ(importa(), QStringList(domanda));
  EXPECT_EQ(messaggi.mostrati.value(0), lokera::domanda(domanda, u"Importa movimenti da SD"_s));
  EXPECT_EQ(movimenti().size(), 1);
  EXPECT_TRUE(QFile::exists(file));
  messaggi.risposte = {true};
  EXPECT_EQ(importa(), QStringList(domanda));
  EXPECT_EQ(movimenti().size(), 2);
  scrivi(resa.first(presa.size()));  // as long, but another
  EXPECT_EQ(importa(), QStringList());
  EXPECT_EQ(archiviati(),
            (QStringList{u"30112008.154501.txt"_s, u"30112008.154502.txt"_s, u"30112008.154503.txt"_s}));
}

// What counts for a key is what the file says of it last, however its code is written.
TEST_F(ImportazioneSdTest, DiUnaChiaveValeLUltimoMovimento) {
  sql(u"insert into tessere_chiavi (codice, operatore) values ('abcdefghij', ' ')"_s);
  sql(u"insert into movimenti (id, operatore) values (41, 'x')"_s);
  QByteArray contenuto;
  for (int i = 0; i < 5000; ++i)
    contenuto += "0000000001,9" + QByteArray::number(i).rightJustified(9, '0') + presa.sliced(21) + "\r\n";
  contenuto += "0000000001,abcdefghij,01,301108101500\r\n0000000007,ABCDEFGHIJ,00,301108101501\r\n";
  scrivi(presa + '\n' + contenuto + resa);
  EXPECT_EQ(importa(), QStringList());
  EXPECT_EQ(righe(u"select codice, operatore, uscita from tessere_chiavi order by codice"_s),
            (QStringList{u"1000000001| |-"_s, u"abcdefghij|0000000007|2008-11-30 10:15:01"_s}));
  EXPECT_EQ(righe(u"select min(id), max(id), count(*) from movimenti"_s), QStringList(u"41|5045|5005"_s));
}

}  // namespace
}  // namespace lokera::prova
