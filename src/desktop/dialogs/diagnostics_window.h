// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QPointer>

#include "desktop/dialogs/diagnostics_text.h"

class QCheckBox;
class QPlainTextEdit;
class QPushButton;

namespace quillet {

/// What Quillet knows of itself and of the machine, for whoever is to help. What is shown is what
/// is copied, and without a tick it names no app.
class DiagnosticsWindow : public QDialog {
  Q_OBJECT

 public:
  /// What world and sources refer to outlives this.
  DiagnosticsWindow(const ViewWorld& world, DiagnosticSources sources, QWidget* parent);

  /// How it stands by now.
  void look();

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void lay();
  void take(const QString& text, int generation);
  static Task<> read(QPointer<DiagnosticsWindow> window, int generation);

  ViewWorld world_;
  DiagnosticSources sources_;
  QPlainTextEdit* text_;
  QCheckBox* mentions_;
  QPushButton* copy_;
  int generation_ = 0;
};

}  // namespace quillet
