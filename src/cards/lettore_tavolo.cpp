#include "cards/lettore_tavolo.h"

#include "cards/codice_da_lettura.h"
#include "platform/letterali.h"
#include "store/recordset.h"

namespace lokera {

namespace {

constexpr qsizetype cifre_lettura = 16;
constexpr int elenco_dopo_ms = 200;

const QString& riga_del_computer() {
  static const QString sql =
      u"SELECT nome_computer, nr_seriale_vidimatore FROM computers WHERE nome_computer = ?"_s;
  return sql;
}

}  // namespace

LettoreTavolo::LettoreTavolo(Finestra& finestra, const ServiziLettore& servizi, CampiLettura campi)
    : txtNrSeriale(finestra, u"txtNrSeriale"_s),
      Command6(finestra, u"Command6"_s, u"attiva"_s),
      finestra_(finestra),
      servizi_(servizi),
      campi_(std::move(campi)),
      porta_(servizi.seriali.crea_mscomm()),
      fine_(servizi.timer.crea_timer()),
      elenca_(servizi.timer.crea_timer()) {
  txtNrSeriale.Change = txtNrSeriale.GotFocus = [this] { mostra_dispositivi(); };
  Command6.Click = [this] { Command6_Click(); };
  porta_->OnComm = [this] { arrivo(); };
  porta_->Perduta = [this] { perduta(); };
  fine_->Evento = [this] { fine_lettura(); };
  elenca_->Interval(elenco_dopo_ms);
  elenca_->Evento = [this] { mostra_dispositivi(); };
}

void LettoreTavolo::Form_Load() {
  const auto registrato = numero_registrato();
  if (registrato.fallito()) mostra(registrato.errore().descrizione);
  if (!*registrato) return disattiva();
  txtNrSeriale.Text = **registrato;
  apri();
}

void LettoreTavolo::chiudi() {
  fine_->Enabled(false);
  attivo_ = false;
  porta_->PortOpen(false);
}

void LettoreTavolo::Command6_Click() {
  if (attivo_) return disattiva();
  if (!apri()) return;
  if (const Errore e = registra_numero(); e.fallito()) mostra(e.descrizione);
}

/// Nothing when there is no row for this computer.
Esito<std::optional<QString>> LettoreTavolo::numero_registrato() {
  Recordset rs;
  if (Errore e = rs.Open(riga_del_computer(), servizi_.archivio, {servizi_.nome_computer}); e.fallito())
    return e;
  if (rs.eof()) return std::optional<QString>();
  return std::optional(rs.testo(u"nr_seriale_vidimatore"));
}

Errore LettoreTavolo::registra_numero() {
  Recordset rs;
  if (Errore e =
          rs.Open(riga_del_computer(), servizi_.archivio, {servizi_.nome_computer}, Cursore::aggiornabile);
      e.fallito())
    return e;
  if (rs.eof()) {
    if (Errore e = rs.AddNew(); e.fallito()) return e;
  }
  (void)rs.imposta(u"nome_computer", servizi_.nome_computer);
  (void)rs.imposta(u"nr_seriale_vidimatore", numero());
  return rs.Update();
}

/// 0 for what is no port's number, or none that the file can hold.
int LettoreTavolo::numero() const {
  const int n = txtNrSeriale.Text().trimmed().toShort();
  return std::max(n, 0);
}

bool LettoreTavolo::apri() {
  if (apri_porta()) {
    attiva(true);
    return true;
  }
  elenca_->Enabled(true);
  mostra(traduci(u"Seriale nr. "_s) + txtNrSeriale.Text() + traduci(u" non valida!"_s));
  return false;
}

bool LettoreTavolo::apri_porta() {
  chiudi();
  porta_->CommPort(numero());
  return numero() > 0 && porta_->PortOpen(true);
}

void LettoreTavolo::attiva(bool attivo) {
  attivo_ = attivo;
  txtNrSeriale.Enabled = !attivo;
  Command6.Caption = attivo ? traduci(u"disattiva"_s) : traduci(u"attiva"_s);
  elenca_->Enabled(true);
}

void LettoreTavolo::disattiva() {
  chiudi();
  attiva(false);
}

/// Drops what has not been read.
void LettoreTavolo::riapri() {
  porta_->PortOpen(false);
  if (!porta_->PortOpen(true)) perduta();
}

void LettoreTavolo::perduta() {
  if (!attivo_) return;
  disattiva();
  mostra(traduci(u"Il lettore da tavolo non è più collegato!"_s) + u" ("_s + traduci(u"Seriale nr. "_s) +
         txtNrSeriale.Text() + u')');
}

void LettoreTavolo::mostra_dispositivi() {
  elenca_->Enabled(false);
  const QString suo = porta_->PortOpen() ? porta_->dispositivo()
                      : numero() > 0     ? servizi_.seriali.dispositivi(numero()).join(u", "_s)
                                         : u"-"_s;
  QStringList presenti;
  for (const PortaSeriale& porta : servizi_.seriali.presenti())
    presenti += u"%1 = %2"_s.arg(porta.numero).arg(porta.dispositivo);
  txtNrSeriale.ToolTip = traduci(u"Seriale nr. "_s) + txtNrSeriale.Text() + u": "_s + suo + u'\n' +
                         traduci(u"Dispositivi collegati"_s) + u": "_s +
                         (presenti.isEmpty() ? u"-"_s : presenti.join(u", "_s));
}

void LettoreTavolo::mostra(const QString& testo) {
  const Finestra::Attesa attesa(finestra_);
  servizi_.messaggi.mostra(testo);
}

void LettoreTavolo::arrivo() {
  if (occupato_) return svuota();
  if (!fine_->Enabled()) {
    if (!campi_.txtCodice.Enabled()) return riapri();
    testo_lettura_.clear();
    fine_->Interval(1000 - servizi_.orologio.adesso().time().msec());
    fine_->Enabled(true);
  }
  raccogli();
  if (testo_lettura_.size() >= cifre_lettura) fine_lettura();
}

void LettoreTavolo::raccogli() {
  while (testo_lettura_.size() < cifre_lettura && porta_->InBufferCount() > 0)
    testo_lettura_ += QString::fromLatin1(porta_->Input().toHex().toUpper());
}

void LettoreTavolo::svuota() {
  while (porta_->InBufferCount() > 0) porta_->Input();
}

void LettoreTavolo::fine_lettura() {
  raccogli();  // what came just now and is not announced
  fine_->Enabled(false);
  // The beginning of a tag and nothing behind it: there is nothing to drop either.
  if (testo_lettura_.isEmpty() || testo_lettura_ == "FF01"_L1) return;
  const Finestra::Attesa attesa(finestra_);
  const QString codice = codice_da_lettura(testo_lettura_);
  occupato_ = true;
  riapri();
  if (!codice.isEmpty() && campi_.txtCodice.Enabled()) compila(codice);
  svuota();
  occupato_ = false;
}

void LettoreTavolo::compila(const QString& codice) {
  if (!campi_.txtCodice.Text().trimmed().isEmpty()) {
    campi_.txtCodiceVer.Text = codice;
    campi_.txtCodiceVer.SetFocus();
    return;
  }
  campi_.txtCodice.Text = codice;
  if (campi_.nuovo_record()) campi_.controlla_doppia();
  if (campi_.txtCodice.Enabled()) campi_.txtCodice.SetFocus();
}

}  // namespace lokera
