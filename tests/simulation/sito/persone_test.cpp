#include "simulation/sito/persone.h"

#include <gtest/gtest.h>

#include "simulation/cabinet/finta_rete.h"
#include "simulation/macchina/virtual_machine.h"

namespace lokera::simulazione {
namespace {

using namespace Qt::StringLiterals;

/// A cabinet with ten keys and three cards, one of them with every key, and the day of its people.
struct Giornata {
  explicit Giornata(quint64 seme) {
    registro.Riga = [this](const QByteArray& riga) { righe << riga; };
    for (int i = 0; i < 10; ++i) cabinet.appendi(i, "CHIAVE000" + QByteArray::number(i));
    const QByteArrayList maschere{"FFC0", "C000", "0000"};
    for (int i = 0; i < 3; ++i)
      cabinet.stato().operatori.scrivi(
          i, "TESSERA00" + QByteArray::number(i) + maschere[i].leftJustified(50, '0'));
    server.apri();
    Persone::Abitudini abitudini;
    abitudini.seme = seme;
    persone = std::make_unique<Persone>(server, macchina.orologio(), macchina.primo().timer, abitudini);
    persone->attive(true);
  }
  void ore(int quante) { macchina.esegui_per(std::chrono::hours(quante)); }
  qsizetype quante(const QByteArray& verbo) const {
    return std::ranges::count_if(righe, [&](const QByteArray& r) { return r.startsWith(verbo); });
  }

  VirtualMachine macchina;
  prova::FintaRete rete;
  RegistroEventi registro;
  QByteArrayList righe;
  Cabinet cabinet{{u"127.0.0.2"_s}, macchina.orologio(), registro};
  CabinetServer server{cabinet, rete, macchina.orologio(), macchina.primo().timer};
  std::unique_ptr<Persone> persone;
};

TEST(PersoneTest, OneSeedOneDayMostlyAllowedAndKeysComeBack) {
  Giornata una(7);
  Giornata stessa(7);
  Giornata altra(8);
  for (Giornata* giornata : {&una, &stessa, &altra}) giornata->ore(24);
  EXPECT_EQ(una.righe, stessa.righe);
  EXPECT_NE(una.righe, altra.righe);
  EXPECT_GT(una.quante("evento"), 24 * 20 / 2);
  EXPECT_LT(una.quante("evento"), 24 * 20 * 2);
  EXPECT_GT(una.quante("rifiuto"), 0);
  EXPECT_LT(una.quante("rifiuto"), una.quante("evento") / 5);
  una.persone->basta_prelievi();
  una.ore(6);
  EXPECT_EQ(una.persone->fuori(), 0);
  EXPECT_EQ(una.cabinet.stato().transazioni.numero(), una.quante("evento"));
}

}  // namespace
}  // namespace lokera::simulazione
