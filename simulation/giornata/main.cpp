#include <QCommandLineParser>
#include <QCoreApplication>
#include <QElapsedTimer>
#include <QTextStream>

#include <optional>

#include "simulation/giornata/giornata.h"

namespace {

using namespace lokera::simulazione;
using namespace Qt::StringLiterals;

constexpr int comando_errato = 2;

struct RigaComando {
  quint64 primo = 1;
  quint64 ultimo = 1;
  ImpostazioniGiornata impostazioni;
};

bool leggi_semi(const QString& testo, RigaComando& c) {
  const QStringList parti = testo.split(u".."_s);
  bool primo = false;
  bool ultimo = false;
  c.primo = parti.first().toULongLong(&primo);
  c.ultimo = parti.last().toULongLong(&ultimo);
  return primo && ultimo && parti.size() <= 2 && c.primo <= c.ultimo;
}

bool leggi_numero(const QCommandLineParser& p, const QString& nome, int massimo, int& valore) {
  bool buono = false;
  valore = p.value(nome).toInt(&buono);
  return buono && valore >= 1 && valore <= massimo;
}

std::optional<RigaComando> leggi(const QStringList& argomenti, QString& errore) {
  QCommandLineParser p;
  p.setApplicationDescription(
      u"Days of a site in virtual time: one console, its cabinets, people and faults by a seed. At the end "
      u"of\n"
      "each every movement is booked, the cabinets hold the cards that the registry asks for and no others,\n"
      "and the registry the cards that nobody deleted and no others.\n"
      "Prints a line for each seed and ends at the first on which something does not agree."_s);
  p.addOptions({{u"semi"_s, u"seed, or seeds from..to [1]"_s, u"a..b"_s, u"1"_s},
                {u"lokere"_s, u"cabinets [6]"_s, u"n"_s, u"6"_s},
                {u"ore"_s, u"hours [24]"_s, u"n"_s, u"24"_s},
                {u"ritmo"_s, u"withdrawals and returns an hour at each cabinet [12]"_s, u"n"_s, u"12"_s},
                {u"gestita"_s, u"the first cabinet asks the console"_s},
                {u"lente"_s, u"cabinets take their time"_s},
                {u"senza-guasti"_s, u"nothing goes wrong"_s},
                {u"senza-vicende"_s, u"no card is changed and the clock is never set back"_s},
                {u"registri"_s, u"keys and cards are registered, moved and deleted in their windows"_s},
                {u"segui-fasce"_s,
                 u"hold the masks against the bands after every visit; without faults and changes"_s}});
  const QCommandLineOption aiuto = p.addHelpOption();
  RigaComando c;
  ImpostazioniGiornata& i = c.impostazioni;
  if (!p.parse(argomenti)) errore = p.errorText();
  if (errore.isEmpty() && p.isSet(aiuto)) errore = p.helpText();
  if (errore.isEmpty() && !leggi_semi(p.value(u"semi"_s), c)) errore = u"--semi: a number, or from..to"_s;
  if (errore.isEmpty() &&
      !(leggi_numero(p, u"lokere"_s, 100, i.lokere) && leggi_numero(p, u"ore"_s, 24 * 366, i.ore) &&
        leggi_numero(p, u"ritmo"_s, 3600, i.eventi_ora)))
    errore = u"--lokere, --ore and --ritmo are numbers from 1"_s;
  if (!errore.isEmpty()) return {};
  i.gestita = p.isSet(u"gestita"_s);
  i.lente = p.isSet(u"lente"_s);
  i.registri = p.isSet(u"registri"_s);
  i.segui_fasce = p.isSet(u"segui-fasce"_s);
  i.guasti = !p.isSet(u"senza-guasti"_s) && !i.segui_fasce;
  i.vicende = !p.isSet(u"senza-vicende"_s) && !i.segui_fasce;
  return c;
}

QString registri(const EsitoGiornata& e) {
  if (e.mosse == 0) return {};
  return u", moves at the desk %1 (old positions %2, cards kept waiting %3, keys without record %4)"_s
      .arg(e.mosse)
      .arg(e.vecchie_posizioni)
      .arg(e.trattenute)
      .arg(e.senza_risposta);
}

QString riassunto(quint64 seme, const EsitoGiornata& e, qint64 ms) {
  return u"seed %1  %2  visits %3, rows %4 (live %5, repeated %6, garbled %7), cards deleted %8"_s.arg(seme)
             .arg(e.differenze.isEmpty() ? u"good"_s : u"DIFFERS"_s)
             .arg(e.visite)
             .arg(e.movimenti)
             .arg(e.in_diretta)
             .arg(e.ripetuti)
             .arg(e.alterati)
             .arg(e.eliminate) +
         registri(e) +
         u", resets %1, longest wait %2 ms, nested %3, trace %4, %5 ms"_s.arg(e.azzeramenti)
             .arg(e.attesa_ms)
             .arg(e.annidate)
             .arg(e.impronta, 16, 16, QChar(u'0'))
             .arg(ms);
}

QString comando(quint64 seme, const QStringList& argomenti) {
  QStringList uguali{u"giornata"_s, u"--semi"_s, QString::number(seme)};
  for (qsizetype i = 1; i < argomenti.size(); ++i) {
    if (argomenti[i] == u"--semi"_s)
      ++i;
    else if (!argomenti[i].startsWith(u"--semi="_s))
      uguali << argomenti[i];
  }
  return uguali.join(u' ');
}

}  // namespace

int main(int argc, char** argv) {
  const QCoreApplication app(argc, argv);
  const QStringList argomenti = QCoreApplication::arguments();
  QTextStream uscita(stdout);
  QString errore;
  std::optional<RigaComando> c = leggi(argomenti, errore);
  if (!c) {
    uscita << errore << '\n';
    return argomenti.contains(u"--help"_s) || argomenti.contains(u"-h"_s) ? 0 : comando_errato;
  }
  for (quint64 seme = c->primo; seme <= c->ultimo; ++seme) {
    c->impostazioni.seme = seme;
    QElapsedTimer tempo;
    tempo.start();
    const EsitoGiornata esito = vivi_giornata(c->impostazioni);
    uscita << riassunto(seme, esito, tempo.elapsed()) << '\n';
    for (const QString& d : esito.differenze) uscita << "  " << d << '\n';
    if (!esito.differenze.isEmpty()) uscita << "again: " << comando(seme, argomenti) << '\n';
    uscita.flush();
    if (!esito.differenze.isEmpty()) return 1;
  }
  return 0;
}
