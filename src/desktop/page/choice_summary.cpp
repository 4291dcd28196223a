// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/choice_summary.h"

#include <QAction>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/lists/text_label.h"
#include "desktop/look/button_look.h"

namespace quillet {

namespace {

constexpr int kInset = 24;
constexpr int kGap = 8;
constexpr int kAboveButtons = 20;

}  // namespace

ChoiceSummary::ChoiceSummary()
    : count_(new TextLabel(kSectionType, Token::text, TextAnchor::centre)),
      sums_(new TextLabel(kBodyType.tabular(), Token::secondary, TextAnchor::centre)),
      buttons_(new QWidget) {
  auto* buttons = new QVBoxLayout(buttons_);
  buttons->setContentsMargins({});
  buttons->setSpacing(kGap);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kInset, kInset, kInset, kInset);
  column->setSpacing(4);
  column->addStretch(2);
  column->addWidget(count_);
  column->addWidget(sums_);
  column->addSpacing(kAboveButtons);
  column->addWidget(buttons_, 0, Qt::AlignHCenter);
  column->addStretch(3);
  hide();
}

void ChoiceSummary::setActions(const std::vector<QAction*>& actions) {
  for (QAction* action : actions) buttons_->layout()->addWidget(buttonOf(*action));
}

QPushButton* ChoiceSummary::buttonOf(QAction& action) {
  auto* button = new QPushButton(buttons_);
  const auto follow = [button, &action] {
    button->setText(action.text());
    button->setToolTip(action.toolTip());
    button->setVisible(action.isEnabled());
  };
  follow();
  connect(&action, &QAction::changed, button, follow);
  connect(button, &QPushButton::clicked, &action, &QAction::trigger);
  return button;
}

void ChoiceSummary::show(int apps, const QString& sums) {
  count_->setText(tr("%n apps chosen", nullptr, apps));
  sums_->setText(sums);
  sums_->setVisible(!sums.isEmpty());
  setVisible(true);
}

}  // namespace quillet
