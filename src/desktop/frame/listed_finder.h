// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <string>
#include <vector>

#include "desktop/frame/finder.h"
#include "desktop/frame/listed_apps.h"
#include "desktop/services/library_gateway.h"

namespace quillet {

/// Finds an app in the user's lists by what its name holds. Below what was found stands what else
/// can be done with the text.
class ListedFinder : public Finder {
  Q_OBJECT

 public:
  /// A child of `window`. The library outlives it. `storefront`: the user's, of which nothing is
  /// said.
  ListedFinder(const FinderTexts& texts, LibraryGateway& library, QWidget& window,
               std::function<std::string()> storefront);

  void open();

 protected:
  /// Of all that is listed, what is to be found.
  [[nodiscard]] virtual std::vector<ListedApp> offered(std::vector<ListedApp> listed) const {
    return listed;
  }
  /// What else can be done with it.
  [[nodiscard]] virtual QString otherText(const QString& text) const = 0;
  virtual void take(const ListedApp& listed) = 0;
  virtual void takeOther(const QString& text) = 0;

  void search(const QString& text) override;
  void choose(int row) override;

 private:
  void show(std::vector<ListedApp> listed);
  void add(const QString& text, const QString& list);
  [[nodiscard]] QString listText(const ListedApp& listed) const;
  static Task<> read(QPointer<ListedFinder> view, int generation);

  LibraryGateway& library_;
  std::function<std::string()> storefront_;
  std::vector<ListedApp> listed_;
  std::vector<QString> folded_;  ///< their names
  std::vector<std::size_t> shown_;
  int generation_ = 0;
};

}  // namespace quillet
