// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <optional>
#include <string>
#include <vector>

#include "desktop/services/state_file.h"
#include "library/app_key.h"
#include "queries/app_comparison.h"
#include "store/records/platform.h"

namespace quillet {

/// An app that stands beside others.
struct ComparedKey {
  AppKey app;
  std::optional<Platform> platform = {};  ///< whose build is compared; absent: its record's

  friend bool operator==(const ComparedKey&, const ComparedKey&) = default;
};

/// The apps that the user compares, in the order of their columns; all of one storefront, for
/// prices of several cannot be compared. Remembered from one run to the next.
class CompareList : public QObject {
  Q_OBJECT

 public:
  static constexpr std::size_t kMost = kMostCompared;
  static constexpr int kMostYears = 5;

  /// Outlives the list.
  explicit CompareList(StateFile& state);

  [[nodiscard]] const std::vector<ComparedKey>& apps() const { return apps_; }
  [[nodiscard]] bool has(const AppKey& app) const;
  /// The storefront of them all; empty while there are none.
  [[nodiscard]] std::string storefront() const;
  [[nodiscard]] int years() const { return years_; }

  enum class Addition { added, alreadyThere, full, otherStorefront };
  /// Adds one as the last column, unless one of the other answers says why not.
  Addition add(const ComparedKey& app);
  void remove(const AppKey& app);
  /// To be the column with that number, from 0; past the end the last one.
  void move(const AppKey& app, std::size_t to);
  void clear();
  /// As they were once: what undoes a change of them.
  void set(std::vector<ComparedKey> apps);
  /// Of use, from 1 to kMostYears.
  void setYears(int years);

 Q_SIGNALS:
  void changed();

 private:
  void keep();

  StateFile& state_;
  std::vector<ComparedKey> apps_;
  int years_ = 3;
};

}  // namespace quillet
