#include "supervisor/frm_operatori.h"

#include <utility>

#include "forms/celle_nominate.h"
#include "forms/messaggi.h"
#include "forms/prepara_liste.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

const QString& elenco_utenti() {
  static const QString sql = u"SELECT * FROM operatori ORDER BY user"_s;
  return sql;
}

}  // namespace

frm_operatori::frm_operatori(ElencoFinestre& elenco, Connection& archivio, ServiziGriglia& servizi,
                             Desktop& desktop)
    : Finestra(elenco, u"frm_operatori"_s),
      grd(*this, u"grd"_s),
      lblUser(*this, u"lblUser"_s, u"utente"_s),
      lblPwd(*this, u"lblPwd"_s, u"password"_s),
      lblConfermaPwd(*this, u"lblConfermaPwd"_s, u"conferma password"_s),
      txtUser(*this, u"txtUser"_s),
      txtPwd(*this, u"txtPwd"_s),
      txtConfermaPwd(*this, u"txtConfermaPwd"_s),
      Check1(*this, u"Check1"_s),
      Command5(*this, u"Command5"_s, u"nuovo"_s),
      Command4(*this, u"Command4"_s, u"modifica"_s),
      Command1(*this, u"Command1"_s, u"registra"_s),
      Command2(*this, u"Command2"_s, u"annulla mod."_s),
      Command3(*this, u"Command3"_s, u"elimina"_s),
      archivio_(archivio),
      servizi_(servizi),
      desktop_(desktop),
      griglia_(grd, servizi) {
  Check1.Caption = u"utente supervisore"_s;
  maschera_password();
  collega_eventi();
  abilita_comandi(Stato::consultazione);
}

void frm_operatori::collega_eventi() {
  grd.RowColChange = [this] { grd_RowColChange(); };
  // Nothing that was copied elsewhere gets into a password by a slip, and none gets out.
  txtPwd.GotFocus = [this] {
    desktop_.svuota_appunti();
    txtConfermaPwd.Text = QString();
  };
  txtConfermaPwd.GotFocus = [this] { desktop_.svuota_appunti(); };
  const auto blocca_elenco = [this] { grd.Enabled = false; };
  for (TextBox* t : {&txtUser, &txtPwd, &txtConfermaPwd}) t->Change = blocca_elenco;
  Check1.Click = blocca_elenco;
  Command1.Click = [this] { Command1_Click(); };
  Command2.Click = [this] { Command2_Click(); };
  Command3.Click = [this] { Command3_Click(); };
  Command4.Click = [this] { Command4_Click(); };
  Command5.Click = [this] { Command5_Click(); };
}

void frm_operatori::Form_Load() {
  griglia_.riserva(u"pwd"_s);
  prepara_liste(*this, servizi_, archivio_, u"   Operatori"_s, {{griglia_, elenco_utenti()}});
  Check1.Caption = servizi_.traduttore.traduci(u"utente supervisore"_s);
  griglia_.popola(archivio_, elenco_utenti());
  grd_RowColChange();
}

void frm_operatori::grd_RowColChange() {
  const int riga = grd.Row();
  txtUser.Text = grd.cella(riga, u"user");
  txtPwd.Text = grd.cella(riga, u"pwd");
  txtConfermaPwd.Text = grd.cella(riga, u"pwd");
  Check1.Value = grd.spuntata(riga, grd.colonna(u"su")) ? 1 : 0;
}

void frm_operatori::abilita_comandi(Stato stato) {
  stato_ = stato;
  const bool modifica = stato != Stato::consultazione;
  for (TextBox* t : {&txtUser, &txtPwd, &txtConfermaPwd}) t->Enabled = modifica;
  Check1.Enabled = Command1.Enabled = Command2.Enabled = modifica;
  Command4.Enabled = Command5.Enabled = !modifica;
  Command3.Enabled = true;
  grd.Enabled = stato != Stato::nuovo;
}

void frm_operatori::maschera_password() {
  txtPwd.nascosto = txtConfermaPwd.nascosto = true;
}

void frm_operatori::svuota_password() {
  txtPwd.Text = txtConfermaPwd.Text = u" "_s;
}

/// Reads the list again and stands on the user, when it is there. No password is in the boxes after it.
void frm_operatori::ricarica(QString utente) {
  const QString cercato = std::move(utente);
  griglia_.popola(archivio_, elenco_utenti());
  if (const int riga = riga_con(grd, u"user", cercato); riga >= 0) grd.Row(riga);
  grd_RowColChange();
  svuota_password();
  grd.Enabled = true;
}

void frm_operatori::Command1_Click() {
  const Attesa attesa(*this);
  if (txtPwd.Text().isEmpty() || txtConfermaPwd.Text().isEmpty())
    return avvisa(servizi_.traduttore, servizi_.messaggi, u"Non sono state apportate modifiche."_s);
  if (txtPwd.Text() != txtConfermaPwd.Text())
    return avvisa(servizi_.traduttore, servizi_.messaggi,
                  u"La password non corrisponde con quella di conferma."_s);
  if (txtUser.Text().trimmed().isEmpty())
    return avvisa(servizi_.traduttore, servizi_.messaggi, u"Inserire il nome dell'utente."_s);
  if (const Errore e = registra(); e.fallito()) return servizi_.messaggi.mostra(e.descrizione);
  if (stato_ == Stato::nuovo) abilita_comandi(Stato::modifica);
  ricarica(txtUser.Text());
}

Errore frm_operatori::registra() {
  Recordset rs;
  Errore e = rs.Open(u"SELECT * FROM operatori WHERE user = ?"_s, archivio_, {txtUser.Text()},
                     Cursore::aggiornabile);
  if (!e.fallito() && rs.eof()) e = rs.AddNew();
  if (!e.fallito()) e = rs.imposta(u"user", txtUser.Text());
  if (!e.fallito()) e = rs.imposta(u"pwd", txtPwd.Text());
  if (!e.fallito()) e = rs.imposta(u"su", Check1.Value());
  if (!e.fallito()) e = rs.Update();
  return e;
}

void frm_operatori::Command5_Click() {
  grd.AddItem(QStringList());
  grd.Row(grd.Rows() - 1);
  abilita_comandi(Stato::nuovo);
  Command3.Enabled = false;
  maschera_password();
  txtUser.SetFocus();
}

void frm_operatori::Command4_Click() {
  grd_RowColChange();  // leaving an edit took the password out of the boxes
  abilita_comandi(Stato::modifica);
  maschera_password();
  txtUser.SetFocus();
}

void frm_operatori::Command2_Click() {
  if (stato_ == Stato::nuovo) grd.RemoveItem(grd.Rows() - 1);  // it was never a user
  grd.Row(grd.Rows() - 1);
  grd_RowColChange();
  abilita_comandi(Stato::consultazione);
  svuota_password();
  grd.SetFocus();
}

Errore frm_operatori::elimina() {
  Recordset rs;
  Errore e =
      rs.Open(u"SELECT * FROM operatori WHERE user =?"_s, archivio_, {txtUser.Text()}, Cursore::aggiornabile);
  if (!e.fallito() && !rs.eof()) e = rs.Delete();
  return e;
}

void frm_operatori::Command3_Click() {
  const Attesa attesa(*this);
  if (const Errore e = elimina(); e.fallito()) return servizi_.messaggi.mostra(e.descrizione);
  ricarica();
}

}  // namespace lokera
