// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/text_lines.h"

namespace quillet {

QStringList textLines(TextPainter& painter, const QString& text, const TypeStyle& type,
                      double width, std::size_t atMost) {
  QStringList lines;
  QString line;
  for (const QString& word : text.split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
    const QString longer = line.isEmpty() ? word : line + QLatin1Char(' ') + word;
    const bool isLast = static_cast<std::size_t>(lines.size()) + 1 >= atMost;
    if (line.isEmpty() || isLast || painter.width(longer, type) <= width) {
      line = longer;
      continue;
    }
    lines << line;
    line = word;
  }
  return lines << line;
}

}  // namespace quillet
