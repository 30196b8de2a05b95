// Lamps and the numbers in them.
#include "windows/adattatori.h"
#include "windows/lampada_widget.h"

namespace lokera {

using namespace Qt::StringLiterals;

namespace {

struct Segno {
  Aspetto aspetto = Aspetto::disco;
  QString parola;  ///< in the language of the interface
};

/// A lamp says a thing of its own by each colour; which, its kind in the drawing tells ("tipo").
class AdattaLampada : public AdattatoreDi<Shape, LampadaWidget> {
 public:
  AdattaLampada(Shape& c, LampadaWidget& w, Traduttore& traduttore)
      : AdattatoreDi(c, w), traduttore_(traduttore), tipo_(w.property("tipo").toString()) {}
  void titolo_cambiato() override { aggiorna(); }  // its words follow the language

 protected:
  void mostra() override {
    const Segno s = tipo_ == u"chiave"_s ? segno_chiave() : segno();
    w_.mostra(s.aspetto, colore());
    w_.setAccessibleDescription(s.parola);
    if (tipo_ == u"attivita"_s) w_.setAccessibleName(s.parola);
    if (const QString nome = nome_parlato(); !nome.isEmpty()) w_.setAccessibleName(nome);
    w_.setToolTip(s.parola);
  }

 private:
  Colore colore() const { return tipo_ == u"attivita"_s ? 0x1F6FB2 : c_.FillColor(); }

  Segno segno() const {
    const bool esito = tipo_ == u"esito"_s;
    if (tipo_ == u"attivita"_s) return {Aspetto::freccia, traduci(u"lettura in corso")};
    switch (c_.FillColor()) {
      case verde:
        return {Aspetto::spunta, traduci(esito ? u"eseguito" : u"autorizzato")};
      case rosso:
        return {Aspetto::croce, traduci(esito ? u"non eseguito" : u"rifiutato")};
      case grigio:
        return {Aspetto::anello, traduci(u"in attesa")};
      default:
        return {};
    }
  }

  /// The board speaks by the colours of its legend, in the legend's words.
  Segno segno_chiave() const {
    if (uguale(u"keyP")) return {Aspetto::disco, parola(u"lblKeyP")};
    if (uguale(u"keyU")) return {Aspetto::quadro, parola(u"lblKeyU")};
    return {Aspetto::tratteggio, parola(u"lblKeyN")};
  }
  bool uguale(QStringView legenda) const {
    const auto* lampada = come<Shape>(c_.finestra().controllo(legenda));
    return lampada && lampada->FillColor() == c_.FillColor();
  }
  QString parola(QStringView etichetta) const {
    Controllo* label = c_.finestra().controllo(etichetta);
    const Proprieta<QString>* testo = label ? label->didascalia() : nullptr;
    return testo ? testo->operator()() : QString();
  }
  /// The drawing names the labels that speak for the lamp ("etichette"); other words stand for themselves.
  QString nome_parlato() const {
    QStringList parole = w_.property("etichette").toString().split(u' ', Qt::SkipEmptyParts);
    for (QString& p : parole)
      if (const QString testo = parola(p); !testo.isEmpty()) p = testo;
    return parole.join(u' ');
  }
  QString traduci(QStringView testo) const { return traduttore_.traduci(testo.toString()); }

  Traduttore& traduttore_;
  const QString tipo_;
};

class AdattaNumero : public AdattatoreDi<NumeroPosizione, LampadaWidget> {
 public:
  using AdattatoreDi::AdattatoreDi;

 protected:
  void mostra() override {
    w_.numero(c_.Caption, c_.ForeColor);
    w_.setAccessibleName(c_.Caption);
  }
};

}  // namespace

std::unique_ptr<Adattatore> adatta_lampada(Shape& shape, QWidget& widget, Traduttore& traduttore) {
  return adatta_a<AdattaLampada, LampadaWidget>(shape, widget, traduttore);
}

std::unique_ptr<Adattatore> adatta_numero(NumeroPosizione& numero, QWidget& widget) {
  return adatta_a<AdattaNumero, LampadaWidget>(numero, widget);
}

}  // namespace lokera
