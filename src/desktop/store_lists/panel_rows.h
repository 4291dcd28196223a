// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QCheckBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <cstddef>
#include <optional>

#include "desktop/lists/text_label.h"

namespace quillet {

/// How many apps a choice would leave; absent while that is unknown.
using LiveCount = std::optional<std::size_t>;

/// As it is shown; empty for an unknown one.
[[nodiscard]] QString liveCountText(LiveCount count);

/// A choice with its count at the end. `Button` is QRadioButton or QCheckBox.
template <typename Button>
class CountedRow final : public Button {
 public:
  using Button::Button;

  /// Plain: what would mark a letter in it does not.
  void setChoice(const QString& text);
  void setCount(LiveCount count);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  [[nodiscard]] bool hitButton(const QPoint& point) const override;
  void paintEvent(QPaintEvent* event) override;

 private:
  QString text_;
  LiveCount count_;
};

using ChoiceRow = CountedRow<QRadioButton>;
using TickRow = CountedRow<QCheckBox>;

/// A filter of many values: its name, and at the end the one that is chosen, which opens a menu.
class MenuRow final : public QPushButton {
  Q_OBJECT

 public:
  explicit MenuRow(QWidget* parent = nullptr);

  void setChoice(const QString& title, const QString& value, bool isSet);
  /// Only what opens the menu, below the texts of other choices.
  void setLone(const QString& text);

  [[nodiscard]] QSize sizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  QString title_;  ///< empty for a lone one
  QString value_;
  bool isSet_ = false;
};

/// A line of text in the panel's own height.
class PanelLabel final : public TextLabel {
  Q_OBJECT

 public:
  PanelLabel(const TypeStyle& style, int height, Token color = Token::text);

  [[nodiscard]] QSize sizeHint() const override;

 private:
  int height_;
};

struct EntryNames {
  QString title;   ///< before the field
  QString name;    ///< the field's, for those who do not see where it stands
  QString prompt;  ///< in the empty field
  QString unit;    ///< at the field's end; empty for none
};

/// A value that is typed: its name, a field, and below them why it cannot be read.
class TypedRow final : public QWidget {
  Q_OBJECT

 public:
  explicit TypedRow(QWidget* parent = nullptr);

  void setNames(const EntryNames& names);
  /// As if nobody had typed; what could not be read is forgotten.
  void setText(const QString& text);
  /// Whether the user has typed since.
  [[nodiscard]] bool isEdited() const;
  void takeFocus();
  /// Says that the text cannot be read, and leaves it as it is.
  void complain(const QString& why);

 Q_SIGNALS:
  /// The user has typed it, or gone elsewhere.
  void entered(const QString& text);
  /// The user wants it as it was.
  void left();

 protected:
  void changeEvent(QEvent* event) override;

 private:
  class Field;

  PanelLabel* title_;
  Field* field_;
  PanelLabel* complaint_;
};

}  // namespace quillet
