#include "reports/importazione_sd.h"

#include <QFileInfo>

#include <algorithm>

#include "ledger/record_transazione.h"
#include "ledger/registro_in_blocco.h"
#include "platform/letterali.h"

namespace lokera {

namespace {

constexpr qsizetype porzione_byte = 1 << 18;
constexpr qsizetype numeri_detti = 5;

/// The next bytes, in `blocco`; none at the end and after a failure.
QByteArrayView leggi_porzione(QFile& file, QByteArray& blocco) {
  return {blocco.constData(), std::max(file.read(blocco.data(), blocco.size()), qint64(0))};
}

}  // namespace

ImportazioneSd::ImportazioneSd(const QString& file, const QString& cartella)
    : file_(file), copia_(cartella), blocco_(porzione_byte, Qt::Uninitialized) {
  // What is no plain file may never come to an end, or never give a byte.
  if (QFileInfo(file).isFile() && file_.open(QIODevice::ReadOnly | QIODevice::Unbuffered))
    kb_ = static_cast<int>(file_.size() / 1024) + 1;
  else
    fallisce(GuastoImportazione::lettura, file_.errorString());
}

void ImportazioneSd::fallisce(GuastoImportazione guasto, const QString& parole) {
  guasto_ = guasto;
  parole_ = parole;
}

int ImportazioneSd::leggi() {
  const QByteArrayView porzione = leggi_porzione(file_, blocco_);
  if (file_.error() != QFileDevice::NoError) {
    fallisce(GuastoImportazione::lettura, file_.errorString());
  } else if (!copia_.aggiungi(porzione)) {
    fallisce(GuastoImportazione::copia, copia_.errore());
  } else if (porzione.isEmpty()) {
    conta(lettore_.ultima());
    letta_ = true;
    return kb_;
  }
  lettore_.porzione(porzione);
  while (const auto riga = lettore_.prossima()) conta(riga);
  return std::min(static_cast<int>(copia_.byte() / 1024), kb_ - 1);
}

void ImportazioneSd::conta(const std::optional<RigaData>& riga) {
  if (!riga) return;
  if (riga->movimento) {
    ++movimenti_;
    if (!record_transazione(riga->testo, record_della_scheda).data.isValid()) ++senza_data_;
    return;
  }
  ++lasciate_;
  if (prime_lasciate_.size() < numeri_detti) prime_lasciate_ += riga->numero;
}

void ImportazioneSd::registra(Connection& connessione, const QDateTime& adesso) {
  const Errore errore = registra_righe(connessione, adesso);
  if (errore.fallito()) {
    if (guasto_ == GuastoImportazione::nessuno)
      fallisce(GuastoImportazione::registrazione, errore.descrizione);
    return;
  }
  copia_.tieni();
  if (!file_.remove()) return fallisce(GuastoImportazione::cancellazione, file_.errorString());
  sincronizza_cartella(QFileInfo(file_).absolutePath());
}

Errore ImportazioneSd::registra_righe(Connection& connessione, const QDateTime& adesso) {
  return registra_in_blocco(connessione, [&](RegistroInBlocco& libro) -> Errore {
    const auto registra = [&](const std::optional<RigaData>& riga) -> Errore {
      if (!riga || !riga->movimento) return {};
      return libro.registra(record_transazione(riga->testo, record_della_scheda));
    };
    LettoreData lettore;
    QFile* copia = copia_.da_capo();
    qint64 restano = copia_.byte();
    while (copia && restano > 0) {
      const QByteArrayView porzione = leggi_porzione(*copia, blocco_);
      if (porzione.isEmpty()) break;
      restano -= porzione.size();
      lettore.porzione(porzione);
      while (const auto riga = lettore.prossima())
        if (Errore e = registra(riga); e.fallito()) return e;
    }
    if (Errore e = registra(lettore.ultima()); e.fallito()) return e;
    if (copia && restano == 0 && copia_.archivia(adesso)) return {};
    fallisce(GuastoImportazione::copia, copia_.errore());
    return {1, parole_};
  });
}

}  // namespace lokera
