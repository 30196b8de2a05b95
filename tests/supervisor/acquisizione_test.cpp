#include "aiuti/banco.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

const QByteArray oper = "0000000001";
const QByteArray key = "1000000001";

QByteArray record(const QByteArray& movimento, const QByteArray& data = "301108081500",
                  const QByteArray& o = oper, const QByteArray& k = key) {
  return componi_frame("0003600" + o + k + movimento + data);
}

/// A cabinet with a store: answers "00039" with `conteggio`, "00036" with the first record, drops it at
/// "00037".
class AcquisizioneTest : public ::testing::Test {
 protected:
  AcquisizioneTest()
      : lokera(b.vm, u"127.0.0.2"_s, 10001, [this](const QByteArray& f) { return risposta(f); }) {
    b.lokera(1);
    b.tessera(QString::fromLatin1(oper));
    b.chiave(QString::fromLatin1(key), 1, 3);
  }

  QList<QByteArray> risposta(const QByteArray& f) {
    const QByteArray codice = f.left(5);
    if (codice == "00039")
      return {componi_frame("0003900" +
                            conteggio.value_or(QByteArray::number(store.size()).rightJustified(4, '0')))};
    if (codice == "00036" && !store.isEmpty()) {
      if (const auto evento = std::exchange(al_primo_record, {})) evento();
      registrati_alla_lettura << b.conta(u"movimenti"_s);
      return {store.first()};
    }
    if (codice == "00037") {
      registrati_alla_conferma << b.conta(u"movimenti"_s);
      store.removeFirst();
    }
    return codice == "00036" ? QList<QByteArray>{} : risponde_bene(f);
  }

  void visita() {
    if (b.parti().ciclo.TimerDownload->Enabled())
      b.parti().ciclo.mnuScarTrans_Click();
    else
      b.main().Form_Load();
    b.vm.esegui_per(25s);
  }
  qlonglong inviati(const QByteArray& codice) const {
    return std::ranges::count_if(lokera.ricevuti, [&](const QByteArray& f) { return f.left(5) == codice; });
  }

  Banco b;
  QList<QByteArray> store;
  std::optional<QByteArray> conteggio;
  std::function<void()> al_primo_record;
  QList<qlonglong> registrati_alla_lettura, registrati_alla_conferma;
  LokeraFinta lokera;
};

TEST_F(AcquisizioneTest, PrelievoERestituzione) {
  store = {record("00"), record("01", "301108091500"), record("00", "301108101500")};
  visita();
  EXPECT_EQ(inviati("00036"), 3);
  EXPECT_EQ(inviati("00037"), 3);
  EXPECT_EQ(registrati_alla_conferma, (QList<qlonglong>{1, 2, 3}));  // each booked before it is acknowledged
  EXPECT_EQ(registrati_alla_lettura, (QList<qlonglong>{0, 1, 2}));   // and asked for only then
  EXPECT_EQ(b.parti().acquisizione.lblNumTrans.Caption(), u"3"_s);
  EXPECT_EQ(b.main().lblLetturaTrans.Caption(), u"record read: 3"_s);
  EXPECT_EQ(b.parti().acquisizione.lblUltimaTrans.Caption(),
            u" OUT  30/11/08 10.15.00 - chiave: chiave 1000000001 lok. 1 - oper. operatore 0000000001"_s);
  EXPECT_EQ(b.righe(u"select id, operazione, uscita from movimenti, tessere_chiavi order by id"_s),
            (QStringList{u"1|P|2008-11-30 10:15:00"_s, u"2|R|2008-11-30 10:15:00"_s,
                         u"3|P|2008-11-30 10:15:00"_s}));
  EXPECT_EQ(b.parti().tabellone.lampade_chiave(4).FillColor(), b.parti().tabellone.keyU.FillColor());
  EXPECT_TRUE(b.main().Enabled() && !b.parti().acquisizione.shpTrans.Visible());
}

TEST_F(AcquisizioneTest, RecordStrani) {
  struct Caso {
    const char* nome;
    QByteArray frame;
    QString movimento;  ///< whether it has its date, and whose it is
  };
  const Caso casi[] = {
      {"unknown card", record("00", "301108081500", "0000000099"), u"1|Tessera non registrata"_s},
      {"unknown key", record("00", "301108081500", oper, "1000000099"), u"1|operatore 0000000001"_s},
      {"impossible date", record("00", "310208081500"), u"0|operatore 0000000001"_s},
      {"no date at all", record("00", "            "), u"0|operatore 0000000001"_s},
      {"point in the card", record("00", "301108081500", "00000.0001"), u""_s},
      {"point in the key", record("00", "301108081500", oper, ".........."), u""_s},
      {"cut short", "0003600" + oper + key.left(9) + "       \r", u"0|operatore 0000000001"_s},
      {"thirty characters", ("0003600" + oper + key + "\r\r\r\r").left(30), u""_s}};
  for (const Caso& c : casi) {
    b.sql(u"delete from movimenti"_s);
    store = {c.frame};
    lokera.ricevuti.clear();
    visita();
    EXPECT_EQ(b.righe(u"select data is not null, intestazione from movimenti"_s).join(u'/'), c.movimento)
        << c.nome;
    EXPECT_EQ(inviati("00037"), c.movimento.isEmpty() ? 0 : 1) << c.nome;
  }
}

TEST_F(AcquisizioneTest, ContiCheNonTornano) {
  store = {record("00")};
  conteggio = "0005";  // more than is stored: ends at its limit
  visita();
  EXPECT_EQ(b.conta(u"movimenti"_s), 1);
  EXPECT_TRUE(b.main().Enabled());
  store = {record("00", "301108120000")};
  for (const char* testo : {"0000", "00A1", "1", ""}) {
    conteggio = testo;
    visita();
    EXPECT_EQ(b.conta(u"movimenti"_s), 1) << testo;
  }
  EXPECT_FALSE(b.parti().acquisizione.shpTrans.Visible());
}

TEST_F(AcquisizioneTest, CioCheNonSiRegistraNonSiConferma) {
  store = {record("00")};
  b.sql(u"create trigger pieno before insert on movimenti begin select raise(abort, 'disco pieno'); end"_s);
  b.main().Form_Load();
  b.vm.esegui_per(20s);
  EXPECT_EQ(inviati("00037"), 0);
  EXPECT_EQ(b.uno(u"select operatore from tessere_chiavi"_s).toString(), u" "_s);
  EXPECT_FALSE(b.main().lblErrore.Caption().isEmpty());
}

TEST_F(AcquisizioneTest, UnBloccoCheFinisceNonCostaLaVisita) {
  store = {record("00"), record("01", "301108091500")};
  Connection altra;
  ASSERT_FALSE(altra.Open(b.file(), password_database()).fallito());
  al_primo_record = [&] {
    EXPECT_FALSE(altra.BeginTrans().fallito());
    b.vm.ciclo().fra(2500ms, [&] { altra.RollbackTrans(); });
  };
  visita();
  EXPECT_EQ(b.conta(u"movimenti"_s), 2);
  EXPECT_EQ(inviati("00036"), 2);
  EXPECT_TRUE(store.isEmpty());
}

}  // namespace
}  // namespace lokera::prova
