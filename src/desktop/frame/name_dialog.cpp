// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/name_dialog.h"

#include <QHBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/frame/pane_ring.h"
#include "desktop/lists/text_label.h"
#include "desktop/look/dialog_button.h"

namespace quillet {

namespace {

constexpr int kWidth = 400;

}  // namespace

NameDialog::NameDialog(NameQuestion question, QWidget* parent)
    : QDialog(parent),
      question_(std::move(question)),
      field_(new QLineEdit(question_.name)),
      remark_(new TextLabel(kFactType, Token::secondary)),
      cancel_(new DialogButton(tr("Cancel"))),
      action_(new DialogButton(question_.action, ButtonKind::primary)) {
  setWindowTitle(question_.title);
  setAccessibleName(question_.title);
  setFixedWidth(kWidth);
  setAttribute(Qt::WA_DeleteOnClose);
  auto* label = new QLabel(question_.label.isEmpty() ? tr("Name") : question_.label);
  label->setBuddy(field_);
  field_->setAccessibleName(label->text());
  field_->setMaxLength(question_.mostLetters);
  field_->selectAll();
  action_->setDefault(true);
  auto* buttons = new QHBoxLayout;
  buttons->addStretch();
  buttons->addWidget(cancel_);
  buttons->addWidget(action_);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(24, 20, 24, 20);
  layout->setSpacing(8);
  layout->addWidget(label);
  layout->addWidget(field_);
  layout->addWidget(remark_);
  layout->addSpacing(8);
  layout->addLayout(buttons);
  setTabOrder(field_, cancel_);
  setTabOrder(cancel_, action_);
  connect(field_, &QLineEdit::textChanged, this, &NameDialog::judge);
  connect(cancel_, &QPushButton::clicked, this, &QDialog::reject);
  connect(action_, &QPushButton::clicked, this, &QDialog::accept);
  judge();
}

QString NameDialog::name() const { return field_->text().simplified(); }

bool NameDialog::isTaken() const { return question_.taken.contains(name(), Qt::CaseInsensitive); }

void NameDialog::ask(QWidget* more) {
  static_cast<QVBoxLayout*>(layout())->insertWidget(layout()->indexOf(remark_) + 1, more);
  for (QWidget* button : {cancel_, action_}) putLastInTabOrder(*button);
}

void NameDialog::judge() {
  const bool isTaken = this->isTaken();
  const bool canReplace = !question_.replacing.isEmpty();
  // A blank keeps the place of the remark.
  remark_->setText(isTaken ? question_.takenRemark : QStringLiteral(" "));
  action_->setText(isTaken && canReplace ? question_.replacing : question_.action);
  action_->setEnabled(!name().isEmpty() && (!isTaken || canReplace));
}

}  // namespace quillet
