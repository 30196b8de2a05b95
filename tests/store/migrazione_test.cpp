#include "store/archivio.h"

namespace lokera {

using prova::testo;

TEST(Ddl, Converte) {
  struct Caso {
    const char *statement, *tipo, *atteso;
  };
  for (const Caso& k :
       {Caso{"Alter table t add column [a] text(5)", "Access", "ALTER TABLE T ADD COLUMN A TEXT(5)"},
        Caso{"alter table t add column [NOTE] memo, [b] date", "ACCESS",
             "ALTER TABLE T ADD COLUMN [NOTE] MEMO, [B] DATE"},
        Caso{"alter table t add column [a] long, [b] integer", "sql", "ALTER TABLE T ADD  A INT, B SMALLINT"},
        Caso{"alter table t add column a text(5), b memo, c long", "oracle",
             "ALTER TABLE T ADD  A VARCHAR25, B LONG, C NUMBER(38)"}}) {
    EXPECT_EQ(converti_ddl(testo(k.statement), testo(k.tipo)), testo(k.atteso));
  }
}

/// A file of an early release: no queue, cabinets with few columns.
class FileVecchio : public prova::ConCartella {
 protected:
  FileVecchio() {
    prova::bene(c().crea(file(), password_database()));
    fai("create table parametri ([ID] integer, [descrizione] text(20), CONSTRAINT agendaKEY PRIMARY KEY "
        "([ID]))");
    fai("insert into parametri values (7, 'Portineria')");
    fai("create table tessere_chiavi ([codice] text(10), [operatore] text(10))");
  }
};

TEST_F(FileVecchio, RiceveCioCheMancaETieneIlResto) {
  EXPECT_FALSE(aggiorna_database(db).fallito());
  EXPECT_EQ(
      leggi("select descrizione, IP_lokera, funzionamento, slot, computer_ctrl, orario_aggiornamento_tessere "
            "from parametri"),
      QStringList{"Portineria| |0|0| |-"});
  Recordset rs;
  ASSERT_FALSE(rs.Open(u"select * from parametri"_s, c()).fallito());
  EXPECT_EQ(rs.campo(rs.indice(u"descrizione")).dimensione, 20);
  EXPECT_EQ(rs.campo(rs.indice(u"ip_lokera")).nome, u"IP_LOKERA"_s);
  EXPECT_EQ(rs.conta_campi(), 17);
  for (const char* tabella : {"aggiorn_tessere_oper", "fascie_orarie", "cancellazioni_da_confermare"})
    EXPECT_EQ(leggi(QByteArray("select count(*) from ").append(tabella).constData()), QStringList{"0"});
  aggiungi_campo(db, u"parametri"_s, u"password"_s, u"text(9)"_s);
  aggiungi_campo(db, u"parametri"_s, u"[NOTE]"_s, u"memo"_s);
  aggiungi_campo(db, u"manca"_s, u"x"_s, u"long"_s);
  EXPECT_EQ(leggi("select [password], [note] from parametri"), QStringList{" | "});
}

TEST_F(FileVecchio, UnaSecondaVoltaNonScriveNulla) {
  EXPECT_FALSE(aggiorna_database(db).fallito());
  fai("update parametri set slot = 1, IP_lokera = Null");
  const QStringList schema = leggi("select sql from sqlite_master");
  Connection altra;
  ASSERT_FALSE(altra.Open(file(), password_database()).fallito());
  const quint64 prima = altra.versione_tabella(u"parametri"_s);
  EXPECT_FALSE(aggiorna_database(db).fallito());
  EXPECT_EQ(altra.versione_tabella(u"parametri"_s), prima);
  EXPECT_EQ(leggi("select sql from sqlite_master"), schema);
  EXPECT_EQ(leggi("select slot, IP_lokera from parametri"), QStringList{"1|-"});
}

TEST_F(FileVecchio, SottoUnBloccoNonCambiaNulla) {
  const QStringList schema = leggi("select sql from sqlite_master");
  Connection altra;
  ASSERT_FALSE(altra.Open(file(), password_database()).fallito());
  for (const char* blocco : {"begin immediate", "begin exclusive"}) {
    ASSERT_FALSE(altra.Execute(testo(blocco)).fallito());
    EXPECT_EQ(aggiorna_database(db).classe, ClasseErrore::bloccato) << blocco;
    ASSERT_FALSE(altra.Execute(u"rollback"_s).fallito());
    EXPECT_EQ(leggi("select sql from sqlite_master"), schema);
  }
  Recordset legge;  // somebody reads: only the commit is refused
  ASSERT_FALSE(legge.Open(u"select * from parametri"_s, altra).fallito());
  EXPECT_EQ(aggiorna_database(db).classe, ClasseErrore::bloccato);
  EXPECT_EQ(leggi("select sql from sqlite_master"), schema);
  legge.Close();
  EXPECT_FALSE(aggiorna_database(db).fallito());
  EXPECT_EQ(leggi("select slot, computer_ctrl from parametri"), QStringList{"0| "});
}

using Piani = prova::Archivio;

TEST_F(Piani, LeInterrogazioniFrequentiUsanoUnIndice) {
  const char* const interrogazioni[] = {
      "select * from tessere_operatori where codice = ?",
      "select count(*) as chiavi_uscite from tessere_chiavi where operatore = ?",
      "select * from fascie_orarie where giorno = ? and gruppo_oper = ? and gruppo_chiavi = ? and dalle_ore "
      "<= ?",
      "SELECT MAX(id) AS ultimo FROM movimenti",
      "select distinct tessere_operatori.codice, tessere_chiavi.lokera from ((tessere_operatori inner join "
      "gruppi_tessera on tessere_operatori.codice = gruppi_tessera.tessera) inner join tessere_chiavi on "
      "gruppi_tessera.codice = tessere_chiavi.gruppo) where tessere_operatori.gruppo = ? and "
      "tessere_chiavi.gruppo = ?",
      "select * from movimenti where data >= ? order by data",
      "select * from tessere_chiavi where lokera = ? and posizione = ?",
      "select max(data) from movimenti where operatore = ?",
  };
  for (const char* sql : interrogazioni) {
    const QVariantList valori(static_cast<qsizetype>(std::count(sql, sql + qstrlen(sql), '?')), 1);
    const QStringList piano = leggi(QByteArray("explain query plan ").append(sql).constData(), valori);
    ASSERT_FALSE(piano.isEmpty());
    for (const QString& passo : piano) {
      const bool cerca = passo.contains(u"SEARCH"_s) || passo.contains(u"TEMP B-TREE"_s);
      EXPECT_TRUE(cerca) << sql << "\n" << passo.toStdString();
    }
  }
}

}  // namespace lokera
