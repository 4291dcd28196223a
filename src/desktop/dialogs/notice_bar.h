// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace quillet {

class PageText;

/// What went wrong with the last change, in a sentence. Hidden while nothing did.
class NoticeBar : public QWidget {
  Q_OBJECT

 public:
  NoticeBar();

  /// Shown and told to assistive technology; an empty text hides it.
  void say(const QString& sentence);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  PageText* text_;
};

}  // namespace quillet
