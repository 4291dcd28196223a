// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/prompts.h"

#include <QDesktopServices>
#include <QUrl>

#include "base/urls.h"

namespace quillet {

namespace {

class DesktopPrompts final : public Prompts {
 public:
  void openLink(const std::string& address) override {
    if (isWebAddress(address)) QDesktopServices::openUrl(QUrl(QString::fromStdString(address)));
  }
};

}  // namespace

Prompts& desktopPrompts() {
  static DesktopPrompts prompts;
  return prompts;
}

}  // namespace quillet
