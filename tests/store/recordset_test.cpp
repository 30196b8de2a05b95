#include "store/archivio.h"
#include "store/date_jet.h"

namespace lokera {

using prova::bene;

class Righe : public prova::Archivio {
 protected:
  Righe() {
    for (const char* sql :
         {"tessere_operatori values ('0000000001', 'Dell''Acqua', #02/01/2008#, Null, 3, 1, 2)",
          "tessere_operatori values ('0000000002', ' ', Null, Null, 4, 1, 0)",
          "aggiorn_tessere_oper values ('0000000001', 1, 'I')"})
      EXPECT_EQ(esegui(QByteArray("insert into ").append(sql).constData()), QString());
  }
};

TEST_F(Righe, NomiTipiEMisureDeiCampi) {
  Recordset rs;
  apri(rs,
       "select aggiorn_tessere_oper.*, tessere_operatori.intestazione, valido_dal, count(*) as quante "
       "from (aggiorn_tessere_oper inner join tessere_operatori on aggiorn_tessere_oper.id_tessera = "
       "tessere_operatori.codice) where aggiorn_tessere_oper.ID_lokera = 1",
       Cursore::sola_lettura);
  QStringList letti;
  for (int i = 0; i < rs.conta_campi(); ++i) {
    const Campo& c = rs.campo(i);
    letti += u"%1 %2 %3"_s.arg(c.nome).arg(static_cast<int>(c.tipo)).arg(c.dimensione);
  }
  EXPECT_EQ(
      letti.join(u','),
      u"ID_TESSERA 202 10,ID_LOKERA 2 2,OPERAZIONE 202 1,intestazione 202 100,valido_dal 7 8,quante 3 4"_s);
  EXPECT_EQ(rs.testo(u"Id_Tessera"), u"0000000001"_s);
  EXPECT_EQ(rs.valore(u"VALIDO_DAL").toDateTime().date(), QDate(2008, 2, 1));
  EXPECT_EQ(rs.numero(u"quante"), 1);
  EXPECT_FALSE(rs.valore(u"altro").isValid());
  apri(rs, "SELECT MAX(id) AS ultimo FROM movimenti", Cursore::sola_lettura);
  EXPECT_TRUE(!rs.eof() && rs.nullo(0));
}

TEST_F(Righe, AggiungeModificaCancella) {
  Recordset rs;
  apri(rs, "select * from tessere_operatori where codice = '0000000003'");
  EXPECT_TRUE(rs.eof());
  EXPECT_TRUE(rs.imposta(u"codice", u"x"_s).fallito());
  bene(rs.AddNew());
  const std::pair<const char16_t*, QVariant> campi[] = {{u"CODICE", u"0000000003"_s},
                                                        {u"valido_dal", u"1/2/2008 10.20.30"_s},
                                                        {u"gruppo", u" 7 "_s},
                                                        {u"NrMaxPrelievi", true}};
  for (const auto& [campo, valore] : campi) bene(rs.imposta(campo, valore));
  EXPECT_EQ(rs.testo(u"codice"), u"0000000003"_s);
  bene(rs.Update());
  bene(rs.imposta(u"intestazione", u"l'altro"_s));
  bene(rs.Update());
  EXPECT_EQ(leggi("select * from tessere_operatori where codice = '0000000003'"),
            QStringList{"0000000003|l'altro|2008-02-01 10:20:30|-|-|7|1"});
  bene(rs.Delete());
  EXPECT_FALSE(rs.valore(u"codice").isValid());
  EXPECT_EQ(leggi("select count(*) from tessere_operatori"), QStringList{"2"});
  bene(rs.MoveNext());
  EXPECT_TRUE(rs.eof());
}

TEST_F(Righe, UnaModificaRifiutataRestaInSospeso) {
  Recordset rs;
  apri(rs, "select codice, gruppo, valido_al from tessere_operatori order by codice");
  EXPECT_EQ(rs.imposta(u"gruppo", u"tre"_s).descrizione, u"gruppo: \"tre\" non è un numero"_s);
  EXPECT_TRUE(rs.imposta(u"valido_al", u"31/02/2008"_s).fallito());
  EXPECT_EQ(rs.imposta(u"colore", 1).descrizione, u"Colonna sconosciuta: colore"_s);
  ASSERT_FALSE(rs.imposta(u"gruppo", 40000).fallito());
  EXPECT_TRUE(rs.Update().fallito());
  EXPECT_TRUE(rs.MoveNext().fallito());  // it would have to be stored first
  EXPECT_EQ(rs.numero(u"gruppo"), 40000);
  rs.CancelUpdate();
  EXPECT_EQ(rs.numero(u"gruppo"), 1);
  ASSERT_FALSE(rs.imposta(u"gruppo", 2.0).fallito());
  ASSERT_FALSE(rs.MoveNext().fallito());
  EXPECT_EQ(rs.testo(u"codice"), u"0000000002"_s);
  EXPECT_EQ(leggi("select gruppo from tessere_operatori order by codice"), (QStringList{"2", "1"}));
  ASSERT_EQ(esegui("update tessere_operatori set valido_al = #2/1/2008#"), QString());
  ASSERT_FALSE(rs.imposta(u"gruppo", 3).fallito());
  ASSERT_FALSE(rs.Update().fallito());  // leaves another console's columns alone
  EXPECT_EQ(leggi("select count(valido_al) from tessere_operatori"), QStringList{"2"});
  ASSERT_EQ(esegui("delete from tessere_operatori"), QString());
  ASSERT_FALSE(rs.imposta(u"gruppo", 3).fallito());
  EXPECT_TRUE(rs.Update().descrizione.contains(u"cancellato"_s));
}

TEST_F(Righe, UnRecordsetApertoSopravviveAUnaConferma) {
  const QString sql = u"select codice from tessere_operatori order by codice"_s;
  Recordset fuori;
  ASSERT_FALSE(fuori.Open(sql, c()).fallito());
  {
    Recordset dentro;  // the same text while it is in use
    ASSERT_FALSE(dentro.Open(sql, c()).fallito());
    EXPECT_EQ(dentro.testo(u"codice"), u"0000000001"_s);
    bene(in_transazione(c(), [&] { return c().Execute(u"insert into gruppi values (1, 'a')"_s); }));
  }
  ASSERT_FALSE(fuori.MoveNext().fallito());
  EXPECT_EQ(fuori.testo(u"codice"), u"0000000002"_s);
}

TEST_F(Righe, VersioneDellaTabella) {
  quint64 vista = c().versione_tabella(u"Gruppi"_s);
  const auto cambiata = [&] {
    const quint64 ora = c().versione_tabella(u"GRUPPI"_s);
    return std::exchange(vista, ora) != ora;
  };
  EXPECT_FALSE(cambiata());
  ASSERT_EQ(esegui("insert into gruppi values (1, 'a')"), QString());
  EXPECT_TRUE(cambiata());
  ASSERT_EQ(esegui("update tessere_operatori set gruppo = 5"), QString());
  EXPECT_FALSE(cambiata());
  EXPECT_TRUE(in_transazione(c(), [&]() -> Errore {
                EXPECT_EQ(esegui("insert into gruppi values (2, 'b')"), QString());
                EXPECT_TRUE(cambiata());
                return {1, u"no"_s};
              }).fallito());
  EXPECT_TRUE(cambiata()) << "rolled back";
  Connection altra;
  ASSERT_FALSE(altra.Open(file(), password_database()).fallito());
  EXPECT_FALSE(cambiata());
  ASSERT_FALSE(altra.Execute(u"insert into gruppi values (3, 'c')"_s).fallito());
  EXPECT_TRUE(cambiata());
  EXPECT_FALSE(cambiata());
}

}  // namespace lokera
