#include "reports/frm_sit_chiavi.h"

namespace lokera {

frm_sit_chiavi::frm_sit_chiavi(ElencoFinestre& elenco, Traduttore& traduttore, const Clock& orologio)
    : Finestra(elenco, u"frm_sit_chiavi"_s),
      lblNome(*this, u"lblNome"_s),
      lblData(*this, u"lblData"_s),
      lblPresenti(*this, u"lblPresenti"_s, u"chiavi presenti nella lokera"_s),
      lblUscite(*this, u"lblUscite"_s, u"chiavi uscite"_s),
      lblNonGestite(*this, u"lblNonGestite"_s, u"chiavi non ancora gestite"_s),
      lblNumPresenti(*this, u"lblNumPresenti"_s),
      lblNumUscite(*this, u"lblNumUscite"_s),
      lblNumNonGestite(*this, u"lblNumNonGestite"_s),
      Command1(*this, u"Command1"_s, u"chiudi"_s),
      traduttore_(traduttore),
      orologio_(orologio) {
  Command1.Click = [this] { chiudi(); };
}

void frm_sit_chiavi::Form_Load() {
  Caption(traduttore_.traduci(u"   Lokera  -  Situazione chiavi"_s));
  traduttore_.traduci_form(*this);
  mostra_ora();
}

void frm_sit_chiavi::mostra_ora() {
  lblData.Caption = orologio_.adesso().toString(u"dd/MM/yyyy  -  HH:mm"_s);
}

void frm_sit_chiavi::mostra(const QString& lokera, int presenti, int uscite, int non_gestite) {
  lblNome.Caption = lokera;
  mostra_ora();
  lblNumPresenti.Caption = QString::number(presenti);
  lblNumUscite.Caption = QString::number(uscite);
  lblNumNonGestite.Caption = QString::number(non_gestite);
}

}  // namespace lokera
