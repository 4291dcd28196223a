// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>

namespace quillet {

/// A plain text as a tooltip, which would take some texts for markup and break no long line else.
[[nodiscard]] inline QString wrappedTip(const QString& text) {
  return QStringLiteral("<p>%1</p>")
      .arg(text.toHtmlEscaped().replace(u'\n', QStringLiteral("<br>")));
}

}  // namespace quillet
