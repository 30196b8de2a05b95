#include "simulation/giornata/sito_giornata.h"

#include <algorithm>

#include "store/date_jet.h"

namespace lokera::simulazione {

using namespace Qt::StringLiterals;

namespace {

constexpr int chiavi_per_lokera = 10;

// In base 9 with the digits 1 to 9.
QString cifre_senza_zero(int numero, int quante) {
  QString testo;
  for (int i = 0; i < quante; ++i, numero /= 9) testo.prepend(QChar(u'1' + numero % 9));
  return testo;
}

int posizione_chiave(int lokera, int k) {
  return (k * 11 + lokera * 3) % 144;
}

}  // namespace

QString SitoGiornata::codice_tessera(int i) {
  return u"51"_s + cifre_senza_zero(i, 8);
}
QString SitoGiornata::codice_chiave(int i) {
  return u"82"_s + cifre_senza_zero(i, 8);
}

SitoGiornata::SitoGiornata(const ImpostazioniGiornata& impostazioni, VirtualMachine& vm,
                           RegistroEventi& registro)
    : impostazioni_(impostazioni), caso_(seme_di(impostazioni.seme, 0)) {
  for (int i = 1; i <= impostazioni.lokere; ++i) posti_.push_back(crea(i, vm, registro));
}

SitoGiornata::Posto SitoGiornata::crea(int ordine, VirtualMachine& vm, RegistroEventi& registro) const {
  Posto posto;
  const QByteArray seriale = QByteArray::number(ordine).rightJustified(10, '0');
  posto.cabinet = std::make_unique<Cabinet>(Cabinet::Identita{u"127.0.0.%1"_s.arg(ordine + 1), seriale},
                                            vm.orologio(), registro);
  posto.cabinet->imposta_gestito(impostazioni_.gestita && ordine == 1);
  for (int k = 0; k < chiavi_per_lokera; ++k) {
    const QString codice = codice_chiave((ordine - 1) * chiavi_per_lokera + k);
    posto.cabinet->appendi(posizione_chiave(ordine, k), codice.toLatin1());
  }
  Comportamento comportamento;
  comportamento.seme = seme_di(impostazioni_.seme, 1000 + static_cast<quint64>(ordine));
  if (impostazioni_.guasti) comportamento.riavvio_ms = 20'000;
  if (impostazioni_.lente) comportamento.lento_ms = 1500;
  posto.server = std::make_unique<CabinetServer>(*posto.cabinet, vm.rete(), vm.orologio(), vm.primo().timer,
                                                 comportamento);
  Persone::Abitudini abitudini;
  abitudini.seme = comportamento.seme + 1;
  abitudini.eventi_ora = impostazioni_.eventi_ora;
  for (int i = 0; i < tessere(); ++i) abitudini.tessere.push_back(codice_tessera(i).toLatin1());
  posto.persone =
      std::make_unique<Persone>(*posto.server, vm.orologio(), vm.primo().timer, std::move(abitudini));
  return posto;
}

bool SitoGiornata::apri() {
  return std::ranges::all_of(posti_, [](const Posto& p) { return p.server->apri(); });
}

void SitoGiornata::persone(bool attive) {
  for (const Posto& p : posti_) p.persone->attive(attive);
}

bool SitoGiornata::quieto() const {
  return std::ranges::all_of(posti_, [](const Posto& p) {
    return !p.server->occupato() && p.cabinet->stato().transazioni.numero() == 0;
  });
}

Errore SitoGiornata::riempi(Connection& c) {
  return in_transazione(c, [&]() -> Errore {
    if (Errore e = lokere(c); e.fallito()) return e;
    if (Errore e = chiavi(c); e.fallito()) return e;
    if (Errore e = tessere(c); e.fallito()) return e;
    return fasce(c);
  });
}

Errore SitoGiornata::lokere(Connection& c) const {
  for (int id = 1; id <= impostazioni_.lokere; ++id) {
    if (Errore e = c.Execute(
            u"insert into parametri (ID, descrizione, IP_lokera, funzionamento, lingua,"
            " tempo_di_comunicazione, tempo_attesa_inizio, slot, computer_ctrl) values (?, ?, ?, ?, 0, 2500,"
            " 30, 1, ?)"_s,
            {id, u"lokera %1"_s.arg(id), u"127.000.000.%1"_s.arg(id + 1, 3, 10, QChar(u'0')),
             impostazioni_.gestita && id == 1 ? 1 : 0, u"PC-CENTRALE"_s});
        e.fallito())
      return e;
  }
  return {};
}

Errore SitoGiornata::chiavi(Connection& c) {
  for (int i = 0; i < impostazioni_.lokere * chiavi_per_lokera; ++i) {
    const int lokera = i / chiavi_per_lokera + 1;
    const int k = i % chiavi_per_lokera;
    const qint64 gruppo = k < gruppi_chiavi ? k + 1 : caso_.fra(1, gruppi_chiavi);
    if (Errore e =
            c.Execute(u"insert into tessere_chiavi (codice, lokera, posizione, descrizione, gruppo,"
                      " operatore) values (?, ?, ?, ?, ?, ' ')"_s,
                      {codice_chiave(i), lokera, posizione_chiave(lokera, k), u"chiave %1"_s.arg(i), gruppo});
        e.fallito())
      return e;
  }
  return {};
}

Errore SitoGiornata::tessere(Connection& c) {
  for (int i = 0; i < tessere(); ++i) {
    if (Errore e = c.Execute(u"insert into tessere_operatori (codice, intestazione, gruppo, NrMaxPrelievi)"
                             " values (?, ?, ?, ?)"_s,
                             {codice_tessera(i), u"operatore %1"_s.arg(i), caso_.fra(1, gruppi_operatori),
                              i % 4 == 0 ? 2 : 0});
        e.fallito())
      return e;
    for (int gruppo = 1; gruppo <= gruppi_chiavi; ++gruppo) {
      if (gruppo != 1 && caso_.per_mille(500)) continue;
      if (Errore e = c.Execute(u"insert into gruppi_tessera (tessera, codice) values (?, ?)"_s,
                               {codice_tessera(i), gruppo});
          e.fallito())
        return e;
    }
    for (int id = 1; id <= impostazioni_.lokere; ++id) {
      if (Errore e = c.Execute(
              u"insert into aggiorn_tessere_oper (ID_tessera, ID_lokera, operazione) values (?, ?, 'I')"_s,
              {codice_tessera(i), id});
          e.fallito())
        return e;
    }
  }
  return {};
}

// The first pair has none, so that some cards always work.
Errore SitoGiornata::fasce(Connection& c) {
  for (int operatori = 1; operatori <= gruppi_operatori; ++operatori) {
    for (int chiavi = 2; chiavi <= gruppi_chiavi; ++chiavi) {
      if (caso_.per_mille(400)) continue;
      if (Errore e = fasce_di(c, operatori, chiavi); e.fallito()) return e;
    }
  }
  if (!caso_.per_mille(500)) return {};
  return c.Execute(u"insert into giorni_particolari (GG, MM, AAAA, giorno) values (30, 11, ?, 'Mercoledì')"_s,
                   {caso_.per_mille(500) ? 2008 : 0});
}

Errore SitoGiornata::fasce_di(Connection& c, int operatori, int chiavi) {
  for (const QString& giorno :
       {u"Lunedì"_s, u"Martedì"_s, u"Mercoledì"_s, u"Giovedì"_s, u"Venerdì"_s, u"Sabato"_s, u"Domenica"_s}) {
    const auto fascia = [&](QTime dalle, qint64 minuti) {
      return c.Execute(
          u"insert into fascie_orarie (gruppo_oper, gruppo_chiavi, giorno, dalle_ore, alle_ore)"
          " values (?, ?, ?, ?, ?)"_s,
          {operatori, chiavi, giorno, ora(dalle), ora(dalle.addSecs(static_cast<int>(minuti) * 60))});
    };
    const QTime mattina(static_cast<int>(caso_.fra(6, 8)), static_cast<int>(caso_.fra(0, 59)));
    if (Errore e = fascia(mattina, caso_.fra(30, 170)); e.fallito()) return e;
    const QTime sera(18, static_cast<int>(caso_.fra(0, 59)));
    if (caso_.per_mille(500)) continue;
    if (Errore e = fascia(sera, caso_.fra(30, 90)); e.fallito()) return e;
  }
  return {};
}

}  // namespace lokera::simulazione
