# Precompiled headers: Qt's and the standard library's own, parsed once and shared by every target. None of the house's
# headers is among them, so that touching one rebuilds only what includes it. A build without them finds a forgotten
# #include; scripts/lint makes one.

option(LOKERA_PCH "Parse the headers of Qt and the standard library once for all targets" ON)

# Only what most files include: each further header is loaded by all of them.
set(intestazioni_core <algorithm> <array> <functional> <map> <memory> <optional> <utility> <vector> <QByteArray>
    <QDateTime> <QHash> <QString> <QStringList> <QVariant>)
set(intestazioni_widgets ${intestazioni_core} <QApplication> <QPainter> <QWidget>)
set(intestazioni_gtest ${intestazioni_core} <gtest/gtest.h>)
set(legami_core Qt6::Core)
set(legami_widgets Qt6::Widgets)
set(legami_gtest Qt6::Core GTest::gtest)

# lokera_precompilate(TARGET VARIANT): the target shares the precompiled headers of core, widgets or gtest.
function(lokera_precompilate target variante)
  if(NOT LOKERA_PCH)
    return()
  endif()
  set(pch lokera_pch_${variante})
  if(NOT TARGET ${pch})
    file(CONFIGURE OUTPUT ${CMAKE_BINARY_DIR}/pch/${variante}.cpp CONTENT "// Carries the precompiled headers.\n")
    add_library(${pch} OBJECT EXCLUDE_FROM_ALL ${CMAKE_BINARY_DIR}/pch/${variante}.cpp)
    set_target_properties(${pch} PROPERTIES AUTOMOC OFF AUTOUIC OFF AUTORCC OFF)
    target_link_libraries(${pch} PRIVATE lokera_options ${legami_${variante}})
    target_precompile_headers(${pch} PRIVATE ${intestazioni_${variante}})
  endif()
  target_precompile_headers(${target} REUSE_FROM ${pch})
endfunction()
