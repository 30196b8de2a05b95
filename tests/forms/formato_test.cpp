#include "forms/formato.h"

#include <gtest/gtest.h>

#include "platform/momento.h"
#include "store/date_jet.h"

namespace lokera {
namespace {

using namespace Qt::StringLiterals;

TEST(Formato, StoredValuesAsAUserReadsThem) {
  struct Caso {
    TipoCampo tipo;
    const char *grezzo, *formato, *atteso;
  };
  const auto data = TipoCampo::data;
  const auto numero = TipoCampo::doppio;
  const Caso casi[] = {
      {data, "2008-11-30 00:00:00", "", "30/11/2008"},
      {data, "2008-11-30 15:45:01", "", "30/11/2008 15.45.01"},
      {data, "2008-01-02 00:00:09", "", "02/01/2008 00.00.09"},
      {data, "1899-12-30 08:30:00", "", "08.30"},
      {data, "1899-12-30 00:00:00", "", "00.00"},
      {data, "2008-01-02 05:04:01", "d/m/yy hh:mm", "2/1/08 05:04"},
      {data, "1899-12-30 08:30:00", "hh.nn.ss", "08.30.00"},
      {data, "guasta", "", "guasta"},
      {data, "", "hh:nn", ""},
      {TipoCampo::intero, "1234567", "#,##0", "1.234.567"},
      {TipoCampo::intero, "0", "#,##0", "0"},
      {TipoCampo::intero, "-45", "0000", "-0045"},
      {numero, "3.5", "", "3,5"},
      {numero, "1234.5", "#,##0.00", "1.234,50"},
      {numero, "12", "0.##", "12"},
      {TipoCampo::booleano, "0", "", "Falso"},
      {TipoCampo::testo, "a\tb 3.5", "0000", "a b 3.5"},
  };
  for (const Caso& c : casi) {
    QByteArray a;
    formatta(a, c.grezzo, c.tipo, c.formato);
    EXPECT_EQ(a, c.atteso) << c.grezzo << " as " << c.formato;
  }
}

TEST(Formato, DatesAndTimesAsUsersWriteThem) {
  const auto giorno = [](int g, int m, int a, QTime t = QTime(0, 0)) { return momento(QDate(a, m, g), t); };
  const std::pair<QString, QDateTime> casi[] = {
      {u"8"_s, ora(QTime(8, 0))},
      {u" 08:30 "_s, ora(QTime(8, 30))},
      {u"1/2/08"_s, giorno(1, 2, 2008)},
      {u"01-02-2008 8.05"_s, giorno(1, 2, 2008, QTime(8, 5))},
      {u"24"_s, {}},
      {u"8.60"_s, {}},
      {u"30/2/2008"_s, {}},
      {u""_s, {}},
  };
  for (const auto& [testo, attesa] : casi)
    EXPECT_EQ(leggi_data_digitata(testo), attesa) << testo.toStdString();
}

TEST(Formato, NumbersAsUsersWriteThem) {
  const std::pair<QString, std::optional<double>> casi[] = {{u"-3,5"_s, -3.5},
                                                            {u"3.5"_s, 3.5},
                                                            {u"1.250"_s, 1250},
                                                            {u"1.250,5"_s, 1250.5},
                                                            {u",5"_s, 0.5},
                                                            {u"12a"_s, {}},
                                                            {u""_s, {}},
                                                            {u"1.25.000"_s, {}},
                                                            {u"99999999999"_s, 99999999999.0}};
  for (const auto& [testo, atteso] : casi) EXPECT_EQ(leggi_numero(testo), atteso) << testo.toStdString();
}

}  // namespace
}  // namespace lokera
