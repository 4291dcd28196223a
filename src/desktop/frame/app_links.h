// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QUrl>
#include <functional>
#include <vector>

#include "desktop/frame/guide.h"

namespace quillet {

/// Opens an address in the user's browser. Returns whether somebody took it.
using OpenLink = std::function<bool(const QUrl& link)>;

/// What can be taken along of the chosen apps: links and commands.
class AppLinks {
 public:
  /// The guide outlives this.
  AppLinks(const Guide& guide, OpenLink open);

  /// The apps that are chosen in the list, or whose page is shown.
  [[nodiscard]] std::vector<AppKey> apps() const;

  /// Puts name and link of each on the clipboard.
  void copyLinks() const;
  /// Puts on the clipboard what tells of each on the command line.
  void copyCommands() const;
  void openInStore() const;

 private:
  const Guide& guide_;
  OpenLink open_;
};

}  // namespace quillet
