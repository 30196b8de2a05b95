// The card of the current row: its fields, its groups, its way into the tables.
#include "cards/codice_tessera.h"
#include "cards/frm_tessere_operatori.h"
#include "forms/celle_nominate.h"
#include "forms/formato.h"
#include "forms/messaggi.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr int massimo_intero = 32767;

QDate data(const QString& testo) {
  return QDate::fromString(testo, u"dd/MM/yyyy"_s);
}

std::optional<qlonglong> intero(const QString& testo) {
  const auto numero = leggi_numero(testo.trimmed());
  if (!numero || *numero > massimo_intero || *numero < -massimo_intero) return {};
  return qRound64(*numero);
}

}  // namespace

void frm_tessere_operatori::grd_RowColChange() {
  grd.ActiveRowStyleSet = u"bold"_s;
  const auto gruppi = archivio_.gruppi(grd.cella(grd.Row(), u"codice"));
  if (gruppi.fallito()) mostra_errore(gruppi.errore());
  spunta_gruppi(gruppi.fallito() ? QList<qlonglong>() : *gruppi);
  campi_da_riga();
}

void frm_tessere_operatori::spunta_gruppi(const QList<qlonglong>& gruppi) {
  for (int riga = 0; riga < grdGru.Rows(); ++riga) {
    const bool suo = gruppi.contains(grdGru.cella(riga, u"codice").toLongLong());
    grdGru.imposta_cella(riga, u"abil", (suo ? testo_spuntato : testo_non_spuntato).toString());
  }
}

QList<qlonglong> frm_tessere_operatori::gruppi_spuntati() const {
  QList<qlonglong> gruppi;
  for (int riga = 0; riga < grdGru.Rows(); ++riga)
    if (grdGru.spuntata(riga, grdGru.colonna(u"abil"))) gruppi += grdGru.cella(riga, u"codice").toLongLong();
  return gruppi;
}

void frm_tessere_operatori::campi_da_riga() {
  const int riga = grd.Row();
  const auto o_vuota = [](const QString& testo) {
    return testo.isEmpty() ? MaskEdBox::maschera_vuota.toString() : testo;
  };
  txtCodice.Text = txtCodiceVer.Text = grd.cella(riga, u"codice");
  Text1.Text = grd.cella(riga, u"intestazione").trimmed();
  txtAl.Text = o_vuota(grd.cella(riga, u"valido_al"));
  txtDal.Text = o_vuota(grd.cella(riga, u"valido_dal"));
  cmbGru.Value(grd.cella(riga, u"gruppo"));
  txtNrMaxPrelievi.Text = grd.cella(riga, u"NrMaxPrelievi");
  Text2.Text = grd.cella(riga, u"posizione");
  mostra_stato();
}

void frm_tessere_operatori::mostra_stato() {
  const auto chiavi = archivio_.chiavi_in_mano(grd.cella(grd.Row(), u"codice"));
  lblInMano.Caption = chiavi.fallito() || chiavi->isEmpty()
                          ? QString()
                          : traduci(u"Chiavi in mano:"_s) + u' ' + chiavi->join(u", "_s);
  lblScadenza.Caption = scadenza(grd.Row());
}

// Both days count whole; a card that is not valid yet looks like one that is no longer.
bool frm_tessere_operatori::scaduta(int riga) const {
  const QDate dal = data(grd.cella(riga, u"valido_dal"));
  const QDate al = data(grd.cella(riga, u"valido_al"));
  return (dal.isValid() && dal > oggi()) || (al.isValid() && al < oggi());
}

QString frm_tessere_operatori::scadenza(int riga) const {
  const QDate dal = data(grd.cella(riga, u"valido_dal"));
  const QDate al = data(grd.cella(riga, u"valido_al"));
  const auto giorni = [&](const QString& testo, qint64 quanti) {
    return traduci(testo) + u' ' + QString::number(quanti) + u' ' + traduci(u"giorni"_s);
  };
  if (dal.isValid() && dal > oggi()) return giorni(u"valida tra"_s, oggi().daysTo(dal));
  if (!al.isValid()) return {};
  if (al == oggi()) return traduci(u"scade oggi"_s);
  return al < oggi() ? giorni(u"scaduta da"_s, al.daysTo(oggi())) : giorni(u"scade tra"_s, oggi().daysTo(al));
}

std::optional<frm_tessere_operatori::Errato> frm_tessere_operatori::primo_errore() const {
  const QString errato = u"Campo obbligatorio errato"_s, mancante = u"Campo obbligatorio mancante"_s;
  if (!intero(cmbGru.Text)) return Errato{u"Inserire un codice di gruppo utente valido."_s, mancante};
  if (!codice_registrabile(txtCodice.Text)) return Errato{u"Inserire un codice tessera valido."_s, errato};
  if (Text1.Text().trimmed().isEmpty()) return Errato{u"Inserire intestazione."_s, mancante};
  if (!data(txtDal.Text).isValid())
    return Errato{u"Data di inizio validità mancante o non corretta."_s, errato};
  if (!data(txtAl.Text).isValid()) return Errato{u"Data di fine validità mancante o non corretta."_s, errato};
  if (!intero(txtNrMaxPrelievi.Text))
    return Errato{u"Numero massimo di prelievi mancante o non corretto"_s, errato};
  return {};
}

// The first failure ends it.
bool frm_tessere_operatori::campi_validi() {
  if (txtCodice.Text() != txtCodiceVer.Text()) {
    avvisa(u"codice e verifica diversi!"_s);
    return false;
  }
  const auto errato = primo_errore();
  if (errato) avvisa(errato->testo, errato->titolo, Icona::critica);
  return !errato;
}

// Dates that are reversed mean the time between them.
RigaTessera frm_tessere_operatori::dai_campi() {
  const QDate dal = data(txtDal.Text), al = data(txtAl.Text);
  qlonglong massimo = intero(txtNrMaxPrelievi.Text).value_or(0);
  if (massimo < 0) {
    massimo = 0;
    txtNrMaxPrelievi.Text = u"0"_s;
  }
  return {txtCodice.Text().trimmed(),
          Text1.Text().trimmed(),
          std::min(dal, al),
          std::max(dal, al),
          Text2.Text().trimmed().toInt(),
          *intero(cmbGru.Text),
          massimo};
}

void frm_tessere_operatori::Command1_Click() {
  const Attesa attesa(*this);
  if (!campi_validi()) return;
  const RigaTessera riga = dai_campi();
  const QString identita = nuovo_record ? QString() : grd.cella(grd.Row(), u"codice");
  if (doppia(riga.codice, identita)) return;
  if (const Errore e = archivio_.registra(identita, riga, gruppi_spuntati()); e.fallito())
    return mostra_errore(e);
  avvisa(u"Registrazione eseguita!"_s);
  nuovo_record = false;
  cambiAttivazione(false);
  elenca_operatori();
  grd.Row(riga_con(grd, u"codice", riga.codice));
}

void frm_tessere_operatori::Command5_Click() {
  const Attesa attesa(*this);
  if (const Errore e = archivio_.elimina(grd.cella(grd.Row(), u"codice")); e.fallito())
    return mostra_errore(e);
  Command2_Click();
}

void frm_tessere_operatori::txtCodice_LostFocus() {
  if (!nuovo_record || in_attesa()) return;
  const Attesa attesa(*this);
  if (doppia(txtCodice.Text().trimmed(), {})) txtCodice.Text = txtCodiceVer.Text = QString();
}

// Whether a card other than `propria` has the code, which is told; also when that can't be known.
bool frm_tessere_operatori::doppia(const QString& codice, const QString& propria) {
  if (codice.isEmpty() || codice.compare(propria, Qt::CaseInsensitive) == 0) return false;
  const auto titolare = archivio_.titolare(codice);
  if (titolare.fallito())
    mostra_errore(titolare.errore());
  else if (*titolare)
    servizi_.griglie.messaggi.mostra(traduci(u"Tessera "_s) + codice + u' ' +
                                     traduci(u"già esistente nel sistema!"_s) + u" ( "_s +
                                     (*titolare)->trimmed() + u" )"_s);
  return titolare.fallito() || *titolare;
}

void frm_tessere_operatori::Command11_Click() {
  const Attesa attesa(*this);
  if (conferma(
          servizi_.griglie.traduttore, servizi_.griglie.messaggi,
          u"Vuoi riaggiornare le tessere operatori nella lokera? (prima di questa operazione è necessario aver azzerato l'archivio da Parametri Sistema)"_s))
    aggiorna_tutte();
}

// A row that could not be registered as it stands is none to be sent.
bool frm_tessere_operatori::riga_completa(int riga) const {
  return codice_registrabile(grd.cella(riga, u"codice")) &&
         !grd.cella(riga, u"intestazione").trimmed().isEmpty() &&
         data(grd.cella(riga, u"valido_dal")).isValid() && data(grd.cella(riga, u"valido_al")).isValid() &&
         intero(grd.cella(riga, u"gruppo")) && intero(grd.cella(riga, u"NrMaxPrelievi"));
}

// As many at a time as one stretch of the loop bears.
void frm_tessere_operatori::aggiorna_tutte() {
  Lavoro::Corsa corsa(lavoro, grd.Rows());
  int riga = 0;
  while (corsa.continua(riga)) {
    std::vector<QString> tessere;
    tessere.reserve(TessereScelte::al_massimo);
    for (; riga < grd.Rows() && tessere.size() < TessereScelte::al_massimo; ++riga)
      if (riga_completa(riga)) tessere.push_back(grd.cella(riga, u"codice"));
    if (tessere.empty()) continue;
    if (const Errore e = coda_.accoda_scritture(TessereScelte::ovunque(tessere)); e.fallito())
      return mostra_errore(e);
  }
  if (corsa.finito()) avvisa(u"Aggiornamento eseguito!"_s);
}

}  // namespace lokera
