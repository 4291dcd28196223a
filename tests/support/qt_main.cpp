// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// The main of test programs with Qt: nothing may suspend before the application object exists, and
// no proxy of the machine may stand between a test and its server.

#include <gtest/gtest.h>

#include <QCoreApplication>

int main(int argc, char** argv) {
  for (const char* name : {"http_proxy", "HTTP_PROXY", "https_proxy", "HTTPS_PROXY", "all_proxy",
                           "ALL_PROXY", "no_proxy", "NO_PROXY"}) {
    qunsetenv(name);
  }
  const QCoreApplication application(argc, argv);
  testing::InitGoogleTest(&argc, argv);
  return RUN_ALL_TESTS();
}
