// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/store_lists/filter_panel.h"

#include <QActionGroup>
#include <QEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QPainter>
#include <QRegularExpression>
#include <QScopedValueRollback>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "analysis/filter_match.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/widgets.h"
#include "desktop/models/amount_text.h"
#include "desktop/store_lists/text_button.h"

namespace quillet {

namespace {

constexpr int kWidth = 244;
constexpr double kTexts = 0.5;  // of it, and so larger in larger text
constexpr int kInset = 16;
constexpr int kBorder = 1;
constexpr int kBar = 8;  // of the scroll bar, which takes its room from the inset
constexpr int kHeadHeight = 32;
constexpr int kHeadingHeight = 24;
constexpr TypeStyle kHeadingType{12.5, 600};

// The kinds of purchases that most ask for; the others are in a menu, unless one is chosen.
constexpr std::size_t kShownPurchases = 4;

class Hairline final : public QWidget {
 public:
  Hairline() { setFixedHeight(17); }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    PixelGrid(painter).horizontal(0, width(), 8, lookOf(*this)[Token::line]);
  }
};

QVBoxLayout* column(QWidget& box) {
  auto* layout = new QVBoxLayout(&box);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->setSpacing(0);
  return layout;
}

QString actionText(const QString& text, LiveCount count) {
  const QString plain = controlText(text);
  return count ? plain + u'\t' + liveCountText(count) : plain;
}

QString titleOf(FilterField field) {
  switch (field) {
    case FilterField::price: return FilterPanel::tr("Price");
    case FilterField::purchases: return FilterPanel::tr("In-app purchases");
    case FilterField::rating: return FilterPanel::tr("Rating");
    default: return {};
  }
}

/// The version of an operating system, with its name before it or without; empty where it is none.
QString versionOf(const QString& text) {
  static const QRegularExpression form(QStringLiteral("^[^\\d.]*(\\d+(?:\\.\\d+)*)$"));
  return form.match(text.trimmed()).captured(1);
}

std::optional<std::int64_t> yearOf(const QString& text) {
  constexpr int kLast = 9999;
  bool isNumber = false;
  const int year = text.trimmed().toInt(&isNumber);
  return isNumber && year >= 0 && year <= kLast ? std::optional<std::int64_t>(year) : std::nullopt;
}

}  // namespace

FilterPanel::FilterPanel()
    : clear_(new TextButton(tr("Clear"))), area_(new QScrollArea), rows_(nullptr) {
  setAccessibleName(tr("Filters"));
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
  setRoom(usualWidth());
  clear_->setAccessibleName(tr("Clear all filters"));
  connect(clear_, &QAbstractButton::clicked, this, [this] { take({}); });

  auto* layout = column(*this);
  layout->setContentsMargins(0, 8, kBorder, 0);
  auto* head = new QHBoxLayout;
  head->setContentsMargins(kInset, 0, kInset - TextButton::kPadding - kBorder, 0);
  head->addWidget(new PanelLabel(kRowType, kHeadHeight));
  qobject_cast<QLabel*>(head->itemAt(0)->widget())->setText(tr("Filters"));
  head->addWidget(clear_);
  layout->addLayout(head);
  layout->addWidget(area_, 1);

  auto* content = new QWidget;
  rows_ = column(*content);
  area_->setWidget(content);
  area_->setWidgetResizable(true);
  area_->setFrameShape(QFrame::NoFrame);
  area_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area_->setFocusPolicy(Qt::NoFocus);
  area_->viewport()->setAutoFillBackground(false);
  content->setAutoFillBackground(false);
  area_->verticalScrollBar()->installEventFilter(this);
  connect(area_->verticalScrollBar(), &QScrollBar::valueChanged, this,
          qOverload<>(&QWidget::update));

  addRadios(FilterField::price);
  maxPrice_ = new TypedRow;
  rows_->addWidget(maxPrice_);
  addHairline();
  addRadios(FilterField::purchases);
  addHairline();
  addRadios(FilterField::rating);
  addHairline();
  addMenu(FilterField::updated);
  addMenu(FilterField::released);
  year_ = new TypedRow;
  rows_->addWidget(year_);
  addMenu(FilterField::ratingCount);
  addMenu(FilterField::category);
  addMenu(FilterField::size);
  addMenu(FilterField::architecture);
  addMenu(FilterField::system);
  system_ = new TypedRow;
  rows_->addWidget(system_);
  addTick();
  rows_->addStretch();
  connectEntries();
  fitScrollBar();
  show(FilterPanelState{});
}

void FilterPanel::connectEntries() {
  year_->hide();
  system_->hide();
  system_->setNames({tr("Version"), tr("Version of the system"), QStringLiteral("14.4"), {}});
  nameYear();
  connect(maxPrice_, &TypedRow::entered, this, &FilterPanel::takeMaxPrice);
  connect(maxPrice_, &TypedRow::left, this, &FilterPanel::showMaxPrice);
  connect(year_, &TypedRow::entered, this, &FilterPanel::takeYear);
  connect(year_, &TypedRow::left, year_, &QWidget::hide);
  connect(system_, &TypedRow::entered, this, &FilterPanel::takeSystem);
  connect(system_, &TypedRow::left, system_, &QWidget::hide);
}

int FilterPanel::usualWidth() const {
  return static_cast<int>(std::ceil(kWidth * (1 + kTexts * (lookOf(*this).growth() - 1))));
}

void FilterPanel::setRoom(int width) { setFixedWidth(std::clamp(width, kWidth, usualWidth())); }

QSize FilterPanel::sizeHint() const { return {usualWidth(), kWidth}; }

void FilterPanel::addRadios(FilterField field) {
  // In a box of their own, within which one excludes the others.
  auto* box = new QWidget;
  box->setAccessibleName(titleOf(field));
  Part part{.field = field, .rows = column(*box)};
  auto* heading = new PanelLabel(kHeadingType, kHeadingHeight);
  heading->setText(titleOf(field));
  part.rows->addWidget(heading);
  rows_->addWidget(box);
  if (field == FilterField::purchases) {
    part.menu = newMenu(field);
    part.menu->setLone(tr("Other kinds"));
    rows_->addWidget(part.menu);
  }
  parts_.push_back(std::move(part));
}

MenuRow* FilterPanel::newMenu(FilterField field) {
  auto* row = new MenuRow;
  auto* menu = new QMenu(row);
  row->setMenu(menu);
  connect(menu, &QMenu::aboutToShow, this, [this, field] { fillMenu(field); });
  return row;
}

void FilterPanel::addMenu(FilterField field) {
  MenuRow* row = newMenu(field);
  rows_->addWidget(row);
  parts_.push_back({.field = field, .menu = row});
}

void FilterPanel::addTick() {
  auto* row = new TickRow;
  rows_->addWidget(row);
  parts_.push_back({.field = FilterField::owned, .tick = row});
  connect(row, &QCheckBox::toggled, this, [this](bool isOn) {
    AppFilters filters = state_.filters;
    filters.hideOwned = isOn;
    if (isTold_) take(filters);
  });
}

void FilterPanel::addHairline() { rows_->addWidget(new Hairline); }

FilterPanel::Part& FilterPanel::partOf(FilterField field) {
  return *std::ranges::find(parts_, field, &Part::field);
}

const FilterGroup* FilterPanel::groupOf(FilterField field) const {
  const auto found = std::ranges::find(groups_, field, &FilterGroup::field);
  return found == groups_.end() ? nullptr : &*found;
}

void FilterPanel::show(const FilterPanelState& state) {
  const bool isOtherPrice = state.filters.maxPrice != state_.filters.maxPrice;
  const std::vector<AppFilters> before = choices();
  state_ = state;
  groups_ = filterGroups(state_);
  if (choices() != before) counts_.clear();
  const QScopedValueRollback quiet(isTold_, false);
  for (Part& part : parts_) showPart(part);
  maxPrice_->setNames(
      {tr("Up to"), tr("Highest price"), tr("Any"), QString::fromStdString(state_.currency)});
  if (isOtherPrice || !maxPrice_->isEdited()) showMaxPrice();
  clear_->setVisible(activeCount(state_.filters) > 0);
  showCounts();
}

void FilterPanel::showPart(Part& part) {
  const FilterGroup* group = groupOf(part.field);
  if (part.menu != nullptr) part.menu->setVisible(group != nullptr);
  if (group == nullptr) return;
  if (part.rows != nullptr) {
    showRadios(part, *group);
  } else if (part.tick != nullptr) {
    part.tick->setChoice(group->choices.front().text);
    part.tick->setChecked(group->choices.front().isChosen);
  } else {
    const auto chosen = std::ranges::find(group->choices, true, &FilterChoice::isChosen);
    const FilterChoice& shown = chosen == group->choices.end() ? group->choices.front() : *chosen;
    part.menu->setChoice(group->title, shown.text, &shown != &group->choices.front());
  }
}

void FilterPanel::showRadios(Part& part, const FilterGroup& group) {
  part.shown.clear();
  for (std::size_t i = 0; i < group.choices.size(); ++i) {
    const bool isUsual = part.field != FilterField::purchases || i < kShownPurchases;
    if (isUsual || group.choices[i].isChosen) part.shown.push_back(i);
  }
  while (part.radios.size() > part.shown.size()) {
    part.radios.back()->deleteLater();
    part.radios.back()->hide();
    part.radios.pop_back();
  }
  while (part.radios.size() < part.shown.size()) addRadio(part.field);
  for (std::size_t i = 0; i < part.shown.size(); ++i) {
    const FilterChoice& choice = group.choices[part.shown[i]];
    part.radios[i]->setChoice(choice.text);
    if (choice.isChosen) part.radios[i]->setChecked(true);
  }
}

void FilterPanel::addRadio(FilterField field) {
  Part& part = partOf(field);
  const std::size_t place = part.radios.size();
  auto* radio = new ChoiceRow;
  part.rows->addWidget(radio);
  radio->setVisible(true);  // at once; the layout would wait for the event loop
  part.radios.push_back(radio);
  // Not "clicked": a screen reader chooses without a click.
  connect(radio, &QRadioButton::toggled, this, [this, field, place](bool isOn) {
    if (!isTold_ || !isOn) return;
    take(groupOf(field)->choices[partOf(field).shown[place]].filters);
  });
}

void FilterPanel::fillMenu(FilterField field) {
  const FilterGroup& group = *groupOf(field);
  QMenu& menu = *partOf(field).menu->menu();
  menu.clear();
  delete menu.findChild<QActionGroup*>();
  auto* actions = new QActionGroup(&menu);
  const std::size_t first = field == FilterField::purchases ? kShownPurchases : 0;
  for (std::size_t i = first; i < group.choices.size(); ++i) {
    const FilterChoice& choice = group.choices[i];
    QAction* action = actions->addAction(actionText(choice.text, countOf(field, i)));
    action->setCheckable(true);
    action->setChecked(choice.isChosen);
    connect(action, &QAction::triggered, this, [this, filters = choice.filters] { take(filters); });
  }
  menu.addActions(actions->actions());
  if (field == FilterField::released) {
    menu.addSeparator();
    menu.addAction(tr("Since a Year…"), this, [this] { askForYear(false); });
    menu.addAction(tr("Before a Year…"), this, [this] { askForYear(true); });
  } else if (field == FilterField::system) {
    menu.addSeparator();
    menu.addAction(tr("Other Version…"), this, &FilterPanel::askForSystem);
  }
}

std::vector<AppFilters> FilterPanel::choices() const {
  std::vector<AppFilters> filters;
  for (const FilterGroup& group : groups_)
    for (const FilterChoice& choice : group.choices) filters.push_back(choice.filters);
  return filters;
}

void FilterPanel::setCounts(const std::vector<std::optional<std::size_t>>& counts) {
  counts_ = counts;
  showCounts();
}

LiveCount FilterPanel::countOf(FilterField field, std::size_t choice) const {
  std::size_t at = choice;
  for (const FilterGroup& group : groups_) {
    if (group.field == field) break;
    at += group.choices.size();
  }
  return at < counts_.size() ? counts_[at] : std::nullopt;
}

void FilterPanel::showCounts() {
  for (Part& part : parts_) {
    for (std::size_t i = 0; i < part.radios.size(); ++i)
      part.radios[i]->setCount(countOf(part.field, part.shown[i]));
    if (part.tick != nullptr) part.tick->setCount(countOf(part.field, 0));
  }
}

void FilterPanel::showMaxPrice() {
  const std::optional<double>& price = state_.filters.maxPrice;
  maxPrice_->setText(price ? amountText(*price, QLocale()) : QString());
}

void FilterPanel::take(AppFilters filters) {
  FilterPanelState state = state_;
  state.filters = filters;
  show(state);
  Q_EMIT changed(filters);
}

void FilterPanel::takeMaxPrice(const QString& text) {
  AppFilters filters = state_.filters;
  filters.maxPrice = readAmount(text, QLocale());
  if (!filters.maxPrice && !text.trimmed().isEmpty()) {
    maxPrice_->complain(tr("Not a price, such as %1").arg(QLocale().toString(4.99)));
    return;
  }
  maxPrice_->setText(text);  // it is no longer being typed
  take(filters);
}

void FilterPanel::nameYear() {
  const QString title = isYearBefore_ ? tr("Before") : tr("Since");
  const QString name =
      isYearBefore_ ? tr("Released before the year") : tr("Released since the year");
  year_->setNames({title, name, QString::number(state_.thisYear), {}});
}

void FilterPanel::askForYear(bool isBefore) {
  isYearBefore_ = isBefore;
  nameYear();
  year_->setText({});
  year_->show();
  year_->takeFocus();
}

void FilterPanel::takeYear(const QString& text) {
  const auto year = yearOf(text);
  if (!year) {
    year_->complain(tr("Not a year, such as %1").arg(state_.thisYear));
    return;
  }
  AppFilters filters = state_.filters;
  filters.released =
      isYearBefore_ ? ReleasedFilter(ReleasedBefore{*year}) : ReleasedFilter(ReleasedFrom{*year});
  year_->setText({});
  year_->hide();
  take(filters);
}

void FilterPanel::askForSystem() {
  system_->setText({});
  system_->show();
  system_->takeFocus();
}

void FilterPanel::takeSystem(const QString& text) {
  const QString version = versionOf(text);
  if (version.isEmpty()) {
    system_->complain(tr("Not a version, such as 14.4"));
    return;
  }
  AppFilters filters = state_.filters;
  filters.runsOn = OSRequirement{version.toStdString()};
  system_->setText({});
  system_->hide();
  take(filters);
}

void FilterPanel::fitScrollBar() {
  const int bar = area_->verticalScrollBar()->isHidden() ? 0 : kBar;
  QMargins margins(kInset, 0, kInset - kBorder - bar, kInset);
  if (layoutDirection() == Qt::RightToLeft) margins = {margins.right(), 0, kInset, kInset};
  rows_->setContentsMargins(margins);
}

bool FilterPanel::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::Show || event->type() == QEvent::Hide) fitScrollBar();
  return QWidget::eventFilter(watched, event);
}

void FilterPanel::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  painter.fillRect(rect(), look[Token::raised]);
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  PixelGrid grid(painter);
  grid.vertical(isMirrored ? 0 : width() - kBorder, 0, height(), look[Token::line]);
  // Rows go on below the head.
  if (area_->verticalScrollBar()->value() > 0)
    grid.horizontal(0, width(), area_->y() - 1, look[Token::line]);
}

}  // namespace quillet
