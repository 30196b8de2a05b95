#include "adapters/qt_desktop.h"

#include <QClipboard>
#include <QDesktopServices>
#include <QGuiApplication>
#include <QUrl>

#include <cstdio>
#include <cstdlib>

namespace lokera {

void QtDesktop::apri_pagina(const QString& indirizzo) {
  QDesktopServices::openUrl(QUrl::fromUserInput(indirizzo));
}

void QtDesktop::svuota_appunti() {
  QGuiApplication::clipboard()->clear();
}

void QtProgram::fine() {
  std::fflush(nullptr);
  std::_Exit(EXIT_SUCCESS);
}

}  // namespace lokera
