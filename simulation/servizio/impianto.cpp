#include "simulation/servizio/impianto.h"

namespace lokera::simulazione {

using namespace Qt::StringLiterals;

namespace {

bool locale(const QString& indirizzo) {
  return indirizzo.startsWith(u"127."_s);
}

QByteArray riga(const QByteArrayList& campi) {
  return campi.join('\t') + '\n';
}

std::vector<RigaRichiesta> parte(const OpzioniSimulatore& opzioni, const QString& indirizzo, int ordine) {
  std::vector<RigaRichiesta> sue;
  for (const RigaRichiesta& r : opzioni.richieste) {
    if (nomina_cabinet(r.cabinet, indirizzo, ordine)) sue.push_back(r);
  }
  return sue;
}

QByteArray ganci(const Cabinet& cabinet) {
  QByteArray testo;
  for (const auto& [codice, chiave] : cabinet.chiavi()) {
    testo += riga({"gancio", cabinet.nome().toLatin1(), QByteArray::number(chiave.posizione), codice,
                   chiave.fuori ? "fuori" : "dentro", chiave.fuori ? chiave.chi : "-"});
  }
  return testo;
}

QByteArray contenuto(const Cabinet& cabinet) {
  const QByteArray nome = cabinet.nome().toLatin1();
  const StatoCabinet& stato = cabinet.stato();
  QByteArray testo;
  for (const auto& [posizione, record] : stato.operatori.record()) {
    testo += riga({"operatore", nome, QByteArray::number(posizione), record.first(10), record.mid(10)});
  }
  for (const auto& [posizione, record] : stato.chiavi.record()) {
    testo += riga({"chiave", nome, QByteArray::number(posizione), record});
  }
  const ReteCabinet& rete = stato.rete;
  const ParametriCabinet& p = stato.parametri;
  testo += riga({"rete", nome, rete.indirizzo.toLatin1(), QByteArray::number(rete.porta),
                 rete.maschera.toLatin1(), rete.gateway.toLatin1()});
  testo += riga({"parametri", nome, QByteArray::number(p.funzionamento), QByteArray::number(p.lingua),
                 QByteArray::number(p.dataora), QByteArray::number(p.retroilluminazione),
                 QByteArray::number(p.comunicazione), QByteArray::number(p.sblocco_porta),
                 QByteArray::number(p.attesa_inizio), QByteArray::number(p.attesa_fine)});
  testo += riga({"orologio", nome, stato.orologio.adesso().toString(u"yyyy-MM-dd hh:mm:ss"_s).toLatin1()});
  return testo + ganci(cabinet) +
         riga({"transazioni", nome, QByteArray::number(stato.transazioni.numero())}) +
         riga({"riavvii", nome, QByteArray::number(cabinet.riavvii())});
}

}  // namespace

Impianto::Impianto(const OpzioniSimulatore& opzioni, Rete& rete, const Clock& clock, TimerFactory& timer,
                   RegistroEventi& registro)
    : clock_(clock), timer_(timer) {
  for (int i = 0; i < opzioni.indirizzi.size(); ++i) posti_.push_back(crea(opzioni, i + 1, rete, registro));
}

Impianto::Posto Impianto::crea(const OpzioniSimulatore& opzioni, int ordine, Rete& rete,
                               RegistroEventi& registro) {
  Posto posto;
  const QString indirizzo = opzioni.indirizzi[ordine - 1];
  const QByteArray seriale = QByteArray::number(opzioni.seriale + ordine - 1).rightJustified(10, '0');
  const quint64 seme = seme_di(opzioni.seme, static_cast<quint64>(ordine));
  const Cabinet::Identita identita =
      opzioni.fabbrica ? Cabinet::di_fabbrica(seriale, indirizzo) : Cabinet::Identita{indirizzo, seriale};
  posto.cabinet = std::make_unique<Cabinet>(identita, clock_, registro);
  posto.cabinet->imposta_gestito(opzioni.gestiti.contains(indirizzo));
  opzioni.sito.appendi(*posto.cabinet, ordine, opzioni.registra_chiavi);

  Comportamento comportamento = opzioni.comportamento;
  comportamento.seme = seme;
  posto.server = std::make_unique<CabinetServer>(*posto.cabinet, rete, clock_, timer_, comportamento);
  posto.server->Ammesso = locale;
  posto.server->Parla = [this, indirizzo](quint16 porta, char verso, QByteArrayView frame) {
    if (Parla) Parla(indirizzo, porta, verso, frame);
  };

  Persone::Abitudini abitudini;
  abitudini.seme = seme;
  abitudini.eventi_ora = opzioni.eventi_ora;
  abitudini.tessere = opzioni.sito.tessere;
  posto.persone = std::make_unique<Persone>(*posto.server, clock_, timer_, abitudini);
  posto.copione = std::make_unique<Copione>(*posto.server, clock_, timer_, parte(opzioni, indirizzo, ordine));
  return posto;
}

QString Impianto::apri() {
  for (const Posto& posto : posti_) {
    if (!posto.server->apri()) return posto.cabinet->nome();
  }
  return {};
}

void Impianto::inizia() {
  for (const Posto& posto : posti_) {
    posto.persone->attive(true);
    posto.copione->inizia();
  }
}

void Impianto::basta_prelievi() {
  for (const Posto& posto : posti_) posto.persone->basta_prelievi();
}

void Impianto::chiudi() {
  for (const Posto& posto : posti_) {
    posto.persone->attive(false);
    posto.server->chiudi();
  }
}

QByteArray Impianto::archivio() const {
  QByteArray testo;
  for (const Posto& posto : posti_) testo += contenuto(*posto.cabinet);
  return testo;
}

}  // namespace lokera::simulazione
