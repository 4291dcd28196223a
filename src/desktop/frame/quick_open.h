// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "desktop/frame/listed_finder.h"

namespace quillet {

/// Finds an app in all of the user's lists, or in the store, and goes there.
class QuickOpen : public ListedFinder {
  Q_OBJECT

 public:
  /// As ListedFinder.
  QuickOpen(LibraryGateway& library, QWidget& window, std::function<std::string()> storefront);

 Q_SIGNALS:
  void chosen(const quillet::Place& place);
  /// The user wants to search the store for it.
  void searched(const QString& text);

 protected:
  [[nodiscard]] QString otherText(const QString& text) const override;
  void take(const ListedApp& listed) override;
  void takeOther(const QString& text) override;
};

}  // namespace quillet
