// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QColor>
#include <QLabel>
#include <optional>
#include <vector>

#include "desktop/page/wrapped_text.h"
#include "store/records/editorial_story.h"

namespace quillet {

class ArtworkLabel;
class ImageStore;

/// A story's own colour, from six hexadecimal digits; absent where those are none.
[[nodiscard]] std::optional<QColor> storyColor(const std::optional<std::string>& hex);

/// A colour of texts that can be read on that background: a contrast of 4.5 at least.
[[nodiscard]] QColor inkOn(const QColor& background);

/// A story of the store's editors. It leads nowhere: the store does not say where it is told.
class StoryCard : public QLabel {
  Q_OBJECT

 public:
  StoryCard(const EditorialStory& story, ImageStore& images, QWidget* parent = nullptr);

  [[nodiscard]] QSize sizeHint() const override { return {240, heightForWidth(240)}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  [[nodiscard]] double textWidth(int width) const;
  [[nodiscard]] std::vector<WrappedText> textsFor(int width) const;
  [[nodiscard]] static double heightOf(const std::vector<WrappedText>& texts);

  std::optional<QColor> color_;
  QString label_;
  QString title_;
  QString tagline_;
  ArtworkLabel* artwork_ = nullptr;  ///< null where the story has no picture
};

}  // namespace quillet
