// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/percent_slider.h"

#include <QHBoxLayout>
#include <QLocale>
#include <QSignalBlocker>
#include <QSlider>

#include "desktop/lists/text_label.h"

namespace quillet {

namespace {

constexpr int kStep = 5;
constexpr int kPage = 25;
constexpr int kSlider = 112;
constexpr int kGap = 16;
constexpr TypeStyle kFigureType = kControlType.tabular();

}  // namespace

PercentSlider::PercentSlider(const QString& name, int lowest, int highest)
    : slider_(new QSlider(Qt::Horizontal)),
      figure_(new TextLabel(kFigureType, Token::text, TextAnchor::right)) {
  slider_->setAccessibleName(name);
  slider_->setRange(lowest, highest);
  slider_->setSingleStep(kStep);
  slider_->setPageStep(kPage);
  slider_->setTracking(false);
  slider_->setMinimumWidth(kSlider);
  auto* layout = new QHBoxLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(kGap);
  layout->addWidget(slider_);
  layout->addWidget(figure_);
  connect(slider_, &QSlider::valueChanged, this, &PercentSlider::chosen);
  connect(slider_, &QSlider::sliderMoved, this, &PercentSlider::showFigure);
  showFigure(lowest);
}

void PercentSlider::setValue(int percent) {
  const QSignalBlocker quiet(slider_);
  slider_->setValue(percent);
  showFigure(percent);
}

void PercentSlider::showFigure(int percent) {
  figure_->setText(tr("%1\u00a0%").arg(QLocale().toString(percent)));
}

}  // namespace quillet
