// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QWidget>

namespace quillet {

class PageText;

/// What a setting is called, a quieter line below it, and words that a search finds it by besides.
struct SettingTexts {
  QString title;
  QString detail = {};
  QString words = {};
};

/// One setting of a page: its texts at the left and its control at the right, or below them where
/// texts are so large that both have no room beside each other.
class SettingRow : public QWidget {
  Q_OBJECT

 public:
  /// Takes the control, and names it where it takes the focus itself.
  SettingRow(const SettingTexts& texts, QWidget* control);

  [[nodiscard]] const QString& title() const { return texts_.title; }
  [[nodiscard]] QWidget& control() const { return *control_; }
  /// Whether all words of the text, letter case folded, are among its own.
  [[nodiscard]] bool matches(const QString& folded) const;

  void setDetail(const QString& detail);
  /// Whether a hairline parts it from what follows.
  void setLine(bool hasLine);
  /// Shown as what was looked for.
  void setFound(bool isFound);

  [[nodiscard]] QSize sizeHint() const override;
  [[nodiscard]] QSize minimumSizeHint() const override;
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  bool event(QEvent* event) override;

 private:
  [[nodiscard]] bool isStacked(int width) const;
  [[nodiscard]] QSize controlSize() const;
  [[nodiscard]] int textsHeight(int width) const;
  void place();

  SettingTexts texts_;
  PageText* title_;
  PageText* detail_;
  QWidget* control_;
  bool hasLine_ = true;
  bool isFound_ = false;
};

}  // namespace quillet
