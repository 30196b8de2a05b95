// The reader on the desk from a tag to the box of its code, on the real port.
#include <QFile>
#include <QTemporaryDir>

#include <gtest/gtest.h>

#include "adapters/real_machine.h"
#include "cards/lettore_tavolo.h"
#include "platform/letterali.h"
#include "platform/polled_wait.h"
#include "simulation/servizio/lettore_finto.h"

namespace lokera {
namespace {

using simulazione::LettoreFinto;

struct Scatole : MessageBox {
  Risposta apri(const Messaggio& m) override {
    mostrati.append(m.testo);
    return Risposta::ok;
  }
  QStringList mostrati;
};

TEST(Lettore, reads_tag_after_tag_and_outlives_its_cable) {
  const QTemporaryDir dev;
  LettoreFinto finto(dev.filePath(u"ttyUSB1"_s), {"123456789A"}, 1);
  ASSERT_EQ(finto.attacca(), QString());
  QFile::link(u"nowhere"_s, dev.filePath(u"lokera-lettore2"_s));
  for (const QString& altro : {u"ttyS1"_s, u"ttyUSBa"_s, u"lokera-lettore0"_s}) {
    QFile file(dev.filePath(altro));
    ASSERT_TRUE(file.open(QIODevice::WriteOnly));  // no terminal, and names of no number
  }
  RealMachine reale(dev.path());
  Machine pc = reale.macchina();
  PolledWait attesa(pc.orologio, pc.ciclo);
  EXPECT_EQ(pc.seriali.presenti(),
            (std::vector<PortaSeriale>{{2, dev.filePath(u"ttyS1"_s)}, {2, dev.filePath(u"ttyUSB1"_s)}}));

  Database db;
  Traduttore traduttore(db);
  Scatole messaggi;
  ElencoFinestre elenco;
  Finestra finestra(elenco, u"frm_prova"_s);
  TextBox txtCodice(finestra, u"txtCodice"_s);
  TextBox txtCodiceVer(finestra, u"txtCodiceVer"_s);
  LettoreTavolo lettore(finestra,
                        {db.connessione_db, pc.seriali, pc.orologio, pc.timer, traduttore, messaggi, u"PC"_s},
                        {txtCodice, txtCodiceVer, [] { return false; }, [] {}});
  finto.mostra();  // to nobody
  lettore.txtNrSeriale.Text = u"2"_s;
  lettore.Command6_Click();
  EXPECT_TRUE(attesa.attendi(5, [&] { return !lettore.txtNrSeriale.ToolTip().isEmpty(); }));
  EXPECT_TRUE(lettore.txtNrSeriale.ToolTip().startsWith(u"Seriale nr. 2: "_s + dev.filePath(u"ttyUSB1"_s)));
  attesa.cedi();
  EXPECT_EQ(txtCodice.Text(), QString());
  for (TextBox* casella : {&txtCodice, &txtCodiceVer}) {
    const QString codice = QString::fromLatin1(finto.mostra());
    EXPECT_TRUE(attesa.attendi(5, [&] { return !casella->Text().isEmpty(); }));
    EXPECT_EQ(casella->Text(), codice);
  }
  messaggi.mostrati.clear();
  finto.stacca();
  EXPECT_TRUE(attesa.attendi(5, [&] { return !messaggi.mostrati.isEmpty(); }));
  EXPECT_EQ(lettore.Command6.Caption(), u"attiva"_s);
}

}  // namespace
}  // namespace lokera
