#include "ledger/coda_tessere.h"

#include "store/archivio.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

const QString t1 = u"0000000001"_s;
const QString t2 = u"0000000002"_s;
constexpr MotivoConservare motivo = MotivoConservare::non_raggiunta;

class Coda : public Archivio {
 protected:
  Coda() {
    for (const QString& t : {t1, t2}) {
      esegui("insert into tessere_operatori (codice, intestazione) values (?, 'x')", {t});
      esegui("insert into gruppi_tessera (tessera, codice) values (?, 1)", {t});
    }
    // Group 1 hangs in the cabinets 1 and 2, group 2 in 2 and 3.
    for (const int n : {11, 12, 22, 23})
      esegui("insert into tessere_chiavi (codice, gruppo, lokera, posizione) values (?, ?, ?, 0)",
             {QString::number(n), n / 10, n % 10});
  }
  /// The rows of a card as "cabinet operation" and behind a marked one why: "+" it waits for a key, "-" a key
  /// is gone, "*" any other reason.
  QString stato(const QString& tessera = t1) {
    return leggi(
               "select q.ID_lokera || q.operazione || case when m.ID_lokera is null then '' when m.motivo ="
               " 'attende chiave' then '+' when m.motivo = 'chiave tolta' then '-' else '*' end"
               " from aggiorn_tessere_oper as q left join tessere_da_conservare as m on m.ID_tessera ="
               " q.ID_tessera and m.ID_lokera = q.ID_lokera where q.ID_tessera = ? order by q.ID_lokera",
               {tessera})
        .join(u' ');
  }
  QString segni() { return leggi("select ID_lokera from tessere_da_conservare").join(u' '); }
  void in_coda(const QString& stato) {
    esegui("delete from aggiorn_tessere_oper");
    esegui("delete from tessere_da_conservare");
    for (const QString& riga : stato.split(u' ', Qt::SkipEmptyParts)) {
      esegui("insert into aggiorn_tessere_oper (ID_tessera, ID_lokera, operazione) values (?, ?, ?)",
             {t1, riga.first(1), riga.sliced(1, 1)});
      if (riga.size() > 2)
        esegui("insert into tessere_da_conservare (ID_tessera, ID_lokera, motivo) values (?, ?, ?)",
               {t1, riga.first(1), riga.endsWith(u'-') ? u"chiave tolta"_s : u"non raggiunta"_s});
    }
  }
  /// 2 while the card is in the registry with its group, 0 when it has left.
  qsizetype presenze(const QString& t) {
    return leggi("select 1 from tessere_operatori where codice = ?", {t}).size() +
           leggi("select 1 from gruppi_tessera where tessera = ?", {t}).size();
  }

  CodaTessere coda{c()};
};

TEST_F(Coda, OgniPassoSullaRigaDiUnaLokera) {
  const TessereScelte una = TessereScelte::coppia(t1, 1);
  const TesseraInLokera coppia{t1, 1};
  const auto scrittura = [&] { return coda.accoda_scritture(una); };
  const auto banda = [&] { return coda.accoda_scritture_se_mancano({&coppia, 1}); };
  const auto conserva = [&] { return coda.accoda_cancellazioni(una, motivo); };
  const auto scritta = [&] { return coda.servita_scrittura(t1, 1); };
  const auto cancellata = [&] { return coda.servita_cancellazione(t1, 1); };
  using Prova = std::pair<const char*, QString>;  // the queue before the step, and after it
  const std::pair<std::function<Errore()>, QList<Prova>> casi[] = {
      {scrittura,
       {{"", u"1I"_s}, {"1I", u"1I"_s}, {"1D* 2D*", u"1I 2D*"_s}, {"1D", u"1D"_s}, {"2D", u"2D"_s}}},
      // "2D" is on its way out.
      {banda,
       {{"", u"1I"_s},
        {"1D*", u"1D*"_s},
        {"2D*", u"1I 2D*"_s},
        {"2I", u"1I 2I"_s},
        {"2D", u"2D"_s},
        {"2D 3I", u"2D 3I"_s}}},
      {conserva,
       {{"1I", u"1D*"_s}, {"1D-", u"1D*"_s}, {"1D", u"1D"_s}, {"2D", u"1D 2D"_s}, {"1I 2D", u"1D 2D"_s}}},
      // "1D" became a deletion while its writing was on its way.
      {scritta, {{"1I", {}}, {"1D", u"1D"_s}, {"1D*", u"1D*"_s}}},
      // The last one must take the card out.
      {cancellata,
       {{"1I", u"1I"_s},
        {"1D*", {}},
        {"1D-", u"1I"_s},
        {"1D 2I", u"2I"_s},
        {"1D 2D", u"2D"_s},
        {"1D 2D*", u"2D"_s},
        {"1D* 2D", u"2D"_s},
        {"1D", u"gone"_s},
        {"", u"gone"_s}}}};
  int passo = 0;
  for (const auto& [fa, prove] : casi) {
    ++passo;
    for (const auto& [prima, dopo] : prove) {
      SCOPED_TRACE(std::string("step ") + std::to_string(passo) + ", from " + prima);
      esegui("insert or ignore into tessere_operatori (codice) values (?)", {t1});
      esegui("insert or ignore into gruppi_tessera (tessera, codice) values (?, 1)", {t1});
      in_coda(testo(prima));
      EXPECT_FALSE(fa().fallito());
      EXPECT_EQ(presenze(t1) ? stato() : u"gone"_s, dopo);
      const bool segnata = stato().contains(u'*') || stato().contains(u'-');
      EXPECT_EQ(segni().isEmpty(), !segnata) << "a mark without its row";
      EXPECT_TRUE(presenze(t1) == 2 || (presenze(t1) == 0 && stato().isEmpty()));
      EXPECT_EQ(presenze(t2), 2);
    }
  }
}

TEST_F(Coda, ChiEliminaLaTesseraLaTogliePrimaDalleLokere) {
  in_coda(u"1I 2D*"_s);
  esegui("insert into posiz_tessere_oper (ID_tessera, ID_lokera, posizione) values (?, 2, 0)", {t1});
  esegui("insert into posiz_tessere_oper (ID_tessera, ID_lokera, posizione) values (?, 3, 0)", {t1});
  EXPECT_FALSE(coda.elimina_tessera(t1).fallito());
  EXPECT_EQ(stato(), u"1D 2D 3D"_s);
  for (const int lokera : {3, 1, 2}) {
    EXPECT_EQ(presenze(t1), 2);
    EXPECT_FALSE(coda.accoda_scritture(TessereScelte::ovunque(t1)).fallito());
    EXPECT_FALSE(coda.servita_cancellazione(t1, lokera).fallito());
  }
  EXPECT_EQ(presenze(t1), 0);
  EXPECT_EQ(stato(), QString());
  EXPECT_FALSE(coda.elimina_tessera(t2).fallito());  // nobody holds it
  EXPECT_EQ(presenze(t2), 0);
}

TEST_F(Coda, IPassiDellaChiaveToccanoTutteLeTessereDelGruppo) {
  EXPECT_EQ(lokere_della_tessera(c(), t1).valore(), (std::vector<qlonglong>{1, 2}));
  const TessereScelte gruppo = TessereScelte::del_gruppo(1, 1);
  esegui("insert into gruppi_tessera (tessera, codice) values ('0000000009', 1)");  // nobody's
  in_coda(u"2D"_s);                                                                 // t1 is on its way out
  EXPECT_FALSE(coda.accoda_cancellazioni(gruppo, MotivoConservare::attende_chiave).fallito());
  EXPECT_EQ(stato() + u", "_s + stato(t2), u"1D 2D, 1D+"_s);
  EXPECT_EQ(coda.trattenute(1).valore(), 1);
  EXPECT_EQ(coda.trattenute(2).valore(), 0);
  EXPECT_FALSE(coda.accoda_scritture(gruppo).fallito());
  EXPECT_EQ(stato() + u", "_s + stato(t2), u"1D 2D, 1I"_s);
  EXPECT_EQ(coda.trattenute(1).valore(), 0);
  EXPECT_EQ(stato(u"0000000009"_s), QString());
  EXPECT_EQ(segni(), QString());
}

TEST_F(Coda, DopoUnaChiaveToltaTornaSoloChiNeHaAltreLi) {
  const TessereScelte gruppo = TessereScelte::del_gruppo(1, 1);
  EXPECT_FALSE(coda.accoda_cancellazioni(gruppo, MotivoConservare::chiave_tolta).fallito());
  esegui("delete from tessere_chiavi where codice = '11'");
  esegui("insert into gruppi_tessera (tessera, codice) values (?, 3)", {t2});
  esegui("insert into tessere_chiavi (codice, gruppo, lokera, posizione) values ('31', 3, 1, 0)");
  for (const QString& t : {t1, t2}) EXPECT_FALSE(coda.servita_cancellazione(t, 1).fallito());
  EXPECT_EQ(stato() + u", "_s + stato(t2), u", 1I"_s);
  EXPECT_EQ(presenze(t1), 2);
}

TEST_F(Coda, RegistrareUnaTessera) {
  const auto gruppo = [&](int g) {
    return [this, g] {
      return c().Execute(u"update gruppi_tessera set codice = ? where tessera = ?"_s, {g, t1});
    };
  };
  struct Prova {
    const char* prima;
    bool nuova;
    const char* dopo;
  };
  const Prova prove[] = {{"", false, "1D* 2I 3I"},
                         {"2D- 3D*", false, "1D* 2I 3I"},
                         {"1D 9D", false, "1D 9D"},
                         {"1D 3D 9D", true, "1D* 2I 3I 9D*"},
                         {"1I 9I", true, "1D* 2I 3I 9I"}};
  for (const auto& [prima, nuova, dopo] : prove) {
    SCOPED_TRACE(prima);
    (void)gruppo(1)();
    in_coda(testo(prima));
    const Errore e =
        nuova ? coda.registra_nuova_tessera(t1, gruppo(2)) : coda.registra_tessera(t1, gruppo(2));
    EXPECT_EQ(e.fallito(), testo(prima) == testo(dopo));
    EXPECT_EQ(stato(), testo(dopo));
  }
}

TEST_F(Coda, UnCodiceCheCambia) {
  const QString nuovo = u"000000000A"_s;
  const auto registro = [&] {
    return leggi("select codice || intestazione from tessere_operatori order by codice").join(u' ');
  };
  const auto prima = registro();
  EXPECT_TRUE(coda.cambia_codice(t1, t2).fallito());  // it is somebody's
  EXPECT_FALSE(coda.cambia_codice(t1, t1).fallito());
  EXPECT_EQ(registro(), prima);
  EXPECT_EQ(presenze(t1) + presenze(t2), 4);

  esegui("insert into posiz_tessere_oper (ID_tessera, ID_lokera, posizione) values (?, 2, 0)", {t1});
  in_coda(u"1I"_s);
  EXPECT_FALSE(coda.cambia_codice(t1, nuovo).fallito());
  EXPECT_EQ(stato() + u", "_s + stato(nuovo), u"1D 2D, 1I 2I"_s);
  EXPECT_EQ(presenze(t1), 1) << "its row stays until its cabinets are served";
  EXPECT_EQ(leggi("select tessera from gruppi_tessera order by tessera"), (QStringList{t2, nuovo}));
  EXPECT_TRUE(coda.cambia_codice(t1, u"000000000B"_s).fallito()) << "it is on its way out";

  EXPECT_FALSE(coda.cambia_codice(nuovo, t1).fallito());  // back, before any cabinet was told
  EXPECT_EQ(stato() + u", "_s + stato(nuovo), u"1I 2I, 1D 2D"_s);
  EXPECT_EQ(presenze(t1), 2);
  for (const int lokera : {1, 2}) EXPECT_FALSE(coda.servita_cancellazione(nuovo, lokera).fallito());
  EXPECT_EQ(registro(), prima);
  EXPECT_EQ(segni(), QString());
}

TEST_F(Coda, TuttoONiente) {
  in_coda(u"1D"_s);
  esegui("alter table tessere_operatori rename to via");
  EXPECT_TRUE(coda.servita_cancellazione(t1, 1).fallito());
  EXPECT_EQ(stato(), u"1D"_s);
  EXPECT_EQ(leggi("select tessera from gruppi_tessera"), (QStringList{t1, t2}));
  in_coda(u"1I"_s);
  esegui("alter table tessere_da_conservare rename to via_anche");
  EXPECT_TRUE(coda.accoda_cancellazioni(TessereScelte::coppia(t1, 1), motivo).fallito());
  EXPECT_EQ(leggi("select operazione from aggiorn_tessere_oper"), QStringList{u"I"_s});
}

}  // namespace
}  // namespace lokera::prova
