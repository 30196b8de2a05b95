#include "access/decisioni.h"

#include "link/protocollo.h"
#include "store/date_jet.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr int riposo_dopo_rifiuto_ms = 5000;

QString testo_ascii(QByteArrayView v) {
  return QString::fromLatin1(v.data(), v.size());
}

}  // namespace

Decisioni::Decisioni(Database& db, const Clock& orologio, Giorno& giorno, PannelloLive& pannello,
                     MovimentiInAttesa& in_attesa, SessioneSlave& sessione)
    : db_(db),
      orologio_(orologio),
      giorno_(giorno),
      pannello_(pannello),
      in_attesa_(in_attesa),
      sessione_(sessione) {}

void Decisioni::smista(QByteArray& frame) {
  if (frame.size() < 16 || !frame_intero(frame)) return;
  const QByteArray codice = codice_comando(frame).toByteArray();
  if (codice == "00090" && stato_operazione == ' ') richiesta_operatore(frame);
  if (codice == "00091" && stato_operazione == ' ') richiesta_chiave(frame);
  if (codice == "00092") esito_operazione(frame);
}

void Decisioni::richiesta_operatore(QByteArray& testo) {
  pannello_.azzera_operatore();
  const QByteArray stato_tessera = campo_frame(testo, 18, 1).toByteArray();
  const QString codice = testo_ascii(campo_frame(testo, 19, 10));
  const bool ammesso = stato_tessera == "1" && operatore_ammesso(codice);
  tessera_rifiutata_ = !ammesso;
  rispondi(testo, ammesso ? "00090001" : "00090000");
  if (stato_tessera == "0") {
    pannello_.spegni_lampade();
    pannello_.lblIntestazione.Caption = pannello_.intestazione_a_riposo();
  } else {
    pannello_.ShapeP.FillColor = ammesso ? verde : rosso;
  }
  if (!ammesso) {
    pannello_.TimerSlot->Interval(riposo_dopo_rifiuto_ms);
    pannello_.TimerSlot->Enabled(true);
  }
}

bool Decisioni::operatore_ammesso(const QString& codice) {
  Recordset rs;
  if (!apri(rs, u"select * from tessere_operatori where codice = ?"_s, {codice})) return false;
  if (rs.eof()) return false;
  pannello_.lblP.Caption = codice;
  pannello_.lblIntestazione.Caption = rs.testo(u"intestazione");
  pannello_.lblPG.Caption = rs.testo(u"gruppo");
  const bool valida =
      entro_validita(rs.valore(u"valido_dal").toDateTime(), rs.valore(u"valido_al").toDateTime());
  const qlonglong massimo = rs.numero(u"NrMaxPrelievi");
  rs.Close();
  return entro_limite(codice, massimo) && valida;
}

// Both limits are calendar days and inclusive; a missing one imposes none.
bool Decisioni::entro_validita(const QDateTime& dal, const QDateTime& al) const {
  const QDate oggi = orologio_.adesso().date();
  return (!dal.isValid() || dal.date() <= oggi) && (!al.isValid() || oggi <= al.date());
}

// Who holds exactly the limit is still let in; 0 is no limit.
bool Decisioni::entro_limite(const QString& codice, qlonglong massimo) {
  if (massimo <= 0) return true;
  Recordset rs;
  if (!apri(rs, u"select count(*) as chiavi_uscite from tessere_chiavi where operatore = ?"_s, {codice}))
    return false;
  return rs.numero(u"chiavi_uscite") + in_attesa_.chiavi_uscite(codice) <= massimo;
}

void Decisioni::richiesta_chiave(QByteArray& testo) {
  const bool prelievo = campo_frame(testo, 18, 1) == "1";
  const QString codice = testo_ascii(campo_frame(testo, 19, 10));
  QString gruppo;
  const bool ammesso = !prelievo || prelievo_ammesso(codice, gruppo);
  const auto lato = prelievo ? PannelloLive::Lato::sinistro : PannelloLive::Lato::destro;
  stato_operazione = !ammesso ? ' ' : prelievo ? 'P' : 'R';
  pannello_.mostra_lato(lato, ammesso ? verde : rosso, codice, gruppo);
  if (ammesso)
    pannello_.ferma_timer();  // the panel says who and what until the end of the operation
  else
    pannello_.avvia_timer(lato);
  rispondi(testo, ammesso ? "00091001" : "00091000");
}

bool Decisioni::prelievo_ammesso(const QString& codice, QString& gruppo) {
  Recordset rs;
  if (!apri(rs, u"select * from tessere_chiavi where codice = ?"_s, {codice})) return false;
  if (rs.eof()) return false;
  const bool di_questa_lokera = rs.numero(u"lokera") == sessione_.lokera();
  gruppo = rs.testo(u"gruppo");
  rs.Close();
  return !tessera_rifiutata_ && gruppo_abilitato(gruppo) && di_questa_lokera && entro_fascia(gruppo);
}

bool Decisioni::gruppo_abilitato(const QString& gruppo) {
  if (gruppo.isEmpty()) return false;
  return esiste(u"SELECT * FROM gruppi_tessera WHERE tessera = ? AND codice = ?"_s,
                {pannello_.lblP.Caption(), gruppo.toLongLong()});
}

// Without a band for today and this pair of groups every hour is good; with one, only the hours inside.
bool Decisioni::entro_fascia(const QString& gruppo) {
  if (const Errore errore = giorno_.tipo_giorno(); errore.fallito()) {
    if (segnala) segnala(errore);
    return false;
  }
  const QVariantList fascia = {giorno_.giorno_corrente(), pannello_.lblPG.Caption().toLongLong(),
                               gruppo.toLongLong()};
  const QString tutte =
      u"select * from fascie_orarie where giorno = ? and gruppo_oper = ? and gruppo_chiavi = ?"_s;
  Recordset rs;
  if (!apri(rs, tutte, fascia)) return false;
  if (rs.eof()) return true;
  rs.Close();
  const QTime adesso = orologio_.adesso().time();
  const QDateTime al_minuto = ora(QTime(adesso.hour(), adesso.minute()));
  return esiste(tutte + u" and dalle_ore <= ? and alle_ore >= ?"_s,
                fascia + QVariantList{al_minuto, al_minuto});
}

void Decisioni::esito_operazione(QByteArray& testo) {
  QByteArray risposta = "00092" + campo_frame(testo, 7, 10).toByteArray();
  const QByteArray codice = campo_frame(testo, 18, 2).toByteArray();
  if (stato_operazione == 'P') esito_lato(PannelloLive::Lato::sinistro, true, codice, risposta);
  if (stato_operazione == 'R') esito_lato(PannelloLive::Lato::destro, false, codice, risposta);
  if (pannello_.modo_slave) pannello_.TimerSlot->Enabled(true);
  rispondi(testo, risposta);
  stato_operazione = ' ';
}

void Decisioni::esito_lato(PannelloLive::Lato lato, bool prelievo, const QByteArray& codice,
                           QByteArray& risposta) {
  if (codice == (prelievo ? "02" : "00")) {
    pannello_.mostra_esito(lato, verde, rosso);
    risposta += '1';
  } else if (codice == (prelievo ? "03" : "01")) {
    pannello_.mostra_esito(lato, rosso, verde);
    // A movement that could not be booked is not confirmed: the reply goes out without its digit.
    if (!registra_movimento(prelievo ? tipo_prelievo : tipo_riconsegna).fallito()) risposta += '0';
  }
  pannello_.avvia_timer(lato);
}

Errore Decisioni::registra_movimento(char tipo) {
  constexpr qsizetype caratteri_codice = 10;
  const Label& chiave = tipo == tipo_prelievo ? pannello_.lblSX : pannello_.lblDX;
  return in_attesa_.registra({.operatore = pannello_.lblP.Caption().left(caratteri_codice),
                              .intestazione = pannello_.lblIntestazione.Caption,
                              .chiave = chiave.Caption().left(caratteri_codice),
                              .operazione = tipo,
                              .data = orologio_.adesso()});
}

bool Decisioni::apri(Recordset& rs, const QString& sql, const QVariantList& valori) {
  const Errore errore = rs.Open(sql, db_.connessione_db, valori);
  if (errore.fallito() && segnala) segnala(errore);
  return !errore.fallito();
}

bool Decisioni::esiste(const QString& sql, const QVariantList& valori) {
  Recordset rs;
  return apri(rs, sql, valori) && !rs.eof();
}

void Decisioni::rispondi(QByteArray& testo, QByteArrayView risposta) {
  const QByteArray frame = componi_frame(risposta);
  testo.clear();
  sessione_.rispondi(frame);
}

}  // namespace lokera
