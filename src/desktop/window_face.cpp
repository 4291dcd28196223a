// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/window_face.h"

#include <QApplication>
#include <QDir>
#include <QStandardPaths>
#include <QTimer>

#include "base/store_links.h"
#include "desktop/desktop_prompts.h"
#include "desktop/look/start_look.h"
#include "desktop/look/widgets.h"
#include "desktop/sections/alerts/alerts_section.h"
#include "desktop/sections/charts/charts_section.h"
#include "desktop/sections/collections/collections_section.h"
#include "desktop/sections/compare/compare_section.h"
#include "desktop/sections/deals/deals_section.h"
#include "desktop/sections/history/history_section.h"
#include "desktop/sections/my_apps/my_apps_section.h"
#include "desktop/sections/search/search_section.h"
#include "desktop/sections/watchlist/watchlist_section.h"
#include "desktop/services/agent_skill.h"
#include "library/alerts.h"
#include "library/library_connection.h"
#include "net/all_of.h"
#include "system/settings_keys.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

// Pictures that nobody looked at for long are removed when nothing else is to be done.
constexpr auto kSweepAfter = 30s;

// What the window shows first is read before the disk is searched.
constexpr auto kScanAfter = 5s;

// By then the system has said whether the network is metered.
constexpr auto kUpdatesAfter = 1s;

SectionMakers sectionMakers() {
  return {{SectionId::search, makeSearch},  {SectionId::charts, makeCharts},
          {SectionId::deals, makeDeals},    {SectionId::watchlist, makeWatchlist},
          {SectionId::alerts, makeAlerts},  {SectionId::collections, makeCollections},
          {SectionId::myApps, makeMyApps},  {SectionId::history, makeHistory},
          {SectionId::compare, makeCompare}};
}

Palette paletteOf(const Appearance& wanted) {
  return {wanted.isDark ? Scheme::dark : Scheme::light,
          wanted.hasMoreContrast ? Contrast::more : Contrast::normal};
}

// Whether the user knows that closing the window ends nothing.
QString hiddenKey() { return QStringLiteral("toldOfBackground"); }

/// Lets what is shown next come to the front.
void useToken(const std::string& activationToken) {
  if (!activationToken.empty()) qputenv("XDG_ACTIVATION_TOKEN", activationToken.c_str());
}

NotificationRequest stayingNotice() {
  return {
      .identifier = "background",
      .title = WindowFace::tr("Quillet keeps running").toStdString(),
      .body = WindowFace::tr("It checks prices while its window is closed. Its icon in the tray "
                             "opens the window again, and quits.")
                  .toStdString(),
      .userInfo = {}};
}

std::uintmax_t pictureDisk(const Settings& settings) {
  constexpr std::uintmax_t kMegabyte = 1'000'000;
  return static_cast<std::uintmax_t>(readSetting(settings, kImageCacheMB)) * kMegabyte;
}

ToolPlaces toolPlaces() {
  const auto folder = [](QStandardPaths::StandardLocation which) {
    return std::filesystem::path(
        QFile::encodeName(QStandardPaths::writableLocation(which)).toStdString());
  };
  return {QFile::encodeName(QCoreApplication::applicationFilePath()).toStdString(),
          QFile::encodeName(QDir::homePath()).toStdString(),
          folder(QStandardPaths::GenericDataLocation),
          folder(QStandardPaths::GenericConfigLocation),
          qEnvironmentVariable("PATH").toStdString()};
}

/// Of this installation; empty where it has none.
std::string skillHere() {
  const auto text = installedSkill(toolPlaces().executable);
  return text ? stampedSkill(*text, QUILLET_VERSION) : std::string();
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
      state_(world_.places.stateDirectory / "windows.json"),
      updates_({world_.http, world_.clock, world_.settings, state_, QUILLET_VERSION,
                toolPlaces().executable, world_.isMetered}),
      tray_(library_, world_.clock, world_.timeZone, world_.storefront) {
  if (!world_.places.autostartDirectory.empty())
    loginItem_ = std::make_unique<AutostartEntry>(
        world_.places.autostartDirectory, QCoreApplication::applicationFilePath().toStdString());
  connect(&appearance_, &DesktopAppearance::changed, this, &WindowFace::takeAppearance);
  connect(&world_.settings, &LiveSettings::changed, this, &WindowFace::takeSettings);
  makeTray();
  connect(&network_, &NetworkState::returned, &store_, &StoreGateway::networkReturned);
  takeAppearance();
}

WindowFace::~WindowFace() = default;

void WindowFace::useBus(const QDBusConnection& bus) {
  bus_ = bus;
  appearance_.useBus(bus);
  trayHost_.useBus(bus);
}

DiagnosticSources WindowFace::diagnosticSources() {
  const ToolPlaces tool = toolPlaces();
  return {.version = QUILLET_VERSION,
          .program = tool.executable,
          .home = tool.home,
          .places = world_.places,
          .endpoints = world_.endpoints,
          .requests = world_.requests,
          .hasTray = [this] { return trayHost_.isThere(); },
          .bus = [this] { return bus_; },
          .log = world_.log};
}

void WindowFace::makeTray() {
  connect(&trayHost_, &TrayHost::changed, this, &WindowFace::showTray);
  connect(&tray_, &Tray::toggled, this, &WindowFace::toggleWindow);
  connect(&tray_, &Tray::windowWanted, this, [this] { show(); });
  connect(&tray_, &Tray::alertWanted, this, &WindowFace::showAlertOf);
  connect(&tray_, &Tray::sectionWanted, this, [this](SectionId section) {
    show({.section = std::string(textOf(kSectionWords, section))});
  });
  connect(&tray_, &Tray::settingsWanted, this,
          [this] { showThen([this] { window_->showSettings(); }); });
}

/// Qt's own icon follows a tray that goes and returns.
void WindowFace::showTray() {
  if (!readSetting(world_.settings, kShowMenuBarExtra)) {
    tray_.hide();
  } else if (trayHost_.isThere()) {
    tray_.show();
  }
}

bool WindowFace::keepsRunning() const {
  return trayHost_.isThere() && readSetting(world_.settings, kShowMenuBarExtra) &&
         readSetting(world_.settings, kKeepRunning);
}

void WindowFace::tellHidden() {
  hideWindows();
  if (state_.value(hiddenKey()).toBool()) return;
  state_.setValue(hiddenKey(), true);
  const bool notifies = host_ != nullptr &&
                        host_->notifier().authorizationStatus() == AuthorizationStatus::authorized;
  owesWord_ = !notifies;
  if (notifies) host_->notify(stayingNotice());
}

void WindowFace::toggleWindow() {
  if (window_ != nullptr && window_->isVisible() && !window_->isMinimized()) {
    hideWindows();
  } else {
    show();
  }
}

/// Those before the window go with it.
void WindowFace::hideWindows() {
  for (QWidget* each : QApplication::topLevelWidgets()) {
    if (each != window_.get() && each->isVisible() && each->isWindow()) each->close();
  }
  if (window_ != nullptr) window_->hide();
}

void WindowFace::takeAppearance() {
  const Appearance chosen = chosenAppearance(appearance_.wanted(), world_.settings);
  const Palette palette = paletteOf(chosen);
  if (palette != style_.look().palette) style_.setPalette(palette);
  tray_.paint(palette);
  style_.look().motion = chosen.hasLessMotion ? Motion::reduced : Motion::full;
}

void WindowFace::takeSettings(const std::set<std::string>& keys) {
  if (keys.contains(std::string(kAppearance.key)) || keys.contains(std::string(kReduceMotion.key)))
    takeAppearance();
  if (keys.contains(std::string(kShowMenuBarExtra.key))) showTray();
  if (keys.contains(std::string(kImageCacheMB.key))) sweepPictures();
}

void WindowFace::sweepPictures() {
  detach(images_.sweep(pictureDisk(world_.settings)), "Kept pictures");
}

void WindowFace::show(const DesktopArguments& asked) {
  showThen([this, asked] { window_->obey(asked); });
}

/// Makes, shows and tells the window in an event each, so that none is long.
void WindowFace::showThen(std::function<void()> next) {
  if (window_ == nullptr) make();
  inTurn({[this] {
            if (!window_->isVisible()) window_->layCanvas();
          },
          [this] { window_->begin(); }, [this] { bringUp(*window_); },
          [this] {
            if (std::exchange(owesWord_, false))
              window_->say(tr("Quillet checked prices while its window was closed."));
          },
          std::move(next)});
}

/// Each in an event of its own, between which others have their turn; nothing where the window is
/// gone by then.
void WindowFace::inTurn(std::deque<std::function<void()>> steps) {
  if (steps.empty()) return;
  QTimer::singleShot(0, this, [this, steps = std::move(steps)]() mutable {
    if (window_ == nullptr) return;
    steps.front()();
    steps.pop_front();
    inTurn(std::move(steps));
  });
}

void WindowFace::make() {
  const ViewWorld views{library_,          edits_,          store_,       prices_,
                        installed_,        records_,        images_,      world_.clock,
                        world_.settings,   state_,          compared_,    desktopPrompts(),
                        world_.storefront, world_.timeZone, world_.locale};
  window_ = std::make_unique<MainWindow>(
      WindowWorld{views, sectionMakers(),
                  SystemChoices{.storefront = world_.systemStorefront,
                                .appearance = &appearance_,
                                .loginItem = loginItem_.get(),
                                .notifications = &notifications_,
                                .library = world_.places.dataDirectory / "default.store",
                                .tool = toolPlaces(),
                                .skill = skillHere(),
                                .updates = &updates_,
                                .diagnostics = &diagnostics_}});
  connect(window_.get(), &MainWindow::painted, this, &WindowFace::painted);
  connect(window_.get(), &MainWindow::painted, this, &WindowFace::beginLate, Qt::QueuedConnection);
  connect(window_.get(), &MainWindow::triedAgain, this, &WindowFace::triedAgain);
  connect(window_.get(), &MainWindow::closed, this, &WindowFace::windowClosed,
          Qt::QueuedConnection);
  if (host_ != nullptr) window_->useHost(*host_);
  if (problem_) tellProblem(*problem_);
  QTimer::singleShot(kSweepAfter, this, [this] { sweepPictures(); });
}

/// What the first sight of the window does not wait for.
void WindowFace::beginLate() {
  network_.begin();
  QTimer::singleShot(kUpdatesAfter, this, [this] { updates_.begin(); });
  if (window_ != nullptr) window_->greet();
}

void WindowFace::useHost(ServiceHost& host) {
  host_ = &host;
  problem_.reset();
  if (window_ != nullptr) window_->useHost(host);
  notifications_.use(host);
  store_.use(host.queries(), host.stop());
  prices_.use(host);
  library_.use(host.store());
  library_.watch(world_.places.dataDirectory / "default.store");
  connect(&library_, &LibraryGateway::changedElsewhere, &host, &ServiceHost::noteForeignChange);
  tray_.use(host);
  if (readSetting(world_.settings, kScanAtStart))
    QTimer::singleShot(kScanAfter, this, [this] { installed_.scan(ScanCause::start); });
  connect(&host.notifier(), &Notifier::trackIdPending, this, &WindowFace::showNotified);
  connect(&host.notifier(), &Notifier::storeWanted, this,
          [this](std::int64_t trackId, const std::string& activationToken) {
            useToken(activationToken);
            detach(openStore(this, trackId), "The App Store");
          });
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
  useToken(activationToken);
  showAlertOf(*trackId);
}

void WindowFace::showAlertOf(std::int64_t trackId) {
  showThen([this, trackId] {
    if (trackId != 0) window_->showAlertOf(trackId);
  });
}

/// Whoever went there has read the alert.
Task<> WindowFace::openStore(QPointer<WindowFace> face, std::int64_t trackId) {
  const std::optional<AlertRecord> alert = co_await face->library_.read(newestAlertOf, trackId);
  if (!face) co_return;
  const std::string country = alert ? alert->country : face->world_.storefront();
  desktopPrompts().openLink(appPageLink(trackId, country));
  if (alert) co_await face->library_.change(setAlertsRead, std::vector{alert->id}, ReadState::read);
}

/// A scan writes as long as it runs.
Task<> WindowFace::ended() {
  co_await installed_.ended();
  std::vector<Task<>> ends;
  ends.push_back(store_.ended());
  ends.push_back(updates_.end());
  co_await allOf(std::move(ends));
}

void WindowFace::close() {
  installed_.stop();
  tray_.hide();
  window_.reset();
}

}  // namespace quillet
