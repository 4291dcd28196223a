// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPushButton>
#include <vector>

#include "desktop/models/place.h"

namespace quillet {

struct NamedRow {
  RowKey row;
  QString name;
};

/// What an upgrade of macOS is known to do.
struct UpgradeTold {
  std::vector<NamedRow> stopped;   ///< they need Rosetta
  std::vector<NamedRow> of32Bits;  ///< what is installed runs on none of them
  std::vector<NamedRow> older;     ///< what the store has of them asks for a later one
  std::size_t unknown = 0;

  /// How many do not run any more.
  [[nodiscard]] std::size_t stops() const { return stopped.size() + of32Bits.size(); }
};

/// "4 apps stop", which opens a menu of them.
class UpgradeResult : public QPushButton {
  Q_OBJECT

 public:
  explicit UpgradeResult(QWidget* parent);

  void show(UpgradeTold told);
  using QPushButton::show;

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;

 Q_SIGNALS:
  void chosen(const quillet::RowKey& row);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void fillMenu();

  UpgradeTold told_;
};

}  // namespace quillet
