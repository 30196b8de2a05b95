// The search by broadcast.
#include "commissioning/frm_param_lokere.h"
#include "link/protocollo.h"

namespace lokera {

using namespace Qt::StringLiterals;

// A window that was asked to close goes no further than the wait that runs.
void frm_param_lokere::Command4_Click() {
  const Attesa attesa(*this);
  avanzamento.inizia();
  carica_lista();
  bool avanti = cerca_in_rete();
  if (avanti) lista.grdLok.Row(0);
  for (int riga = 0; avanti && riga < lista.grdLok.Rows(); ++riga)
    avanti = !lista.in_linea(riga) || leggi_trovata(riga);
  linea_.wsk.chiudi();
  avanzamento.fine();
}

bool frm_param_lokere::cerca_in_rete() {
  linea_.chiudi_datagrammi();
  linea_.wsk_udp.pausa(0);
  if (in_chiusura()) return false;
  linea_.rivolgi_a_tutti();
  linea_.wsk_udp.raccogli(componi_frame("000A0"), 5, lunghezza_scoperta, [this](const QByteArray& frame) {
    const auto rete = leggi_scoperta(frame);
    if (!rete) return;
    lista.risponde(*rete);
    avanzamento.risposta();
  });
  linea_.chiudi_datagrammi();
  return !in_chiusura();
}

// False when the window wants to close.
bool frm_param_lokere::leggi_trovata(int riga) {
  lista.grdLok.Row(riga);
  avanzamento.legge(lista.cella(u"ip_lokera"));
  if (connetti_lokera() && !in_chiusura()) leggi_seriale();
  if (linea_.connessa() && !in_chiusura()) leggi_orario();
  linea_.wsk.chiudi();
  if (in_chiusura()) return false;
  if (lista.ha_gemella(riga))
    servizi_.messaggi.mostra(
        u"Sono presenti lokere con lo stesso indirizzo IP. Per configurarle lasciarne accese solo una alla volta!"_s);
  servizi_.attesa.cedi();
  return !in_chiusura();
}

void frm_param_lokere::leggi_seriale() {
  const auto risposta = linea_.chiedi("0001B", 1, 17);
  if (risposta.fallito() || !risposta_buona(*risposta)) return;
  const QByteArrayView cifre = campo_frame(*risposta, 8, 10);
  if (cifre.size() == 10 && solo_cifre(cifre))
    lista.imposta_cella(u"seriale", QString::number(cifre.toByteArray().toLongLong()));
}

void frm_param_lokere::leggi_orario() {
  const auto risposta = linea_.chiedi("0001F", 1, 22);
  if (risposta.fallito() || !risposta_buona(*risposta) || risposta->size() < 22) return;
  const auto due = [&](qsizetype da) { return QString::fromLatin1(campo_frame(*risposta, da, 2)); };
  lista.imposta_cella(u"orario int.", QStringList{due(17), due(19), due(21)}.join(u'.'));
  lista.imposta_cella(u"orario PC", servizi_.attesa.orologio().adesso().toString(u"HH.mm.ss"_s));
}

}  // namespace lokera
