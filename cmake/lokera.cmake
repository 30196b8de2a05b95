# What every target of the house is compiled with, and one function for each kind of target.

find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER ${CCACHE})
endif()

add_library(lokera_options INTERFACE)
target_compile_options(lokera_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion
                       $<$<BOOL:${LOKERA_WERROR}>:-Werror>)
target_compile_definitions(lokera_options INTERFACE QT_NO_KEYWORDS)
if(LOKERA_SANITIZE)
  target_compile_options(lokera_options INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer
                         -fno-sanitize-recover=undefined)
  target_link_options(lokera_options INTERFACE -fsanitize=address,undefined)
endif()

function(lokera_setup target)
  target_include_directories(${target} PRIVATE ${CMAKE_SOURCE_DIR}/src ${CMAKE_SOURCE_DIR})
  target_link_libraries(${target} PRIVATE lokera_options)
endfunction()

# lokera_library(NAME LINKS a b ...): one floor of the house, all .cpp files of the current folder.
function(lokera_library name)
  cmake_parse_arguments(ARG "" "" "LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h *.ui *.qrc)
  if(NOT sources MATCHES "\\.cpp")
    add_library(lokera_${name} INTERFACE)
    target_link_libraries(lokera_${name} INTERFACE ${ARG_LINKS})
    return()
  endif()
  add_library(lokera_${name} STATIC ${sources})
  lokera_setup(lokera_${name})
  target_link_libraries(lokera_${name} PUBLIC ${ARG_LINKS})
endfunction()

# lokera_program(NAME SOURCES a.cpp ... LINKS a b ...)
function(lokera_program name)
  cmake_parse_arguments(ARG "" "" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  lokera_setup(${name})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS})
endfunction()
