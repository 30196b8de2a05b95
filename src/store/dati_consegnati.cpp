#include "store/dati_consegnati.h"

#include <QFile>
#include <QStringList>

#include "store/recordset.h"

static void inizializza_risorse() {
  Q_INIT_RESOURCE(dati);
}

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

QVariant cella(const Campo& campo, const QString& testo) {
  if (!testo.isEmpty()) return testo;
  if (e_testo(campo.tipo)) return u" "_s;
  return campo.tipo == TipoCampo::data ? QVariant() : QVariant(0);
}

Errore carica_riga(Recordset& rs, const QStringList& colonne, const QStringList& celle) {
  if (celle.size() != colonne.size()) {
    return {1, u"%1 celle invece di %2"_s.arg(celle.size()).arg(colonne.size())};
  }
  if (Errore e = rs.AddNew(); e.fallito()) return e;
  for (qsizetype i = 0; i < colonne.size(); ++i) {
    if (Errore e = rs.imposta(colonne[i], cella(rs.campo(rs.indice(colonne[i])), celle[i])); e.fallito())
      return e;
  }
  return rs.Update();
}

}  // namespace

Errore carica_righe(Connection& connessione, const QString& tabella, const QByteArray& tsv) {
  Recordset rs;
  if (Errore e = rs.Open(u"select * from "_s + tabella, connessione, {}, Cursore::aggiornabile); e.fallito())
    return e;
  QStringList righe = QString::fromUtf8(tsv).remove(u'\r').split(u'\n');
  const QStringList colonne = righe.takeFirst().split(u'\t');
  int numero = 1;
  for (const QString& riga : std::as_const(righe)) {
    ++numero;
    if (riga.isEmpty()) continue;
    if (Errore e = carica_riga(rs, colonne, riga.split(u'\t')); e.fallito()) {
      return {e.numero, u"%1, riga %2: "_s.arg(tabella).arg(numero) + e.descrizione, e.classe};
    }
  }
  return {};
}

Errore carica_dati_consegnati(Connection& connessione) {
  inizializza_risorse();
  for (const QString& tabella :
       {u"layout_griglie"_s, u"traduzioni"_s, u"default_stampagriglia"_s, u"tabelle_Ditta"_s}) {
    QFile risorsa(u":/store/dati/%1.tsv"_s.arg(tabella));
    if (!risorsa.open(QIODevice::ReadOnly)) return {1, u"Dati consegnati mancanti: "_s + tabella};
    if (Errore e = carica_righe(connessione, tabella, risorsa.readAll()); e.fallito()) return e;
  }
  return {};
}

}  // namespace lokera
