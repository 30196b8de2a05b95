#pragma once

#include <QSize>
#include <QStringList>

#include <functional>
#include <optional>

#include "platform/documento.h"
#include "platform/file_choice.h"

namespace lokera {

/// The printer that is always there, last in the list. It asks for a file before each document.
inline QString stampante_pdf() {
  return u"File PDF"_s;
}

enum class Orientamento { verticale = 1, orizzontale = 2 };

/// Paper codes, as they are kept for each report; the others of the same list count too.
constexpr int formato_a4 = 9;
constexpr int formato_libero = 256;  ///< of a width and a length of its own

/// How a printer prints.
struct ProprietaStampa {
  QString stampante;     ///< a name of the list
  int qualita = 0;       ///< -1 draft, -2 low, -3 medium, -4 high; 0 as the printer has it
  int alimentatore = 0;  ///< paper bin: 1 upper, 2 lower, 3 middle, 4 by hand; 0 as the printer has it
  int formato = formato_a4;
  int larghezza = 11906;  ///< of the paper held upright
  int lunghezza = 16838;
  Orientamento orientamento = Orientamento::verticale;
  /// Of each side, counted on the paper as it is printed; a printer that needs more takes more.
  int margine_sinistro = twip_centimetro;
  int margine_alto = twip_centimetro;
  int margine_destro = twip_centimetro;
  int margine_basso = twip_centimetro;

  bool operator==(const ProprietaStampa&) const = default;
};

/// What the current properties become when others are asked for: a printer that isn't in the list, a paper
/// whose size `misura` (in twips) doesn't know, a width or a length of 0 leave what there was.
ProprietaStampa combina(const ProprietaStampa& attuali, const ProprietaStampa& nuove,
                        const QStringList& stampanti, const std::function<QSize(int formato)>& misura);

/// What the printer that writes files asks for.
SceltaFile scelta_pdf(const Documento& documento);

struct EsitoStampa {
  bool stampato = false;
  QString errore;  ///< for a person to read; empty too when the person gave it up
};

/// What stands on a preview, in the language of the person.
struct TestiAnteprima {
  QString titolo, precedente, successiva, ingrandisci, riduci, chiudi;
  QString pagina;       ///< "%1" the one that is seen, "%2" how many there are
  QString solo_queste;  ///< "%1" of many pages the first so many are seen
};
/// A preview shows no more pages than these, and the first ones of a longer document.
constexpr int pagine_anteprima = 200;

/// The computer's printers, of which one is the current one: the computer's default until another is set.
class Printer {
 public:
  virtual ~Printer() = default;

  /// Names of the printers, never empty.
  virtual QStringList stampanti() const = 0;
  /// Names of the fonts.
  virtual QStringList caratteri() const = 0;
  virtual ProprietaStampa proprieta() const = 0;
  /// What can't be applied is skipped: see `combina`.
  virtual void imposta(const ProprietaStampa& nuove) = 0;

  /// The dialog for paper, orientation and margins, beginning with `iniziali`; nothing when it was cancelled.
  /// It sets nothing. Modal, like a message box.
  virtual std::optional<ProprietaStampa> imposta_pagina(const ProprietaStampa& iniziali) = 0;

  /// What can be printed on, with the current properties.
  virtual int ScaleWidth() const = 0;
  virtual int ScaleHeight() const = 0;
  virtual int TextWidth(const Carattere& carattere, const QString& testo) const = 0;
  /// From one line to the next.
  virtual int TextHeight(const Carattere& carattere) const = 0;

  /// Prints on the current printer. Modal, like a message box, where a file has to be chosen.
  virtual EsitoStampa stampa(const Documento& documento) = 0;
  /// Shows what would be printed. Modal, like a message box.
  virtual void anteprima(const Documento& documento, const TestiAnteprima& testi) = 0;
};

}  // namespace lokera
