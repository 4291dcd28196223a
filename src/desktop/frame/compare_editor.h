// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <vector>

#include "desktop/frame/compare_finder.h"
#include "desktop/frame/guide.h"
#include "desktop/frame/snackbar.h"
#include "desktop/models/app_texts.h"
#include "desktop/models/compare_edits.h"
#include "desktop/models/view_world.h"

namespace quillet {

/// What the user does from anywhere about the apps that are compared.
class CompareEditor : public QObject {
  Q_OBJECT

 public:
  /// All outlive the editor; the finder stands over `window`.
  CompareEditor(const ViewWorld& world, Guide& guide, Snackbar& snackbar, QWidget& window);

  [[nodiscard]] std::size_t count() const { return world_.compared.apps().size(); }
  [[nodiscard]] bool hasRoom() const { return count() < CompareList::kMost; }
  /// Says why not where none of them can be added.
  void add(const std::vector<NamedKey>& apps);
  /// Lets the user find another one by its name.
  void find();
  /// Whether a collection is shown that has apps to compare.
  [[nodiscard]] bool canCompareShown() const;
  /// Compares the first rows that are shown, in the place of what was compared.
  void compareShown();

 Q_SIGNALS:
  /// Others are compared.
  void changed();
  /// The user wants to search the store for one.
  void searched(const QString& text);

 private:
  [[nodiscard]] NamedCompared namedOf(const NamedKey& app) const;
  void take(const CompareAddition& addition);

  ViewWorld world_;
  Guide& guide_;
  Snackbar& snackbar_;
  CompareFinder* finder_;
};

}  // namespace quillet
