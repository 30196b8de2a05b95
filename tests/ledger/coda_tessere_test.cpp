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
  }
  /// The rows of the first card as "cabinet operation", with "*" behind a marked one.
  QString stato() {
    return leggi(
               "select q.ID_lokera || q.operazione || case when m.ID_lokera is null then '' else '*' end"
               " from aggiorn_tessere_oper as q left join tessere_da_conservare as m on m.ID_tessera ="
               " q.ID_tessera and m.ID_lokera = q.ID_lokera where q.ID_tessera = ? order by q.ID_lokera",
               {t1})
        .join(u' ');
  }
  QString segni() { return leggi("select ID_lokera from tessere_da_conservare").join(u' '); }
  void in_coda(const QString& stato) {
    esegui("delete from aggiorn_tessere_oper");
    esegui("delete from tessere_da_conservare");
    for (const QString& riga : stato.split(u' ', Qt::SkipEmptyParts)) {
      esegui("insert into aggiorn_tessere_oper (ID_tessera, ID_lokera, operazione) values (?, ?, ?)",
             {t1, riga.first(1), riga.sliced(1, 1)});
      if (riga.endsWith(u'*'))
        esegui("insert into tessere_da_conservare (ID_tessera, ID_lokera) values (?, ?)",
               {t1, riga.first(1)});
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
  const auto scrittura = [&] { return coda.accoda_scrittura(t1, 1); };
  const auto banda = [&] { return coda.accoda_scrittura_se_manca(t1, 1); };
  const auto elimina = [&] { return coda.accoda_cancellazione(t1, 1); };
  const auto conserva = [&] { return coda.accoda_cancellazione_conservando(t1, 1, motivo); };
  const auto scritta = [&] { return coda.servita_scrittura(t1, 1); };
  const auto cancellata = [&] { return coda.servita_cancellazione(t1, 1); };
  using Prova = std::pair<const char*, QString>;  // the queue before the step, and after it
  const std::pair<std::function<Errore()>, QList<Prova>> casi[] = {
      {scrittura, {{"", u"1I"_s}, {"1D*", u"1I"_s}}},
      // "2D" is on its way out.
      {banda,
       {{"", u"1I"_s},
        {"1D*", u"1D*"_s},
        {"2D*", u"1I 2D*"_s},
        {"2I", u"1I 2I"_s},
        {"2D", u"2D"_s},
        {"2D 3I", u"2D 3I"_s}}},
      {elimina, {{"1D* 2D*", u"1D 2D"_s}}},
      {conserva, {{"1I", u"1D*"_s}, {"1D*", u"1D*"_s}, {"1D", u"1D"_s}, {"2D", u"1D 2D"_s}}},
      // "1D" became a deletion while its writing was on its way.
      {scritta, {{"1I", {}}, {"1D", u"1D"_s}, {"1D*", u"1D*"_s}}},
      // The last one must take the card out.
      {cancellata,
       {{"1I", u"1I"_s},
        {"1D*", {}},
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
      EXPECT_EQ(segni().isEmpty(), !stato().contains(u'*')) << "a mark without its row";
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
    EXPECT_FALSE(coda.accoda_scrittura_se_manca(t1, 9).fallito());
    EXPECT_FALSE(coda.servita_cancellazione(t1, lokera).fallito());
  }
  EXPECT_EQ(presenze(t1), 0);
  EXPECT_EQ(stato(), QString());
  EXPECT_FALSE(coda.elimina_tessera(t2).fallito());  // nobody holds it
  EXPECT_EQ(presenze(t2), 0);
}

TEST_F(Coda, TuttoONiente) {
  in_coda(u"1D"_s);
  esegui("alter table tessere_operatori rename to via");
  EXPECT_TRUE(coda.servita_cancellazione(t1, 1).fallito());
  EXPECT_EQ(stato(), u"1D"_s);
  EXPECT_EQ(leggi("select tessera from gruppi_tessera"), (QStringList{t1, t2}));
  in_coda(u"1I"_s);
  esegui("alter table tessere_da_conservare rename to via_anche");
  EXPECT_TRUE(coda.accoda_cancellazione_conservando(t1, 1, motivo).fallito());
  EXPECT_EQ(leggi("select operazione from aggiorn_tessere_oper"), QStringList{u"I"_s});
}

}  // namespace
}  // namespace lokera::prova
