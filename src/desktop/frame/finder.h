// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QLineEdit>
#include <QListView>
#include <QPointer>
#include <QStandardItemModel>

namespace quillet {

/// What a finder is called, and its parts.
struct FinderTexts {
  QString title;
  QString field;
  QString hint;  ///< in the field while it is empty
  QString list;
};

/// A field over a list of what was found by it. It stands over the window until something is
/// chosen, or something else is wanted: the field keeps the focus, and steers the list.
class Finder : public QWidget {
  Q_OBJECT

 public:
  /// A child of `window`.
  Finder(const FinderTexts& texts, QWidget& window);

  void leave();

 protected:
  /// Shows it, with an empty field.
  void begin();
  /// Fills found() with what that text finds. Called again as it changes.
  virtual void search(const QString& text) = 0;
  /// Row of found(), after leave() is called by whoever needs no more.
  virtual void choose(int row) = 0;

  [[nodiscard]] QStandardItemModel& found() { return found_; }
  [[nodiscard]] QString text() const { return field_->text().simplified(); }
  void searchAgain();

  bool eventFilter(QObject* watched, QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;

 private:
  void chooseCurrent();
  void place();

  QWidget& window_;
  QLineEdit* field_;
  QListView* list_;
  QStandardItemModel found_;
  QPointer<QWidget> before_;  ///< had the focus
};

}  // namespace quillet
