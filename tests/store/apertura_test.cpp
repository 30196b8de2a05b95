#include <QFile>

#include "store/archivio.h"

namespace lokera {

using prova::testo;
using Apertura = prova::Archivio;

TEST_F(Apertura, LeConfermeSonoDurevoliEUnFileSbagliatoNonSiApre) {
  EXPECT_EQ(leggi("pragma journal_mode"), QStringList{"delete"});
  EXPECT_EQ(leggi("pragma synchronous"), QStringList{"3"});
  db.connessione_db.Close();
  const auto scrivi = [&](const QString& nome, const QByteArray& byte) {
    QFile f(cartella.filePath(nome));
    EXPECT_TRUE(f.open(QIODevice::WriteOnly));
    f.write(byte);
    return f.fileName();
  };
  QFile buono(file());
  ASSERT_TRUE(buono.open(QIODevice::ReadOnly));
  const QByteArray byte = buono.readAll();
  EXPECT_FALSE(byte.contains("tessere_chiavi")) << "lies in clear";
  struct Caso {
    QString file, password;
    const char* messaggio;
  };
  const QString password = password_database();
  for (const Caso& k : {Caso{file(), u"altra"_s, "Password errata"},
                        Caso{cartella.filePath(u"manca.mdb"_s), password, "File non trovato"},
                        Caso{scrivi(u"vuoto"_s, ""), password, "vuoto"},
                        Caso{scrivi(u"testo"_s, QByteArray(5000, 'x')), password, "non è un database"},
                        Caso{scrivi(u"tronco"_s, byte.first(byte.size() / 2)), password, "danneggiato"}}) {
    Connection c;
    const Errore e = c.Open(k.file, k.password);
    EXPECT_TRUE(e.descrizione.contains(testo(k.messaggio))) << e.descrizione.toStdString();
    EXPECT_TRUE(e.descrizione.contains(k.file));
    EXPECT_FALSE(c.aperta());
  }
  EXPECT_FALSE(QFile::exists(cartella.filePath(u"manca.mdb"_s)));
}

TEST_F(Apertura, DiscoPienoAnnullaLaTransazione) {
  ASSERT_EQ(esegui("insert into gruppi values (1, 'prima')"), QString());
  ASSERT_FALSE(prova::righe(c(), u"pragma max_page_count = 1"_s).isEmpty());  // never below the present size
  const Errore rifiuto = in_transazione(c(), [&] {
    Errore e = c().Execute(u"update gruppi set descrizione = 'dopo'"_s);
    for (int i = 0; i < 5000 && !e.fallito(); ++i) {
      e = c().Execute(u"insert into movimenti (id, intestazione) values (?, ?)"_s, {i, QString(100, u'x')});
    }
    return e;
  });
  EXPECT_EQ(rifiuto.descrizione, u"Spazio su disco esaurito"_s);
  EXPECT_FALSE(c().in_transazione());
  EXPECT_EQ(leggi("select descrizione from gruppi"), QStringList{"prima"});
  EXPECT_EQ(leggi("select count(*) from movimenti"), QStringList{"0"});
}

TEST_F(Apertura, DopoUnAnnullamentoNienteSiScriveDaSolo) {
  EXPECT_TRUE(in_transazione(c(), [&] {
                EXPECT_EQ(esegui("rollback"), QString());  // as the engine does after some failures
                EXPECT_TRUE(esegui("insert into gruppi values (1, 'a')").contains(testo("annullata")));
                EXPECT_TRUE(tutto_o_niente(c(), [] { return Errore{}; }).fallito());
                return Errore{};
              }).fallito());
  EXPECT_EQ(esegui("insert into gruppi values (1, 'a')"), QString());
}

TEST_F(Apertura, UnaParteFallitaNonLasciaNullaNellaTransazione) {
  const auto metti = [&](int codice) {
    return c().Execute(u"insert into gruppi values (?, 'a')"_s, {codice});
  };
  const auto parte = [&](int codice, bool riesce) {
    return tutto_o_niente(c(), [&, riesce]() -> Errore {
      EXPECT_FALSE(metti(codice).fallito());
      return riesce ? Errore{} : Errore{1, u"no"_s};
    });
  };
  EXPECT_FALSE(in_transazione(c(), [&] {
                 EXPECT_FALSE(parte(1, true).fallito());
                 const quint64 prima = c().versione_tabella(u"gruppi"_s);
                 EXPECT_TRUE(parte(2, false).fallito());
                 EXPECT_NE(c().versione_tabella(u"gruppi"_s), prima)
                     << "who read in between has to read again";
                 EXPECT_TRUE(in_transazione(c(), [&] { return metti(3); }).fallito())
                     << "its commit would not be one";
                 return metti(4);
               }).fallito());
  EXPECT_TRUE(parte(5, false).fallito());
  EXPECT_FALSE(parte(6, true).fallito());
  EXPECT_EQ(leggi("select codice from gruppi order by codice"), (QStringList{"1", "4", "6"}));
}

}  // namespace lokera
