#pragma once

#include <QStringList>

namespace lokera {

/// What stands above the columns of each page, in the language of the person.
struct TestataReport {
  QStringList ditta;
  QString titolo;
  QString data;          ///< empty for none
  QString testo_data;    ///< in front of it
  QString testo_pagina;  ///< in front of the page's number
};

}  // namespace lokera
