# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT

# Compiler, warnings, sanitizers and Qt's strictness, each an interface target.

if(CMAKE_CXX_COMPILER_ID STREQUAL "GNU" AND CMAKE_CXX_COMPILER_VERSION VERSION_LESS 13)
  message(FATAL_ERROR
    "GCC ${CMAKE_CXX_COMPILER_VERSION} miscompiles coroutines (objects are freed twice). "
    "Use clang 19 (cmake --preset release does) or GCC 13 and later.")
endif()

set(CMAKE_CXX_STANDARD 20)
set(CMAKE_CXX_STANDARD_REQUIRED ON)
set(CMAKE_CXX_EXTENSIONS OFF)
# Everything goes into modules too; one flag for all lets executables share the precompiled headers.
add_compile_options(-fPIC)
set(CMAKE_CXX_VISIBILITY_PRESET hidden)
set(CMAKE_VISIBILITY_INLINES_HIDDEN ON)
set(CMAKE_RUNTIME_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_LIBRARY_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/bin")
set(CMAKE_ARCHIVE_OUTPUT_DIRECTORY "${PROJECT_BINARY_DIR}/lib")

# A section for each function and object lets the linker leave out what a program never calls.
set(CMAKE_CXX_FLAGS_RELEASE "-O2 -DNDEBUG -ffunction-sections -fdata-sections")

find_program(QUILLET_CCACHE ccache)
if(QUILLET_CCACHE)
  # ccache looks inside precompiled headers only when told that it may.
  set(launcher "${CMAKE_COMMAND}" -E env
      CCACHE_SLOPPINESS=pch_defines,time_macros,include_file_mtime,include_file_ctime
      "CCACHE_BASEDIR=${PROJECT_SOURCE_DIR}" CCACHE_NOHASHDIR=1 "${QUILLET_CCACHE}")
  set(CMAKE_CXX_COMPILER_LAUNCHER "${launcher}")
endif()

add_library(quillet_warnings INTERFACE)
target_compile_options(quillet_warnings INTERFACE
  -Wall -Wextra -Wpedantic -Wshadow -Wconversion -Wno-sign-conversion -Wnon-virtual-dtor
  -Woverloaded-virtual -Wcast-qual -Wimplicit-fallthrough -Wextra-semi $<$<BOOL:${QUILLET_WERROR}>:-Werror>)
if(CMAKE_CXX_COMPILER_ID MATCHES "Clang")
  target_compile_options(quillet_warnings INTERFACE -Wno-missing-field-initializers)
  # So that ccache finds objects again in another checkout: a precompiled header holds no time stamps
  # and the texts of its files, whose checkout may be gone, and is used by an option whose path ccache
  # makes relative. Ninja and ccache see to it that it is never older than its headers.
  target_compile_options(quillet_warnings INTERFACE
    "$<$<COMPILE_LANGUAGE:CXX>:SHELL:-Xclang -fno-pch-timestamp -Xclang -fno-validate-pch>")
  set(CMAKE_CXX_COMPILE_OPTIONS_CREATE_PCH
      -Xclang -emit-pch -Xclang -fmodules-embed-all-files -x c++-header)
  set(CMAKE_CXX_COMPILE_OPTIONS_USE_PCH -include-pch <PCH_FILE>)
endif()

add_library(quillet_sanitizers INTERFACE)
if(QUILLET_SANITIZE OR QUILLET_FUZZ)
  set(flags -fsanitize=address,undefined -fno-sanitize-recover=undefined -fno-omit-frame-pointer)
  target_compile_options(quillet_sanitizers INTERFACE ${flags}
    $<$<BOOL:${QUILLET_FUZZ}>:-fsanitize=fuzzer-no-link>)
  target_link_options(quillet_sanitizers INTERFACE ${flags})
endif()

add_library(quillet_qt_strict INTERFACE)
target_compile_definitions(quillet_qt_strict INTERFACE
  QT_NO_CAST_FROM_ASCII QT_NO_CAST_TO_ASCII QT_NO_URL_CAST_FROM_STRING QT_NO_KEYWORDS
  QT_NO_FOREACH QT_STRICT_ITERATORS QT_DISABLE_DEPRECATED_BEFORE=0x060400)
