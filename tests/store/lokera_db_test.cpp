#include <QDir>
#include <QFile>
#include <QProcess>

#include <poll.h>
#include <pty.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include "store/archivio.h"

namespace lokera {

using prova::testo;

class LokeraDb : public ::testing::Test {
 protected:
  struct Corsa {
    int stato;
    QString uscita, errori;
  };
  static Corsa esegui(const QStringList& argomenti, const QString& programma = QString::fromUtf8(LOKERA_DB),
                      const QByteArray& ingresso = {}) {
    QProcess p;
    p.start(programma, argomenti);
    p.write(ingresso);
    p.closeWriteChannel();
    if (!p.waitForFinished(60'000)) return {-1, {}, u"non finisce"_s};
    return {p.exitCode(), QString::fromUtf8(p.readAllStandardOutput()),
            QString::fromUtf8(p.readAllStandardError())};
  }
  static Corsa sql(const QString& f, const QString& statement) { return esegui({u"sql"_s, f, statement}); }
  static void rifiuta(const QStringList& argomenti, const QString& perche) {
    const Corsa corsa = esegui(argomenti);
    EXPECT_EQ(corsa.stato, 1) << argomenti.join(u' ').toStdString();
    EXPECT_TRUE(corsa.errori.contains(perche)) << corsa.errori.toStdString();
  }
  QString file(const QString& nome) const { return cartella.filePath(nome); }
  QString creato() {
    QString f = file(u"a.mdb"_s);
    EXPECT_EQ(esegui({u"crea"_s, f}).errori, QString());
    return f;
  }
  QTemporaryDir cartella;
};

TEST_F(LokeraDb, UsoErratoENessunMezzoFile) {
  const std::pair<QStringList, int> casi[] = {{{}, 2},
                                              {{u"crea"_s, file(u"manca/a.mdb"_s)}, 1},
                                              {{u"copia"_s, file(u"manca.mdb"_s), file(u"b.mdb"_s)}, 1}};
  for (const auto& [argomenti, stato] : casi) EXPECT_EQ(esegui(argomenti).stato, stato);
  EXPECT_TRUE(QDir(cartella.path()).isEmpty());
}

/// `crea` with a person at its terminal, who answers each question as it comes; what showed there.
struct Terminale {
  Terminale(const QString& file, const QByteArrayList& risposte) {
    const pid_t figlio = ::forkpty(&capo, nullptr, nullptr, nullptr);
    if (figlio == 0) ::alarm(120);  // a dialogue that never ends
    if (figlio == 0) ::_exit(::execl(LOKERA_DB, LOKERA_DB, "crea", qPrintable(file), nullptr));
    for (const QByteArray& risposta : risposte) {
      if (!leggi_fino_a(": ")) break;
      EXPECT_EQ(::write(capo, risposta.data(), static_cast<size_t>(risposta.size())), risposta.size());
    }
    leggi_fino_a({});
    int come = 0;
    ::waitpid(figlio, &come, 0);
    stato = WIFEXITED(come) ? WEXITSTATUS(come) : -1;
    ::close(capo);
  }
  bool leggi_fino_a(const QByteArray& fine) {
    const qsizetype da = visto.size();
    char pezzo[256];
    for (pollfd p{capo, POLLIN, 0}; ::poll(&p, 1, 60'000) == 1;) {
      const ssize_t letti = ::read(capo, pezzo, sizeof pezzo);
      if (letti <= 0) return false;
      visto += QByteArrayView(pezzo, letti);
      if (!fine.isEmpty() && visto.size() > da && visto.endsWith(fine)) return true;
    }
    return false;
  }
  int capo = -1, stato = -1;
  QByteArray visto;
};

TEST_F(LokeraDb, IlPrimoSupervisoreOIlFileNonNasce) {
  const QByteArray lungo(51, 'x');
  const struct {
    QByteArray nome, ingresso;
    const char* rifiuto;  ///< null for none
  } casi[] = {{"Anna D'Angelo", "se' creta \naltro\n", nullptr},
              {"anna", "senza fine riga", nullptr},
              {" ", "x\n", "Inserire il nome"},
              {"anna", "", "Inserire la password"},
              {"anna", " \n", "Inserire la password"},
              {lungo, "x\n", "user: al massimo 50 caratteri"},
              {"anna", lungo, "pwd: al massimo 50 caratteri"}};
  const QString f = file(u"a.mdb"_s);
  for (const auto& c : casi) {
    const Corsa corsa = esegui({u"crea"_s, f, u"--utente"_s, QString::fromUtf8(c.nome)},
                               QString::fromUtf8(LOKERA_DB), c.ingresso);
    EXPECT_EQ(corsa.stato, c.rifiuto ? 1 : 0) << c.nome.data();
    EXPECT_TRUE(corsa.errori.contains(testo(c.rifiuto ? c.rifiuto : ""))) << corsa.errori.toStdString();
    EXPECT_NE(QDir(cartella.path()).isEmpty(), !c.rifiuto) << c.nome.data();
    if (!c.rifiuto) {
      EXPECT_EQ(sql(f, u"select user, pwd, su from operatori"_s).uscita.toUtf8(),
                c.nome + '\t' + c.ingresso.split('\n')[0] + "\t1\n");
    }
    QFile::remove(f);
  }
}

TEST_F(LokeraDb, AlTerminaleChiedeESenzaEco) {
  const struct {
    QByteArrayList risposte;
    int stato;
    const char* utenti;
  } casi[] = {{{"anna\n", "zorro1\n", "zorro1\n"}, 0, "anna\tzorro1\n"},
              {{"anna\n", "zorro1\n", "zorro2\n", "\n", "\n", "zorro3\n", "zorro3\n"}, 0, "anna\tzorro3\n"},
              {{"\n"}, 0, ""},
              {{"anna\n", "zorro1\n", "\n", "zorro1\n", "\n", "zorro1\n", "\n"}, 1, nullptr},
              {{"anna\n", "zorro1\n", "\x03"}, 1, nullptr},
              {{"\x04"}, 1, nullptr}};
  const QString f = file(u"a.mdb"_s);
  for (const auto& c : casi) {
    const Terminale t(f, c.risposte);
    EXPECT_EQ(t.stato, c.stato) << t.visto.data();
    EXPECT_FALSE(t.visto.contains("zorro")) << t.visto.data();
    EXPECT_EQ(QDir(cartella.path()).isEmpty(), c.stato == 1) << t.visto.data();
    if (c.utenti) {
      EXPECT_EQ(sql(f, u"select user, pwd from operatori"_s).uscita, testo(c.utenti));
    }
    QFile::remove(f);
  }
}

TEST_F(LokeraDb, CreaControllaInterroga) {
  const QString f = creato();
  rifiuta({u"crea"_s, f}, u"esiste già"_s);
  EXPECT_EQ(esegui({u"controlla"_s, f}).uscita, u"ok\n"_s);
  EXPECT_EQ(sql(f, u"insert into gruppi values (1, 'a\tb\\c\nd'), (2, Null)"_s).stato, 0);
  EXPECT_EQ(sql(f, u"select top 2 * from [gruppi] order by codice"_s).uscita,
            u"1\ta\\tb\\\\c\\nd\n2\t\\N\n"_s);
  EXPECT_EQ(
      sql(f, u"with g as (select 1 as n) delete from gruppi where codice in (select n from g)"_s).uscita,
      u"righe: 1\n"_s);
  rifiuta({u"sql"_s, f, u"insert into gruppi (codice) values (40000)"_s},
          u"codice: serve un numero intero"_s);
  EXPECT_EQ(sql(f, u"drop table gruppi"_s).stato, 0);
  rifiuta({u"controlla"_s, f}, u"Tabelle mancanti: gruppi"_s);
}

TEST_F(LokeraDb, DemoECopiaDiUnFileInUso) {
  const QString f = file(u"lokera.mdb"_s);
  ASSERT_EQ(esegui({u"demo"_s, f}).errori, QString());
  Database console;
  ASSERT_FALSE(apri_database(console, cartella.path()).fallito());
  ASSERT_FALSE(console.connessione_db.Execute(u"insert into gruppi values (99, 'visto')"_s).fallito());
  const QString copia = file(u"copia.mdb"_s);
  ASSERT_EQ(esegui({u"copia"_s, f, copia}).errori, QString());
  rifiuta({u"copia"_s, f, copia}, {});
  EXPECT_EQ(esegui({u"controlla"_s, copia}).uscita, u"ok\n"_s);
  EXPECT_EQ(sql(copia, u"select descrizione from gruppi where codice = 99"_s).uscita, u"visto\n"_s);
  QFile byte(copia);
  ASSERT_TRUE(byte.open(QIODevice::ReadOnly));
  EXPECT_FALSE(byte.readAll().contains("gruppi"));
}

TEST_F(LokeraDb, ChiLeggePianoLUscitaNonFermaLaConsole) {
  const QString f = creato();
  Connection c;
  ASSERT_FALSE(c.Open(f, password_database()).fallito());
  QProcess lento;  // nobody reads on, and the pipe is full long before the rows end
  lento.start(u"sh"_s,
              {u"-c"_s,
               u"exec 3<&0; \"$0\" sql \"$1\" 'select a.*, b.* from traduzioni a, traduzioni b limit 20000' "
               u"| { head -c 1; echo; read x <&3; }"_s,
               QString::fromUtf8(LOKERA_DB), f});
  ASSERT_TRUE(lento.waitForReadyRead(60'000));
  EXPECT_FALSE(c.Execute(u"insert into gruppi values (1, 'a')"_s).fallito());
  lento.write("\n");
  EXPECT_TRUE(lento.waitForFinished(60'000));
}

TEST_F(LokeraDb, ControllaVedeIndiciEColonne) {
  const QString f = creato();
  const auto con = [&](std::initializer_list<const char*> istruzioni) {
    Connection c;
    ASSERT_FALSE(c.Open(f, password_database()).fallito());
    for (const char* i : istruzioni) ASSERT_EQ(c.Execute(testo(i)).descrizione, QString()) << i;
  };
  con({"drop table tabelle_Ditta", "create table tabelle_Ditta ([Nome] text(100), [Cap] text(10))",
       "drop table computers"});
  rifiuta({u"controlla"_s, f}, u"Tabelle mancanti: computers."_s);
  rifiuta({u"controlla"_s, f}, u"Colonne mancanti: tabelle_Ditta.indirizzo, tabelle_Ditta.citta"_s);
  rifiuta({u"copia"_s, f, file(u"vecchia.mdb"_s)},
          u"stato copiato, ma è incompleto. Tabelle mancanti: computers"_s);
  EXPECT_TRUE(QFile::remove(file(u"vecchia.mdb"_s))) << "an older file can be copied all the same";
  // An index that is hidden while a row is written lacks that row.
  con({"create table prova (a text(5))", "create index prova_a on prova (a)",
       "create table nascosto as select * from sqlite_master where name = 'prova_a'",
       "pragma writable_schema = 1", "delete from sqlite_master where name = 'prova_a'"});
  con({"insert into prova values ('x')", "pragma writable_schema = 1",
       "insert into sqlite_master select * from nascosto"});
  rifiuta({u"controlla"_s, f}, u"prova_a"_s);
  rifiuta({u"copia"_s, f, file(u"b.mdb"_s)}, u"prova_a"_s);
  EXPECT_EQ(QDir(cartella.path()).entryList(QDir::Files), QStringList{u"a.mdb"_s});
}

TEST_F(LokeraDb, UnParzialeAltruiResta) {
  const QString f = creato();
  QFile altrui(file(u"b.mdb.parziale"_s));
  ASSERT_TRUE(altrui.open(QIODevice::WriteOnly));
  altrui.write("lavoro");
  altrui.close();
  for (const QStringList& argomenti :
       {QStringList{u"crea"_s, file(u"b.mdb"_s)}, {u"copia"_s, f, file(u"b.mdb"_s)}}) {
    rifiuta(argomenti, altrui.fileName());
    EXPECT_EQ(altrui.size(), 6);
    EXPECT_FALSE(QFile::exists(file(u"b.mdb"_s)));
  }
}

/// Rights bind a user, not the superuser, who therefore asks as somebody else.
TEST_F(LokeraDb, SenzaDirittoDiScrivereNonSiApre) {
  const QString f = creato();
  const bool superuser = ::geteuid() == 0;
  const auto corri = [&] {
    if (!superuser) return esegui({u"controlla"_s, f});
    return esegui({u"--reuid=65534"_s, u"--regid=65534"_s, u"--clear-groups"_s, QString::fromUtf8(LOKERA_DB),
                   u"controlla"_s, f},
                  u"setpriv"_s);
  };
  struct Caso {
    uint file, cartella;
    const char* messaggio;
  };
  for (const Caso& k : {Caso{0666, 0777, ""}, Caso{0444, 0777, "Manca il diritto di scrivere il file"},
                        Caso{0666, 0555, "Manca il diritto di scrivere nella cartella"},
                        Caso{0222, 0777, "Manca il diritto di leggere il file"}}) {
    ASSERT_EQ(::chmod(QFile::encodeName(f).constData(), k.file), 0);
    ASSERT_EQ(::chmod(QFile::encodeName(cartella.path()).constData(), k.cartella), 0);
    const Corsa corsa = corri();
    ::chmod(QFile::encodeName(cartella.path()).constData(), 0777);
    const bool riuscito = k.messaggio[0] == 0;
    if (riuscito && superuser && corsa.stato != 0)
      GTEST_SKIP() << "another user can't run the program here: " << corsa.errori.toStdString();
    EXPECT_EQ(corsa.stato, riuscito ? 0 : 1);
    EXPECT_TRUE(corsa.errori.contains(testo(k.messaggio))) << corsa.errori.toStdString();
  }
}

}  // namespace lokera
