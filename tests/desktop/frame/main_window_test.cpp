// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/main_window.h"

#include "desktop/frame/window_fixture.h"

namespace quillet {
namespace {

using MainWindowTest = WindowTest;

TEST_F(MainWindowTest, Shows) {
  auto window = open();
  window->grab().save(QStringLiteral("/tmp/frame-grab.png"));
  window->resize(760, 520);
  handlePendingEvents();
  window->grab().save(QStringLiteral("/tmp/frame-narrow.png"));
}

}  // namespace
}  // namespace quillet
