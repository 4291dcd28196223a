// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include "desktop/frame/listed_finder.h"
#include "queries/app_lookup.h"

namespace quillet {

/// The app that a text names by a link to its page, its track ID or its bundle ID; absent for any
/// other text. `country`: where the text does not say.
[[nodiscard]] std::optional<NamedApp> namedApp(const std::string& text, const std::string& country);

/// Finds an app that is to come to My Apps: among the user's other lists by its name, or in the
/// store by a link or an ID.
class OwnedFinder : public ListedFinder {
  Q_OBJECT

 public:
  /// As ListedFinder.
  OwnedFinder(LibraryGateway& library, QWidget& window, std::function<std::string()> storefront);

 Q_SIGNALS:
  void chosen(const quillet::ListedApp& app);
  void named(const quillet::NamedApp& app);
  /// What was typed names no app: the user wants to search the store for it.
  void searched(const QString& text);

 protected:
  [[nodiscard]] std::vector<ListedApp> offered(std::vector<ListedApp> listed) const override;
  [[nodiscard]] QString otherText(const QString& text) const override;
  void take(const ListedApp& listed) override;
  void takeOther(const QString& text) override;

 private:
  std::function<std::string()> storefront_;
};

}  // namespace quillet
