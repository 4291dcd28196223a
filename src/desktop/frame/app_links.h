// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include "desktop/frame/guide.h"
#include "desktop/models/app_texts.h"
#include "desktop/services/prompts.h"

namespace quillet {

/// What can be taken along of the chosen apps: links and commands.
class AppLinks {
 public:
  /// Both outlive this.
  AppLinks(const Guide& guide, Prompts& prompts);

  /// The apps that are chosen in the list, or whose page is shown.
  [[nodiscard]] std::vector<AppKey> apps() const;
  /// With their names as the list shows them.
  [[nodiscard]] std::vector<NamedKey> named() const;

  /// Puts name and link of each on the clipboard.
  void copyLinks() const;
  /// Puts on the clipboard what tells of each on the command line.
  void copyCommands() const;
  void openInStore() const;
  /// A page of the web where the user reads such.
  void openWebsite(const std::string& address) const;
  void showInFiles(const std::filesystem::path& file) const { prompts_.showInFiles(file); }

 private:
  const Guide& guide_;
  Prompts& prompts_;
};

}  // namespace quillet
