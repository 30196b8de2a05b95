#include "simulation/giornata/mano_chiavi.h"

#include <algorithm>

namespace lokera::simulazione {

using namespace Qt::StringLiterals;

namespace {
constexpr int chiavi_al_massimo = 16;
constexpr int chiavi_almeno = 7;

bool dice(const QStringList& messaggi, const QString& inizio) {
  return std::ranges::any_of(messaggi, [&](const QString& m) { return m.startsWith(inizio); });
}
}  // namespace

void ManoChiavi::mossa() {
  if (f_.Command2.Enabled()) return dopo_un_guasto();
  const int chiavi = f_.grd.Rows();
  const quint64 quale = m_.caso.sotto(12);
  if (quale < 2) return altra_lokera();
  if (quale < 5 && chiavi < chiavi_al_massimo) return nuova();
  if (quale < 9) return modifica();
  if (quale < 11 && chiavi > chiavi_almeno) return elimina();
  if (m_.caso.per_mille(500)) return tutte();
  m_.premi(f_.Command10);
}

void ManoChiavi::dopo_un_guasto() {
  if (m_.caso.per_mille(600))
    registra();
  else
    m_.premi(f_.Command2);
}

void ManoChiavi::altra_lokera() {
  scegli(m_.caso.fra(1, static_cast<qint64>(m_.sito.posti().size())));
}

void ManoChiavi::scegli(qlonglong lokera) {
  if (f_.comboLKR.Enabled()) f_.comboLKR.utente_sceglie_voce(static_cast<int>(lokera) - 1);
}

bool ManoChiavi::vai_a(const QString& codice) {
  for (int riga = 0; riga < f_.grd.Rows(); ++riga) {
    f_.grd.Row(riga);
    if (corrente() == codice) return true;
  }
  return false;
}

bool ManoChiavi::ripeti(const QString& codice) {
  if (!vai_a(codice)) return false;
  m_.sospesa.clear();
  m_.premi(f_.Command4);
  return registra();
}

void ManoChiavi::nuova() {
  m_.sospesa.clear();
  m_.premi(f_.Command3);
  if (!f_.nuovo_record) return;
  const bool gia_presa = m_.caso.per_mille(80);
  f_.txtCodice.Text = gia_presa ? m_.uno_di(m_.attesi.chiavi).first : m_.codice_nuovo(true);
  f_.txtCodiceVer.Text = m_.caso.per_mille(50) ? u"8299999999"_s : f_.txtCodice.Text();
  f_.Text1.Text = u"chiave nuova %1"_s.arg(m_.caso.sotto(100));
  f_.comboG.Value(QString::number(m_.gruppo_chiavi()));
  if (m_.caso.per_mille(400)) sposta();
  registra();
}

void ManoChiavi::modifica() {
  if (f_.grd.Rows() == 0) return;
  f_.grd.Row(static_cast<int>(m_.caso.sotto(static_cast<quint64>(f_.grd.Rows()))));
  m_.sospesa.clear();
  m_.premi(f_.Command4);
  if (!f_.Command1.Enabled()) return;
  cambia(corrente());
  if (m_.caso.per_mille(100))
    m_.premi(f_.Command2);
  else
    registra();
}

void ManoChiavi::cambia(const QString& codice) {
  const quint64 quale = m_.caso.sotto(6);
  if (quale == 0) f_.Text1.Text = u"chiave %1"_s.arg(m_.caso.sotto(1000));
  if (quale <= 2 && del_gruppo_resta(codice)) f_.comboG.Value(QString::number(m_.gruppo_chiavi()));
  if (quale >= 2 && quale <= 4) sposta();
  if (quale >= 4 && appesa(codice)) f_.txtCodice.Text = f_.txtCodiceVer.Text = m_.codice_nuovo(true);
}

// Mostly where there is room for one; now and then where there isn't, beyond the last, or not after all.
void ManoChiavi::sposta() {
  std::optional<QString> dove = QString::number(m_.caso.fra(0, 199));
  if (m_.caso.per_mille(300)) dove = QString::number(m_.caso.fra(0, 5));
  if (m_.caso.per_mille(50)) dove = u"200"_s;
  if (m_.caso.per_mille(50)) dove.reset();
  m_.vm.primo().domande.risposte = {dove};
  m_.premi(f_.Command8);
}

bool ManoChiavi::registra() {
  if (!Mano::si_preme(f_.Command1)) return false;
  const QString identita = f_.nuovo_record ? f_.txtCodice.Text().trimmed() : corrente();
  const ChiaveAttesa chiave{lokera(), f_.Text2.Text().toLongLong(), f_.Text1.Text().trimmed(),
                            f_.comboG.Text().toLongLong()};
  const QString codice = f_.txtCodice.Text().trimmed();
  const QStringList messaggi = m_.premi(f_.Command1);
  const bool fatta = dice(messaggi, u"Registrazione eseguita!"_s);
  if (!fatta && !messaggi.isEmpty()) {
    if (codice == m_.sospesa && dice(messaggi, u"Tessera "_s))
      m_.errata(u"a key whose registration failed can't be registered again: "_s + messaggi.join(u' '));
    return false;
  }
  scritta(m_.attesi.chiavi.contains(codice) ? codice : identita, chiave, fatta);
  if (codice != identita && m_.attesi.chiavi.erase(identita) > 0)
    m_.attesi.da_ripetere.erase({chiave.lokera, identita});
  m_.attesi.chiavi[codice] = chiave;
  m_.sospesa = fatta ? QString() : codice;
  if (fatta)
    m_.attesi.da_ripetere.erase({chiave.lokera, codice});
  else
    m_.attesi.da_ripetere.insert({chiave.lokera, codice});
  return fatta;
}

void ManoChiavi::scritta(const QString& identita, const ChiaveAttesa& chiave, bool in_lokera) {
  const auto prima = m_.attesi.chiavi.find(identita);
  if (prima != m_.attesi.chiavi.end() && prima->second.posizione != chiave.posizione)
    m_.attesi.lasciate.insert({chiave.lokera, prima->second.posizione});
  if (in_lokera) m_.attesi.lasciate.erase({chiave.lokera, chiave.posizione});
}

void ManoChiavi::elimina() {
  f_.grd.Row(static_cast<int>(m_.caso.sotto(static_cast<quint64>(f_.grd.Rows()))));
  const QString codice = corrente();
  if (!del_gruppo_resta(codice) || !appesa(codice)) return;
  const qlonglong posizione = f_.grd.cella(f_.grd.Row(), u"posizione").toLongLong();
  m_.premi(f_.Command4);
  if (!f_.Command5.Enabled()) return;
  if (!m_.premi(f_.Command5).isEmpty()) {
    m_.attesi.da_ripetere.insert({lokera(), codice});
    m_.premi(f_.Command2);
    return;
  }
  m_.attesi.chiavi.erase(codice);
  m_.attesi.da_ripetere.erase({lokera(), codice});
  m_.attesi.lasciate.erase({lokera(), posizione});
}

// Whatever came of it, the window tells at the end only how many cards wait.
void ManoChiavi::tutte() {
  m_.premi(f_.Command7);
  if (!f_.lblTrattenute.Caption().isEmpty()) m_.attesi.da_ripetere.insert({lokera(), QString()});
}

bool ManoChiavi::del_gruppo_resta(const QString& codice) const {
  const auto sua = m_.attesi.chiavi.find(codice);
  if (sua == m_.attesi.chiavi.end()) return false;
  const ChiaveAttesa& chiave = sua->second;
  if (chiave.gruppo == 1 || chiave.gruppo > SitoGiornata::gruppi_chiavi) return true;
  return std::ranges::count_if(m_.attesi.chiavi, [&](const auto& una) {
           return una.second.lokera == chiave.lokera && una.second.gruppo == chiave.gruppo;
         }) > 1;
}

bool ManoChiavi::appesa(const QString& codice) const {
  const auto& chiavi = m_.sito.posti()[static_cast<size_t>(lokera() - 1)].cabinet->chiavi();
  const auto sua = chiavi.find(codice.toLatin1());
  const bool fuori = sua != chiavi.end() && sua->second.fuori;
  return !fuori && f_.grd.cella(f_.grd.Row(), u"operatore").trimmed().isEmpty();
}

}  // namespace lokera::simulazione
