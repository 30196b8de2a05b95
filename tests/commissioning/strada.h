#pragma once

#include "aiuti/righe.h"
#include "commissioning/frm_param_lokere.h"
#include "link/protocollo.h"
#include "simulation/cabinet/cabinet_server.h"
#include "simulation/macchina/virtual_dialogs.h"
#include "supervisor/console.h"

namespace lokera::prova {

/// The road from three cabinets on a network, of which the database knows one, to a cabinet at work. The same
/// steps on both machines: the cabinets listen on the network that the console's machine reaches.
class Strada {
 public:
  using Rete = simulazione::Rete;

  /// Empty database; `computer` is the console's own name.
  Strada(Console& console, Rete& rete, simulazione::VirtualMessageBox& messaggi, const QString& computer)
      : console_(console), rete_(rete), messaggi_(messaggi), computer_(computer) {
    esegui(console.db().connessione_db,
           u"insert into parametri (ID, descrizione, IP_lokera, funzionamento, lingua, slot, computer_ctrl) "
           u"values"
           " (1, 'nota', '127.000.000.002', 0, 0, 1, ?)"_s,
           {computer});
  }

  void percorri() {
    ASSERT_TRUE(nota_.apri() && gemella_.apri() && nuova_.apri());
    console_.principale().Form_Load();
    finestra_ = static_cast<frm_param_lokere*>(console_.finestre().apri(u"frm_param_lokere"_s));
    cerca_tutte();
    cambia_indirizzo();
    registra();
    visita();
  }

 private:
  using Cabinet = simulazione::Cabinet;
  using CabinetServer = simulazione::CabinetServer;

  QStringList detti() {
    QStringList testi = messaggi_.testi();
    messaggi_.mostrati.clear();
    return testi;
  }
  /// Rows found by the search, as "id@address seriale".
  QStringList cerca() {
    finestra_->Command4_Click();
    const SSOleDBGrid& g = finestra_->lista.grdLok;
    QStringList trovate;
    for (int n = 0; n < g.Rows(); ++n)
      if (finestra_->lista.in_linea(n))
        trovate += g.cella(n, u"id") + u'@' + g.cella(n, u"ip_lokera") + u' ' + g.cella(n, u"seriale");
    return trovate;
  }

  void cerca_tutte() {
    QStringList trovate = cerca();
    trovate.sort();  // who answers first is chance
    // The twin hears the search and has no line of its own: who is called there is the first.
    EXPECT_EQ(trovate,
              (QStringList{u"1@127.000.000.002 11"_s, u"@127.000.000.002 11"_s, u"@127.000.000.009 33"_s}));
    EXPECT_EQ(detti().size(), 2) << "each of the twins is told of";
  }

  // Only the cabinet that is meant may be on.
  void cambia_indirizzo() {
    nota_.chiudi();
    gemella_.chiudi();
    ASSERT_EQ(cerca(), QStringList{u"@127.000.000.009 33"_s});
    finestra_->lista.grdLok.Row(1);
    finestra_->cmdModifica_Click();
    finestra_->pannello.txtIndirizzoIP.Text = u"127.000.000.020"_s;
    finestra_->Command2_Click();
    EXPECT_EQ(detti().value(0), u"Parametri di rete impostati correttamente."_s);
    console_.griglie().attesa.attendi_oltre(1);
    ASSERT_EQ(cerca(), QStringList{u"@127.000.000.020 33"_s});
  }

  void registra() {
    finestra_->lista.grdLok.Row(1);
    finestra_->cmdModifica_Click();
    PannelloParametri& p = finestra_->pannello;
    p.txtID.Text = u"2"_s;
    p.txtDescrizione.Text = u"nuova"_s;
    p.cmbPC.Value(computer_);
    p.txtTimeSbloccoPorta.Text = u"700"_s;
    finestra_->cmdRegPar_Click();
    EXPECT_EQ(
        detti(),
        QStringList{
            u"Parametri impostati correttamente. Uscire dal programma e rientrare perchè le modifiche abbiano effetto."_s});
    console_.griglie().attesa.attendi_oltre(1);
    EXPECT_EQ(cabinet_nuova_.stato().parametri_in_uso.sblocco_porta, 70);
    EXPECT_LE(qAbs(cabinet_nuova_.stato().orologio.adesso().secsTo(console_.macchina().orologio.adesso())),
              5);
    finestra_->Command10_Click();
    EXPECT_EQ(finestra_->lblChiaviLok.Caption(), u"Chiavi reg. sulla lokera: 0000"_s);
    EXPECT_EQ(detti(), QStringList());
  }

  void visita() {
    finestra_->chiudi();
    console_.griglie().attesa.attendi(2, [&] { return console_.elenco().conta() == 1; });
    CicloDownload& ciclo = console_.parti().ciclo;
    ciclo.grdLokere.Row(0);
    ciclo.mnuScarTrans_Click();
    EXPECT_EQ(console_.principale().corrente.lblNome.Caption(), u"nuova (0)"_s);
    EXPECT_EQ(console_.principale().lblStatusD.Caption(), u"ON line"_s);
    EXPECT_EQ(ciclo.grdLokere.cella(1, u"seriale"), u"33"_s);
  }

  Console& console_;
  Rete& rete_;
  simulazione::VirtualMessageBox& messaggi_;
  const QString computer_;
  frm_param_lokere* finestra_ = nullptr;
  simulazione::RegistroEventi registro_;
  const Machine& m_ = console_.macchina();
  Cabinet cabinet_nota_{{.indirizzo = u"127.0.0.2"_s, .seriale = "0000000011"}, m_.orologio, registro_};
  Cabinet cabinet_gemella_{Cabinet::di_fabbrica("0000000022", u"127.0.0.2"_s), m_.orologio, registro_};
  Cabinet cabinet_nuova_{Cabinet::di_fabbrica("0000000033", u"127.0.0.9"_s), m_.orologio, registro_};
  CabinetServer nota_{cabinet_nota_, rete_, m_.orologio, m_.timer};
  CabinetServer gemella_{cabinet_gemella_, rete_, m_.orologio, m_.timer};
  CabinetServer nuova_{cabinet_nuova_, rete_, m_.orologio, m_.timer};
};

}  // namespace lokera::prova
