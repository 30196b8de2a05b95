#include <gtest/gtest.h>

#include "platform/comuni/macchina_di_prova.h"

namespace lokera {
namespace {

TEST(Carta, paper_orientation_and_margins_make_what_can_be_printed_on) {
  const auto m = crea_macchina_di_prova();
  Printer& stampante = m->macchina().stampante;
  EXPECT_EQ(stampante.stampanti().last(), stampante_pdf());
  ProprietaStampa p = stampante.proprieta();
  p.stampante = stampante_pdf();
  struct Caso {
    int formato, larghezza, lunghezza;
    Orientamento orientamento;
    int margine, area_larga, area_lunga;
  };
  const Caso casi[] = {
      {formato_a4, 0, 0, Orientamento::verticale, 567, 11906 - 1134, 16838 - 1134},
      {formato_a4, 0, 0, Orientamento::orizzontale, 0, 16838, 11906},
      {8, 0, 0, Orientamento::verticale, 0, 16838, 23811},
      {12345, 0, 0, Orientamento::verticale, 0, 16838, 23811},                // unknown: the A3 stays
      {formato_libero, 0, 5670, Orientamento::verticale, 0, 16838, 5670},     // its width too
      {formato_libero, 11340, 5670, Orientamento::verticale, 0, 11340, 5670}  // 20 cm x 10 cm
  };
  for (const Caso& c : casi) {
    p.formato = c.formato;
    p.larghezza = c.larghezza;
    p.lunghezza = c.lunghezza;
    p.orientamento = c.orientamento;
    p.margine_sinistro = p.margine_alto = p.margine_destro = p.margine_basso = c.margine;
    stampante.imposta(p);
    EXPECT_NEAR(stampante.ScaleWidth(), c.area_larga, 30) << c.formato;
    EXPECT_NEAR(stampante.ScaleHeight(), c.area_lunga, 30) << c.formato;
  }
  p.stampante = u"none such"_s;
  stampante.imposta(p);
  EXPECT_EQ(stampante.proprieta().stampante, stampante_pdf());
}

TEST(Carta, text_is_measured_in_its_own_font) {
  const auto m = crea_macchina_di_prova();
  const Printer& stampante = m->macchina().stampante;
  const Carattere piccolo{u"DejaVu Sans"_s, 8, false};
  const Carattere grande{u"DejaVu Sans"_s, 16, false};
  const Carattere grassetto{u"DejaVu Sans"_s, 8, true};
  const QString testo = u"Chiave 12"_s;
  const int largo = stampante.TextWidth(piccolo, testo);
  EXPECT_GT(largo, 8 * 20 * 9 / 4);
  EXPECT_LT(largo, 8 * 20 * 9);
  EXPECT_NEAR(stampante.TextWidth(grande, testo), 2.0 * largo, largo / 20.0);
  EXPECT_GT(stampante.TextWidth(grassetto, testo), largo);
  EXPECT_NEAR(stampante.TextWidth(piccolo, testo + testo), 2.0 * largo, largo / 20.0);
  EXPECT_GE(stampante.TextHeight(piccolo), 8 * 20);
  EXPECT_LT(stampante.TextHeight(piccolo), 8 * 20 * 3 / 2);
}

TEST(Carta, a_file_is_printed_when_it_was_chosen_and_not_given_up) {
  const auto m = crea_macchina_di_prova();
  Printer& stampante = m->macchina().stampante;
  ProprietaStampa p = stampante.proprieta();
  p.stampante = stampante_pdf();
  stampante.imposta(p);
  int fermo = 3;
  QList<int> fatte;
  Documento documento{u"Movimenti"_s, 3, [](int numero) {
                        PaginaStampa pagina;
                        pagina.testo(0, 0, QString::number(numero));
                        pagina.carattere({u"DejaVu Sans"_s, 10, true});
                        pagina.riquadro(100, 100, 1000, 300);
                        return pagina;
                      }};
  documento.continua = [&](int quante) {
    fatte.append(quante);
    return quante < fermo;
  };
  const QString nome = m->file(u"movimenti.pdf"_s);
  struct Caso {
    std::optional<QString> file;
    int fermo, pagine;
  };
  for (const Caso& c : {Caso{{}, 3, 0}, Caso{nome, 2, 0}, Caso{nome, 3, 3}}) {
    fermo = c.fermo;
    fatte.clear();
    m->sceglie(c.file);
    const EsitoStampa esito = stampante.stampa(documento);
    EXPECT_EQ(esito.stampato, c.pagine > 0);
    EXPECT_EQ(esito.errore, QString());
    EXPECT_EQ(m->pagine(nome), c.pagine);
  }
  EXPECT_EQ(fatte, (QList<int>{0, 1, 2}));
}

}  // namespace
}  // namespace lokera
