// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/drawing/screenshot_drawing.h"

#include "sandbox/drawing/icon_drawing.h"

namespace quillet::sandbox {

QImage drawScreenshot(const Subject& subject, int number, QSize size) {
  Subject other = subject;
  other.key += static_cast<std::uint64_t>(number) * 31;
  return drawIcon(other, std::max(size.width(), size.height())).copy(QRect(QPoint(), size));
}

QImage drawStory(const Subject& subject, QSize size) { return drawScreenshot(subject, 0, size); }

}  // namespace quillet::sandbox
