// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/nothing_found.h"

#include <QPushButton>
#include <QVBoxLayout>

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
      relief_(new TextButton) {
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
  layout->addWidget(relief_, 0, Qt::AlignHCenter);
  layout->addStretch();
  connect(clear_, &QPushButton::clicked, this, &NothingFound::clearAsked);
  connect(relief_, &QPushButton::clicked, this, &NothingFound::reliefAsked);
}

void NothingFound::show(const QString& line, const QString& relief, bool canClear) {
  line_->setText(line);
  setAccessibleName(line);
  clear_->setVisible(canClear);
  reliefText_ = relief;
  relief_->setVisible(!relief.isEmpty());
  relief_->setAccessibleName(relief);
  fitRelief();
}

void NothingFound::fitRelief() {
  const double room = width() - 2 * kMargin - 2 * TextButton::kPadding;
  const QString text = lookOf(*this).text.elided(reliefText_, kSmallControlType, room);
  relief_->setText(controlText(text));
  relief_->setToolTip(text == reliefText_ ? QString() : wrappedTip(reliefText_));
}

void NothingFound::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  fitRelief();
}

}  // namespace quillet
