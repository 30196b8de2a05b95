// Moments that a zone's clocks skip, from the frame to the file and to the decision: run in several zones, by
// TZ.
#include "aiuti/banco.h"
#include "platform/momento.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

/// A cabinet with one withdrawal in its store.
QList<QByteArray> risposta(const QByteArray& frame, const QByteArray& data, bool& letto) {
  const QByteArray codice = frame.left(5);
  if (codice == "00039" && !letto) return {componi_frame("00039000001")};
  if (codice == "00036") return {componi_frame("00036000000000001100000000100" + data)};
  letto = letto || codice == "00037";
  return risponde_bene(frame);
}

TEST(Momenti, UnPrelievoNellOraSaltataHaLaSuaData) {
  const std::pair<QByteArray, const char*> casi[] = {{"290326023000", "2026-03-29 02:30:00"},
                                                     {"191008000000", "2008-10-19 00:00:00"},
                                                     {"301211102030", "2011-12-30 10:20:30"}};
  for (const auto& [data, memorizzata] : casi) {
    Banco b;
    bool letto = false;
    const LokeraFinta lokera(b.vm, u"127.0.0.2"_s, 10001,
                             [&letto, data = data](const QByteArray& f) { return risposta(f, data, letto); });
    b.lokera(1);
    b.tessera(u"0000000001"_s);
    b.chiave(u"1000000001"_s, 1, 3);
    b.main().Form_Load();
    b.vm.esegui_per(25s);
    EXPECT_EQ(b.righe(u"select data, uscita from movimenti, tessere_chiavi"_s),
              QStringList{QLatin1StringView(memorizzata) + u'|' + QLatin1StringView(memorizzata)});
  }
}

// Sao Paulo had no midnight on 19/10/2008, Apia no 30/12/2011 at all: a card that ends there still ends.
TEST(Momenti, LUltimoGiornoValeAncheSenzaMezzanotte) {
  for (const QDate& ultimo : {QDate(2008, 10, 19), QDate(2011, 12, 30), QDate(2026, 3, 29)}) {
    for (const int dopo : {0, 1, 300}) {
      BancoLive l(momento(ultimo.addDays(dopo), QTime(0, 30)));
      l.b.lokera(1, 1);
      l.b.tessera(u"0000000001"_s, 1, 0, {}, ultimo);
      l.b.tessera(u"0000000002"_s, 1, 0, ultimo.addDays(dopo), {});
      l.b.main().Form_Load();
      EXPECT_EQ(l.tessera("0000000001"), dopo == 0 ? "00090001" : "00090000") << dopo;
      EXPECT_EQ(l.tessera("0000000002"), "00090001") << dopo;
    }
  }
}

}  // namespace
}  // namespace lokera::prova
