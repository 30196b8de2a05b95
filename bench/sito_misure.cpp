#include "bench/sito_misure.h"

#include <QFile>
#include <QSysInfo>

#include "bench/misura.h"
#include "platform/momento.h"
#include "store/date_jet.h"
#include "store/schema_base.h"

namespace lokera::bench {

using namespace Qt::StringLiterals;

namespace {

QString codice(int base, int i) {
  return u"%1"_s.arg(base + i, 10, 10, '1'_L1);
}

}  // namespace

SitoMisure::SitoMisure(const Misure& misure) : misure_(misure) {
  const auto altro = [this](Connection& c) { return riempi(c); };
  if (!cartella_.isValid() || crea_database(file(), password_database(), altro).fallito())
    rinuncia("il file non si crea");
}

QString SitoMisure::file() const {
  return cartella_.filePath(nome_file_database());
}

QString SitoMisure::copia(const QString& nome) const {
  const QString copiato = cartella_.filePath(nome);
  if (!QFile::copy(file(), copiato)) rinuncia("il file non si copia");
  return copiato;
}

QString SitoMisure::indirizzo(int lokera) {
  return u"127.031.007.%1"_s.arg(lokera + 1, 3, 10, '0'_L1);
}

QString SitoMisure::tessera(int i) {
  return codice(2000000, i);
}

QString SitoMisure::chiave(int i) {
  return codice(5000000, i);
}

Errore SitoMisure::riempi(Connection& c) const {
  return in_transazione(c, [&]() -> Errore {
    for (const auto passo : {&SitoMisure::lokere, &SitoMisure::chiavi, &SitoMisure::tessere,
                             &SitoMisure::fasce, &SitoMisure::movimenti}) {
      if (Errore e = (this->*passo)(c); e.fallito()) return e;
    }
    return {};
  });
}

Errore SitoMisure::lokere(Connection& c) const {
  for (int i = 1; i <= misure_.lokere; ++i) {
    if (Errore e = c.Execute(
            u"insert into parametri (ID, descrizione, IP_lokera, funzionamento, lingua, slot,"
            " tempo_di_comunicazione, tempo_attesa_inizio, computer_ctrl) values (?, ?, ?, 0, 0, 1, 1000,"
            " 30, ?)"_s,
            {i, u"lokera %1"_s.arg(i), indirizzo(i), QSysInfo::machineHostName()});
        e.fallito())
      return e;
  }
  return {};
}

Errore SitoMisure::chiavi(Connection& c) const {
  for (int i = 0; i < misure_.chiavi; ++i) {
    if (Errore e = c.Execute(
            u"insert into tessere_chiavi (codice, lokera, posizione, descrizione, gruppo, operatore)"
            " values (?, ?, ?, ?, ?, ' ')"_s,
            {chiave(i), 1 + i % misure_.lokere, i / misure_.lokere,
             u"magazzino %1, porta di servizio"_s.arg(i), 1 + i % misure_.gruppi_chiavi});
        e.fallito())
      return e;
  }
  return {};
}

Errore SitoMisure::tessere(Connection& c) const {
  const QDateTime dal = momento(QDate(2000, 1, 1));
  const QDateTime al = momento(QDate(2099, 12, 31));
  for (int i = 0; i < misure_.tessere; ++i) {
    if (Errore e = c.Execute(
            u"insert into tessere_operatori (codice, intestazione, valido_dal, valido_al, posizione,"
            " gruppo, NrMaxPrelievi) values (?, ?, ?, ?, ?, ?, 5)"_s,
            {tessera(i), u"Maria Società Rossi %1"_s.arg(i), dal, al, i, 1 + i % misure_.gruppi_operatori});
        e.fallito())
      return e;
    for (int g = 0; g < misure_.gruppi_per_tessera; ++g) {
      if (Errore e = c.Execute(u"insert into gruppi_tessera (tessera, codice) values (?, ?)"_s,
                               {tessera(i), 1 + (i / misure_.gruppi_operatori + g) % misure_.gruppi_chiavi});
          e.fallito())
        return e;
    }
  }
  return {};
}

Errore SitoMisure::fasce(Connection& c) const {
  if (misure_.giorno.isEmpty()) return {};
  const QTime alle = misure_.fasce_di_notte ? QTime(0, 1) : QTime(23, 59);
  for (int o = 1; o <= misure_.gruppi_operatori; ++o) {
    for (int k = 1; k <= misure_.gruppi_chiavi; ++k) {
      if (Errore e = c.Execute(
              u"insert into fascie_orarie (gruppo_oper, gruppo_chiavi, giorno, dalle_ore, alle_ore) values"
              " (?, ?, ?, ?, ?)"_s,
              {o, k, misure_.giorno, ora(QTime(0, 0)), ora(alle)});
          e.fallito())
        return e;
    }
  }
  return {};
}

Errore SitoMisure::movimenti(Connection& c) const {
  const QDateTime inizio = momento(QDate(2004, 1, 1), QTime(6, 0));
  for (int i = 0; i < misure_.movimenti; ++i) {
    const int t = i * 7 % std::max(1, misure_.tessere);
    if (Errore e =
            c.Execute(u"insert into movimenti (id, operatore, intestazione, chiave, operazione, data) values"
                      " (?, ?, ?, ?, ?, ?)"_s,
                      {i + 1, tessera(t), u"Maria Società Rossi %1"_s.arg(t),
                       chiave(i * 13 % std::max(1, misure_.chiavi)), i % 2 == 0 ? u"P"_s : u"R"_s,
                       inizio.addSecs(i * 95LL)});
        e.fallito())
      return e;
  }
  return {};
}

}  // namespace lokera::bench
