#include "platform/ricompositore.h"

#include <gtest/gtest.h>

namespace lokera {
namespace {

const QByteArray prova = "0001000HELLO73\r";
const QByteArray conta = "000390000013B\r";

QByteArrayList tutti(Ricompositore& r) {
  QByteArrayList frame;
  while (r.pronto()) frame << r.prendi();
  return frame;
}

TEST(Ricompositore, wherever_the_pieces_are_torn_the_frames_are_the_same) {
  const QByteArray flusso = prova + conta + "\r" + prova;
  const QByteArrayList attesi{prova, conta, "\r", prova};
  for (qsizetype passo = 1; passo <= flusso.size(); ++passo) {
    for (qsizetype primo = 0; primo < passo; ++primo) {
      Ricompositore r;
      r.arriva(flusso.first(std::min(primo, flusso.size())));
      for (qsizetype da = primo; da < flusso.size(); da += passo) r.arriva(flusso.mid(da, passo));
      EXPECT_EQ(tutti(r), attesi) << passo << ' ' << primo;
      EXPECT_FALSE(r.resto());
    }
  }
}

TEST(Ricompositore, a_late_remainder_completes_what_was_handed_out) {
  struct Caso {
    const char* nome;
    QByteArrayList pezzi;  // each followed by its time running out
    QByteArrayList attesi;
  };
  const Caso casi[] = {
      {"never", {"0001000HEL"}, {"0001000HEL"}},
      {"late", {"0001000HEL", "LO73\r"}, {"0001000HEL", prova}},
      {"late twice", {"0001000", "HELLO", "73\r"}, {"0001000", "HELLO", prova}},
      {"late, the head checks to nothing", {"00", "01000HELLO73\r"}, {"00", prova}},
      {"only the return", {"0001000HELLO73", "\r"}, {"0001000HELLO73", prova}},
      {"another frame", {"0001000HEL", conta}, {"0001000HEL", conta}},
      {"late, and another", {"0001000HEL", "LO73\r" + conta}, {"0001000HEL", prova, conta}},
      {"none ever", {"0001000HELLO73", "000390000013B"}, {"0001000HELLO73", "000390000013B"}},
  };
  for (const Caso& c : casi) {
    Ricompositore r;
    QByteArrayList frame;
    for (const QByteArray& pezzo : c.pezzi) {
      r.arriva(pezzo);
      r.consegna_resto();
      r.consegna_resto();  // nothing new to hand out
      frame << tutti(r);
    }
    EXPECT_EQ(frame, c.attesi) << c.nome;
  }
}

TEST(Ricompositore, what_never_ends_is_forgotten) {
  Ricompositore r;
  r.arriva(QByteArray(300, 'x'));  // longer than any frame
  r.arriva(conta);
  for (int i = 0; i < 40; ++i) {
    r.arriva("no return");
    r.consegna_resto();
  }
  r.arriva("00010\r");
  const QByteArrayList frame = tutti(r);
  EXPECT_EQ(frame.first(), conta);
  EXPECT_EQ(frame.size(), 42);
  EXPECT_LT(frame.last().size(), 300);
}

}  // namespace
}  // namespace lokera
