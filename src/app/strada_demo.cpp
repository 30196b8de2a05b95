#include "app/strada_demo.h"

#include <QApplication>
#include <QMessageBox>

#include <cstdio>

#include "commissioning/frm_param_lokere.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {
constexpr int lettura_ms = 400;
}

StradaDemo::StradaDemo(Avvio& avvio, Scatta scatta) : avvio_(avvio), scatta_(std::move(scatta)) {
  scatole_.setInterval(lettura_ms);
  scatole_.callOnTimeout([this] { leggi_scatola(); });
}

void StradaDemo::leggi_scatola() {
  auto* scatola = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
  if (!scatola) return;
  std::printf("messaggio: %s\n", qPrintable(scatola->text()));
  scatta_(*scatola, u"messaggio"_s);
  scatola->accept();
}

void StradaDemo::percorri() {
  scatole_.start();
  auto* f = static_cast<frm_param_lokere*>(avvio_.console().finestre().apri(u"frm_param_lokere"_s));
  QWidget& forma = *avvio_.schermo().forma(*f);
  QTimer::singleShot(4000, &forma, [&] { scatta_(forma, u"ricerca"_s); });
  f->Command4_Click();
  std::printf("ricerca: %d lokere\n", f->lista.grdLok.Rows());
  int riga = 0;
  while (riga < f->lista.grdLok.Rows() && registra(*f, riga)) ++riga;
  scatta_(forma, u"registrate"_s);
  std::printf("registrate: %d lokere\n", riga);
  f->chiudi();
  scatole_.stop();
}

bool StradaDemo::registra(frm_param_lokere& f, int riga) {
  f.lista.grdLok.Row(riga);
  f.cmdModifica_Click();
  PannelloParametri& p = f.pannello;
  p.txtID.Text = QString::number(riga + 1);
  p.txtDescrizione.Text = u"Lokera %1"_s.arg(riga + 1);
  p.cmbPC.Value(avvio_.console().parti().slave.nome_computer());
  for (TextBox* t : {&p.txtTimeComServer, &p.txtTimeSbloccoPorta}) t->Text = u"1000"_s;
  for (TextBox* t : {&p.txtTimeStart, &p.txtTimeEnd}) t->Text = u"30"_s;
  if (riga == 0) scatta_(*avvio_.schermo().forma(f), u"parametri"_s);
  f.cmdRegPar_Click();
  // The reset that ends a registration takes all of them away for a moment.
  avvio_.console().griglie().attesa.attendi_oltre(1);
  return !p.pnlPar.Enabled();
}

}  // namespace lokera
