// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/look/dialog_button.h"

#include <QHBoxLayout>
#include <QKeyEvent>

#include "desktop/look/widgets.h"

namespace quillet {

namespace {

constexpr int kGap = 8;

}  // namespace

DialogButton::DialogButton(const QString& text, ButtonKind kind, QWidget* parent)
    : QPushButton(text, parent) {
  setButtonKind(*this, kind);
  // With it Qt shows the focused button as the default one, beside the one that is.
  setAutoDefault(false);
}

/// Without auto-default Qt leaves Return to the dialog, which presses its default.
void DialogButton::keyPressEvent(QKeyEvent* event) {
  if (isReturn(*event)) return click();
  QPushButton::keyPressEvent(event);
}

QHBoxLayout* buttonRow(std::initializer_list<QWidget*> apart,
                       std::initializer_list<QWidget*> leaving) {
  auto* row = new QHBoxLayout;
  row->setSpacing(kGap);
  for (QWidget* each : apart) row->addWidget(each);
  row->addStretch(1);
  for (QWidget* each : leaving) row->addWidget(each);
  return row;
}

}  // namespace quillet
