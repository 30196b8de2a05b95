#include "store/dialetto.h"

#include <algorithm>
#include <vector>

#include "store/confronto.h"
#include "store/date_jet.h"
#include "store/definizioni.h"
#include "store/lessico.h"

namespace lokera {

using namespace Qt::StringLiterals;

QString nome_lessema(const Lessema& l) {
  const bool ascii = std::all_of(l.testo.begin(), l.testo.end(), [](QChar c) { return c.unicode() < 0x80; });
  return ascii ? l.testo.toString() : minuscolo(l.testo);
}

QString senza_parentesi_quadre(const QString& nome) {
  return nome.startsWith(u'[') && nome.endsWith(u']') ? nome.sliced(1, nome.size() - 2) : nome;
}

namespace {

TipoIstruzione tipo_di(QStringView parola) {
  const QString p = parola.toString().toLower();
  if (p == "select"_L1) return TipoIstruzione::lettura;
  if (p == "insert"_L1) return TipoIstruzione::inserimento;
  if (p == "update"_L1) return TipoIstruzione::modifica;
  if (p == "delete"_L1) return TipoIstruzione::cancellazione;
  if (p == "create"_L1 || p == "alter"_L1 || p == "drop"_L1) return TipoIstruzione::definizione;
  return TipoIstruzione::altro;
}

class Passata {
 public:
  explicit Passata(QStringView sql) : lessemi_(scomponi(sql)), tolti_(lessemi_.size(), false), limiti_(1) {}

  Esito<Abbassata> esegui() {
    togli_chiusura_finale();
    const size_t primo = verbo();
    if (primo < lessemi_.size()) esito_.tipo = tipo_di(lessemi_[primo].testo);
    trova_tabella(primo);
    if (esito_.tipo == TipoIstruzione::definizione) {
      if (const auto ddl = abbassa_definizione(lessemi_)) {
        if (ddl->fallito()) return ddl->errore();
        esito_.sql = ddl->valore();
        return esito_;
      }
    }
    for (i_ = 0; i_ < lessemi_.size(); ++i_) {
      if (!tolti_[i_]) passo(lessemi_[i_]);
    }
    if (errore_.fallito()) return errore_;
    esito_.sql += limiti_.front();
    return esito_;
  }

 private:
  size_t salta_spazi(size_t i) const {
    while (i < lessemi_.size() && lessemi_[i].tipo == TipoLessema::spazio) ++i;
    return i;
  }
  /// Where the statement says what it does: at its head, or behind the queries that a `with` names.
  size_t verbo() const {
    size_t i = salta_spazi(0);
    if (!parola_in(i, u"with")) return i;
    for (int profondita = 0; i < lessemi_.size(); ++i) {
      if (segno_in(i, u'(')) ++profondita;
      if (segno_in(i, u')')) --profondita;
      const bool parola = lessemi_[i].tipo == TipoLessema::parola;
      if (profondita == 0 && parola && tipo_di(lessemi_[i].testo) != TipoIstruzione::altro) break;
    }
    return i;
  }
  bool parola_in(size_t i, QStringView p) const { return i < lessemi_.size() && lessemi_[i].e_parola(p); }
  bool segno_in(size_t i, char16_t c) const { return i < lessemi_.size() && lessemi_[i].e_segno(c); }

  void togli_chiusura_finale() {
    for (size_t i = lessemi_.size(); i-- > 0;) {
      if (lessemi_[i].tipo != TipoLessema::spazio && !lessemi_[i].e_segno(u';')) return;
      tolti_[i] = true;
    }
  }

  void trova_tabella(size_t primo) {
    const QStringView dopo = esito_.tipo == TipoIstruzione::inserimento ? u"into" : u"from";
    size_t i = primo;
    if (esito_.tipo != TipoIstruzione::modifica) {
      while (i < lessemi_.size() && !lessemi_[i].e_parola(dopo)) ++i;
    }
    do i = salta_spazi(i + 1);
    while (segno_in(i, u'('));
    if (i < lessemi_.size()) esito_.tabella = senza_parentesi_quadre(nome_lessema(lessemi_[i]));
  }

  void passo(const Lessema& l) {
    switch (l.tipo) {
      case TipoLessema::data:
        return data(l);
      case TipoLessema::nome:
        esito_.sql += nome_lessema(l);
        return;
      case TipoLessema::parola:
        return parola(l);
      case TipoLessema::segno:
        return segno(l);
      case TipoLessema::spazio:
        esito_.sql += u' ';
        return;
      default:
        esito_.sql += l.testo;
    }
  }

  void data(const Lessema& l) {
    const auto letta = leggi_data(l.testo.sliced(1).chopped(1), OrdineData::mese_giorno);
    if (!letta) {
      errore_ = {1, u"Data non valida nell'istruzione: "_s + l.testo.toString()};
      return;
    }
    esito_.sql += u'\'' + QString::fromLatin1(data_memorizzata(*letta)) + u'\'';
  }

  void parola(const Lessema& l) {
    esito_.sql += nome_lessema(l);
    if (l.e_parola(u"select")) testa_select();
    if (l.e_parola(u"from")) togli_gruppi();
  }

  /// `top n` becomes a limit at the end of its own select.
  void testa_select() {
    size_t i = salta_spazi(i_ + 1);
    const bool distinte = parola_in(i, u"distinct");
    if (distinte) i = salta_spazi(i + 1);
    const size_t numero = salta_spazi(i + 1);
    const bool limite =
        parola_in(i, u"top") && numero < lessemi_.size() && lessemi_[numero].tipo == TipoLessema::numero;
    if (limite) limiti_.back() = u" limit "_s + lessemi_[numero].testo.toString();
    if (!limite && !distinte) return;
    esito_.sql += distinte ? " distinct "_L1 : " "_L1;
    i_ = limite ? numero : i - 1;
  }

  /// Joins group from the left by themselves, and without the parentheses the engine keeps the columns' own
  /// names and types.
  void togli_gruppi() {
    for (size_t i = salta_spazi(i_ + 1); segno_in(i, u'('); i = salta_spazi(i + 1)) {
      if (parola_in(salta_spazi(i + 1), u"select")) return;
      const size_t chiusa = chiusura(i);
      if (chiusa == lessemi_.size()) return;
      tolti_[i] = tolti_[chiusa] = true;
    }
  }

  size_t chiusura(size_t aperta) const {
    int profondita = 0;
    size_t i = aperta;
    for (; i < lessemi_.size(); ++i) {
      if (segno_in(i, u'(')) ++profondita;
      if (segno_in(i, u')') && --profondita == 0) break;
    }
    return i;
  }

  void segno(const Lessema& l) {
    if (l.e_segno(u'(')) limiti_.emplace_back();
    if (l.e_segno(u')') && limiti_.size() > 1) {
      esito_.sql += limiti_.back();
      limiti_.pop_back();
    }
    esito_.sql += l.testo;
  }

  std::vector<Lessema> lessemi_;
  std::vector<bool> tolti_;
  std::vector<QString> limiti_;  ///< one for each open parenthesis, the statement itself first
  Abbassata esito_;
  Errore errore_;
  size_t i_ = 0;
};

}  // namespace

Esito<Abbassata> abbassa(QStringView sql) {
  return Passata(sql).esegui();
}

}  // namespace lokera
