#include "supervisor/tabellone.h"

#include <algorithm>

#include "store/recordset.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

constexpr Colore colore_non_gestita = 0xC0C0C0;
constexpr Colore colore_presente = 0x7FD67F;
constexpr Colore colore_uscita = 0xB00020;

template <class T>
void crea(std::vector<std::unique_ptr<T>>& controlli, Finestra& f, const QString& nome, int da, int a) {
  for (int i = da; i <= a; ++i) controlli.push_back(std::make_unique<T>(f, nome.arg(i)));
}

}  // namespace

Tabellone::Tabellone(Finestra& f, Database& db, const LokeraCorrente& corrente)
    : keyN(f, u"keyN"_s),
      keyP(f, u"keyP"_s),
      keyU(f, u"keyU"_s),
      lblKeyN(f, u"lblKeyN"_s, u"chiave non gestita"_s),
      lblKeyP(f, u"lblKeyP"_s, u"chiave all'interno della lokera"_s),
      lblKeyU(f, u"lblKeyU"_s, u"chiave uscita"_s),
      cmdTotali(f, u"cmdTotali"_s, u"totali"_s),
      db_(db),
      corrente_(corrente) {
  keyN.FillColor = colore_non_gestita;
  keyP.FillColor = colore_presente;
  keyU.FillColor = colore_uscita;
  crea(pannelli_, f, u"pnlK_%1"_s, 0, pannelli - 1);
  crea(numeri_, f, u"Num_%1"_s, 1, posizioni);
  crea(lampade_, f, u"lampade_chiave_%1"_s, 1, posizioni);
}

void Tabellone::prepara() {
  for (int i = 1; i <= posizioni; ++i) Num(i).Caption = QString::number(i);
  for (int p = 0; p < pannelli; ++p) pos_pannelli[static_cast<size_t>(p)] = pnlK(p).Top;
}

void Tabellone::spegni() {
  for (int p = 0; p < pannelli; ++p) pnlK(p).Visible = false;
  for (int i = 0; i < posizioni; ++i) mostra(i, keyN, nero);
}

void Tabellone::mostra(qlonglong posizione, const Shape& legenda, Colore numero) {
  if (posizione < 0 || posizione >= posizioni) return;
  const int mostrata = static_cast<int>(posizione) + 1;
  lampade_chiave(mostrata).FillColor = legenda.FillColor;
  Num(mostrata).ForeColor = numero;
}

void Tabellone::mostra_movimento(const Movimento& movimento, const ChiaveRegistrata& chiave) {
  if (chiave.lokera != corrente_.id()) return;
  if (movimento.operazione == tipo_prelievo)
    chiave_uscita(chiave.posizione);
  else
    chiave_presente(chiave.posizione);
  avvisa();
}

Tabellone::Totali Tabellone::totali() const {
  Totali t;
  for (int i = 0; i < posizioni; ++i) {
    const Colore colore = lampade_[static_cast<size_t>(i)]->FillColor;
    if (colore == keyP.FillColor)
      ++t.presenti;
    else if (colore == keyU.FillColor)
      ++t.uscite;
    else if (pannelli_[static_cast<size_t>(i / posizioni_pannello)]->Visible)
      ++t.non_gestite;
  }
  return t;
}

Errore Tabellone::situazione_chiavi() {
  spegni();
  if (corrente_.nessuna()) {
    avvisa();
    return {};
  }
  qlonglong ultima = 0;
  Recordset rs;
  Errore errore = rs.Open(u"select * from tessere_chiavi where lokera = ? order by posizione"_s,
                          db_.connessione_db, {corrente_.id()});
  while (!errore.fallito() && !rs.eof()) {
    const QVariant posto = rs.valore(u"posizione");
    const qlonglong posizione = posto.isValid() ? posto.toLongLong() : -1;
    if (rs.testo(u"operatore").trimmed().isEmpty())
      chiave_presente(posizione);
    else
      chiave_uscita(posizione);
    if (posizione < posizioni) ultima = posizione + 1;
    errore = rs.MoveNext();
  }
  mostra_pannelli(ultima);
  avvisa();
  return errore;
}

// The panels in use close up, and the last of them always stands at the place of the last panel of all.
void Tabellone::mostra_pannelli(qlonglong ultima) {
  const int visibili =
      static_cast<int>((std::max(ultima, 0LL) + posizioni_pannello - 1) / posizioni_pannello);
  for (int i = 0; i < visibili; ++i) {
    const int posto = pannelli - visibili + i;
    pnlK(i).Top = pos_pannelli[static_cast<size_t>(posto)];
    pnlK(i).Visible = true;
  }
}

}  // namespace lokera
