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
  qsizetype presenze(const QString& tessera) {
    return leggi(
               "select codice from tessere_operatori where codice = ? union all select codice from"
               " gruppi_tessera where tessera = ?",
               {tessera, tessera})
        .size();
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
  struct Caso {
    const char* prima;
    std::function<Errore()> passo;
    const char* dopo;
    bool resta = true;
  };
  const Caso casi[] = {
      {"", scrittura, "1I"},
      {"1D*", scrittura, "1I"},
      {"", banda, "1I"},
      {"1D*", banda, "1D*"},
      {"2D*", banda, "1I 2D*"},
      {"2I", banda, "1I 2I"},
      {"2D", banda, "2D"},  // on its way out
      {"2D 3I", banda, "2D 3I"},
      {"1D* 2D*", elimina, "1D 2D"},
      {"1I", conserva, "1D*"},
      {"1D*", conserva, "1D*"},
      {"1D", conserva, "1D"},
      {"2D", conserva, "1D 2D"},
      {"1I", scritta, ""},
      {"1D", scritta, "1D"},  // became a deletion while its writing was on its way
      {"1D*", scritta, "1D*"},
      {"1I", cancellata, "1I"},
      {"1D*", cancellata, ""},
      {"1D 2I", cancellata, "2I"},
      {"1D 2D", cancellata, "2D"},
      {"1D 2D*", cancellata, "2D"},  // the last one must take the card out
      {"1D* 2D", cancellata, "2D"},
      {"1D", cancellata, "", false},
      {"", cancellata, "", false},
  };
  for (const Caso& caso : casi) {
    esegui("insert or ignore into tessere_operatori (codice) values (?)", {t1});
    esegui("insert or ignore into gruppi_tessera (tessera, codice) values (?, 1)", {t1});
    in_coda(testo(caso.prima));
    EXPECT_FALSE(caso.passo().fallito()) << caso.prima;
    EXPECT_EQ(stato(), testo(caso.dopo)) << caso.prima;
    EXPECT_EQ(segni().isEmpty(), !stato().contains(u'*')) << "a mark without its row, from " << caso.prima;
    EXPECT_EQ(presenze(t1), caso.resta ? 2 : 0) << caso.prima;
    EXPECT_EQ(presenze(t2), 2);
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
