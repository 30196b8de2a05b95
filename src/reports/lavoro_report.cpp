#include "reports/lavoro_report.h"

#include <QDir>

#include <utility>

#include "reports/esporta_griglia.h"
#include "reports/imposta_stampante.h"
#include "reports/report_testo.h"

namespace lokera {

namespace {

/// The list stands on its first row before a report and after it, and is drawn no more meanwhile. Rows that
/// are selected stay so, and with them the row that the person stands on.
class ListaFerma {
 public:
  explicit ListaFerma(SSOleDBGrid& grd) : grd_(grd) {
    grd_.Redraw(false);
    prima_riga();
  }
  ~ListaFerma() {
    prima_riga();
    grd_.Redraw(true);
  }
  Q_DISABLE_COPY_MOVE(ListaFerma)

 private:
  void prima_riga() {
    if (grd_.selezionate().empty()) grd_.Row(0);
  }

  SSOleDBGrid& grd_;
};

ReportGrafico::Aspetto aspetto(const ImpostazioniStampa& i) {
  return {{i.Font.trimmed(), i.dimensione, false}, i.interpollice};
}

}  // namespace

LavoroReport::LavoroReport(const ServiziStampa& servizi, SSOleDBGrid& griglia, ContestoStampa contesto,
                           Lavoro& lavoro)
    : servizi_(servizi),
      griglia_(griglia),
      contesto_(std::move(contesto)),
      lavoro_(lavoro),
      archivio_(servizi.archivio) {}

bool LavoroReport::esegui(const ImpostazioniStampa& impostazioni, const ScelteReport& scelte) {
  const ListaFerma ferma(griglia_);
  if (scelte.esporta_testo || scelte.esporta_excel) return esporta(scelte);
  return scelte.modalita_carattere ? stampa_testo(scelte) : stampa_griglia(impostazioni, scelte);
}

void LavoroReport::imposta(const ImpostazioniStampa& impostazioni) {
  const auto margine = archivio_.margine_sinistro(contesto_);
  servizi_.stampante.imposta(
      imposta_stampante(servizi_.stampante.proprieta(), impostazioni, margine.valore()));
}

TestataReport LavoroReport::testata(const ScelteReport& scelte) {
  TestataReport t;
  if (scelte.dati_anagrafici) t.ditta = archivio_.ditta(servizi_.griglie.traduttore).valore();
  t.titolo = traduci(contesto_.nome_stampa);
  t.testo_data = traduci(u"  data: "_s);
  t.testo_pagina = traduci(scelte.modalita_carattere ? u"Pagina:"_s : u"   pagina: "_s);
  if (scelte.stampa_data) t.data = servizi_.orologio.adesso().toString(u"dd/MM/yyyy"_s);
  return t;
}

bool LavoroReport::stampa_griglia(const ImpostazioniStampa& impostazioni, const ScelteReport& scelte) {
  imposta(impostazioni);
  ReportGrafico report(griglia_, servizi_.stampante, testata(scelte), aspetto(impostazioni));
  if (!ci_sta(report)) return false;
  const EsitoStampa esito = stampa_pagine(report);
  if (esito.errore.isEmpty()) return esito.stampato;
  lavoro_.lblLavoro.Caption = QString();  // nobody has stopped it
  servizi_.griglie.messaggi.mostra(traduci(u"Errore in stampa."_s) + u'\n' + esito.errore);
  return false;
}

EsitoStampa LavoroReport::stampa_pagine(ReportGrafico& report) {
  Lavoro::Corsa corsa(lavoro_, report.pagine(), u"pagina %1 di %2"_s);
  Documento documento = report.documento();
  documento.continua = [&corsa](int fatte) { return corsa.continua(fatte); };
  EsitoStampa esito = servizi_.stampante.stampa(documento);
  if (esito.stampato) corsa.continua(report.pagine());
  return esito;
}

bool LavoroReport::ci_sta(const ReportGrafico& report) {
  if (report.ci_sta()) return true;
  servizi_.griglie.messaggi.mostra(traduci(u"Il foglio è troppo piccolo per il carattere scelto."_s));
  return false;
}

// A preview measures on the printer as it would be set, and gives it back as it was. Quality and bin show on
// no screen.
void LavoroReport::anteprima(const ImpostazioniStampa& impostazioni, const ScelteReport& scelte) {
  const ProprietaStampa prima = servizi_.stampante.proprieta();
  ProprietaStampa nuove = imposta_stampante(prima, impostazioni, impostazioni.margineSx);
  nuove.qualita = nuove.alimentatore = 0;
  servizi_.stampante.imposta(nuove);
  ReportGrafico report(griglia_, servizi_.stampante, testata(scelte), aspetto(impostazioni));
  if (ci_sta(report))
    servizi_.stampante.anteprima(
        report.documento(),
        {traduci(u"Anteprima di stampa"_s), traduci(u"precedente"_s), traduci(u"successiva"_s),
         traduci(u"ingrandisci"_s), traduci(u"riduci"_s), traduci(u"chiudi"_s), traduci(u"pagina %1 di %2"_s),
         traduci(u"(anteprima delle prime %1)"_s)});
  servizi_.stampante.imposta(prima);
}

std::optional<int> LavoroReport::righe_per_pagina() {
  auto righe = righe_da_configurazione(QDir(servizi_.programma).filePath(u"stampa.cfg"_s));
  if (!righe) {
    const QString domanda = traduci(u"Valori standard per numero righe pagina."_s) + u"\n\n"_s +
                            u"interlinea:     30     18\n"_s + u"mod. 11       66    110\n"_s +
                            u"mod. A/4     70    117\n"_s + u"mod. 12       72    120\n\n"_s +
                            traduci(u"Indicare il numero di righe per pagina:"_s);
    righe = servizi_.domande.chiedi(domanda, traduci(u"Righe per pagina"_s));
  }
  if (!righe) return std::nullopt;
  if (const int n = righe->trimmed().toInt(); n > 0) return n;
  servizi_.griglie.messaggi.mostra(traduci(u"Numero di righe per pagina non valido."_s));
  return std::nullopt;
}

bool LavoroReport::stampa_testo(const ScelteReport& scelte) {
  const auto righe = righe_per_pagina();
  if (!righe) return false;
  FileScritto file(in_documenti(u"stampa.txt"_s));
  ReportTesto report(griglia_, testata(scelte), *righe, file);
  {
    Lavoro::Corsa corsa(lavoro_, report.righe());
    for (int i = 0; corsa.continua(i); ++i) report.scrivi(i);
    if (!corsa.finito()) return false;
  }
  if (const QString errore = file.completa(); !errore.isEmpty()) {
    non_scritto(file.nome(), errore);
    return false;
  }
  apri(file.nome());
  return true;
}

bool LavoroReport::esporta(const ScelteReport& scelte) {
  if (scelte.esporta_testo && !su_file_testo()) return false;
  return !scelte.esporta_excel || su_foglio();
}

bool LavoroReport::su_file_testo() {
  FileScritto file(in_documenti(u"dati.txt"_s));
  if (!esporta_testo(griglia_, file, lavoro_)) return false;
  if (const QString errore = file.completa(); !errore.isEmpty()) {
    non_scritto(file.nome(), errore);
    return false;
  }
  creato(u"Esportazione riuscita. Creato file "_s, file.nome());
  return true;
}

bool LavoroReport::su_foglio() {
  const QString ora = servizi_.orologio.adesso().toString(u"yyyy-MM-dd hh.mm.ss"_s);
  const QString nome = in_documenti(traduci(contesto_.nome_stampa) + u' ' + ora + u".xlsx"_s);
  QDir().mkpath(servizi_.documenti);
  const auto libro = servizi_.fogli.nuovo(nome);
  if (!esporta_foglio(griglia_, traduci(contesto_.nome_stampa), *libro, lavoro_)) return false;
  if (const QString errore = libro->salva(); !errore.isEmpty()) {
    non_scritto(nome, errore);
    return false;
  }
  if (griglia_.Rows() > righe_foglio)
    servizi_.griglie.messaggi.mostra(
        traduci(u"Il foglio contiene solo le prime %1 righe dell'elenco."_s).arg(righe_foglio));
  apri(nome);
  return true;
}

QString LavoroReport::in_documenti(const QString& nome) const {
  return QDir(servizi_.documenti).filePath(nome);
}

void LavoroReport::non_scritto(const QString& file, const QString& errore) {
  servizi_.griglie.messaggi.mostra(traduci(u"Impossibile scrivere il file: "_s) + u'"' + file + u"\"\n"_s +
                                   errore);
}

void LavoroReport::creato(const QString& testo, const QString& file) {
  servizi_.griglie.messaggi.mostra(traduci(testo) + u'"' + file + u'"');
}

// Where no program opens it, the person learns where it is.
void LavoroReport::apri(const QString& file) {
  if (!servizi_.desktop.apri_file(file)) creato(u"Creato file "_s, file);
}

}  // namespace lokera
