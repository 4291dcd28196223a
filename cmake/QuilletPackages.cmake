# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT

find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
find_package(fmt REQUIRED)
find_package(simdjson REQUIRED)
find_package(ICU REQUIRED COMPONENTS i18n uc)
pkg_check_modules(INIH REQUIRED IMPORTED_TARGET inih)
pkg_check_modules(LIBDEFLATE REQUIRED IMPORTED_TARGET libdeflate)
find_package(SQLite3 REQUIRED)
find_package(SQLiteCpp REQUIRED)

# quillet_archive(name archive shared): a target of the archive where there is one and QUILLET_ARCHIVES
# wants it, and of the shared library elsewhere. It is one library less to load at each start, and its
# symbols less to look up: with SQLite, sixteen hundred.
function(quillet_archive name archive shared)
  add_library(${name} INTERFACE)
  if(QUILLET_ARCHIVES)
    find_library(QUILLET_ARCHIVE_${name} ${archive})
  endif()
  if(QUILLET_ARCHIVE_${name})
    target_link_libraries(${name} INTERFACE ${QUILLET_ARCHIVE_${name}})
  else()
    target_link_libraries(${name} INTERFACE ${shared})
  endif()
endfunction()
quillet_archive(quillet_sqlite libsqlite3.a SQLite::SQLite3)
target_link_libraries(quillet_sqlite INTERFACE m dl)
quillet_archive(quillet_inih libinih.a PkgConfig::INIH)
quillet_archive(quillet_libdeflate libdeflate.a PkgConfig::LIBDEFLATE)

find_package(Qt6 6.4 REQUIRED COMPONENTS Core Network Widgets)
find_package(QCoro6 0.8 REQUIRED COMPONENTS Core Network)
pkg_check_modules(HTTPLIB REQUIRED IMPORTED_TARGET cpp-httplib)
if(QUILLET_TESTS)
  find_package(GTest REQUIRED)
  find_package(Qt6 6.4 REQUIRED COMPONENTS Test)
endif()

set(qt_of_pch quillet_qt_strict Qt6::Core Qt6::Network QCoro6::Core QCoro6::Network)
quillet_precompiled_header(quillet_pch)
quillet_precompiled_header(quillet_pch_qt ${qt_of_pch})
quillet_precompiled_header(quillet_pch_widgets ${qt_of_pch} Qt6::Widgets)
if(QUILLET_TESTS)
  quillet_precompiled_header(quillet_pch_test GTest::gtest)
  quillet_precompiled_header(quillet_pch_qt_test GTest::gtest ${qt_of_pch})
  quillet_precompiled_header(quillet_pch_widgets_test GTest::gtest ${qt_of_pch} Qt6::Widgets)
endif()
