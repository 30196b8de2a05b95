# What every target of the house is compiled with, and one function for each kind of target.

include(precompilate)

# ccache takes a file with precompiled headers only when it may overlook their defines and times; a header as new as the
# compilation (a fresh clone, a fresh precompiled header) is told by its content.
find_program(CCACHE ccache)
if(CCACHE AND NOT CMAKE_CXX_COMPILER_LAUNCHER)
  set(CMAKE_CXX_COMPILER_LAUNCHER
      env CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime ${CCACHE})
endif()

add_library(lokera_options INTERFACE)
target_compile_options(lokera_options INTERFACE -Wall -Wextra -Wpedantic -Wconversion
                       $<$<BOOL:${LOKERA_WERROR}>:-Werror> $<$<BOOL:${LOKERA_PCH}>:-fpch-preprocess>)
target_compile_definitions(lokera_options INTERFACE QT_NO_KEYWORDS)
if(LOKERA_SANITIZE)
  target_compile_options(lokera_options INTERFACE -fsanitize=address,undefined -fno-omit-frame-pointer
                         -fno-sanitize-recover=undefined)
  target_link_options(lokera_options INTERFACE -fsanitize=address,undefined)
endif()

# lokera_radice(VAR): an include root from which only the current folder is reached, as "floor/file.h" or
# "simulation/room/file.h". A target hands it on to who links it, so that a forgotten link fails to compile.
function(lokera_radice var)
  file(RELATIVE_PATH nome ${CMAKE_SOURCE_DIR} ${CMAKE_CURRENT_SOURCE_DIR})
  string(REGEX REPLACE "^src/" "" nome ${nome})
  string(REPLACE "/" "." cartella ${nome})
  set(radice ${CMAKE_BINARY_DIR}/include/${cartella})
  cmake_path(GET nome PARENT_PATH sopra)
  file(MAKE_DIRECTORY ${radice}/${sopra})
  file(CREATE_LINK ${CMAKE_CURRENT_SOURCE_DIR} ${radice}/${nome} SYMBOLIC)
  set(${var} ${radice} PARENT_SCOPE)
endfunction()

# lokera_setup(TARGET [PCH]): the flags, the current folder's headers, and the precompiled headers of core unless others
# are named.
function(lokera_setup target)
  lokera_radice(radice)
  target_include_directories(${target} PUBLIC ${radice})
  target_link_libraries(${target} PRIVATE lokera_options)
  lokera_precompilate(${target} ${ARGN} core)
endfunction()

# lokera_library(NAME LINKS a b ... [PCH p]): one floor of the house, all .cpp files of the current folder but main.cpp.
function(lokera_library name)
  cmake_parse_arguments(ARG "" "PCH" "LINKS" ${ARGN})
  file(GLOB sources CONFIGURE_DEPENDS *.cpp *.h *.ui *.qrc)
  list(FILTER sources EXCLUDE REGEX "/main\\.cpp$")
  if(NOT sources MATCHES "\\.cpp")
    lokera_radice(radice)
    add_library(lokera_${name} INTERFACE)
    target_include_directories(lokera_${name} INTERFACE ${radice})
    target_link_libraries(lokera_${name} INTERFACE ${ARG_LINKS})
    return()
  endif()
  add_library(lokera_${name} STATIC ${sources})
  lokera_setup(lokera_${name} ${ARG_PCH})
  target_link_libraries(lokera_${name} PUBLIC ${ARG_LINKS})
endfunction()

# lokera_program(NAME SOURCES a.cpp ... LINKS a b ... [PCH p])
function(lokera_program name)
  cmake_parse_arguments(ARG "" "PCH" "SOURCES;LINKS" ${ARGN})
  add_executable(${name} ${ARG_SOURCES})
  lokera_setup(${name} ${ARG_PCH})
  target_link_libraries(${name} PRIVATE ${ARG_LINKS})
endfunction()
