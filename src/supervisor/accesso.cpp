#include "supervisor/accesso.h"

#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {
const QString& servizio() {
  static const QString nome = u"ZandorTool"_s;
  return nome;
}

// The store keeps a blank where a text is missing, so a row without a password would open to a blank.
bool manca(const QString& testo) {
  return testo.trimmed().isEmpty();
}
}  // namespace

Accesso::Accesso(Finestra& f, Database& db, const Clock& orologio, Traduttore& traduttore,
                 MessageBox& messaggi, const SessioneSlave& slave)
    : mnuAbile(f, u"mnuAbile"_s, u"   abilita"_s),
      pctLogin(f, u"pctLogin"_s),
      lblUtente(f, u"lblUtente"_s, u"utente"_s),
      lblPassword(f, u"lblPassword"_s, u"password"_s),
      txtUtente(f, u"txtUtente"_s),
      txtPassword(f, u"txtPassword"_s),
      cmdLogin(f, u"cmdLogin"_s, u"accedi"_s),
      Command6(f, u"Command6"_s, u"annulla"_s),
      db_(db),
      orologio_(orologio),
      traduttore_(traduttore),
      messaggi_(messaggi),
      slave_(slave) {
  pctLogin.Visible = false;
  txtPassword.nascosto = true;
  mnuAbile.Click = [this] { mnuAbile_Click(); };
  cmdLogin.Click = [this] { cmdLogin_Click(); };
  Command6.Click = [this] { Command6_Click(); };
}

// The last user of this computer.
QString Accesso::ultimo_utente() const {
  Recordset rs;
  if (rs.Open(u"SELECT user, ultima_entrata FROM operatori WHERE pc = ? ORDER BY ultima_entrata DESC"_s,
              db_.connessione_db, {slave_.nome_computer()})
          .fallito())
    return {};
  return rs.testo(u"user");
}

void Accesso::mnuAbile_Click() {
  if (const QString utente = ultimo_utente(); !utente.isEmpty()) txtUtente.Text = utente;
  if (txtUtente.Text() == servizio()) txtUtente.Text = QString();
  if (accesso_abilitato) {
    esci();
    return;
  }
  pctLogin.Visible = true;
  txtPassword.Text = QString();
  (txtUtente.Text().isEmpty() ? txtUtente : txtPassword).SetFocus();
}

bool Accesso::utente_di_servizio(const QString& password) const {
  return txtUtente.Text() == servizio() && password == servizio();
}

Esito<Accesso::Verifica> Accesso::verifica_utente(const QString& password) {
  if (utente_di_servizio(password)) return Verifica::buona;
  Recordset rs;
  if (const Errore e = rs.Open(u"SELECT * FROM operatori where user = ?"_s, db_.connessione_db,
                               {txtUtente.Text()}, Cursore::aggiornabile);
      e.fallito())
    return e;
  if (rs.eof() || manca(txtUtente.Text())) return Verifica::sconosciuto;
  if (manca(password) || rs.testo(u"pwd") != password) return Verifica::password_errata;
  // Who may enter isn't kept out because the moment of the entry can't be written.
  (void)rs.imposta(u"ultima_entrata", orologio_.adesso());
  (void)rs.imposta(u"pc", slave_.nome_computer());
  (void)rs.Update();
  return Verifica::buona;
}

void Accesso::cmdLogin_Click() {
  // Whatever comes of it, a password that was read is left in no box.
  const QString password = txtPassword.Text;
  txtPassword.Text = QString();
  const auto verifica = verifica_utente(password);
  if (verifica.fallito()) return messaggi_.mostra(verifica.errore().descrizione);
  switch (*verifica) {
    case Verifica::buona:
      entra();
      break;
    case Verifica::sconosciuto:
      messaggi_.mostra(traduttore_.traduci(u"utente non registrato"_s));
      txtUtente.Text = QString();
      txtUtente.SetFocus();
      break;
    case Verifica::password_errata:
      messaggi_.mostra(traduttore_.traduci(u"password errata"_s));
      txtPassword.SetFocus();
      break;
  }
}

void Accesso::entra() {
  mnuAbile.Caption = traduttore_.traduci(u"disabilita"_s);
  pctLogin.Visible = false;
  if (abilita_menu) abilita_menu(true);
  accesso_abilitato = true;
}

void Accesso::esci() {
  accesso_abilitato = false;
  mnuAbile.Caption = traduttore_.traduci(u"   abilita  "_s);
  if (abilita_menu) abilita_menu(false);
}

void Accesso::Command6_Click() {
  pctLogin.Visible = false;
}

}  // namespace lokera
