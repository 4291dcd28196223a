// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/deals/deals_tools.h"

#include <QActionGroup>
#include <QCoreApplication>
#include <QMenu>
#include <QStyle>
#include <algorithm>

#include "base/text.h"
#include "desktop/look/menu_button.h"
#include "desktop/look/segmented_control.h"
#include "desktop/look/widgets.h"
#include "desktop/models/storefronts.h"
#include "store/records/storefronts.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

constexpr int kHeight = 52;
constexpr int kControl = 32;
constexpr int kGap = 8;

constexpr const char* kAnyPlatform = "all";

/// Price data knows of one platform beside the Mac.
constexpr std::array<std::optional<Platform>, 3> kPlatforms{Platform::mac, Platform::iphone,
                                                            std::nullopt};

std::string wordOf(std::optional<Platform> platform) {
  return platform ? std::string(textOf(kPlatformWords, *platform)) : kAnyPlatform;
}

QString nameOf(std::optional<Platform> platform) {
  if (!platform) return DealsTools::tr("All");
  return *platform == Platform::mac ? QStringLiteral("Mac") : QStringLiteral("iPhone & iPad");
}

int placeOf(std::optional<Platform> platform) {
  if (platform == Platform::ipad) platform = Platform::iphone;
  return static_cast<int>(std::ranges::find(kPlatforms, platform) - kPlatforms.begin());
}

QStringList platformNames() {
  QStringList names;
  for (const auto& platform : kPlatforms) names << nameOf(platform);
  return names;
}

/// A menu of radio buttons; `take` gets the ID of the one that the user chose.
void fillMenu(QMenu& menu, const std::vector<SelectorChoice>& choices,
              const std::function<void(const std::string&)>& take) {
  menu.clear();
  delete menu.findChild<QActionGroup*>();
  auto* group = new QActionGroup(&menu);
  for (const SelectorChoice& each : choices) {
    QAction* action = group->addAction(controlText(each.text));
    action->setCheckable(true);
    action->setChecked(each.isChosen);
    QObject::connect(action, &QAction::triggered, &menu, [take, id = each.id] { take(id); });
    menu.addAction(action);
  }
}

}  // namespace

std::vector<SelectorChoice> dealPlatforms(std::optional<Platform> chosen) {
  std::vector<SelectorChoice> choices;
  for (const auto& platform : kPlatforms)
    choices.push_back({wordOf(platform), nameOf(platform), placeOf(platform) == placeOf(chosen)});
  return choices;
}

std::optional<Platform> dealPlatformOf(const std::string& word) {
  return valueOf(kPlatformWords, word);
}

std::vector<SelectorChoice> dealStorefronts(const Settings& settings, const std::string& chosen) {
  std::vector<std::string> codes(kTrackedStorefronts.begin(), kTrackedStorefronts.end());
  const auto published = settings.text(kPriceSeedPublishedStorefronts.key).value_or("");
  for (const std::string_view code : split(published, ',')) {
    if (isTwoLetters(code) && std::ranges::find(codes, code) == codes.end())
      codes.emplace_back(code);
  }
  std::vector<SelectorChoice> choices;
  for (const std::string& code : codes)
    choices.push_back(
        {code, storefrontName(code) + u'\t' + QString::fromStdString(code), code == chosen});
  return choices;
}

DealsTools::DealsTools()
    : segments_(new SegmentedControl(tr("Platform"), platformNames(), this)),
      platforms_(new MenuButton(this)),
      storefront_(new MenuButton(this)) {
  setAccessibleName(tr("Shown deals"));
  setFocusProxy(storefront_);
  setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  platforms_->setMenu(new QMenu(platforms_));
  storefront_->setMenu(new QMenu(storefront_));
  connect(platforms_->menu(), &QMenu::aboutToShow, this, &DealsTools::fillPlatforms);
  connect(storefront_->menu(), &QMenu::aboutToShow, this, &DealsTools::fillStorefronts);
  connect(segments_, &SegmentedControl::chosenChanged, this, [this](int index) {
    Q_EMIT platformChosen(wordOf(kPlatforms.at(static_cast<std::size_t>(index))));
  });
}

void DealsTools::fillPlatforms() {
  fillMenu(*platforms_->menu(), dealPlatforms(platform_),
           [this](const std::string& word) { Q_EMIT platformChosen(word); });
}

void DealsTools::fillStorefronts() {
  fillMenu(*storefront_->menu(), storefronts_,
           [this](const std::string& code) { Q_EMIT storefrontChosen(code); });
}

void DealsTools::show(std::optional<Platform> platform, const std::string& storefront,
                      std::vector<SelectorChoice> storefronts) {
  platform_ = platform;
  storefronts_ = std::move(storefronts);
  segments_->choose(placeOf(platform));
  platforms_->setText(controlText(nameOf(platform)));
  platforms_->setToolTip(tr("Platform"));
  platforms_->setAccessibleName(tr("Platform: %1").arg(nameOf(platform)));
  storefront_->setText(QString::fromStdString(storefront));
  const QString name = tr("Storefront: %1").arg(storefrontName(storefront));
  storefront_->setToolTip(name);
  storefront_->setAccessibleName(name);
  updateGeometry();
  arrange();
}

QSize DealsTools::sizeHint() const {
  return {segments_->sizeHint().width() + kGap + storefront_->sizeHint().width(), kHeight};
}

QSize DealsTools::minimumSizeHint() const {
  const int platforms = std::min(platforms_->sizeHint().width(), segments_->sizeHint().width());
  return {platforms + kGap + storefront_->sizeHint().width(), kHeight};
}

void DealsTools::arrange() {
  const bool hasSegments = width() >= sizeHint().width();
  segments_->setVisible(hasSegments);
  platforms_->setVisible(!hasSegments);
  const int storefront = storefront_->sizeHint().width();
  const auto put = [&](QWidget* widget, int x, int itsWidth) {
    const QRect place(x, (height() - kControl) / 2, itsWidth, kControl);
    widget->setGeometry(QStyle::visualRect(layoutDirection(), rect(), place));
  };
  QWidget* platforms = hasSegments ? static_cast<QWidget*>(segments_) : platforms_;
  const int left = width() - storefront - kGap;
  const int itsWidth = std::min(left, platforms->sizeHint().width());
  put(platforms, left - itsWidth, itsWidth);
  put(storefront_, width() - storefront, storefront);
}

void DealsTools::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  arrange();
}

void DealsTools::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (!changesSizes(*event) || storefront_ == nullptr) return;
  updateGeometry();
  arrange();
}

}  // namespace quillet
