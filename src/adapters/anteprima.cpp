#include "adapters/anteprima.h"

#include <QBoxLayout>
#include <QDialog>
#include <QLabel>
#include <QPrintPreviewWidget>
#include <QPrinter>
#include <QPushButton>

#include <algorithm>

#include "adapters/disegno_pagina.h"
#include "adapters/modale.h"

namespace lokera {

namespace {

class Anteprima : public QDialog {
 public:
  Anteprima(QPrinter& stampante, const Documento& documento, const TestiAnteprima& testi, QWidget* sopra)
      : QDialog(sopra), documento_(documento), testi_(testi), foglio_(new QPrintPreviewWidget(&stampante)) {
    documento_.continua = {};  // it is made at one go, and none of it lasts
    setWindowTitle(testi.titolo);
    resize(900, 700);
    connect(foglio_, &QPrintPreviewWidget::paintRequested, this,
            [this](QPrinter* su) { disegna(*su, documento_, pagine_anteprima); });
    connect(foglio_, &QPrintPreviewWidget::previewChanged, this, [this] { dove(); });
    auto* comandi = new QHBoxLayout;
    indietro_ = tasto(*comandi, testi.precedente, Qt::Key_PageUp, [this] { vai(-1); });
    avanti_ = tasto(*comandi, testi.successiva, Qt::Key_PageDown, [this] { vai(1); });
    comandi->addWidget(pagina_, 1, Qt::AlignCenter);
    tasto(*comandi, testi.ingrandisci, Qt::Key_Plus, [this] { foglio_->zoomIn(1.25); });
    tasto(*comandi, testi.riduci, Qt::Key_Minus, [this] { foglio_->zoomOut(1.25); });
    tasto(*comandi, testi.chiudi, Qt::Key_Escape, [this] { reject(); })->setDefault(true);
    auto* tutto = new QVBoxLayout(this);
    tutto->addWidget(foglio_, 1);
    tutto->addLayout(comandi);
    foglio_->fitToWidth();
    dove();
  }

 private:
  template <class F>
  QPushButton* tasto(QHBoxLayout& comandi, const QString& testo, Qt::Key scorciatoia, F premuto) {
    auto* nuovo = new QPushButton(testo);
    nuovo->setShortcut(QKeySequence(scorciatoia));
    connect(nuovo, &QPushButton::clicked, this, premuto);
    comandi.addWidget(nuovo);
    return nuovo;
  }
  void vai(int passo) {
    foglio_->setCurrentPage(std::clamp(foglio_->currentPage() + passo, 1, foglio_->pageCount()));
    dove();
  }
  void dove() {
    const int qui = foglio_->currentPage();
    indietro_->setEnabled(qui > 1);
    avanti_->setEnabled(qui < foglio_->pageCount());
    QString testo = testi_.pagina.arg(qui).arg(documento_.pagine);
    if (documento_.pagine > pagine_anteprima) testo += u"  "_s + testi_.solo_queste.arg(pagine_anteprima);
    pagina_->setText(testo);
  }

  Documento documento_;
  const TestiAnteprima testi_;
  QPrintPreviewWidget* foglio_;
  QLabel* pagina_ = new QLabel;
  QPushButton* indietro_ = nullptr;
  QPushButton* avanti_ = nullptr;
};

}  // namespace

void mostra_anteprima(QPrinter& stampante, const Documento& documento, const TestiAnteprima& testi) {
  Modale<Anteprima>(stampante, documento, testi).esegui();
}

}  // namespace lokera
