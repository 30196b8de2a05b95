#include "simulation/giornata/mano_tessere.h"

#include <algorithm>

namespace lokera::simulazione {

using namespace Qt::StringLiterals;

namespace {
constexpr int tessere_al_massimo = 20;
constexpr int tessere_almeno = 6;
}  // namespace

void ManoTessere::mossa() {
  if (f_.Command2.Enabled()) {
    m_.premi(f_.Command2);
    return;
  }
  const quint64 quale = m_.caso.sotto(12);
  if (quale < 3 && f_.grd.Rows() < tessere_al_massimo) return nuova();
  if (quale < 8) return modifica();
  if (quale < 10 && f_.grd.Rows() > tessere_almeno) return elimina();
  altro();
}

void ManoTessere::altro() {
  const quint64 quale = m_.caso.sotto(3);
  m_.premi(quale == 0 ? f_.Command11 : quale == 1 ? f_.Command10 : f_.Command7);
}

void ManoTessere::scegli_riga() {
  f_.grd.Row(static_cast<int>(m_.caso.sotto(static_cast<quint64>(f_.grd.Rows()))));
}

// Now and then that of a card that is gone, or on its way out.
QString ManoTessere::codice() {
  if (m_.attesi.eliminate.isEmpty() || !m_.caso.per_mille(300)) return m_.codice_nuovo(false);
  return m_.attesi
      .eliminate[static_cast<qsizetype>(m_.caso.sotto(static_cast<quint64>(m_.attesi.eliminate.size())))];
}

QString ManoTessere::giorno(qint64 da_oggi) const {
  return m_.vm.orologio().adesso().date().addDays(da_oggi).toString(u"dd/MM/yyyy"_s);
}

void ManoTessere::date_a_caso() {
  f_.txtDal.Text = giorno(m_.caso.fra(-400, 20));
  f_.txtAl.Text = giorno(m_.caso.fra(-20, 400));
}

void ManoTessere::gruppi_a_caso() {
  if (m_.caso.per_mille(100)) {
    m_.premi(f_.Command8);
    return;
  }
  for (int riga = 0; riga < f_.grdGru.Rows(); ++riga) {
    const bool suo = m_.caso.per_mille(400);
    f_.grdGru.imposta_cella(riga, u"abil", (suo ? testo_spuntato : testo_non_spuntato).toString());
  }
}

void ManoTessere::nuova() {
  m_.premi(f_.Command3);
  f_.txtCodice.Text = m_.caso.per_mille(80) ? m_.uno_di(m_.attesi.tessere).first : codice();
  f_.txtCodiceVer.Text = f_.txtCodice.Text();
  f_.Text1.Text = u"operatore %1"_s.arg(m_.caso.sotto(1000));
  f_.cmbGru.Value(QString::number(m_.caso.fra(1, SitoGiornata::gruppi_operatori)));
  f_.txtNrMaxPrelievi.Text = QString::number(m_.caso.fra(-1, 3));
  date_a_caso();
  gruppi_a_caso();
  registra();
}

void ManoTessere::modifica() {
  scegli_riga();
  m_.premi(f_.Command4);
  cambia();
  if (m_.caso.per_mille(100))
    m_.premi(f_.Command2);
  else
    registra();
}

void ManoTessere::cambia() {
  const quint64 quale = m_.caso.sotto(8);
  if (quale < 4) gruppi_a_caso();
  if (quale == 3) f_.cmbGru.Value(QString::number(m_.caso.fra(1, SitoGiornata::gruppi_operatori)));
  if (quale == 4) date_a_caso();
  if (quale == 5) f_.txtNrMaxPrelievi.Text = QString::number(m_.caso.fra(-1, 3));
  if (quale >= 6) f_.txtCodice.Text = f_.txtCodiceVer.Text = codice();
}

void ManoTessere::elimina() {
  scegli_riga();
  m_.premi(f_.Command4);
  const QString tessera = corrente();
  for (const QString& testo : m_.premi(f_.Command5)) m_.errata(u"a card can't be deleted: "_s + testo);
  m_.attesi.tessere.erase(tessera);
  m_.attesi.eliminate << tessera;
}

TesseraAttesa ManoTessere::dai_campi() const {
  const QDate dal = QDate::fromString(f_.txtDal.Text(), u"dd/MM/yyyy"_s);
  const QDate al = QDate::fromString(f_.txtAl.Text(), u"dd/MM/yyyy"_s);
  TesseraAttesa tessera{f_.Text1.Text().trimmed(),
                        std::min(dal, al),
                        std::max(dal, al),
                        f_.cmbGru.Text().toLongLong(),
                        std::max(0LL, f_.txtNrMaxPrelievi.Text().toLongLong()),
                        {}};
  for (int riga = 0; riga < f_.grdGru.Rows(); ++riga)
    if (f_.grdGru.cella(riga, u"abil") == testo_spuntato)
      tessera.gruppi.insert(f_.grdGru.cella(riga, u"codice").toLongLong());
  return tessera;
}

void ManoTessere::registra() {
  const QString identita = f_.nuovo_record ? QString() : corrente();
  const QString codice = f_.txtCodice.Text();
  const TesseraAttesa tessera = dai_campi();
  if (!m_.premi(f_.Command1).contains(u"Registrazione eseguita!"_s)) return;
  if (identita != codice && m_.attesi.tessere.erase(identita) > 0) m_.attesi.eliminate << identita;
  m_.attesi.eliminate.removeAll(codice);
  m_.attesi.tessere[codice] = tessera;
}

}  // namespace lokera::simulazione
