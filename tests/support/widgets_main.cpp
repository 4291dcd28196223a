// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// The main of test programs with windows: on a platform that shows them nowhere, in our own style
// and fonts. A warning of Qt that no test expects is a failure.

#include <gtest/gtest.h>

#include <QApplication>
#include <QTemporaryDir>

#include "desktop/look/start_look.h"
#include "support/place.h"

namespace {

void failOnWarning(QtMsgType type, const QMessageLogContext&, const QString& message) {
  if (type == QtDebugMsg || type == QtInfoMsg) return;
  // The platform's own, of windows that are shown nowhere.
  if (message.contains(QLatin1String("This plugin does not support"))) return;
  ADD_FAILURE() << message.toStdString();
}

}  // namespace

int main(int argc, char** argv) {
  qputenv("QT_QPA_PLATFORM", "offscreen");
  qputenv("FONTCONFIG_FILE", quillet::placeOf(QUILLET_TEST_FONTS).c_str());
  qunsetenv("QT_SCALE_FACTOR");
  const QTemporaryDir runtime;
  qputenv("XDG_RUNTIME_DIR", runtime.path().toUtf8());
  qInstallMessageHandler(failOnWarning);
  testing::InitGoogleTest(&argc, argv);
  QApplication application(argc, argv);
  quillet::startLook({quillet::Scheme::light, quillet::Contrast::normal});
  return RUN_ALL_TESTS();
}
