#pragma once

#include <QFont>
#include <QFontMetricsF>

#include <memory>

#include "platform/printer.h"

class QPrinter;

namespace lokera {

/// The desktop's printers, and the one that writes PDF files. A file stands in its place only when it is
/// whole.
class QtPrinter : public Printer {
 public:
  /// `file`: where the PDF's name is asked for.
  explicit QtPrinter(FileChoice& file);
  ~QtPrinter() override;
  Q_DISABLE_COPY_MOVE(QtPrinter)

  QStringList stampanti() const override;
  QStringList caratteri() const override;
  ProprietaStampa proprieta() const override { return attuali(); }
  void imposta(const ProprietaStampa& nuove) override;
  std::optional<ProprietaStampa> imposta_pagina(const ProprietaStampa& iniziali) override;
  int ScaleWidth() const override;
  int ScaleHeight() const override;
  int TextWidth(const Carattere& carattere, const QString& testo) const override;
  int TextHeight(const Carattere& carattere) const override;
  EsitoStampa stampa(const Documento& documento) override;
  void anteprima(const Documento& documento, const TestiAnteprima& testi) override;

 private:
  const ProprietaStampa& attuali() const;
  QPrinter& dispositivo() const;
  const QFontMetricsF& metrica(const Carattere& carattere) const;
  EsitoStampa stampa_su_file(const Documento& documento);

  FileChoice& file_;
  // Without a printer until something is asked: the print service may take its time, and the program's start
  // needs none.
  mutable ProprietaStampa proprieta_;
  mutable std::unique_ptr<QPrinter> dispositivo_;  // made when something is measured
  mutable Carattere misurato_;                     // whose metrics are kept
  mutable std::optional<QFontMetricsF> metrica_;
};

}  // namespace lokera
