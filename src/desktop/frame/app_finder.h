// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include "desktop/frame/finder.h"
#include "desktop/frame/listed_apps.h"
#include "desktop/services/library_gateway.h"

namespace quillet {

/// Finds an app in all of the user's lists by what its name holds, or in the store. It stands over
/// the window until something is chosen, or something else is wanted.
class AppFinder : public Finder {
  Q_OBJECT

 public:
  /// A child of `window`. The library outlives it. `storefront`: the user's, of which nothing is
  /// said.
  AppFinder(const FinderTexts& texts, LibraryGateway& library, QWidget& window,
            std::function<std::string()> storefront);

  void open();

 Q_SIGNALS:
  /// An app, where it is listed, and its name.
  void chosen(const quillet::Place& place, const QString& name);
  /// The user wants to search the store for it.
  void searched(const QString& text);

 protected:
  void search(const QString& text) override;
  void choose(int row) override;

 private:
  void show(std::vector<ListedApp> listed);
  void addStoreRow();
  [[nodiscard]] QString listText(const ListedApp& listed) const;
  static Task<> read(QPointer<AppFinder> view, int generation);

  LibraryGateway& library_;
  std::function<std::string()> storefront_;
  std::vector<ListedApp> listed_;
  std::vector<QString> folded_;  ///< their names
  std::vector<std::size_t> shown_;
  int generation_ = 0;
};

}  // namespace quillet
