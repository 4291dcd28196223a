// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <vector>

#include "desktop/frame/counts_feed.h"
#include "desktop/frame/finder.h"
#include "desktop/models/app_texts.h"

namespace quillet {

/// Finds a collection by its name, for apps that are to be put into it, or makes a new one of what
/// was typed.
class CollectionChooser : public Finder {
  Q_OBJECT

 public:
  /// A child of `window`. The counts outlive it.
  CollectionChooser(const CountsFeed& counts, QWidget& window);

  void open(std::vector<NamedKey> apps);

 Q_SIGNALS:
  void chosen(quillet::RowId collection, const std::vector<quillet::NamedKey>& apps);
  /// `name`: what was typed.
  void newAsked(const QString& name, const std::vector<quillet::NamedKey>& apps);

 protected:
  void search(const QString& text) override;
  void choose(int row) override;

 private:
  const CountsFeed& counts_;
  std::vector<NamedKey> apps_;
  std::vector<RowId> shown_;
};

}  // namespace quillet
