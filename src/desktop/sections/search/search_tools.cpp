// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/search/search_tools.h"

#include <QEvent>
#include <QStyle>
#include <algorithm>

#include "desktop/look/menu_button.h"
#include "desktop/look/widgets.h"
#include "desktop/models/storefronts.h"
#include "desktop/sections/search/query_field.h"
#include "desktop/store_lists/choice_control.h"
#include "desktop/store_lists/filters_button.h"
#include "desktop/store_lists/selector_choices.h"
#include "desktop/store_lists/storefront_menu.h"

namespace quillet {

namespace {

constexpr int kHeight = 52;
constexpr int kControl = 32;
constexpr int kGap = 8;
constexpr int kGapBesideField = 12;
constexpr int kWidestField = 336;
constexpr int kGoodField = 220;  // below it, what stands beside it becomes shorter
constexpr int kLeastField = 140;

}  // namespace

SearchTools::SearchTools(const ViewWorld& world)
    : field_(new QueryField(world, this)),
      platforms_(new ChoiceControl(tr("Platform"), platformChoices(Platform::mac), this)),
      storefront_(new MenuButton(this)),
      storefronts_(new StorefrontMenu(storefront_)) {
  setAccessibleName(tr("Search"));
  setFocusProxy(field_);
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  storefront_->setMenu(storefronts_);
  filters_ = new FiltersButton(this);
  connect(field_, &QueryField::submitted, this, &SearchTools::submitted);
  connect(field_, &QueryField::chosen, this, &SearchTools::chosen);
  connect(field_, &QueryField::left, this, &SearchTools::left);
  connect(platforms_, &ChoiceControl::chosenChanged, this, [this](const std::string& word) {
    Q_EMIT platformChosen(valueOf(kPlatformWords, word).value_or(Platform::mac));
  });
  connect(storefronts_, &StorefrontMenu::chosen, this, &SearchTools::storefrontChosen);
  connect(filters_, &QPushButton::clicked, this, &SearchTools::filtersToggled);
}

void SearchTools::setQuery(const StoreQuery& query, const std::string& storefront) {
  field_->setShownText(QString::fromStdString(query.request.query));
  platforms_->show(platformChoices(query.request.platform));
  storefronts_->setChosen(storefront);
  storefront_->setText(QString::fromStdString(storefront));
  const QString name = tr("Storefront: %1").arg(storefrontName(storefront));
  storefront_->setToolTip(name);
  storefront_->setAccessibleName(name);
  arrange();
}

void SearchTools::setFilters(int active, bool areShown) {
  filters_->setState(active, areShown);
  arrange();
}

void SearchTools::placeSort(QWidget* sort) {
  sort_ = sort;
  sort_->setParent(this);
  setTabOrder(storefront_, sort_);
  setTabOrder(sort_, filters_);
  arrange();
}

int SearchTools::sortWidth() const {
  return sort_ == nullptr || sort_->isHidden() ? 0 : sort_->sizeHint().width() + kGap;
}

int SearchTools::widthBeside(bool hasSegments, bool isFiltersShort) const {
  return kGapBesideField + platforms_->sizeOf(!hasSegments).width() + kGap +
         storefront_->sizeHint().width() + kGap + sortWidth() +
         filters_->sizeOf(isFiltersShort).width();
}

QSize SearchTools::sizeHint() const { return {kWidestField + widthBeside(true, false), kHeight}; }
QSize SearchTools::minimumSizeHint() const {
  return {kLeastField + widthBeside(false, true), kHeight};
}

void SearchTools::arrange() {
  bool isFiltersShort = width() - widthBeside(true, false) < kGoodField;
  const bool hasSegments = width() - widthBeside(true, isFiltersShort) >= kGoodField;
  // What the segments leave may be enough for the word.
  if (!hasSegments) isFiltersShort = width() - widthBeside(false, false) < kGoodField;
  filters_->setShort(isFiltersShort);
  platforms_->setShort(!hasSegments);

  const int field =
      std::clamp(width() - widthBeside(hasSegments, isFiltersShort), kLeastField, kWidestField);
  int x = 0;
  const auto put = [&](QWidget* widget, int itsWidth, int gap) {
    const QRect place(x, (height() - kControl) / 2, itsWidth, kControl);
    widget->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
    x += itsWidth + gap;
  };
  put(field_, field, kGapBesideField);
  put(platforms_, platforms_->sizeHint().width(), kGap);
  put(storefront_, storefront_->sizeHint().width(), kGap);
  const int filters = filters_->sizeHint().width();
  const int left = width() - filters - kGap - x;
  x = width() - filters;
  put(filters_, filters, 0);
  if (sortWidth() == 0) return;
  // In the largest text of a small window there is not room for all of its words.
  const int sort = std::min(sort_->sizeHint().width(), std::max(kControl, left));
  x = width() - filters - kGap - sort;
  put(sort_, sort, 0);
}

/// The sort has another text, or is hidden.
bool SearchTools::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) {
    updateGeometry();
    arrange();
  }
  return QWidget::event(event);
}

void SearchTools::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange();
}

void SearchTools::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (changesSizes(*event) && filters_ != nullptr) arrange();
}

}  // namespace quillet
