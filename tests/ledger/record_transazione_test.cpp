#include "ledger/record_transazione.h"

#include <gtest/gtest.h>

#include "platform/momento.h"

namespace lokera::prova {
namespace {

using namespace Qt::StringLiterals;

TEST(RecordTransazione, LoStessoMovimentoDalCabinetEDallaScheda) {
  const struct {
    const char* record;
    DisposizioneRecord disposizione;
  } casi[] = {{"0003600000000000110000000010001022904050635\r", record_del_cabinet},
              {"0000000001,1000000001,00,010229040506", record_della_scheda}};
  for (const auto& c : casi) {
    const Movimento m = record_transazione(c.record, c.disposizione);
    EXPECT_EQ(m.operatore, u"0000000001"_s) << c.record;
    EXPECT_EQ(m.chiave, u"1000000001"_s) << c.record;
    EXPECT_EQ(m.operazione, tipo_prelievo) << c.record;
    EXPECT_EQ(m.data, momento(QDate(2029, 2, 1), QTime(4, 5, 6))) << c.record;
  }
  const Movimento corto = record_transazione("0000000001,10000", record_della_scheda);
  EXPECT_FALSE(codice_valido(corto.chiave));
  EXPECT_EQ(corto.operazione, tipo_riconsegna);
  EXPECT_FALSE(corto.data.isValid());
}

TEST(RecordTransazione, DodiciCifreSonoUnMomentoONessuno) {
  EXPECT_EQ(momento_da_cifre("010230030405").date().year(), 1930);
  for (const char* cifre :
       {"310208000000", "011308000000", "010108240000", "01010800000", "01/108000000", ""})
    EXPECT_FALSE(momento_da_cifre(cifre).isValid()) << cifre;
}

}  // namespace
}  // namespace lokera::prova
