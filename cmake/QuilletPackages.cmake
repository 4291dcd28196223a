# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT

find_package(PkgConfig REQUIRED)
find_package(Threads REQUIRED)
find_package(fmt REQUIRED)
find_package(simdjson REQUIRED)
find_package(ICU REQUIRED COMPONENTS i18n uc)
pkg_check_modules(INIH REQUIRED IMPORTED_TARGET inih)
find_package(SQLite3 REQUIRED)
find_package(SQLiteCpp REQUIRED)
# What the executable and the command line's modules link: where there is an archive of SQLite, a
# start has one library less to load, and its sixteen hundred symbols less to look up.
find_library(QUILLET_SQLITE_ARCHIVE libsqlite3.a)
add_library(quillet_sqlite INTERFACE)
target_link_libraries(quillet_sqlite INTERFACE
  $<IF:$<BOOL:${QUILLET_SQLITE_ARCHIVE}>,${QUILLET_SQLITE_ARCHIVE},SQLite::SQLite3> m dl)
find_package(Qt6 6.4 REQUIRED COMPONENTS Core Network)
find_package(QCoro6 0.8 REQUIRED COMPONENTS Core Network)
pkg_check_modules(HTTPLIB REQUIRED IMPORTED_TARGET cpp-httplib)
if(QUILLET_TESTS)
  find_package(GTest REQUIRED)
endif()

quillet_precompiled_header(quillet_pch)
quillet_precompiled_header(quillet_pch_qt quillet_qt_strict
                           Qt6::Core Qt6::Network QCoro6::Core QCoro6::Network)
if(QUILLET_TESTS)
  quillet_precompiled_header(quillet_pch_test GTest::gtest)
  quillet_precompiled_header(quillet_pch_qt_test quillet_qt_strict GTest::gtest
                             Qt6::Core Qt6::Network QCoro6::Core QCoro6::Network)
endif()
