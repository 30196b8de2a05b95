#pragma once

#include <QList>
#include <QString>

#include <functional>
#include <utility>

#include "platform/desktop.h"
#include "platform/dialogs.h"

namespace lokera::simulazione {

/// Boxes that nobody sees: they are written down and closed at once.
class VirtualMessageBox : public MessageBox {
 public:
  struct Messaggio {
    QString testo;
    QString titolo;
    bool domanda = false;
    bool operator==(const Messaggio&) const = default;
  };

  void mostra(const QString& testo, const QString& titolo) override { apri({testo, titolo, false}); }
  bool chiedi(const QString& testo, const QString& titolo) override {
    apri({testo, titolo, true});
    return !risposte.isEmpty() && risposte.takeFirst();
  }

  QStringList testi() const {
    QStringList tutti;
    for (const auto& messaggio : mostrati) tutti.append(messaggio.testo);
    return tutti;
  }

  QList<Messaggio> mostrati;
  QList<bool> risposte;  ///< for the questions to come, true is Yes; No when there is none left
  std::function<void(const Messaggio&)> mentre_aperto;  ///< what happens while a box is open

 private:
  void apri(const Messaggio& messaggio) {
    mostrati.append(messaggio);
    if (const auto mentre = mentre_aperto) mentre(messaggio);
  }
};

class VirtualDesktop : public Desktop {
 public:
  void apri_pagina(const QString& indirizzo) override { pagine.append(indirizzo); }
  void svuota_appunti() override { ++appunti_svuotati; }
  void mostra_avviso(const QString& testo) override { avvisi.append(avviso = testo); }
  void togli_avviso() override { avviso.clear(); }

  QStringList pagine;
  QString avviso;      ///< the notice that stands; empty for none
  QStringList avvisi;  ///< all that were shown
  int appunti_svuotati = 0;
};

class VirtualProgram : public Program {
 public:
  void fine() override { finito = true; }

  bool finito = false;
};

}  // namespace lokera::simulazione
