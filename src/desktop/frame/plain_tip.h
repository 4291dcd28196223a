// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QString>
#include <QTextDocument>

namespace quillet {

/// A text for a tooltip, which would take some texts for markup.
[[nodiscard]] inline QString plainTip(const QString& text) {
  if (!Qt::mightBeRichText(text)) return text;
  return QStringLiteral("<span>%1</span>").arg(text.toHtmlEscaped());
}

}  // namespace quillet
