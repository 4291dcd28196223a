// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/compare/compare_tools.h"

#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QPushButton>
#include <QSignalBlocker>
#include <QSlider>
#include <QToolButton>

#include "desktop/lists/text_label.h"
#include "desktop/look/button_look.h"
#include "desktop/look/widgets.h"
#include "desktop/models/compare_list.h"

namespace quillet {

namespace {

constexpr int kHeight = 52;
constexpr int kGap = 8;
constexpr int kSlider = 128;
constexpr int kShortSlider = 72;
constexpr int kAdd = 104;  // with its word alone
constexpr TypeStyle kFigureType{13, 600, 0, Digits::tabular};

}  // namespace

CompareTools::CompareTools()
    : title_(new TextLabel(kSectionType, Token::text)),
      label_(new TextLabel(kFactType, Token::secondary)),
      years_(new QSlider(Qt::Horizontal)),
      figure_(new TextLabel(kFigureType, Token::text)),
      add_(new QPushButton),
      copy_(button("clipboard", tr("Copy as Markdown"))),
      export_(button("box-arrow-up", tr("Export Comparison"))) {
  setAccessibleName(tr("Compare"));
  setFocusProxy(years_);
  setFixedHeight(kHeight);
  title_->setText(tr("Compare"));
  label_->setText(tr("Years of use"));
  years_->setAccessibleName(tr("Years of use"));
  years_->setRange(1, CompareList::kMostYears);
  years_->setPageStep(1);
  setIconName(*add_, QStringLiteral("plus-lg"), 14);
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins({});
  row->setSpacing(kGap);
  row->addWidget(title_);
  row->addStretch();
  for (QWidget* part :
       std::initializer_list<QWidget*>{label_, years_, figure_, add_, copy_, export_})
    row->addWidget(part);
  makeExport();
  connect(years_, &QSlider::valueChanged, this, &CompareTools::yearsChosen);
  connect(add_, &QPushButton::clicked, this,
          [this] { Q_EMIT actionAsked(QStringLiteral("compare-another")); });
  connect(copy_, &QToolButton::clicked, this,
          [this] { Q_EMIT actionAsked(QStringLiteral("copy-comparison")); });
}

QToolButton* CompareTools::button(const char* icon, const QString& name) {
  auto* button = new QToolButton;
  setIconName(*button, QString::fromLatin1(icon));
  button->setAccessibleName(name);
  button->setToolTip(name);
  return button;
}

void CompareTools::makeExport() {
  auto* menu = new QMenu(export_);
  const auto add = [&](const QString& text, const char* id) {
    connect(menu->addAction(text), &QAction::triggered, this,
            [this, id] { Q_EMIT actionAsked(QString::fromLatin1(id)); });
  };
  add(tr("Export as Markdown…"), "export-comparison-md");
  add(tr("Export as HTML…"), "export-comparison-html");
  add(tr("Export as CSV…"), "export-comparison-csv");
  export_->setMenu(menu);
  export_->setPopupMode(QToolButton::InstantPopup);
}

void CompareTools::setState(std::size_t apps, std::size_t most, bool hasTable) {
  count_ = tr("%1 of %2").arg(apps).arg(most);
  add_->setEnabled(apps < most);
  add_->setAccessibleName(tr("Add App, %1").arg(count_));
  copy_->setEnabled(hasTable);
  export_->setEnabled(hasTable);
  arrange();
}

void CompareTools::setYears(int years) {
  const QSignalBlocker quiet(years_);
  years_->setValue(years);
  figure_->setText(QString::number(years));
}

void CompareTools::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange();
}

void CompareTools::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (changesSizes(*event) && export_ != nullptr) arrange();
}

int CompareTools::widthOf(int slider, int add) const {
  return title_->sizeHint().width() + slider + figure_->sizeHint().width() + add +
         copy_->sizeHint().width() + export_->sizeHint().width() + 7 * kGap;
}

QSize CompareTools::minimumSizeHint() const { return {widthOf(kShortSlider, kAdd), kHeight}; }

/// What says the least goes first where there is no room for all.
void CompareTools::arrange() {
  add_->setText(tr("Add App") + QStringLiteral("  ") + count_);
  const int add = add_->sizeHint().width();
  const bool hasLabel = widthOf(kSlider, add) + label_->sizeHint().width() + kGap <= width();
  label_->setVisible(hasLabel);
  years_->setFixedWidth(widthOf(kSlider, add) <= width() ? kSlider : kShortSlider);
  if (widthOf(kShortSlider, add) > width()) add_->setText(tr("Add App"));
}

}  // namespace quillet
