#pragma once

#include <QList>

#include "platform/printer.h"

namespace lokera::simulazione {

/// Printers whose paper is a list. A character is half as wide as its font is high, a bold one a tenth more.
class VirtualPrinter : public Printer {
 public:
  struct Stampato {
    QString titolo;
    QList<PaginaStampa> pagine;
    ProprietaStampa proprieta;
    QString file;  ///< empty when it went to paper

    QStringList testi() const;
  };

  explicit VirtualPrinter(FileChoice& file) : file_(file) {}

  QStringList stampanti() const override { return collegate + QStringList{stampante_pdf()}; }
  QStringList caratteri() const override { return {u"DejaVu Sans"_s, u"Times New Roman"_s}; }
  ProprietaStampa proprieta() const override { return proprieta_; }
  void imposta(const ProprietaStampa& nuove) override;
  std::optional<ProprietaStampa> imposta_pagina(const ProprietaStampa& iniziali) override;
  int ScaleWidth() const override;
  int ScaleHeight() const override;
  int TextWidth(const Carattere& carattere, const QString& testo) const override;
  int TextHeight(const Carattere& carattere) const override;
  EsitoStampa stampa(const Documento& documento) override;
  void anteprima(const Documento& documento, const TestiAnteprima& testi) override;

  QStringList collegate{u"Stampante virtuale"_s};
  QList<std::optional<ProprietaStampa>> fogli_scelti;  ///< what comes of the next dialogs; else cancelled
  QList<ProprietaStampa> fogli_mostrati;               ///< what the dialogs began with
  QList<Stampato> stampati;
  QList<Stampato> mostrati;                              ///< previews
  std::function<void(int pagina)> prima_di_ogni_pagina;  ///< counted from 1
  QString guasto;                                        ///< what printing fails with

 private:
  FileChoice& file_;
  ProprietaStampa proprieta_{.stampante = collegate.first()};
};

}  // namespace lokera::simulazione
