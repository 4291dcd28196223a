// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/frame/listed_finder.h"

namespace quillet {

/// Finds another app to compare, in all of the user's lists or in the store.
class CompareFinder : public ListedFinder {
  Q_OBJECT

 public:
  /// As ListedFinder.
  CompareFinder(LibraryGateway& library, QWidget& window, std::function<std::string()> storefront);

 Q_SIGNALS:
  void chosen(const quillet::ListedApp& app);
  /// The user wants to search the store for it.
  void searched(const QString& text);

 protected:
  [[nodiscard]] QString otherText(const QString& text) const override;
  void take(const ListedApp& listed) override { Q_EMIT chosen(listed); }
  void takeOther(const QString& text) override { Q_EMIT searched(text); }
};

}  // namespace quillet
