// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

class QPlainTextEdit;

namespace quillet {

struct Look;

/// Edits the user's note in the place where it is shown: two lines, with a line below that says
/// which keys keep it. Notes may be as long as they like.
class NoteEditor : public QWidget {
  Q_OBJECT

 public:
  /// `app`: what the note is about.
  NoteEditor(const QString& note, const QString& app, QWidget* parent = nullptr);

  /// Without the blanks around it.
  [[nodiscard]] QString note() const;
  /// How high it is in the texts' size.
  [[nodiscard]] static int heightIn(const Look& look);

  [[nodiscard]] QSize sizeHint() const override;

 Q_SIGNALS:
  /// The user is done: with Enter, or by going elsewhere. Told once, as is left().
  void kept(const QString& note);
  /// The note is to stay as it was.
  void left();

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  bool takesKey(QEvent& event);
  void keep();
  void leave();

  QPlainTextEdit* field_;
  bool isDone_ = false;
};

}  // namespace quillet
