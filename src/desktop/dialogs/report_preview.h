// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QTextBrowser>

#include "desktop/dialogs/report_document.h"

namespace quillet {

/// A report as it will look: dark on light, whatever the window is, as on paper or in a browser. A
/// text for machines stands there as it is written.
class ReportPreview : public QTextBrowser {
  Q_OBJECT

 public:
  ReportPreview();

  /// Stays where it was scrolled to.
  void show(const std::string& text, ReportForm form);
  using QTextBrowser::show;

 Q_SIGNALS:
  void linkWanted(const QString& address);

 private:
  void showSource(const QString& text);
};

}  // namespace quillet
