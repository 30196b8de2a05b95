#include "supervisor/menu_principale.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {
constexpr auto pagina_assistenza = u"http://www.example.com/assistenza.aspx";
}

MenuPrincipale::MenuPrincipale(Finestra& f, Database& db, const ElencoFinestre& finestre,
                               Traduttore& traduttore, MessageBox& messaggi, Desktop& desktop,
                               Program& programma)
    : mnuTab(f, u"mnuTab"_s, u"   Tabelle"_s),
      ut(f, u"ut"_s, u"Utenti"_s, u"mnuTab"_s),
      mnuUtenti(f, u"mnuUtenti"_s, u"Anagrafica Utenti"_s, u"ut"_s),
      mnuGruUtenti(f, u"mnuGruUtenti"_s, u"Gruppi di utenti"_s, u"ut"_s),
      mnuOperatori(f, u"mnuOperatori"_s, u"Operatori di Sistema"_s, u"ut"_s),
      chia(f, u"chia"_s, u"Chiavi"_s, u"mnuTab"_s),
      mnuTesCh(f, u"mnuTesCh"_s, u"Tessere chiavi"_s, u"chia"_s),
      mnuGru(f, u"mnuGru"_s, u"Gruppi di chiavi"_s, u"chia"_s),
      mnuParLok(f, u"mnuParLok"_s, u"Parametri Sistema"_s, u"mnuTab"_s),
      mnuFascie(f, u"mnuFascie"_s, u"Fasce orarie"_s, u"mnuTab"_s),
      mnuMov(f, u"mnuMov"_s, u"   Movimenti"_s),
      mnuVediMov(f, u"mnuVediMov"_s, u"Visualizza"_s, u"mnuMov"_s),
      mnuSitkey(f, u"mnuSitkey"_s, u"Situazione Chiavi"_s, u"mnuMov"_s),
      mnuScarTrans(f, u"mnuScarTrans"_s, u"Scarica transiti"_s, u"mnuMov"_s),
      mnuUtilities(f, u"mnuUtilities"_s, u"   Utilità"_s),
      mnuMemSD(f, u"mnuMemSD"_s, u"Memoria SD"_s, u"mnuUtilities"_s),
      mnuImport(f, u"mnuImport"_s, u"Importa SD"_s, u"mnuMemSD"_s),
      mnuExport(f, u"mnuExport"_s, u"Esporta SD"_s, u"mnuMemSD"_s),
      mnuTrad(f, u"mnuTrad"_s, u"Traduttore"_s, u"mnuUtilities"_s),
      mnuAggDB(f, u"mnuAggDB"_s, u"Aggiornamento database"_s, u"mnuUtilities"_s),
      mnuTeleAssist(f, u"mnuTeleAssist"_s, u"Teleassistenza"_s, u"mnuUtilities"_s),
      mnuEsc(f, u"mnuEsc"_s, u"   Fine Lavoro"_s),
      db_(db),
      finestre_(finestre),
      traduttore_(traduttore),
      messaggi_(messaggi),
      desktop_(desktop),
      programma_(programma) {
  apre(mnuGruUtenti, u"frm_gruppi_utenti");
  apre(mnuOperatori, u"frm_operatori");
  apre(mnuGru, u"frm_gruppi");
  apre(mnuFascie, u"frm_fascie_orarie");
  apre(mnuVediMov, u"frm_movimenti");
  apre(mnuSitkey, u"frm_sitKey");
  apre(mnuTrad, u"frm_traduzioni");
  mnuUtenti.Click = [this] { mnuUtenti_Click(); };
  mnuTesCh.Click = [this] { mnuTesCh_Click(); };
  mnuParLok.Click = [this] { mnuParLok_Click(); };
  mnuAggDB.Click = [this] { mnuAggDB_Click(); };
  mnuTeleAssist.Click = [this] { mnuTeleAssist_Click(); };
  mnuEsc.Click = [this] { mnuEsc_Click(); };
}

void MenuPrincipale::apre(Menu& voce, const char16_t* finestra) {
  voce.Click = [this, nome = QString::fromUtf16(finestra)] { apri(nome); };
}

void MenuPrincipale::abilita(bool abilitati) {
  for (Menu* menu : {&mnuTab, &mnuMov, &mnuUtilities}) menu->Enabled = abilitati;
}

void MenuPrincipale::non_valida(const QString& testo) {
  messaggi_.mostra(traduttore_.traduci(testo), traduttore_.traduci(u"Operazione non valida"_s));
}

// The two card windows are never open together: both would use the cabinet's session.
void MenuPrincipale::mnuUtenti_Click() {
  if (finestre_.trova(u"frm_tessere"))
    non_valida(u"Chiudere la finestra 'CHIAVI' prima di aprire 'Tessere operatori'."_s);
  else
    apri(u"frm_tessere_operatori"_s);
}

void MenuPrincipale::mnuTesCh_Click() {
  if (finestre_.trova(u"frm_tessere_operatori"))
    non_valida(u"Chiudere la finestra 'Tessere operatori' prima di aprire 'CHIAVI'."_s);
  else
    apri(u"frm_tessere"_s);
}

void MenuPrincipale::mnuParLok_Click() {
  if (chiudi_download) chiudi_download();
  apri(u"frm_param_lokere"_s);
}

void MenuPrincipale::mnuAggDB_Click() {
  (void)aggiorna_database(db_);
  messaggi_.mostra(traduttore_.traduci(u"aggiornamento database eseguito!"_s));
}

void MenuPrincipale::mnuTeleAssist_Click() {
  desktop_.apri_pagina(QString::fromUtf16(pagina_assistenza));
}

void MenuPrincipale::mnuEsc_Click() {
  if (!si_puo_finire || si_puo_finire()) programma_.fine();
}

}  // namespace lokera
