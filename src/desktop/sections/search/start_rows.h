// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPushButton>

namespace quillet {

/// A set of filters to begin a search with: its title, and what it is for.
class StartCard : public QPushButton {
  Q_OBJECT

 public:
  StartCard(const QString& title, const QString& subtitle, QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString title_;
  QString subtitle_;
};

/// A search to run again. `aside` stands at the end; empty for nothing.
class StartLink : public QPushButton {
  Q_OBJECT

 public:
  StartLink(const QString& icon, const QString& text, const QString& aside,
            QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString icon_;
  QString text_;
  QString aside_;
};

}  // namespace quillet
