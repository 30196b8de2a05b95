#include "adapters/qt_desktop.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QScreen>
#include <QUrl>

#include <cstdio>
#include <cstdlib>

namespace lokera {

void QtDesktop::apri_pagina(const QString& indirizzo) {
  QDesktopServices::openUrl(QUrl::fromUserInput(indirizzo));
}

bool QtDesktop::apri_file(const QString& file) {
  return QDesktopServices::openUrl(QUrl::fromLocalFile(file));
}

void QtDesktop::svuota_appunti() {
  QGuiApplication::clipboard()->clear();
}

void QtDesktop::mostra_avviso(const QString& testo) {
  constexpr int margine = 24;
  avviso_ = std::make_unique<QLabel>(testo, nullptr, Qt::SplashScreen | Qt::WindowStaysOnTopHint);
  // It is no window of the program: the last of those ends it.
  avviso_->setAttribute(Qt::WA_QuitOnClose, false);
  avviso_->setFrameStyle(QFrame::Box);
  avviso_->setMargin(margine);
  avviso_->adjustSize();
  const QRect schermo = avviso_->screen()->availableGeometry();
  avviso_->move(schermo.center() - avviso_->rect().center());
  avviso_->show();
}

void QtDesktop::togli_avviso() {
  avviso_.reset();
}

void QtProgram::fine() {
  std::fflush(nullptr);
  std::_Exit(EXIT_SUCCESS);
}

}  // namespace lokera
