#include "simulation/persone.h"

#include <gtest/gtest.h>

#include "link/protocollo.h"
#include "simulation/finta_rete.h"
#include "simulation/virtual_machine.h"

namespace lokera::simulazione {
namespace {

using prova::FintaRete;

/// A cabinet with ten keys and three cards, one of them with every key, and the day of its people.
struct Giornata {
  explicit Giornata(quint64 seme, bool gestita = false) {
    registro.Riga = [this](const QByteArray& riga) { righe << riga; };
    for (int i = 0; i < 10; ++i) cabinet.appendi(i, "CHIAVE000" + QByteArray::number(i));
    int posizione = 0;
    for (const char* maschera : {"FFC0", "C000", "0000"}) {
      cabinet.stato().operatori.scrivi(posizione, "TESSERA00" + QByteArray::number(posizione) +
                                                      QByteArray(maschera).leftJustified(50, '0'));
      ++posizione;
    }
    cabinet.imposta_gestito(gestita);
    server.apri();
    Persone::Abitudini abitudini;
    abitudini.seme = seme;
    persone = std::make_unique<Persone>(server, macchina.orologio(), macchina.primo().timer, abitudini);
    persone->attive(true);
  }
  void ore(int quante) { macchina.esegui_per(std::chrono::hours(quante)); }
  qsizetype quante(const QByteArray& verbo, const QByteArray& campo = "") const {
    return std::ranges::count_if(righe, [&](const QByteArray& r) {
      const auto campi = r.split('\t');
      return campi[0] == verbo && (campo.isEmpty() || campi[4] == campo);
    });
  }

  VirtualMachine macchina;
  FintaRete rete;
  Registro registro;
  QByteArrayList righe;
  Cabinet cabinet{{QStringLiteral("127.0.0.2")}, macchina.orologio(), registro};
  CabinetServer server{cabinet, rete, macchina.orologio(), macchina.primo().timer};
  std::unique_ptr<Persone> persone;
};

TEST(PersoneTest, OneSeedOneDay) {
  Giornata una(7);
  Giornata stessa(7);
  Giornata altra(8);
  for (Giornata* giornata : {&una, &stessa, &altra}) giornata->ore(24);
  EXPECT_EQ(una.righe, stessa.righe);
  EXPECT_NE(una.righe, altra.righe);
}

TEST(PersoneTest, MostlyAllowedAndKeysComeBack) {
  Giornata giornata(3);
  giornata.ore(48);
  const qsizetype eventi = giornata.quante("evento");
  EXPECT_GT(eventi, 48 * 20 / 2);
  EXPECT_LT(eventi, 48 * 20 * 2);
  EXPECT_GT(giornata.quante("rifiuto"), 0);
  EXPECT_LT(giornata.quante("rifiuto"), eventi / 5);

  giornata.persone->basta_prelievi();
  giornata.ore(6);
  EXPECT_EQ(giornata.persone->fuori(), 0);
  EXPECT_EQ(giornata.quante("evento", "P"), giornata.quante("evento", "R"));
  EXPECT_EQ(giornata.cabinet.stato().transazioni.numero(), giornata.quante("evento"));
}

TEST(PersoneTest, AskALiveConsoleAndBringKeysBackThroughIt) {
  Giornata giornata(5, true);
  const auto console = giornata.rete.chiama(QStringLiteral("127.0.0.2"), porta_viva);
  const auto rispondi = [&] {
    for (const QByteArray& f : console->presi()) {
      const QByteArrayView codice = codice_comando(f);
      QByteArray risposta = codice.toByteArray() + "001";
      if (codice == "00090") risposta = "0009000" + f.mid(17, 1);
      if (codice == "00092") risposta = "00092" + f.mid(6, 10) + (f[18] == '2' || f[18] == '0' ? "1" : "0");
      console->ricevi(componi_frame(risposta));
    }
    return false;
  };
  giornata.macchina.esegui_finche(rispondi, std::chrono::hours(24));
  giornata.persone->basta_prelievi();
  giornata.macchina.esegui_finche(rispondi, std::chrono::hours(6));
  EXPECT_GT(giornata.quante("evento"), 100);
  EXPECT_EQ(giornata.quante("evento"), giornata.quante("risposto", "0"));
  EXPECT_EQ(giornata.quante("evento", "P"), giornata.quante("evento", "R"));
  EXPECT_EQ(giornata.cabinet.stato().transazioni.numero(), 0);
  EXPECT_EQ(giornata.persone->fuori(), 0);
}

TEST(PersoneTest, MayLeaveInTheMiddleOfAnOperation) {
  Giornata giornata(5, true);
  const auto console = giornata.rete.chiama(QStringLiteral("127.0.0.2"), porta_viva);
  giornata.macchina.esegui_finche([&] { return !console->mandati.isEmpty(); }, std::chrono::hours(5));
  ASSERT_TRUE(giornata.server.occupato());
  giornata.persone.reset();
  console->cade();
  EXPECT_FALSE(giornata.server.occupato());
}

}  // namespace
}  // namespace lokera::simulazione
