// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>
#include <string>

class QButtonGroup;

namespace quillet {

/// The symbols that a collection may have, one of which is chosen.
class SymbolGrid : public QWidget {
  Q_OBJECT

 public:
  /// One that is none of them is left as it is until another is chosen.
  explicit SymbolGrid(std::string symbol, QWidget* parent = nullptr);

  [[nodiscard]] std::string symbol() const;

 private:
  std::string before_;
  QButtonGroup* group_;
};

}  // namespace quillet
