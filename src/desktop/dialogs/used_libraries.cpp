// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/used_libraries.h"

#include <SQLiteCpp/SQLiteCpp.h>
#include <sqlite3.h>

#include <QSslSocket>

namespace quillet {

namespace {

using namespace Qt::StringLiterals;

QString qtVersion() {
  const QString running = QString::fromLatin1(qVersion());
  const QString built = QStringLiteral(QT_VERSION_STR);
  return running == built ? running : u"%1 (%2)"_s.arg(running, built);
}

/// "3.02.01" is how SQLiteCpp writes 3.2.1.
QString sqliteCppVersion() {
  constexpr int kThousand = 1000;
  constexpr int kNumber = SQLITECPP_VERSION_NUMBER;
  return u"%1.%2.%3"_s.arg(kNumber / kThousand / kThousand)
      .arg(kNumber / kThousand % kThousand)
      .arg(kNumber % kThousand);
}

}  // namespace

std::vector<UsedLibrary> usedLibraries() {
  return {{u"Qt"_s, qtVersion(), u"LGPL 3"_s},
          {u"QCoro"_s, QStringLiteral(QUILLET_QCORO_VERSION), u"MIT"_s},
          {u"SQLite"_s, QString::fromLatin1(sqlite3_libversion()), u"public domain"_s},
          {u"SQLiteCpp"_s, sqliteCppVersion(), u"MIT"_s},
          {u"ICU"_s, QStringLiteral(QUILLET_ICU_VERSION), u"Unicode"_s},
          {u"simdjson"_s, QStringLiteral(QUILLET_SIMDJSON_VERSION), u"Apache 2.0"_s},
          {u"fmt"_s, QStringLiteral(QUILLET_FMT_VERSION), u"MIT"_s},
          {u"inih"_s, QStringLiteral(QUILLET_INIH_VERSION), u"BSD 3-Clause"_s},
          {u"zlib"_s, QStringLiteral(QUILLET_ZLIB_VERSION), u"Zlib"_s},
          {u"libdeflate"_s, QStringLiteral(QUILLET_LIBDEFLATE_VERSION), u"MIT"_s},
          {u"fontconfig"_s, QStringLiteral(QUILLET_FONTCONFIG_VERSION), u"HPND"_s},
          {u"OpenSSL"_s, QSslSocket::sslLibraryVersionString(), u"Apache 2.0"_s},
          {u"Bootstrap Icons"_s, {}, u"MIT"_s}};
}

}  // namespace quillet
