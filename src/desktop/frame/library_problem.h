// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>
#include <QPushButton>
#include <filesystem>

#include "base/errors.h"
#include "desktop/lists/text_label.h"

namespace quillet {

/// What stands in the place of the content when the library cannot be opened: why, and what can be
/// done. Nothing of it was changed.
class LibraryProblem : public QWidget {
  Q_OBJECT

 public:
  explicit LibraryProblem(QWidget* parent = nullptr);

  /// `library`: its file.
  void setReason(const DatabaseError& reason, const std::filesystem::path& library);

 Q_SIGNALS:
  void triedAgain();
  void quits();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  TextLabel* title_;
  QLabel* reason_;
  QLabel* advice_;
  QPushButton* again_;
  QPushButton* quit_;
};

}  // namespace quillet
