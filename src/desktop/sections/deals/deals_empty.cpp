// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/deals/deals_empty.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "desktop/lists/text_label.h"
#include "desktop/look/look.h"
#include "desktop/look/widgets.h"
#include "desktop/store_lists/large_icon.h"

namespace quillet {

namespace {

constexpr int kMargin = 24;
constexpr int kGap = 8;
constexpr int kWidestText = 440;
constexpr int kStorefrontColumns = 2;

QLabel* wrapped() {
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setAlignment(Qt::AlignHCenter);
  label->setMaximumWidth(kWidestText);
  label->setMinimumWidth(1);
  label->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Preferred);
  return label;
}

}  // namespace

DealsEmpty::DealsEmpty()
    : line_(new TextLabel(kBlockType, Token::text, TextAnchor::centre)),
      sentence_(wrapped()),
      check_(new QPushButton(tr("Check for Price Data"))),
      explain_(new QPushButton(tr("How It Works"))),
      clear_(new QPushButton(tr("Clear Filters"))),
      explanation_(wrapped()),
      storefronts_(new QWidget),
      grid_(new QGridLayout(storefronts_)) {
  // Not by the tab key, but a window that becomes active leaves the focus where it is.
  setFocusPolicy(Qt::ClickFocus);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(kGap);
  buttons->addStretch();
  for (QPushButton* each : {check_, explain_, clear_}) buttons->addWidget(each);
  buttons->addStretch();
  grid_->setContentsMargins({});
  grid_->setSpacing(kGap);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->setSpacing(kGap);
  layout->addStretch();
  layout->addWidget(new LargeIcon(QStringLiteral("tag")), 0, Qt::AlignHCenter);
  layout->addSpacing(kGap);
  layout->addWidget(line_);
  layout->addWidget(sentence_, 0, Qt::AlignHCenter);
  layout->addSpacing(kGap);
  layout->addLayout(buttons);
  layout->addWidget(explanation_, 0, Qt::AlignHCenter);
  layout->addWidget(storefronts_, 0, Qt::AlignHCenter);
  layout->addStretch();
  explanation_->setText(
      tr("Apple tells today's price only. A collector looks apps up day by day, writes down each "
         "price that changed, and publishes that as files. Quillet reads those of your storefront "
         "once a day. They name apps whose price moved, not every app."));
  explanation_->hide();
  connect(check_, &QPushButton::clicked, this, &DealsEmpty::checkAsked);
  connect(clear_, &QPushButton::clicked, this, &DealsEmpty::clearAsked);
  connect(explain_, &QPushButton::clicked, this,
          [this] { explanation_->setVisible(explanation_->isHidden()); });
}

void DealsEmpty::show(const DealsEmptyState& state) {
  if (state_ == state && !line_->text().isEmpty()) return;
  const bool areOthers = state_.storefronts != state.storefronts;
  state_ = state;
  line_->setText(state.line);
  sentence_->setText(state.sentence);
  sentence_->setVisible(!state.sentence.isEmpty());
  setAccessibleName(state.sentence.isEmpty() ? state.line : state.line + u' ' + state.sentence);
  check_->setVisible(state.canCheck);
  explain_->setVisible(state.canExplain);
  clear_->setVisible(state.canClear);
  if (!state.canExplain) explanation_->hide();
  if (areOthers) showStorefronts();
  storefronts_->setVisible(!state.storefronts.empty());
}

void DealsEmpty::showStorefronts() {
  while (QLayoutItem* item = grid_->takeAt(0)) {
    delete item->widget();
    delete item;
  }
  for (const SelectorChoice& each : state_.storefronts) {
    auto* button = new QPushButton(controlText(each.text.section(u'\t', 0, 0)));
    connect(
        button, &QPushButton::clicked, this,
        [this, code = each.id] { Q_EMIT storefrontChosen(code); }, Qt::QueuedConnection);
    const int count = grid_->count();
    grid_->addWidget(button, count / kStorefrontColumns, count % kStorefrontColumns);
  }
}

}  // namespace quillet
