// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLabel>
#include <QTimer>

namespace quillet {

enum class NoticeKind {
  passing,  ///< goes by itself
  staying,  ///< until another one comes, or it is cleared
};

/// A sentence that lies over the lower edge of a view and tells what became of something.
class ViewerNotice : public QLabel {
  Q_OBJECT

 public:
  explicit ViewerNotice(QWidget* view);

  void say(const QString& text, NoticeKind kind);

 protected:
  void paintEvent(QPaintEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void place();

  QTimer pass_;
};

}  // namespace quillet
