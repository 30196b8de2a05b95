#include "simulation/cabinet/cabinet_comandi.h"

#include <algorithm>
#include <optional>

#include "link/protocollo.h"
#include "simulation/cabinet/campi.h"

namespace lokera::simulazione {

using namespace Qt::StringLiterals;

namespace {

constexpr char bene[] = "00";
constexpr char errore_bcc[] = "02";
constexpr char fuori_limite[] = "03";
constexpr char sconosciuto[] = "04";
constexpr char impossibile[] = "05";
constexpr char non_valido[] = "13";
constexpr char assente[] = "14";

struct RispostaCabinet {
  QByteArray codice;
  QByteArray dati = {};
};

struct Comando {
  StatoCabinet& stato;
  SessioneCabinet& sessione;
  QByteArrayView dati;  ///< what stands behind the five-character code
  bool& riavvio;

  /// The archive that the first character names; null for another character.
  Archivio* archivio() const {
    if (dati.startsWith('0')) return &stato.operatori;
    if (dati.startsWith('1')) return &stato.chiavi;
    return nullptr;
  }
};

QByteArray quattro_cifre(int numero) {
  return QByteArray::number(numero).rightJustified(4, '0');
}

RispostaCabinet prova_collegamento(const Comando&) {
  return {bene, "1"};
}

RispostaCabinet regola_orologio(const Comando& c) {
  if (c.dati.size() != 15) return {non_valido};
  const auto giorno = numero_decimale(c.dati.first(1));
  const auto momento = momento_da_cifre(c.dati.sliced(1));
  if (!giorno || *giorno < 1 || *giorno > 7 || !momento) return {fuori_limite};
  c.stato.orologio.regola(*momento);
  return {bene};
}

RispostaCabinet leggi_record(const Comando& c) {
  const Archivio* archivio = c.archivio();
  if (c.dati.size() != 5) return {non_valido};
  const auto posizione = numero_decimale(c.dati.sliced(1));
  if (!archivio || !posizione || !archivio->esiste(*posizione)) return {fuori_limite};
  const QByteArray record = archivio->leggi(*posizione);
  if (record.isEmpty()) return {assente};
  return {bene, record};
}

RispostaCabinet scrivi_record(const Comando& c) {
  Archivio* archivio = c.archivio();
  if (!archivio) return {fuori_limite};
  const bool operatore = archivio == &c.stato.operatori;
  if (c.dati.size() != 15 + (operatore ? cifre_maschera : 0)) return {non_valido};
  const auto posizione = numero_decimale(c.dati.sliced(1, 4));
  const QByteArrayView record = c.dati.sliced(5);
  if (!posizione || !archivio->esiste(*posizione) || !stampabile(record.first(10)) ||
      !cifre_esadecimali(record.sliced(10))) {
    return {fuori_limite};
  }
  archivio->scrivi(*posizione, record.toByteArray());
  return {bene};
}

RispostaCabinet cancella_record(const Comando& c) {
  Archivio* archivio = c.archivio();
  if (c.dati.size() != 5) return {non_valido};
  const auto posizione = numero_decimale(c.dati.sliced(1));
  if (!archivio || !posizione || !archivio->esiste(*posizione)) return {fuori_limite};
  return {archivio->togli(*posizione) ? bene : assente};
}

RispostaCabinet svuota_archivio(const Comando& c) {
  Archivio* archivio = c.archivio();
  if (c.dati.size() != 1) return {non_valido};
  if (!archivio) return {fuori_limite};
  return {bene, quattro_cifre(archivio->svuota())};
}

RispostaCabinet conta_record(const Comando& c) {
  const Archivio* archivio = c.archivio();
  if (c.dati.size() != 1) return {non_valido};
  if (!archivio) return {fuori_limite};
  return {bene, quattro_cifre(archivio->numero())};
}

RispostaCabinet leggi_transazione(const Comando& c) {
  const TransazioneMemorizzata* prima = c.stato.transazioni.prima();
  if (!prima) return {assente};
  c.sessione.letta = prima->n;
  c.stato.registro.passo(prima->n, PassoMovimento::letto, c.stato.orologio.adesso());
  return {bene, testo_transazione(prima->movimento)};
}

RispostaCabinet conferma_transazione(const Comando& c) {
  const TransazioneMemorizzata* prima = c.stato.transazioni.prima();
  const quint64 letta = std::exchange(c.sessione.letta, 0);
  if (!prima || letta != prima->n) return {impossibile};
  c.stato.transazioni.togli_prima();
  c.stato.registro.passo(letta, PassoMovimento::confermato, c.stato.orologio.adesso());
  return {bene};
}

RispostaCabinet conta_transazioni(const Comando& c) {
  return {bene, quattro_cifre(c.stato.transazioni.numero())};
}

RispostaCabinet leggi_seriale(const Comando& c) {
  return {bene, c.stato.seriale};
}

RispostaCabinet leggi_orologio(const Comando& c) {
  const QDateTime ora = c.stato.orologio.adesso();
  const int giorno = ora.date().dayOfWeek() % 7 + 1;  // 1 is Sunday
  return {bene, QByteArray::number(giorno) + ora.toString(u"ddMMyyyyhhmmss"_s).toLatin1()};
}

RispostaCabinet registra_parametri(const Comando& c) {
  struct Campo {
    int ParametriCabinet::*valore;
    int minimo;
    int massimo;
  };
  static constexpr Campo campi[] = {
      {&ParametriCabinet::funzionamento, 0, 1},   {&ParametriCabinet::lingua, 0, 1},
      {&ParametriCabinet::dataora, 0, 1},         {&ParametriCabinet::retroilluminazione, 0, 1},
      {&ParametriCabinet::comunicazione, 1, 250}, {&ParametriCabinet::sblocco_porta, 10, 250},
      {&ParametriCabinet::attesa_inizio, 1, 250}, {&ParametriCabinet::attesa_fine, 1, 250},
  };
  if (c.dati.size() != 32) return {non_valido};
  if (c.dati.sliced(16) != "0100000000000000") return {fuori_limite};
  ParametriCabinet nuovi;
  for (qsizetype da = 0; const Campo& campo : campi) {
    const auto valore = numero_esadecimale(c.dati.sliced(da, 2));
    if (!valore || *valore < campo.minimo || *valore > campo.massimo) return {fuori_limite};
    nuovi.*campo.valore = *valore;
    da += 2;
  }
  c.stato.parametri = nuovi;
  return {bene};
}

// Behind the reply code the cabinet names itself and its release; nobody reads those fourteen characters.
RispostaCabinet scoperta(const Comando& c) {
  const ReteCabinet& r = c.stato.rete_in_uso;
  return {bene, c.stato.seriale + "01" + cifre_indirizzo(r.indirizzo) +
                    QByteArray::number(r.porta).rightJustified(5, '0') + cifre_indirizzo(r.maschera) +
                    cifre_indirizzo(r.gateway)};
}

RispostaCabinet registra_rete(const Comando& c) {
  if (c.dati.size() != 41) return {non_valido};
  const auto porta = numero_decimale(c.dati.sliced(12, 5));
  ReteCabinet nuova{indirizzo_da_cifre(c.dati.first(12)), 0, indirizzo_da_cifre(c.dati.sliced(17, 12)),
                    indirizzo_da_cifre(c.dati.sliced(29))};
  if (!porta || *porta < 1 || *porta > 65535 || *porta == porta_viva) return {fuori_limite};
  if (nuova.indirizzo.isEmpty() || nuova.maschera.isEmpty() || nuova.gateway.isEmpty()) return {fuori_limite};
  const int rete = nuova.indirizzo.section(u'.', 0, 0).toInt();
  if (rete < 1 || rete > 223) return {fuori_limite};  // of no single host
  nuova.porta = static_cast<quint16>(*porta);
  c.stato.rete = nuova;
  return {bene};
}

RispostaCabinet riavvia(const Comando& c) {
  c.riavvio = true;
  return {};
}

struct Voce {
  const char* codice;
  Porta porta;
  bool con_dati;  ///< false: anything behind the code makes the command invalid
  RispostaCabinet (*esegui)(const Comando&);
};

constexpr Voce catalogo[] = {
    {"00010", Porta::comandi, false, prova_collegamento},
    {"00020", Porta::comandi, true, regola_orologio},
    {"00030", Porta::comandi, true, leggi_record},
    {"00031", Porta::comandi, true, scrivi_record},
    {"00032", Porta::comandi, true, cancella_record},
    {"00033", Porta::comandi, true, svuota_archivio},
    {"00035", Porta::comandi, true, conta_record},
    {"00036", Porta::comandi, false, leggi_transazione},
    {"00037", Porta::comandi, false, conferma_transazione},
    {"00039", Porta::comandi, false, conta_transazioni},
    {"0001B", Porta::comandi, false, leggi_seriale},
    {"0001F", Porta::comandi, false, leggi_orologio},
    {"00095", Porta::comandi, true, registra_parametri},
    {"00073", Porta::udp, false, riavvia},
    {"000A0", Porta::udp, false, scoperta},
    {"000A1", Porta::udp, true, registra_rete},
};

RispostaCabinet esegui(const Comando& comando, Porta porta, QByteArrayView codice) {
  for (const Voce& voce : catalogo) {
    if (codice != voce.codice || porta != voce.porta) continue;
    if (!voce.con_dati && !comando.dati.isEmpty()) return {non_valido};
    return voce.esegui(comando);
  }
  return {sconosciuto};
}

QByteArray componi_risposta(QByteArrayView codice, const RispostaCabinet& risposta) {
  // The verdict on a clock setting is one character.
  const QByteArray verdetto = codice == "00020" ? risposta.codice.last(1) : risposta.codice;
  return componi_frame(codice.toByteArray() + verdetto + risposta.dati);
}

}  // namespace

QByteArray rispondi(StatoCabinet& stato, SessioneCabinet& sessione, Porta porta, QByteArrayView frame,
                    bool& riavvio) {
  riavvio = false;
  if (frame.size() < 8 || frame.back() != '\r' || !stampabile(frame.first(5))) return {};
  const QByteArrayView codice = codice_comando(frame);
  const QByteArrayView testo = frame.chopped(3);
  if (calcola_bcc(testo) != campo_frame(frame, frame.size() - 2, 2)) {
    return componi_risposta(codice, {errore_bcc});
  }
  const RispostaCabinet risposta = esegui({stato, sessione, testo.sliced(5), riavvio}, porta, codice);
  return riavvio ? QByteArray() : componi_risposta(codice, risposta);
}

}  // namespace lokera::simulazione
