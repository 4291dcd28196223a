// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <vector>

#include "desktop/models/watch_words.h"
#include "desktop/page/page_world.h"

class QCheckBox;
class QComboBox;
class QLineEdit;

namespace quillet {

class TextLabel;

/// What is asked about when watched apps alert. What differs between several apps shows as mixed
/// and stays so until it is set.
class WatchOptionsForm : public QWidget {
  Q_OBJECT

 public:
  /// There is an app. `lowest`: what was recorded of the only one.
  WatchOptionsForm(const PageWorld& world, std::vector<WatchedApp> apps,
                   std::optional<double> lowest, QWidget* parent = nullptr);

  /// What the user made another. A target that cannot be read is not among it.
  [[nodiscard]] WatchChange change() const;
  [[nodiscard]] bool isValid() const;

  void goToAlerts();
  void goToTarget();

 Q_SIGNALS:
  void changed();
  /// Enter in the field.
  void submitted();

 private:
  void addAlerts();
  void addTarget(std::optional<double> lowest);
  void addMute();
  void judge();
  [[nodiscard]] QString remark() const;
  [[nodiscard]] std::optional<std::string> commonCurrency() const;
  [[nodiscard]] QString priceOf(double amount) const;

  PageWorld world_;
  std::vector<WatchedApp> apps_;
  std::optional<std::string> currency_;  ///< of all; absent where they differ
  QString targetBefore_;                 ///< as the field wrote it
  std::array<QCheckBox*, kWatchAlerts.size()> alerts_{};
  std::array<Qt::CheckState, kWatchAlerts.size()> before_{};
  QLineEdit* target_ = nullptr;
  TextLabel* remark_ = nullptr;
  QComboBox* mute_ = nullptr;
};

}  // namespace quillet
