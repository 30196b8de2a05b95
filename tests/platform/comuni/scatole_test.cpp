#include <QDir>
#include <QFile>

#include <gtest/gtest.h>

#include "platform/comuni/macchina_di_prova.h"

namespace lokera {
namespace {

TEST(Scatole, a_cancelled_question_is_not_an_empty_answer) {
  const auto m = crea_macchina_di_prova();
  using Scritto = std::optional<QString>;
  for (const Scritto& scritto : {Scritto(u"12"_s), Scritto(QString()), Scritto()}) {
    m->scrive(scritto);
    EXPECT_EQ(m->macchina().domande.chiedi(u"Inserisci la nuova posizione"_s, {}, u"7"_s), scritto);
  }
}

TEST(Scatole, an_existing_file_is_chosen_for_writing_only_with_consent) {
  const auto m = crea_macchina_di_prova();
  const QString vecchio = m->file(u"KEYS.TXT"_s);
  const QString nuovo = m->file(u"altro.txt"_s);
  ASSERT_TRUE(QFile(vecchio).open(QIODevice::WriteOnly));
  const SceltaFile scelta{{}, u"KEYS.TXT|KEYS.TXT|*|*"_s, u"KEYS.TXT"_s, QDir::tempPath()};
  FileChoice& file = m->macchina().file;
  m->sceglie(vecchio);
  EXPECT_EQ(file.apri(scelta), vecchio);
  m->sceglie({});
  EXPECT_EQ(file.apri(scelta), std::nullopt);
  m->sceglie(nuovo);
  EXPECT_EQ(file.salva(scelta), nuovo);
  m->sceglie(vecchio);
  m->sostituisce(true);
  EXPECT_EQ(file.salva(scelta), vecchio);
  m->sceglie(vecchio);
  m->sostituisce(false);
  m->sceglie(nuovo);
  EXPECT_EQ(file.salva(scelta), nuovo);
  m->sceglie(vecchio);
  m->sostituisce(false);
  m->sceglie({});
  EXPECT_EQ(file.salva(scelta), std::nullopt);
}

TEST(Scatole, the_hourglass_stands_until_the_outermost_ends) {
  const auto m = crea_macchina_di_prova();
  Pointer& puntatore = m->macchina().puntatore;
  {
    const Clessidra esterna(puntatore);
    { const Clessidra interna(puntatore); }
    EXPECT_TRUE(m->clessidra());
  }
  EXPECT_FALSE(m->clessidra());
}

}  // namespace
}  // namespace lokera
