// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QHBoxLayout>
#include <QPointer>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/look/segmented_control.h"
#include "desktop/models/row_parts.h"
#include "desktop/models/store_question.h"
#include "desktop/page/block_table.h"
#include "desktop/page/page_text.h"
#include "desktop/page/picture_strip.h"
#include "desktop/page/screenshot_viewer.h"
#include "desktop/page/state_line.h"
#include "store/answer_cache.h"
#include "store/records/embedded_document.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

// An app's page in the store is read again when what the catalog says of it would be.
constexpr AnswerCacheLimits kPages{6h, 500};

QString tr(const char* text) { return QCoreApplication::translate("Page", text); }

UnreadablePage unreadable(const std::string& name) {
  return UnreadablePage(tr("The App Store page for %1 could not be read for screenshots. Apple may "
                           "have changed its layout.")
                            .arg(nameLine(name))
                            .toStdString());
}

Task<AppPictures> readPage(ITunesApp app, std::string country, QueryServices services,
                           QueryCall call) {
  const std::string name = app.trackName;
  try {
    AppPictures pictures = co_await readAppPictures(std::move(app), Platform::mac,
                                                    std::move(country), services, std::move(call));
    co_return pictures;
  } catch (const UnreadablePage&) {
    throw unreadable(name);
  }
}

class ScreenshotsBlock : public Block {
 public:
  ScreenshotsBlock(const QString& title, const PageWorld& world)
      : Block(title),
        view_(world.view),
        pages_(world.view.clock, kPages),
        question_(world.view.store, world.view.clock),
        position_(new PageText({.type = kCaptionType.tabular(), .ink = Token::tertiary}, this)),
        room_(new QWidget(this)),
        belowStrip_(new QWidget(this)),
        strip_(new PictureStrip(world.view.images, {}, this)),
        remark_(new PageText({.type = kBodyType, .ink = Token::secondary}, this)),
        state_(new StateLine(world.view.clock, this)) {
    head().addWidget(position_, 0, Qt::AlignVCenter);
    room_->setFixedHeight(strip_->sizeHint().height());
    content().addWidget(room_);
    belowStrip_->setFixedHeight(kBelowStrip);
    content().addWidget(belowStrip_);
    content().addWidget(remark_);
    content().addWidget(state_);
    connect(&question_, &StoreQuestion::stateChanged, this, &ScreenshotsBlock::showAll);
    connect(state_, &StateLine::acted, this, [this](StripAction action) {
      action == StripAction::stop ? question_.stop() : question_.tryAgain();
    });
    connect(strip_, &PictureStrip::currentChanged, this, &ScreenshotsBlock::tellPosition);
    connect(strip_, &PictureStrip::opened, this, &ScreenshotsBlock::openViewer);
  }

  bool fill(const PageFacts& known) override {
    const bool isOther = known.app != app_;
    if (isOther) question_.forget();
    if (isOther) isNear_ = false;
    app_ = known.app;
    record_ = picturedRecord(known);
    std::vector<PlatformPictures> listed = listedPictures(known);
    takePage(listed);
    const Platform wanted = isOther || pictures_.empty() ? picturedPlatform(known) : platform();
    pictures_ = std::move(listed);
    choosePlatform(wanted);
    if (isNear_ && !hasFailed()) ask(Freshness::known);
    return !pictures_.empty();
  }

  void approach(Freshness freshness) override {
    isNear_ = true;
    ask(freshness);
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    Block::resizeEvent(event);
    placeStrip();
  }

  bool event(QEvent* event) override {
    const bool done = Block::event(event);
    if (event->type() == QEvent::LayoutRequest) placeStrip();
    return done;
  }

 private:
  static constexpr int kBelowStrip = 8;

  [[nodiscard]] Platform platform() const { return pictures_[chosen_].platform; }

  /// Into the margin, and so beyond the end of the page's content.
  void placeStrip() {
    layout()->activate();
    const QRect room = room_->geometry();
    const QRect content = contentsRect();
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const int left = isMirrored ? 0 : content.left();
    const int right = isMirrored ? content.right() : width() - 1;
    strip_->setGeometry(left, room.top(), right - left + 1, room.height());
    strip_->setEndRoom(width() - content.width());
    strip_->setVisible(!room_->isHidden());
  }

  void takePage(std::vector<PlatformPictures>& pictures) const {
    for (PlatformPictures& each : pictures) {
      if (each.addresses && each.source != PictureSource::storePage) continue;
      each.addresses = pages_.find(app_);
      each.source = PictureSource::storePage;
    }
  }

  [[nodiscard]] bool isUnknown() const {
    return std::ranges::any_of(pictures_, [](const auto& each) { return !each.addresses; });
  }
  [[nodiscard]] bool isOfPage() const {
    return std::ranges::find(pictures_, PictureSource::storePage, &PlatformPictures::source) !=
           pictures_.end();
  }

  /// Then it is asked again when the user wants it.
  [[nodiscard]] bool hasFailed() const {
    return std::holds_alternative<Failed>(question_.state()) ||
           std::holds_alternative<Offline>(question_.state());
  }

  void ask(Freshness freshness) {
    const bool renews = freshness == Freshness::anew && isOfPage();
    if (!(isUnknown() || renews) || question_.isUnderWay()) return;
    question_.ask(
        [record = *record_, country = app_.country](QueryServices services, QueryCall call) {
          return readPage(record, country, services, std::move(call));
        },
        [this, app = app_](AppPictures answer) {
          pages_.keep(app, std::move(answer.addresses));
          takePage(pictures_);
          showAll();
        });
  }

  void choosePlatform(Platform wanted) {
    const auto found = std::ranges::find(pictures_, wanted, &PlatformPictures::platform);
    chosen_ = found == pictures_.end() ? 0 : static_cast<std::size_t>(found - pictures_.begin());
    makeTabs();
    showAll();
  }

  void makeTabs() {
    QStringList names;
    for (const PlatformPictures& each : pictures_) names << platformText(each.platform);
    if (names != tabNames_) {
      delete tabs_;
      tabNames_ = names;
      tabs_ = names.size() > 1 ? new SegmentedControl(tr("Platform"), names, this) : nullptr;
      if (tabs_ != nullptr) {
        head().addWidget(tabs_);
        connect(tabs_, &SegmentedControl::chosenChanged, this, [this](int index) {
          chosen_ = static_cast<std::size_t>(index);
          showAll();
        });
      }
    }
    if (tabs_ != nullptr) tabs_->choose(static_cast<int>(chosen_));
  }

  void showAll() {
    if (pictures_.empty()) return;
    const PlatformPictures& shown = pictures_[chosen_];
    strip_->show(shown.platform, shown.addresses.value_or(std::vector<std::string>()));
    const bool isAwaited = !shown.addresses && !hasFailed();
    strip_->setAwaiting(isAwaited);
    room_->setVisible(strip_->count() > 0 || isAwaited);
    placeStrip();
    tellPosition();
    tellState();
  }

  void tellPosition() {
    const bool isTold = tabs_ == nullptr && strip_->count() > 1;
    position_->show(
        isTold ? tr("%1 of %2")
                     .arg(QString::number(strip_->current() + 1), QString::number(strip_->count()))
               : QString());
  }

  void tellState() {
    const bool isAwaited = !pictures_[chosen_].addresses;
    const ListState& state = question_.state();
    const bool isTold = state_->show(isAwaited ? state : Ready{});
    remark_->show(isTold ? QString() : remark());
    belowStrip_->setVisible(!room_->isHidden() && (isTold || !remark().isEmpty()));
  }

  [[nodiscard]] QString remark() const {
    const PlatformPictures& shown = pictures_[chosen_];
    if (!shown.addresses) return tr("Reading the App Store page…");
    if (shown.addresses->empty()) {
      return tr("Apple publishes no %1 screenshots for this app.")
          .arg(platformText(shown.platform));
    }
    if (shown.source == PictureSource::searchService) return {};
    return tr("Read from the App Store page: Apple's search API listed none for this app.");
  }

  void openViewer() {
    if (!viewer_) {
      viewer_ = new ScreenshotViewer(view_, window());
      connect(viewer_, &ScreenshotViewer::wentTo, this, &ScreenshotsBlock::follow);
      connect(viewer_, &ScreenshotViewer::closed, strip_, [strip = strip_] {
        strip->window()->activateWindow();
        strip->setFocus(Qt::OtherFocusReason);
      });
    }
    viewer_->show({app_, record_->trackName, pictures_}, platform(), strip_->current());
  }

  /// What was looked at last is the current one here, unless another app's page is shown by now.
  void follow(const ViewedPicture& viewed) {
    if (viewed.app != app_) return;
    if (viewed.platform != platform()) choosePlatform(viewed.platform);
    strip_->setCurrent(viewed.index);
    tellPosition();
  }

  ViewWorld view_;
  AnswerCache<AppKey, std::vector<std::string>> pages_;  ///< what pages in the store showed
  StoreQuestion question_;
  AppKey app_;
  std::optional<ITunesApp> record_;
  std::vector<PlatformPictures> pictures_;
  std::size_t chosen_ = 0;
  bool isNear_ = false;
  PageText* position_;
  SegmentedControl* tabs_ = nullptr;  ///< null for a single platform
  QStringList tabNames_;
  QWidget* room_;  ///< what the strip covers of the block
  QWidget* belowStrip_;
  PictureStrip* strip_;
  PageText* remark_;
  StateLine* state_;
  QPointer<ScreenshotViewer> viewer_;
};

}  // namespace

Block* makeScreenshotsBlock(const QString& title, const PageWorld& world) {
  return new ScreenshotsBlock(title, world);
}

}  // namespace quillet
