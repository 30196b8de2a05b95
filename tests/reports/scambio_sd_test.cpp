// The exchange by a memory card, from the console's menu to the cabinet and back.
#include "aiuti/banco.h"
#include "simulation/cabinet/cabinet_server.h"
#include "simulation/cabinet/scheda_sd.h"

namespace lokera::prova {
namespace {

QString chiave(int n) {
  return u"10000000%1"_s.arg(n, 2, 10, '0'_L1);
}

QByteArray contenuto(const QString& file) {
  QFile f(file);
  return f.open(QIODevice::ReadOnly) ? f.readAll() : "-";
}

/// A console and its one cabinet, which keys hang in at the positions 1 to 9, those of odd positions in group
/// 1, the others in group 2.
class SitoDiProva {
 public:
  SitoDiProva() {
    b.lokera(1);
    for (int n = 1; n <= 9; ++n) b.chiave(chiave(n), 1, n, 1 + (n + 1) % 2);
    b.tessera(u"0000000001"_s);
    b.tessera(u"0000000002"_s);
    for (const auto& [tessera, gruppo] : {std::pair(1, 1), {1, 2}, {2, 2}})
      b.abilita(u"000000000%1"_s.arg(tessera), gruppo);
  }
  /// Between two visits, whether the cabinet answers or not.
  void fino_a(int minuto) { b.vm.esegui_fino(std::chrono::minutes(minuto) + 20s); }
  /// Whether the cabinet let it be.
  bool accade(char tipo, int tessera, int n) {
    return cabinet.evento(tipo, "000000000" + QByteArray::number(tessera), chiave(n).toLatin1());
  }
  QString file(const char* nome) const { return b.cartella.filePath(QString::fromLatin1(nome)); }
  void esporta(const std::optional<QString>& chiavi, const std::optional<QString>& tessere) {
    b.vm.primo().file.risposte = {chiavi, tessere};
    b.parti().menu.mnuExport.Click();
  }
  void importa() {
    b.vm.primo().file.risposte = {file("DATA.TXT")};
    b.parti().menu.mnuImport.Click();
    b.vm.esegui_per(1s);
  }
  QStringList registro() {
    return b.righe(u"select operatore, intestazione, chiave, operazione, data from movimenti order by id"_s) +
           b.righe(u"select codice, operatore, uscita from tessere_chiavi order by codice"_s);
  }

  Banco b;
  RegistroEventi eventi;
  Cabinet cabinet{{.indirizzo = u"127.0.0.2"_s}, b.vm.orologio(), eventi};
};

/// What happens at the cabinet; a card that nobody knows brings a key back.
QStringList una_mattina(SitoDiProva& sito) {
  const struct {
    int minuto;
    char tipo;
    int tessera, chiave;
  } vicende[] = {{5, prelievo, 1, 1},      {6, prelievo, 2, 2},      {7, prelievo, 2, 3},
                 {8, prelievo, 1, 8},      {9, prelievo, 1, 9},      {20, restituzione, 1, 1},
                 {21, prelievo, 2, 1},     {30, restituzione, 7, 8}, {31, prelievo, 2, 8},
                 {45, restituzione, 2, 8}, {46, prelievo, 1, 8}};
  QStringList esiti;
  for (const auto& v : vicende) {
    sito.fino_a(v.minuto);
    esiti += QString::number(sito.accade(v.tipo, v.tessera, v.chiave));
  }
  return esiti;
}

TEST(ScambioSd, ChiNonHaReteFinisceConGliStessiMovimenti) {
  SitoDiProva con_rete;
  CabinetServer server(con_rete.cabinet, con_rete.b.vm.rete(), con_rete.b.vm.orologio(),
                       con_rete.b.vm.primo().timer);
  ASSERT_TRUE(server.apri());
  for (int n = 1; n <= 9; ++n) con_rete.cabinet.appendi(n, chiave(n).toLatin1());
  con_rete.b.in_coda(u"0000000001"_s, 1);
  con_rete.b.in_coda(u"0000000002"_s, 1);
  con_rete.b.main().Form_Load();
  const QStringList esiti = una_mattina(con_rete);
  EXPECT_EQ(esiti.join(u','), u"1,1,0,1,1,1,0,1,1,1,1"_s);
  con_rete.b.parti().ciclo.mnuScarTrans_Click();
  con_rete.fino_a(60);

  SitoDiProva con_scheda;
  con_scheda.b.main().Form_Load();
  for (int n = 1; n <= 9; ++n) con_scheda.cabinet.appendi(n - 1, chiave(n).toLatin1(), false);
  con_scheda.esporta(con_scheda.file("KEYS.TXT"), con_scheda.file("USERS.TXT"));
  ASSERT_TRUE(carica_chiavi(con_scheda.cabinet, contenuto(con_scheda.file("KEYS.TXT"))));
  ASSERT_TRUE(carica_operatori(con_scheda.cabinet, contenuto(con_scheda.file("USERS.TXT"))));
  EXPECT_EQ(una_mattina(con_scheda), esiti);
  con_scheda.fino_a(60);
  {
    QFile scheda(con_scheda.file("DATA.TXT"));
    ASSERT_TRUE(scheda.open(QIODevice::WriteOnly));
    scheda.write(scarica_movimenti(con_scheda.cabinet));
  }
  EXPECT_EQ(con_scheda.cabinet.stato().transazioni.numero(), 0);
  con_scheda.importa();
  EXPECT_EQ(con_scheda.b.vm.messaggi().testi(), QStringList());
  EXPECT_FALSE(QFile::exists(con_scheda.file("DATA.TXT")));
  EXPECT_EQ(con_scheda.b.console->elenco().conta(), 1) << "the window has closed itself";
  EXPECT_EQ(con_scheda.registro(), con_rete.registro());
  EXPECT_EQ(con_rete.b.conta(u"movimenti"_s), 9);
  EXPECT_EQ(con_rete.b.conta(u"tessere_chiavi"_s, u"uscita is not null"_s), 3);
}

TEST(ScambioSd, IFileDellaSchedaByteAByte) {
  SitoDiProva sito;
  sito.b.sql(u"delete from tessere_chiavi"_s);
  sito.esporta(sito.file("KEYS.TXT"), std::nullopt);
  EXPECT_EQ(contenuto(sito.file("KEYS.TXT")), "-");
  for (const auto& [n, posizione] : {std::pair(4, 201), {3, 200}, {2, 9}, {1, 8}, {0, 0}})
    sito.b.chiave(chiave(n), 1 + n, posizione);
  sito.b.sql(u"update tessere_operatori set posizione = 3 - cast(codice as integer)"_s);
  sito.b.fascia(1, 1, u"Domenica"_s, {1, 0}, {2, 0});  // shut now; no band counts
  sito.esporta(std::nullopt, sito.file("USERS.TXT"));
  EXPECT_EQ(contenuto(sito.file("USERS.TXT")), "-") << "keys at other positions than their lines";
  sito.b.tessera(u"0000000003"_s);
  sito.b.abilita(u"0000000003"_s, 1);
  sito.b.in_coda(u"0000000003"_s, 1, u"D"_s);  // its bits are none any more
  sito.b.sql(u"update tessere_operatori set posizione = 3 where codice = '0000000003'"_s);
  sito.b.vm.messaggi().risposte = {true};
  sito.esporta(std::nullopt, sito.file("USERS.TXT"));
  sito.esporta(sito.file("a"), std::nullopt);
  const QByteArray nessuna(50, '0');
  EXPECT_EQ(contenuto(sito.file("a")),
            "1000000000;\r\n1000000001;\r\n1000000002;\r\n1000000003;\r\n1000000004;\r\n");
  const QByteArray tessere = "0000000002," + nessuna + ";\r\n0000000001,0180" + QByteArray(45, '0') +
                             "1;\r\n0000000003," + nessuna + ";\r\n";
  EXPECT_EQ(contenuto(sito.file("USERS.TXT")), tessere);
  const auto& scelte = sito.b.vm.primo().file.fatte;
  ASSERT_EQ(scelte.size(), 8) << "the second is asked for whatever came of the first";
  EXPECT_EQ(scelte[6].titolo + u'/' + scelte[6].filtro + u'/' + scelte[6].nome,
            u"Esporta su SD/KEYS.TXT|KEYS.TXT/KEYS.TXT"_s);
  EXPECT_EQ(scelte[7].nome, u"USERS.TXT"_s);
  EXPECT_EQ(sito.b.vm.messaggi().testi().size(), 2) << "the question, twice";
  sito.b.vm.messaggi().mostrati.clear();
  sito.b.vm.messaggi().risposte = {true};

  sito.b.vm.primo().file.sostituisce = {true};
  sito.b.sql(u"delete from tessere_operatori"_s);
  sito.esporta(sito.file("a/KEYS.TXT"), sito.file("USERS.TXT"));
  EXPECT_EQ(contenuto(sito.file("USERS.TXT")), tessere) << "an empty table leaves the old file";
  ASSERT_EQ(sito.b.vm.messaggi().mostrati.size(), 2);
  EXPECT_TRUE(sito.b.vm.messaggi().testi()[0].startsWith(u"Il file non è stato scritto.\n"_s));
}

}  // namespace
}  // namespace lokera::prova
