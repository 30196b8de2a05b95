#include "reports/menu_scheda.h"

#include <QFileInfo>

#include "reports/file_scheda.h"

namespace lokera {

using namespace Qt::StringLiterals;

std::optional<QString> scegli_importazione(const ServiziScheda& s) {
  const QString filtro = u"DATA.TXT|DATA.TXT|%1|*"_s.arg(s.traduttore.traduci(u"Tutti i file"_s));
  auto scelto = s.file.apri({s.traduttore.traduci(u"Importa movimenti da SD"_s), filtro, u"DATA.TXT"_s, {}});
  return scelto && QFile::exists(*scelto) ? scelto : std::nullopt;
}

namespace {

/// A mask that may speak of another key is written only when the person insists.
bool si_scrivono_tessere(const ServiziScheda& s, const QString& titolo) {
  const auto uguali = righe_come_posizioni(s.archivio);
  if (!uguali.fallito() && *uguali) return true;
  const auto traduci = [&](const QString& testo) { return s.traduttore.traduci(testo); };
  return s.messaggi.chiedi(
      traduci(u"Le posizioni delle chiavi non sono 1, 2, 3 e così via."_s) + u'\n' +
          traduci(u"Con questi file una lokera potrebbe consegnare una chiave diversa."_s) + u'\n' +
          traduci(u"Scrivere USERS.TXT ugualmente?"_s),
      titolo);
}

}  // namespace

void esporta_su_scheda(const ServiziScheda& s) {
  const QString titolo = s.traduttore.traduci(u"Esporta su SD"_s);
  QString cartella;
  for (const auto& [nome, scrivi] :
       {std::pair(u"KEYS.TXT"_s, &scrivi_chiavi), std::pair(u"USERS.TXT"_s, &scrivi_tessere)}) {
    const auto scelto = s.file.salva({titolo, nome + u'|' + nome, nome, cartella});
    if (scelto) cartella = QFileInfo(*scelto).absolutePath();
    if (!scelto || (scrivi == &scrivi_tessere && !si_scrivono_tessere(s, titolo))) continue;
    const QString errore = scrivi(s.archivio, *scelto);
    if (!errore.isEmpty())
      s.messaggi.mostra(
          s.traduttore.traduci(u"Il file non è stato scritto."_s) + u'\n' + *scelto + u'\n' + errore, titolo);
  }
}

}  // namespace lokera
