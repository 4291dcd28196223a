// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/window_face.h"

#include <QApplication>
#include <QTimer>

#include "desktop/desktop_prompts.h"
#include "desktop/look/start_look.h"
#include "desktop/look/widgets.h"
#include "desktop/sections/alerts/alerts_section.h"
#include "desktop/sections/collections/collections_section.h"
#include "desktop/sections/history/history_section.h"
#include "desktop/sections/my_apps/my_apps_section.h"
#include "desktop/sections/search/search_section.h"
#include "desktop/sections/watchlist/watchlist_section.h"
#include "library/library_connection.h"
#include "system/settings_keys.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

// Pictures that nobody looked at for long are removed when nothing else is to be done.
constexpr auto kSweepAfter = 30s;

SectionMakers sectionMakers() {
  return {{SectionId::search, makeSearch}, {SectionId::watchlist, makeWatchlist},
          {SectionId::alerts, makeAlerts}, {SectionId::collections, makeCollections},
          {SectionId::myApps, makeMyApps}, {SectionId::history, makeHistory}};
}

Palette paletteOf(const Appearance& wanted) {
  return {wanted.isDark ? Scheme::dark : Scheme::light,
          wanted.hasMoreContrast ? Contrast::more : Contrast::normal};
}

std::uintmax_t pictureDisk(const Settings& settings) {
  constexpr std::uintmax_t kMegabyte = 1'000'000;
  return static_cast<std::uintmax_t>(readSetting(settings, kImageCacheMB)) * kMegabyte;
}

double textScaleOf(const Settings& settings) {
  return static_cast<double>(readSetting(settings, kTextPercent)) / 100;
}

}  // namespace

WindowFace::WindowFace(FaceWorld world)
    : world_(std::move(world)),
      style_(startLook(paletteOf(chosenAppearance({}, world_.settings)),
                       textScaleOf(world_.settings))),
      records_(world_.clock, {{}, kShelvedRecords}),
      images_(world_.http, world_.clock, world_.places.cacheDirectory / "pictures"),
      state_(world_.places.stateDirectory / "windows.json") {
  if (!world_.places.autostartDirectory.empty())
    loginItem_ = std::make_unique<AutostartEntry>(
        world_.places.autostartDirectory, QCoreApplication::applicationFilePath().toStdString());
  connect(&appearance_, &DesktopAppearance::changed, this, &WindowFace::takeAppearance);
  connect(&world_.settings, &LiveSettings::changed, this, &WindowFace::takeSettings);
  connect(&network_, &NetworkState::returned, &store_, &StoreGateway::networkReturned);
  takeAppearance();
}

WindowFace::~WindowFace() = default;

void WindowFace::useBus(const QDBusConnection& bus) { appearance_.useBus(bus); }

void WindowFace::takeAppearance() {
  const Appearance chosen = chosenAppearance(appearance_.wanted(), world_.settings);
  const Palette palette = paletteOf(chosen);
  if (palette != style_.look().palette) style_.setPalette(palette);
  style_.look().motion = chosen.hasLessMotion ? Motion::reduced : Motion::full;
}

void WindowFace::takeSettings(const std::set<std::string>& keys) {
  if (keys.contains(std::string(kAppearance.key)) || keys.contains(std::string(kReduceMotion.key)))
    takeAppearance();
  if (keys.contains(std::string(kImageCacheMB.key))) sweepPictures();
}

void WindowFace::sweepPictures() {
  detach(images_.sweep(pictureDisk(world_.settings)), "Kept pictures");
}

void WindowFace::show() {
  if (window_ == nullptr) makeWindow();
  bringUp(*window_);
}

void WindowFace::makeWindow() {
  const ViewWorld views{
      library_,        edits_, store_,           records_,          images_,         world_.clock,
      world_.settings, state_, desktopPrompts(), world_.storefront, world_.timeZone, world_.locale};
  window_ = std::make_unique<MainWindow>(
      WindowWorld{views, sectionMakers(),
                  SystemChoices{.storefront = world_.systemStorefront,
                                .appearance = &appearance_,
                                .loginItem = loginItem_.get(),
                                .notifications = &notifications_,
                                .library = world_.places.dataDirectory / "default.store"}});
  connect(window_.get(), &MainWindow::painted, this, &WindowFace::painted);
  connect(window_.get(), &MainWindow::painted, this, &WindowFace::beginLate, Qt::QueuedConnection);
  connect(window_.get(), &MainWindow::triedAgain, this, &WindowFace::triedAgain);
  if (host_ != nullptr) window_->useHost(*host_);
  if (problem_) tellProblem(*problem_);
  QTimer::singleShot(kSweepAfter, this, [this] { sweepPictures(); });
}

/// What the first sight of the window does not wait for.
void WindowFace::beginLate() {
  network_.begin();
  if (window_ != nullptr) window_->greet();
}

void WindowFace::obey(const DesktopArguments& asked) {
  if (window_ != nullptr) window_->obey(asked);
}

void WindowFace::useHost(ServiceHost& host) {
  host_ = &host;
  problem_.reset();
  if (window_ != nullptr) window_->useHost(host);
  notifications_.use(host);
  store_.use(host.queries(), host.stop());
  library_.use(host.store());
  library_.watch(world_.places.dataDirectory / "default.store");
  connect(&host.notifier(), &Notifier::trackIdPending, this, &WindowFace::showNotified);
}

void WindowFace::tellProblem(const DatabaseError& reason) {
  problem_ = reason;
  if (window_ != nullptr)
    window_->showProblem(reason, world_.places.dataDirectory / "default.store");
}

/// The user clicked a notification.
void WindowFace::showNotified(const std::string& activationToken) {
  const auto trackId = host_->notifier().takePendingTrackId();
  if (!trackId) return;
  if (!activationToken.empty()) qputenv("XDG_ACTIVATION_TOKEN", activationToken.c_str());
  show();
  if (*trackId != 0) window_->showAlertOf(*trackId);
}

void WindowFace::close() { window_.reset(); }

}  // namespace quillet
