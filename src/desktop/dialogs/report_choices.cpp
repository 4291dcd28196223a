// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/report_choices.h"

#include <QCheckBox>
#include <QComboBox>
#include <QCoreApplication>
#include <QJsonArray>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>
#include <algorithm>
#include <array>

#include "desktop/dialogs/storefront_box.h"
#include "desktop/look/look.h"
#include "queries/review_reading.h"
#include "store/catalog_client.h"

namespace quillet {

namespace {

using namespace Qt::StringLiterals;

// The catalog's pages; a sample of as many as the reading ends with.
constexpr std::size_t kAllReviews = std::size_t{kMostReviewPages} * kCatalogReviewsPage;
constexpr std::array<std::size_t, 3> kReviewCounts{10, 50, kAllReviews};
constexpr int kWidth = 236;
constexpr double kMostGrowth = 1.5;
constexpr int kInset = 16;
constexpr int kChoice = 28;
constexpr int kBoxLetters = 12;

#define TEXT(text) QT_TRANSLATE_NOOP("Report", text)
constexpr std::array<std::pair<ReportForm, const char*>, 4> kForms{{
    {ReportForm::markdown, TEXT("Markdown")},
    {ReportForm::html, TEXT("HTML, for browsers")},
    {ReportForm::json, TEXT("JSON, for scripts")},
    {ReportForm::pdf, TEXT("PDF")},
}};
constexpr std::array<std::pair<ReportPart, const char*>, 5> kParts{{
    {ReportPart::description, TEXT("Description")},
    {ReportPart::purchases, TEXT("In-app purchases")},
    {ReportPart::versions, TEXT("Version history")},
    {ReportPart::reviews, TEXT("Reviews")},
    {ReportPart::prices, TEXT("Price history")},
}};
#undef TEXT

QString tr(const char* text) { return QCoreApplication::translate("Report", text); }

QString countText(std::size_t count) {
  return count == kReviewCounts.back() ? tr("All, up to %1").arg(QString::number(count))
                                       : tr("The first %1").arg(QString::number(count));
}

QString word(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

QJsonObject jsonOf(const ReportWish& wish) {
  QJsonArray without;
  for (const ReportPart part : wish.without) without.append(word(textOf(kReportPartWords, part)));
  return {{u"form"_s, word(textOf(kReportForms, wish.form))},
          {u"without"_s, without},
          {u"reviews"_s, static_cast<qint64>(wish.reviews)}};
}

ReportWish reportWishOf(const QJsonObject& json) {
  ReportWish wish;
  wish.form = valueOf(kReportForms, json[u"form"_s].toString().toStdString())
                  .value_or(ReportForm::markdown);
  for (const auto& each : json[u"without"_s].toArray()) {
    if (const auto part = valueOf(kReportPartWords, each.toString().toStdString()))
      wish.without.insert(*part);
  }
  const auto reviews = static_cast<std::size_t>(json[u"reviews"_s].toInteger());
  const bool isOffered = std::ranges::find(kReviewCounts, reviews) != kReviewCounts.end();
  wish.reviews = isOffered ? reviews : kReviewCounts.front();
  return wish;
}

ReportChoices::ReportChoices(const ReportWish& wish) : column_(nullptr) {
  setFrameShape(QFrame::NoFrame);
  setWidgetResizable(true);
  setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  setAccessibleName(tr("What the report holds"));
  const double growth = std::min(lookOf(*this).growth(), kMostGrowth);
  setFixedWidth(static_cast<int>(kWidth * growth));
  auto* body = new QWidget;
  body->setBackgroundRole(QPalette::Base);
  column_ = new QVBoxLayout(body);
  column_->setContentsMargins(kInset, kInset, kInset, kInset);
  column_->setSpacing(0);
  addForms(wish.form);
  addParts(wish.without);
  addReviews(wish.reviews);
  addStorefront();
  column_->addStretch(1);
  setWidget(body);
}

/// Above the choices that it is about, with air before all but the first.
void ReportChoices::addTitle(const QString& text, QWidget* buddy) {
  if (column_->count() > 0) column_->addSpacing(kInset);
  auto* label = new QLabel(text);
  label->setFont(lookOf(*this).text.font(kSmallControlType.weighing(600)));
  label->setBuddy(buddy);
  column_->addWidget(label);
  column_->addSpacing(4);
}

void ReportChoices::addForms(ReportForm chosen) {
  addTitle(tr("Format"), nullptr);
  for (const auto& [form, text] : kForms) {
    auto* button = new QRadioButton(tr(text));
    button->setMinimumHeight(kChoice);
    button->setChecked(form == chosen);
    column_->addWidget(button);
    forms_[form] = button;
    connect(button, &QAbstractButton::toggled, this, [this](bool isOn) {
      if (isOn) Q_EMIT wishChanged();
    });
  }
}

void ReportChoices::addParts(const std::set<ReportPart>& without) {
  addTitle(tr("Besides the overview"), nullptr);
  for (const auto& [part, text] : kParts) {
    auto* box = new QCheckBox(tr(text));
    box->setMinimumHeight(kChoice);
    box->setChecked(!without.contains(part));
    column_->addWidget(box);
    parts_[part] = box;
    connect(box, &QCheckBox::toggled, this, &ReportChoices::wishChanged);
  }
}

void ReportChoices::addReviews(std::size_t wanted) {
  reviews_ = new QComboBox;
  for (const std::size_t count : kReviewCounts)
    reviews_->addItem(countText(count), static_cast<qulonglong>(count));
  reviews_->setCurrentIndex(reviews_->findData(static_cast<qulonglong>(wanted)));
  addTitle(tr("How many reviews"), reviews_);
  column_->addWidget(reviews_);
  QCheckBox* part = parts_[ReportPart::reviews];
  reviews_->setEnabled(part->isChecked());
  connect(part, &QCheckBox::toggled, reviews_, &QWidget::setEnabled);
  connect(reviews_, &QComboBox::currentIndexChanged, this, &ReportChoices::wishChanged);
}

void ReportChoices::addStorefront() {
  storefront_ = new StorefrontBox;
  storefront_->setMinimumContentsLength(kBoxLetters);
  addTitle(tr("Storefront"), storefront_);
  column_->addWidget(storefront_);
  connect(storefront_, &StorefrontBox::chosen, this, &ReportChoices::storefrontChosen);
}

ReportWish ReportChoices::wish() const {
  ReportWish wish;
  for (const auto& [form, button] : forms_) {
    if (button->isChecked()) wish.form = form;
  }
  for (const auto& [part, box] : parts_) {
    if (!box->isChecked()) wish.without.insert(part);
  }
  wish.reviews = static_cast<std::size_t>(reviews_->currentData().toULongLong());
  return wish;
}

void ReportChoices::takeFocus() { forms_[wish().form]->setFocus(Qt::OtherFocusReason); }

void ReportChoices::setStorefront(const std::string& country) { storefront_->choose(country); }

}  // namespace quillet
