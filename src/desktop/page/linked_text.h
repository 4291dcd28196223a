// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <optional>

#include "desktop/page/page_text.h"

namespace quillet {

/// A part of a text that is the address of a web page.
struct TextLink {
  int start = 0;
  int length = 0;

  friend bool operator==(const TextLink&, const TextLink&) = default;
};

/// Absolute http and https addresses, without what ends the sentence around them.
[[nodiscard]] std::vector<TextLink> webLinksIn(const QString& text);

/// A text whose web addresses are links. With the focus, the arrow keys go from one that is seen to
/// the next, and Enter follows it.
class LinkedText : public PageText {
  Q_OBJECT

 public:
  explicit LinkedText(const TextLook& look, QWidget* parent = nullptr);

  void show(const QString& text);

 Q_SIGNALS:
  void opens(const std::string& link);

 protected:
  [[nodiscard]] QList<QTextLayout::FormatRange> formats() const override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;
  void focusOutEvent(QFocusEvent* event) override;

 private:
  [[nodiscard]] std::vector<TextLink> seenLinks() const;
  [[nodiscard]] std::optional<TextLink> linkAt(const QPoint& point) const;
  [[nodiscard]] QString textOf(const TextLink& link) const;
  void choose(std::optional<TextLink> link);
  void open(const TextLink& link);

  std::vector<TextLink> links_;
  std::optional<TextLink> pressed_;
  std::optional<TextLink> chosen_;  ///< by the keys
};

}  // namespace quillet
