// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/charts/chart_tools.h"

#include <QActionGroup>
#include <QEvent>
#include <QFocusEvent>
#include <QMenu>
#include <QStyle>
#include <algorithm>
#include <array>

#include "desktop/lists/text_label.h"
#include "desktop/look/menu_button.h"
#include "desktop/look/widgets.h"
#include "desktop/models/storefronts.h"
#include "desktop/store_lists/choice_control.h"
#include "desktop/store_lists/filters_button.h"
#include "desktop/store_lists/selector_choices.h"
#include "desktop/store_lists/storefront_menu.h"

namespace quillet {

namespace {

constexpr int kHeight = 52;
constexpr int kControl = 32;
constexpr int kGap = 8;
constexpr int kGapBesideTitle = 16;
constexpr int kLeastCategory = 64;

}  // namespace

ChartTools::ChartTools()
    : title_(new TextLabel(kSectionType, Token::text, TextAnchor::left, this)),
      charts_(
          new ChoiceControl(tr("Chart"), chartChoices(ChartType::topFree, Platform::iphone), this)),
      platforms_(new ChoiceControl(tr("Platform"), platformChoices(Platform::mac), this)),
      category_(new MenuButton(this)),
      categories_(new QActionGroup(this)),
      storefront_(new MenuButton(this)),
      storefronts_(new StorefrontMenu(storefront_)) {
  setAccessibleName(tr("Chart tools"));
  setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  title_->setText(tr("Charts"));
  makeCategories();
  storefront_->setMenu(storefronts_);
  filters_ = new FiltersButton(this);
  connect(charts_, &ChoiceControl::chosenChanged, this, &ChartTools::chartChosen);
  connect(platforms_, &ChoiceControl::chosenChanged, this, &ChartTools::platformChosen);
  connect(storefronts_, &StorefrontMenu::chosen, this, &ChartTools::storefrontChosen);
  connect(filters_, &QPushButton::clicked, this, &ChartTools::filtersToggled);
}

void ChartTools::makeCategories() {
  auto* menu = new QMenu(category_);
  for (const SelectorChoice& choice : chartCategoryChoices({})) {
    if (choice.startsGroup) menu->addSeparator();
    QAction* action = categories_->addAction(controlText(choice.text));
    action->setCheckable(true);
    action->setData(QString::fromStdString(choice.id));
    menu->addAction(action);
    connect(action, &QAction::triggered, this,
            [this, id = choice.id] { Q_EMIT categoryChosen(id); });
  }
  category_->setMenu(menu);
}

void ChartTools::setQuery(const StoreQuery& query, const std::string& storefront) {
  charts_->show(chartChoices(query.chart->type, query.request.platform));
  platforms_->show(platformChoices(query.request.platform));
  const std::vector<SelectorChoice> categories = chartCategoryChoices(query.chart->genreId);
  for (std::size_t i = 0; i < categories.size(); ++i) {
    if (!categories[i].isChosen) continue;
    categories_->actions().at(static_cast<qsizetype>(i))->setChecked(true);
    category_->setText(categories[i].text);
    category_->setToolTip(tr("Category: %1").arg(categories[i].text));
    category_->setAccessibleName(category_->toolTip());
  }
  storefronts_->setChosen(storefront);
  storefront_->setText(QString::fromStdString(storefront));
  storefront_->setToolTip(tr("Storefront: %1").arg(storefrontName(storefront)));
  storefront_->setAccessibleName(storefront_->toolTip());
  arrange();
}

void ChartTools::setFilters(int active, bool areShown) {
  filters_->setState(active, areShown);
  arrange();
}

int ChartTools::widthIn(const Form& form) const {
  const int title = form.hasTitle ? title_->sizeHint().width() + kGapBesideTitle : 0;
  return title + charts_->sizeOf(form.isChartShort).width() + kGap +
         platforms_->sizeOf(form.isPlatformShort).width() + kGap + category_->sizeHint().width() +
         kGap + storefront_->sizeHint().width() + kGap +
         filters_->sizeOf(form.isFiltersShort).width();
}

QSize ChartTools::sizeHint() const { return {widthIn({}), kHeight}; }
QSize ChartTools::minimumSizeHint() const {
  const int category = category_->sizeHint().width();
  return {widthIn({false, true, true, true}) - category + std::min(category, kLeastCategory),
          kHeight};
}

void ChartTools::arrange() {
  constexpr std::array kForms{Form{}, Form{false}, Form{false, true}, Form{false, true, true},
                              Form{false, true, true, true}};
  const auto fits = [this](const Form& form) { return widthIn(form) <= width(); };
  const auto found = std::ranges::find_if(kForms, fits);
  const Form& form = found == kForms.end() ? kForms.back() : *found;
  title_->setVisible(form.hasTitle);
  charts_->setShort(form.isChartShort);
  platforms_->setShort(form.isPlatformShort);
  filters_->setShort(form.isFiltersShort);

  const auto put = [this](QWidget* widget, int left, int itsWidth) {
    const QRect place(left, (height() - kControl) / 2, itsWidth, kControl);
    widget->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
  };
  put(title_, 0, title_->sizeHint().width());
  const int tooWide = std::max(0, widthIn(form) - width());
  int left = std::max(
      0, width() - widthIn({false, form.isFiltersShort, form.isPlatformShort, form.isChartShort}));
  for (QWidget* each :
       std::initializer_list<QWidget*>{charts_, platforms_, category_, storefront_, filters_}) {
    int itsWidth = each->sizeHint().width();
    // Names of categories differ much; this one can be read in its menu.
    if (each == category_) itsWidth = std::max(std::min(itsWidth, kControl), itsWidth - tooWide);
    put(each, left, itsWidth);
    left += itsWidth + kGap;
  }
}

bool ChartTools::event(QEvent* event) {
  if (event->type() == QEvent::LayoutRequest) {
    updateGeometry();
    arrange();
  }
  return QWidget::event(event);
}

void ChartTools::focusInEvent(QFocusEvent* event) { charts_->takeFocus(event->reason()); }

void ChartTools::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange();
}

void ChartTools::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (changesSizes(*event) && filters_ != nullptr) arrange();
}

}  // namespace quillet
