#pragma once

#include <QList>
#include <QString>

#include <functional>

#include "platform/desktop.h"
#include "platform/dialogs.h"

namespace lokera::simulazione {

/// Boxes that nobody sees: they are written down and closed at once.
class VirtualMessageBox : public MessageBox {
 public:
  using Messaggio = lokera::Messaggio;

  Risposta apri(const Messaggio& messaggio) override {
    mostrati.append(messaggio);
    if (const auto mentre = mentre_aperto) mentre(messaggio);
    if (messaggio.bottoni == Bottoni::ok) return Risposta::ok;
    const bool acconsente = !risposte.isEmpty() && risposte.takeFirst();
    if (messaggio.bottoni == Bottoni::si_no) return acconsente ? Risposta::si : Risposta::no;
    return acconsente ? Risposta::ok : Risposta::annulla;
  }

  QStringList testi() const {
    QStringList tutti;
    for (const auto& messaggio : mostrati) tutti.append(messaggio.testo);
    return tutti;
  }

  QList<Messaggio> mostrati;
  QList<bool>
      risposte;  ///< for the questions to come, true is Yes or OK; No or Cancel when there is none left
  std::function<void(const Messaggio&)> mentre_aperto;  ///< what happens while a box is open
};

class VirtualDesktop : public Desktop {
 public:
  void apri_pagina(const QString& indirizzo) override { pagine.append(indirizzo); }
  bool apri_file(const QString& file) override {
    file_aperti.append(file);
    return apre_file;
  }
  void svuota_appunti() override { ++appunti_svuotati; }
  void mostra_avviso(const QString& testo) override { avvisi.append(avviso = testo); }
  void togli_avviso() override { avviso.clear(); }

  QStringList pagine;
  QStringList file_aperti;
  bool apre_file = true;  ///< there is a program for them
  QString avviso;         ///< the notice that stands; empty for none
  QStringList avvisi;     ///< all that were shown
  int appunti_svuotati = 0;
};

class VirtualProgram : public Program {
 public:
  void fine() override { finito = true; }

  bool finito = false;
};

}  // namespace lokera::simulazione
