#include "reports/frm_memoria_sd.h"

#include <QDir>

#include "store/date_jet.h"

namespace lokera {

using namespace Qt::StringLiterals;

frm_memoria_sd::frm_memoria_sd(ElencoFinestre& elenco, Connection& archivio, ServiziGriglia& servizi,
                               Pointer& puntatore, QString documenti)
    : Finestra(elenco, u"frm_memoria_sd"_s, {.modale = false, .si_adatta = false}),
      lblFile(*this, u"lblFile"_s),
      lblFase(*this, u"lblFase"_s),
      lavoro(*this, servizi.attesa, servizi.traduttore),
      archivio_(archivio),
      servizi_(servizi),
      puntatore_(puntatore),
      documenti_(std::move(documenti)) {}

void frm_memoria_sd::Form_Load() {
  servizi_.traduttore.traduci_form(*this);
  Caption(servizi_.traduttore.traduci(u"Importa movimenti da SD"_s));
}

void frm_memoria_sd::importa(const QString& file) {
  const Attesa attesa(*this);
  lblFile.Caption = QDir::toNativeSeparators(file);
  servizi_.attesa.cedi();  // the window stands before any box does
  ImportazioneSd importazione(file, documenti_);
  if (leggi(importazione) && da_registrare(importazione)) registra(importazione);
  di_guasto(importazione);
  chiudi();
}

bool frm_memoria_sd::leggi(ImportazioneSd& importazione) {
  lblFase.Caption = servizi_.traduttore.traduci(u"Lettura del file (kB)"_s);
  Lavoro::Corsa corsa(lavoro, importazione.kb());
  int letti = 0;
  while (importazione.guasto() == GuastoImportazione::nessuno && corsa.continua(letti))
    letti = importazione.leggi();
  return importazione.letta();
}

bool frm_memoria_sd::da_registrare(ImportazioneSd& importazione) {
  Traduttore& t = servizi_.traduttore;
  if (importazione.senza_movimenti()) {
    mostra(t.traduci(u"Nel file non c'è alcun movimento. Il file resta dov'è."_s));
    return false;
  }
  if (importazione.nessuna_data() &&
      !servizi_.messaggi.chiedi(
          t.traduci(u"Nessuna riga del file ha una data valida. Importarlo ugualmente?"_s), Caption()))
    return false;
  const auto prima = importazione.gia_importata();
  return !prima ||
         servizi_.messaggi.chiedi(
             t.traduci(u"File già importato il %1. Importarlo un'altra volta?"_s).arg(testo_italiano(*prima)),
             Caption());
}

void frm_memoria_sd::registra(ImportazioneSd& importazione) {
  lblFase.Caption = servizi_.traduttore.traduci(u"Registrazione dei movimenti"_s);
  servizi_.attesa.cedi();
  {
    const Clessidra clessidra(puntatore_);
    importazione.registra(archivio_, servizi_.attesa.orologio().adesso());
  }
  if (importazione.guasto() != GuastoImportazione::nessuno &&
      importazione.guasto() != GuastoImportazione::cancellazione)
    return;
  if (registrati) registrati();
  di_lasciate(importazione);
}

void frm_memoria_sd::di_guasto(const ImportazioneSd& importazione) {
  Traduttore& t = servizi_.traduttore;
  QString testo;
  switch (importazione.guasto()) {
    case GuastoImportazione::nessuno:
      return;
    case GuastoImportazione::lettura:
      testo = t.traduci(u"Il file non si può leggere. Nessun movimento è stato registrato."_s);
      break;
    case GuastoImportazione::copia:
      testo = t.traduci(u"La copia d'archivio non si può scrivere. Nessun movimento è stato registrato."_s);
      break;
    case GuastoImportazione::registrazione:
      testo = t.traduci(u"I movimenti non si possono registrare. Il file resta sulla scheda."_s);
      break;
    case GuastoImportazione::cancellazione:
      testo =
          t.traduci(u"I movimenti sono registrati, ma il file non si può cancellare: cancellarlo a mano."_s);
      break;
  }
  mostra(testo + u'\n' + lblFile.Caption() + u'\n' + importazione.parole());
}

void frm_memoria_sd::di_lasciate(const ImportazioneSd& importazione) {
  if (importazione.senza_data() > 0)
    mostra(servizi_.traduttore.traduci(u"Movimenti registrati senza data: %1."_s)
               .arg(importazione.senza_data()));
  if (importazione.lasciate() == 0) return;
  QStringList numeri;
  for (const qint64 n : importazione.prime_lasciate()) numeri += QString::number(n);
  if (importazione.lasciate() > numeri.size()) numeri += u"..."_s;
  mostra(servizi_.traduttore
             .traduci(u"Righe che non sono movimenti, lasciate nella copia d'archivio: %1 (numeri %2)."_s)
             .arg(QString::number(importazione.lasciate()), numeri.join(u", "_s)));
}

void frm_memoria_sd::mostra(const QString& testo) {
  servizi_.messaggi.mostra(testo, Caption());
}

}  // namespace lokera
