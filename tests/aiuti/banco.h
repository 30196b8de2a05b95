#pragma once

#include <QFile>
#include <QTemporaryDir>

#include <memory>
#include <utility>

#include "aiuti/righe.h"
#include "link/protocollo.h"
#include "platform/letterali.h"
#include "simulation/macchina/virtual_machine.h"
#include "store/schema_base.h"
#include "supervisor/console.h"

namespace lokera::prova {

using namespace simulazione;

using namespace std::chrono_literals;

/// A delivered file, made once for the whole test program: deriving its key is what takes time.
inline QString file_modello() {
  static const QTemporaryDir cartella;
  QString file = cartella.filePath(nome_file_database());
  if (!QFile::exists(file)) {
    EXPECT_FALSE(crea_database(file).fallito());
  }
  return file;
}

/// A delivered database in a folder of its own and a console on a virtual machine, for one test.
class Banco {
 public:
  explicit Banco(const QDateTime& inizio = momento(QDate(2008, 11, 30), QTime(8, 0)), quint64 seme = 1)
      : vm(seme, inizio) {
    EXPECT_TRUE(cartella.isValid());
    EXPECT_TRUE(QFile::copy(file_modello(), file()));
    console = std::make_unique<Console>(vm.macchina());
    EXPECT_TRUE(console->apri(cartella.path()));
  }

  QString file() const { return cartella.filePath(nome_file_database()); }
  Database& db() { return console->db(); }
  frm_Main& main() { return console->principale(); }
  Supervisore& parti() { return console->parti(); }

  void sql(const QString& statement, const QVariantList& valori = {}) {
    esegui(db().connessione_db, statement, valori);
  }

  QStringList righe(const QString& statement) { return prova::righe(db().connessione_db, statement); }
  /// First column of the first row; invalid for no row.
  QVariant uno(const QString& statement, const QVariantList& valori = {}) {
    Recordset rs;
    const Errore e = rs.Open(statement, db().connessione_db, valori);
    EXPECT_FALSE(e.fallito()) << e.descrizione.toStdString();
    return rs.valore(0);
  }
  qlonglong conta(const QString& tabella, const QString& condizione = u"1=1"_s) {
    return uno(u"select count(*) from %1 where %2"_s.arg(tabella, condizione)).toLongLong();
  }

  /// What the boxes have said since the last call.
  QStringList detti() {
    QStringList testi = vm.messaggi().testi();
    vm.messaggi().mostrati.clear();
    return testi;
  }
  /// The cards that wait, as "card|cabinet|operation" by card and cabinet.
  QString coda() {
    return righe(u"select * from aggiorn_tessere_oper order by ID_tessera, ID_lokera"_s).join(u' ');
  }
  void vuota_coda() {
    sql(u"delete from aggiorn_tessere_oper"_s);
    sql(u"delete from tessere_da_conservare"_s);
  }

  /// A cabinet of this computer at 127.000.000.00(id+1).
  void lokera(int id, int funzionamento = 0) {
    sql(u"insert into parametri (ID, descrizione, IP_lokera, funzionamento, lingua,"
        " tempo_di_comunicazione, tempo_attesa_inizio, slot, computer_ctrl) values (?, ?, ?, ?, 0, 1000,"
        " 30, 1, ?)"_s,
        {id, u"lokera %1"_s.arg(id), u"127.000.000.%1"_s.arg(id + 1, 3, 10, '0'_L1), funzionamento,
         u"PC-CENTRALE"_s});
  }
  void chiave(const QString& codice, int lokera, int posizione, int gruppo = 1) {
    sql(u"insert into tessere_chiavi (codice, lokera, posizione, descrizione, gruppo, operatore) values"
        " (?, ?, ?, ?, ?, ' ')"_s,
        {codice, lokera, posizione, u"chiave "_s + codice, gruppo});
  }
  void tessera(const QString& codice, int gruppo = 1, int massimo = 0, const QVariant& dal = {},
               const QVariant& al = {}) {
    sql(u"insert into tessere_operatori (codice, intestazione, gruppo, NrMaxPrelievi, valido_dal,"
        " valido_al) values (?, ?, ?, ?, ?, ?)"_s,
        {codice, u"operatore "_s + codice, gruppo, massimo, dal, al});
  }
  void abilita(const QString& tessera, int gruppo_chiavi) {
    sql(u"insert into gruppi_tessera (tessera, codice) values (?, ?)"_s, {tessera, gruppo_chiavi});
  }
  void fascia(int gruppo_oper, int gruppo_chiavi, const QString& giorno, QTime dalle, QTime alle) {
    sql(u"insert into fascie_orarie (gruppo_oper, gruppo_chiavi, giorno, dalle_ore, alle_ore) values"
        " (?, ?, ?, ?, ?)"_s,
        {gruppo_oper, gruppo_chiavi, giorno, momento(QDate(1899, 12, 30), dalle),
         momento(QDate(1899, 12, 30), alle)});
  }
  void in_coda(const QString& tessera, int lokera, const QString& operazione = u"I"_s) {
    sql(u"insert into aggiorn_tessere_oper (ID_tessera, ID_lokera, operazione) values (?, ?, ?)"_s,
        {tessera, lokera, operazione});
  }

  /// Leaves the special days unreadable, which no migration mends.
  void senza_giorni() {
    sql(u"drop table giorni_particolari"_s);
    sql(u"create view giorni_particolari as select 1 as GG"_s);
  }

  QTemporaryDir cartella;
  VirtualMachine vm;
  std::unique_ptr<Console> console;
};

/// What a cabinet with an empty store and the serial 12345 answers when all is well.
inline QList<QByteArray> risponde_bene(const QByteArray& frame) {
  const QByteArray codice = frame.left(5);
  if (codice == "00010") return {componi_frame("0001000X")};
  if (codice == "0001B") return {componi_frame("0001B000000012345")};
  if (codice == "00039") return {componi_frame("00039000000")};
  return {componi_frame(codice + "00")};
}

/// The far end of a cabinet's port, which answers as the test says and keeps what it received.
class LokeraFinta {
 public:
  using Risposta = std::function<QList<QByteArray>(const QByteArray& frame)>;

  LokeraFinta(VirtualMachine& vm, const QString& indirizzo, quint16 porta, Risposta risposta = {})
      : risposta_(std::move(risposta)) {
    EXPECT_TRUE(vm.rete().ascolta_tcp(indirizzo, porta, [this](std::shared_ptr<Canale> canale) {
      ++connessioni;
      canale_ = std::move(canale);
      canale_->Arrivo = [this](QByteArrayView dati) { arrivo(dati.toByteArray()); };
    }));
  }

  void invia(const QByteArray& dati) { canale_->invia(dati); }
  void chiudi() { canale_->chiudi(); }

  /// The commands received since the last call.
  QList<QByteArray> comandi() {
    QList<QByteArray> codici;
    for (const QByteArray& f : std::exchange(ricevuti, {})) codici << f.left(5);
    return codici;
  }

  QList<QByteArray> ricevuti;
  int connessioni = 0;

 private:
  void arrivo(const QByteArray& dati) {
    ricevuti << dati;
    if (!risposta_) return;
    for (const QByteArray& r : risposta_(dati)) canale_->invia(r);
  }

  Risposta risposta_;
  std::shared_ptr<Canale> canale_;
};

/// A console and the far end of its live session with cabinet 1, which is still to be registered.
struct BancoLive {
  explicit BancoLive(const QDateTime& inizio = momento(QDate(2008, 11, 30), QTime(8, 0))) : b(inizio) {}

  /// What the console answers, without block check; "-" for no answer.
  QByteArray chiedi(const QByteArray& testo) {
    lokera.ricevuti.clear();
    lokera.invia(componi_frame(testo));
    b.vm.esegui_per(20ms);
    if (lokera.ricevuti.isEmpty()) return "-";
    const QByteArray frame = lokera.ricevuti.last();
    EXPECT_EQ(frame, componi_frame(frame.chopped(3)));
    return frame.chopped(3);
  }
  QByteArray tessera(const QByteArray& codice, char stato = '1') {
    return chiedi("00090..0123456789" + QByteArray(1, stato) + codice);
  }
  QByteArray chiave(const QByteArray& codice, char verso = '1') {
    return chiedi("00091..0123456789" + QByteArray(1, verso) + codice);
  }
  QByteArray esito(const QByteArray& codice) { return chiedi("00092.ABCDEFGHIJ." + codice); }

  Banco b;
  LokeraFinta lokera{b.vm, u"127.0.0.2"_s, 10002};
};

}  // namespace lokera::prova
