#include "store/converti_sql.h"

#include "store/confronto.h"
#include "store/converti_oracle.h"
#include "store/date_jet.h"
#include "store/lessico.h"
#include "store/ripara_apici.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

/// The other server reads dates day first, as quoted literals.
QString date_sql(const QString& statement) {
  QString esito;
  for (const Lessema& l : scomponi(statement)) {
    if (l.tipo != TipoLessema::data) {
      esito += l.testo;
      continue;
    }
    const QString data = l.testo.sliced(1).chopped(1).toString();
    const bool data_intera = data.size() == 10 && leggi_data(data, OrdineData::mese_giorno).has_value();
    esito += u'\'' + (data_intera ? data.sliced(3, 3) + data.first(3) + data.sliced(6) : data) + u'\'';
  }
  return esito;
}

}  // namespace

QString converti_sql(const QString& statement, const QString& tipo_database, QString* errore) {
  const QString minuscola = minuscolo(statement);
  const QString tipo = tipo_database.toUpper();
  if (tipo == "SQL"_L1) return maiuscolo(date_sql(minuscolo(ripara_apici(minuscola))));
  if (tipo != "ORACLE"_L1) return maiuscolo(ripara_apici(minuscola));
  QString messaggio;
  // While the structure is read, an apostrophe that is text must not seem to end its literal.
  const QString segnaposto(QChar(0xE000));
  QString struttura = struttura_oracle(ricomponi(classifica(minuscola), segnaposto), messaggio);
  if (errore != nullptr) *errore = messaggio;
  return maiuscolo(condizioni_oracle(minuscolo(struttura.replace(segnaposto, u"'"_s))));
}

}  // namespace lokera
