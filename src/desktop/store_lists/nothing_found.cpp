// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/nothing_found.h"

#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "desktop/lists/text_label.h"
#include "desktop/look/look.h"
#include "desktop/look/widgets.h"
#include "desktop/look/wrapped_tip.h"
#include "desktop/store_lists/large_icon.h"
#include "desktop/store_lists/text_button.h"

namespace quillet {

namespace {

constexpr int kMargin = 12;

}  // namespace

NothingFound::NothingFound()
    : line_(new TextLabel(kBlockType, Token::text, TextAnchor::centre)),
      clear_(new QPushButton(tr("Clear Filters"))),
      ease_(new TextButton) {
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  layout->setSpacing(0);
  layout->addStretch();
  layout->addWidget(new LargeIcon(QStringLiteral("search")), 0, Qt::AlignHCenter);
  layout->addSpacing(16);
  layout->addWidget(line_);
  layout->addSpacing(16);
  layout->addWidget(clear_, 0, Qt::AlignHCenter);
  layout->addSpacing(8);
  layout->addWidget(ease_, 0, Qt::AlignHCenter);
  layout->addStretch();
  connect(clear_, &QPushButton::clicked, this, &NothingFound::clearAsked);
  // A copy: what is shown then has another one, or none.
  connect(ease_, &QPushButton::clicked, this,
          [this] { Q_EMIT reliefAsked(AppFilters(relief_->others)); });
}

void NothingFound::show(const QString& line, std::optional<Relief> relief, bool canClear) {
  line_->setText(line);
  setAccessibleName(line);
  clear_->setVisible(canClear);
  relief_ = std::move(relief);
  ease_->setVisible(relief_.has_value());
  fitRelief();
}

void NothingFound::fitRelief() {
  if (!relief_) return;
  const double room = width() - 2 * kMargin - 2 * TextButton::kPadding;
  const QString text = lookOf(*this).text.elided(relief_->text, kSmallControlType, room);
  ease_->setText(controlText(text));
  ease_->setAccessibleName(relief_->text);
  ease_->setToolTip(text == relief_->text ? QString() : wrappedTip(relief_->text));
}

void NothingFound::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  fitRelief();
}

}  // namespace quillet
