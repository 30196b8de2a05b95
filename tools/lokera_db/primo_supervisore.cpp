#include "primo_supervisore.h"

#include <cstdio>

#include "store/recordset.h"
#include "terminale.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr int tentativi = 3;

Errore rifiuto(const QString& perche) {
  return {1, perche};
}

Errore interrotto() {
  return rifiuto(u"Interrotto: il file non è stato creato."_s);
}

// With blanks only nobody could log in.
Errore controlla_nome(const QString& nome) {
  return nome.trimmed().isEmpty() ? rifiuto(u"Inserire il nome dell'utente."_s) : Errore{};
}
Errore controlla_password(const QString& password) {
  return password.trimmed().isEmpty() ? rifiuto(u"Inserire la password."_s) : Errore{};
}

Esito<QString> password_due_volte() {
  Errore errore;
  for (int i = 0; i < tentativi; ++i) {
    const auto prima = domanda(u"Password: "_s, true);
    const auto seconda = prima ? domanda(u"Conferma password: "_s, true) : std::nullopt;
    if (!seconda) return interrotto();
    errore = *prima == *seconda ? controlla_password(*prima)
                                : rifiuto(u"La password non corrisponde con quella di conferma."_s);
    if (!errore.fallito()) return *prima;
    if (i + 1 < tentativi) (void)std::fprintf(stderr, "%s\n", qPrintable(errore.descrizione));
  }
  return errore;
}

Esito<QString> chiedi_password() {
  return a_terminale() ? password_due_volte() : Esito<QString>(leggi_riga().value_or(QString()));
}

}  // namespace

Esito<PrimoSupervisore> chiedi_supervisore(const std::optional<QString>& nome) {
  std::optional<QString> chi = nome;
  if (!nome) {
    if (!a_terminale()) return PrimoSupervisore{};
    chi = domanda(u"Nome del primo supervisore (vuoto: nessuno): "_s);
    if (!chi) return interrotto();
    if (chi->isEmpty()) return PrimoSupervisore{};
  }
  if (Errore e = controlla_nome(*chi); e.fallito()) return e;
  const Esito<QString> password = chiedi_password();
  if (password.fallito()) return password.errore();
  return PrimoSupervisore{*chi, *password};
}

Errore aggiungi_supervisore(Connection& connessione, const PrimoSupervisore& utente) {
  if (Errore e = controlla_nome(utente.nome); e.fallito()) return e;
  if (Errore e = controlla_password(utente.password); e.fallito()) return e;
  Recordset rs;
  Errore e =
      rs.Open(u"SELECT * FROM operatori WHERE user = ?"_s, connessione, {utente.nome}, Cursore::aggiornabile);
  if (!e.fallito()) e = rs.AddNew();
  if (!e.fallito()) e = rs.imposta(u"user", utente.nome);
  if (!e.fallito()) e = rs.imposta(u"pwd", utente.password);
  if (!e.fallito()) e = rs.imposta(u"su", 1);
  if (!e.fallito()) e = rs.Update();
  return e;
}

}  // namespace lokera
