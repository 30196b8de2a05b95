#include "demo.h"

#include <QDate>
#include <QSysInfo>

#include <array>

#include "store/date_jet.h"
#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr int armadi = 3;
constexpr int chiavi_per_armadio = 20;
constexpr int tessere = 40;

constexpr std::array nomi_armadi{u"Portineria centrale", u"Officina e magazzino", u"Palazzina uffici"};
constexpr std::array gruppi_chiavi{u"Ingressi", u"Uffici", u"Automezzi", u"Impianti tecnici",
                                   u"Archivio riservato"};
constexpr std::array gruppi_operatori{u"Personale", u"Vigilanza", u"Manutenzione", u"Imprese esterne"};
constexpr std::array luoghi{u"Ingresso principale",
                            u"Ingresso carraio",
                            u"Ufficio del direttore",
                            u"Ufficio acquisti",
                            u"Sala riunioni",
                            u"Furgone",
                            u"Autovettura di servizio",
                            u"Quadro elettrico",
                            u"Centrale termica",
                            u"Archivio",
                            u"Deposito dell'olio",
                            u"Spogliatoio",
                            u"Magazzino ricambi",
                            u"Tetto",
                            u"Sala macchine",
                            u"Laboratorio qualità",
                            u"Infermeria",
                            u"Mensa",
                            u"Sala server",
                            u"Cabina elettrica"};
constexpr std::array cognomi{u"Rossi",    u"Bianchi", u"Dell'Acqua", u"Esposito", u"D'Angelo",
                             u"Colombo",  u"Niccolò", u"Greco",      u"Bruno",    u"Gallo",
                             u"De Luca",  u"Mancini", u"Costa",      u"Giordano", u"Rizzo",
                             u"Lombardi", u"Moretti", u"Barbieri",   u"Fontana",  u"Santoro"};
constexpr std::array nomi{u"Maria", u"Giuseppe", u"Anna",   u"Antonio",
                          u"Lucia", u"Marco",    u"Chiara", u"Paolo"};
constexpr std::array giorni{u"Lunedì",  u"Martedì", u"Mercoledì", u"Giovedì",
                            u"Venerdì", u"Sabato",  u"Domenica"};

/// Adds rows to one table; after the first failure nothing more is done.
class Riempitore {
 public:
  explicit Riempitore(Connection& c) : connessione_(c) {}

  void riga(const QString& tabella, const QVariantList& valori) {
    if (errore_.fallito()) return;
    QString segni = u"?"_s;
    for (qsizetype i = 1; i < valori.size(); ++i) segni += u", ?"_s;
    errore_ = connessione_.Execute(u"insert into %1 values (%2)"_s.arg(tabella, segni), valori);
  }
  void esegui(const QString& sql, const QVariantList& valori) {
    if (!errore_.fallito()) errore_ = connessione_.Execute(sql, valori);
  }
  const Errore& errore() const { return errore_; }

 private:
  Connection& connessione_;
  Errore errore_;
};

template <size_t n>
QString voce(const std::array<const char16_t*, n>& elenco, int i) {
  return QString::fromUtf16(elenco[static_cast<size_t>(i) % n]);
}

QString codice_chiave(int i) {
  return QString::number(100001 + i).rightJustified(10, '0'_L1);
}
QString codice_tessera(int i) {
  return QString::number(1001 + i).rightJustified(10, '0'_L1);
}

int gruppo_chiave(int i) {
  return 1 + i % static_cast<int>(gruppi_chiavi.size());
}
int gruppo_operatore(int i) {
  return 1 + i % static_cast<int>(gruppi_operatori.size());
}

/// Every fifth position or so stays empty.
int posizione_chiave(int i) {
  return (i % chiavi_per_armadio) * 5 / 4;
}

void metti_armadi(Riempitore& r) {
  const QString sql =
      u"insert into parametri (ID, descrizione, IP_lokera, funzionamento, lingua, dataora, "
      u"retroilluminazione, "
      u"tempo_di_comunicazione, tempo_sblocco_porta, tempo_attesa_inizio, tempo_attesa_fine, "
      u"tempo_attesa_download, "
      u"porta_slave, slot, computer_ctrl, orario_aggiornamento_tessere) "
      u"values (?, ?, ?, ?, 0, 1, 1, 2500, 500, 30, 30, 5, 10002, ?, ?, ?)"_s;
  for (int i = 0; i < armadi; ++i) {
    const int gestito = i == 0 ? 1 : 0;
    r.esegui(sql, {i + 1, voce(nomi_armadi, i), u"127.000.000.00%1"_s.arg(i + 2), gestito, gestito,
                   QSysInfo::machineHostName(), ora(QTime(3, 0))});
  }
}

void metti_gruppi(Riempitore& r) {
  for (int i = 0; i < static_cast<int>(gruppi_chiavi.size()); ++i)
    r.riga(u"gruppi"_s, {i + 1, voce(gruppi_chiavi, i)});
  for (int i = 0; i < static_cast<int>(gruppi_operatori.size()); ++i) {
    r.riga(u"gruppi_utente"_s, {i + 1, voce(gruppi_operatori, i)});
  }
}

void metti_chiavi(Riempitore& r) {
  for (int i = 0; i < armadi * chiavi_per_armadio; ++i) {
    const QString nome = u"%1 %2"_s.arg(voce(luoghi, i)).arg(1 + i / chiavi_per_armadio);
    r.riga(u"tessere_chiavi"_s, {codice_chiave(i), 1 + i / chiavi_per_armadio, posizione_chiave(i), nome,
                                 gruppo_chiave(i), u" "_s, QVariant()});
  }
}

/// Of ten cards one has expired and one is not valid yet; of five one may hold a single key.
void metti_tessere(Riempitore& r, QDate oggi) {
  for (int i = 0; i < tessere; ++i) {
    const QDate dal = i % 10 == 8 ? oggi.addMonths(2) : QDate(oggi.year() - 1, 1, 1);
    const QDate al = i % 10 == 9 ? oggi.addDays(-30) : QDate(oggi.year() + 1, 12, 31);
    const int limite = i % 5 == 1 ? 1 : i % 5 == 2 ? 3 : 0;
    const QString nome = voce(cognomi, i) + u' ' + voce(nomi, i / 2 + i);
    r.riga(u"tessere_operatori"_s, {codice_tessera(i), nome, dal, al, i, gruppo_operatore(i), limite});
  }
}

void metti_appartenenze(Riempitore& r) {
  for (int i = 0; i < tessere; ++i) {
    r.riga(u"gruppi_tessera"_s, {codice_tessera(i), 1});
    r.riga(u"gruppi_tessera"_s, {codice_tessera(i), 2 + i % 3});
    if (gruppo_operatore(i) == 2) r.riga(u"gruppi_tessera"_s, {codice_tessera(i), 5});
    for (int armadio = 1; armadio <= armadi; ++armadio) {
      r.riga(u"aggiorn_tessere_oper"_s, {codice_tessera(i), armadio, u"I"_s});
    }
  }
}

void banda(Riempitore& r, int operatori, int chiavi, const QString& giorno, QTime dalle, QTime alle) {
  r.riga(u"fascie_orarie"_s, {operatori, chiavi, giorno, ora(dalle), ora(alle), QVariant()});
}

/// Guards have no bands. Staff reaches the offices all day long, outside firms reach the vehicles never, the
/// technicians the plants in office hours.
void metti_fasce(Riempitore& r) {
  for (int g = 0; g < static_cast<int>(giorni.size()); ++g) {
    const QString giorno = voce(giorni, g);
    banda(r, 1, 2, giorno, QTime(0, 0), QTime(23, 59));
    banda(r, 4, 3, giorno, QTime(0, 0), QTime(0, 0));
    if (g >= 5) continue;
    banda(r, 3, 4, giorno, QTime(7, 30), QTime(12, 30));
    banda(r, 3, 4, giorno, QTime(13, 30), QTime(18, 0));
  }
}

void metti_giorni_particolari(Riempitore& r) {
  constexpr std::array<std::pair<int, int>, 8> feste{
      {{1, 1}, {6, 1}, {25, 4}, {1, 5}, {2, 6}, {15, 8}, {25, 12}, {26, 12}}};
  for (const auto& [giorno, mese] : feste) r.riga(u"giorni_particolari"_s, {giorno, mese, 0, u"Domenica"_s});
}

void metti_utenti(Riempitore& r) {
  r.riga(u"operatori"_s, {u"amministratore"_s, u"lokera"_s, 1, QVariant(), u" "_s});
  r.riga(u"operatori"_s, {u"portineria"_s, u"chiavi"_s, 0, QVariant(), u" "_s});
}

}  // namespace

Errore riempi_demo(Connection& connessione) {
  return in_transazione(connessione, [&] {
    Riempitore r(connessione);
    metti_armadi(r);
    metti_gruppi(r);
    metti_chiavi(r);
    metti_tessere(r, QDate::currentDate());
    metti_appartenenze(r);
    metti_fasce(r);
    metti_giorni_particolari(r);
    metti_utenti(r);
    return r.errore();
  });
}

}  // namespace lokera
