// Holds the ledger and the records of a simulator that has ended against the database of a console that has
// ended.
#include <QCoreApplication>
#include <QFile>
#include <QTextStream>

#include <map>

#include "access/giorno.h"
#include "adapters/base/qt_clock.h"
#include "cards/maschera.h"
#include "simulation/giornata/controlli.h"
#include "store/date_jet.h"
#include "store/recordset.h"

namespace {

using namespace lokera;
using namespace Qt::StringLiterals;

// Since the first push of a run, which the cabinets' masks may date from.
constexpr int minuti_di_corsa = 10;

QList<QByteArrayList> righe(const QString& nome) {
  QFile file(nome);
  QList<QByteArrayList> tutte;
  if (!file.open(QIODevice::ReadOnly)) return tutte;
  for (const QByteArray& riga : file.readAll().split('\n')) {
    if (!riga.isEmpty()) tutte << riga.split('\t');
  }
  return tutte;
}

struct Evento {
  QByteArrayList campi;
  int letture = 0;
  bool confermato = false;
};

std::map<QByteArray, Evento> eventi(const QString& registro) {
  std::map<QByteArray, Evento> tutti;
  for (const QByteArrayList& campi : righe(registro)) {
    Evento& e = tutti[campi.value(1)];
    if (campi[0] == "evento") e.campi = campi;
    if (campi[0] == "letto") ++e.letture;
    if (campi[0] == "confermato") e.confermato = true;
  }
  tutti.erase("-");
  return tutti;
}

// Once; as often as it was read when an acknowledgement got lost.
void riscontra_eventi(Connection& c, const QString& registro, QStringList& differenze) {
  qlonglong righe_attese = 0;
  for (const auto& [n, e] : eventi(registro)) {
    Recordset rs;
    const QDateTime momento = da_data_memorizzata(e.campi.value(2));
    const Errore errore = rs.Open(
        u"select count(*) from movimenti where operatore = ? and chiave = ? and operazione = ? and data = ?"_s,
        c,
        {QString::fromLatin1(e.campi.value(5)), QString::fromLatin1(e.campi.value(6)),
         QString::fromLatin1(e.campi.value(4)), momento});
    const qlonglong quante = rs.valore(0).toLongLong();
    righe_attese += quante;
    if (errore.fallito() || !e.confermato || quante < 1 || quante > e.letture)
      differenze << u"%1: %2 rows, read %3 times, acknowledged %4"_s
                        .arg(QString::fromLatin1(e.campi.join(' ')))
                        .arg(quante)
                        .arg(e.letture)
                        .arg(e.confermato);
  }
  Recordset rs;
  if (rs.Open(u"select count(*) from movimenti"_s, c).fallito() || rs.valore(0).toLongLong() != righe_attese)
    differenze << u"%1 rows, %2 of them with an event"_s.arg(rs.valore(0).toLongLong()).arg(righe_attese);
}

bool maschera_giusta(Connection& c, const QString& tessera, const QString& giorno,
                     const QByteArray& maschera) {
  const QTime adesso = QTime::currentTime();
  for (int indietro = 0; indietro <= minuti_di_corsa; ++indietro) {
    const auto attesa = calcola_maschera(c, tessera, giorno, adesso.addSecs(-60 * indietro));
    if (attesa.fallito()) return false;
    if (maschera_esadecimale(*attesa) == maschera) return true;
  }
  return false;
}

// Positions as the database has them, each with the mask that it asks for, and no record beyond.
void riscontra_record(Connection& c, const QString& archivio, const QString& giorno,
                      QStringList& differenze) {
  std::map<std::pair<QByteArray, int>, QByteArrayList> record;
  for (const QByteArrayList& campi : righe(archivio)) {
    if (campi[0] == "operatore") record[{campi[1], campi[2].toInt()}] = campi;
  }
  Recordset rs;
  Errore e = rs.Open(
      u"select id_tessera, posiz_tessere_oper.posizione, ip_lokera from (posiz_tessere_oper inner"
      " join parametri on posiz_tessere_oper.id_lokera = parametri.ID)"_s,
      c);
  for (; !e.fallito() && !rs.eof(); e = rs.MoveNext()) {
    const QString tessera = rs.testo(u"id_tessera");
    QByteArrayList indirizzo = rs.testo(u"ip_lokera").toLatin1().split('.');
    for (QByteArray& gruppo : indirizzo) gruppo = QByteArray::number(gruppo.toInt());
    const auto voce = record.find({indirizzo.join('.'), rs.valore(1).toInt()});
    const bool buona = voce != record.end() && voce->second.value(3) == tessera.toLatin1() &&
                       maschera_giusta(c, tessera, giorno, voce->second.value(4));
    if (!buona)
      differenze << u"card %1 at %2 is not as the database asks"_s.arg(tessera, rs.testo(u"ip_lokera"));
    if (voce != record.end()) record.erase(voce);
  }
  if (e.fallito()) differenze << e.descrizione;
  for (const auto& [posto, campi] : record)
    differenze << u"a record too many: "_s + QString::fromLatin1(campi.join(' '));
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  const QStringList argomenti = QCoreApplication::arguments();
  Database db;
  if (argomenti.size() != 4 || apri_database(db, argomenti[1]).fallito()) return 2;
  const QtClock orologio;
  Traduttore traduttore(db);
  Giorno giorno(db, orologio, traduttore);
  QStringList differenze;
  if (const Errore e = giorno.tipo_giorno(); e.fallito()) differenze << e.descrizione;
  riscontra_eventi(db.connessione_db, argomenti[2], differenze);
  riscontra_record(db.connessione_db, argomenti[3], giorno.giorno_corrente(), differenze);
  simulazione::Riscontro r;
  simulazione::riscontra_chiavi(db.connessione_db, r);
  simulazione::riscontra_coda(db.connessione_db, r);
  differenze << r.differenze;
  QTextStream uscita(stdout);
  for (const QString& d : differenze) uscita << d << '\n';
  uscita << eventi(argomenti[2]).size() << " movements, " << differenze.size() << " differences\n";
  return differenze.isEmpty() ? 0 : 1;
}
