// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/updates.h"

#include <fmt/format.h>

#include <QJsonArray>
#include <QJsonDocument>
#include <algorithm>
#include <array>
#include <utility>

#include "base/errors.h"
#include "base/versions.h"
#include "desktop/services/metered_choice.h"
#include "system/endpoints.h"

namespace quillet {

namespace {

using namespace Qt::StringLiterals;
using namespace std::chrono_literals;

constexpr auto kBetweenLooks = 24h;
/// The end of the year 9999, in seconds.
constexpr qint64 kLatest = 253'402'300'799;
/// How often it is seen whether a day has passed.
constexpr auto kTick = 1h;

// Stored; never change.
constexpr auto kRemembered = "updates"_L1;
constexpr auto kFeed = "feed"_L1;
constexpr auto kLookedAt = "lookedAt"_L1;
constexpr auto kReleases = "releases"_L1;
constexpr auto kSkipped = "skipped"_L1;

QString textOf(const std::string& text) { return QString::fromStdString(text); }

QJsonObject objectOf(const Release& release) {
  return {{u"version"_s, textOf(release.version)},
          {u"date"_s, textOf(release.day)},
          {u"notes"_s, textOf(release.notes)},
          {u"page"_s, textOf(release.page)}};
}

HttpRequest requestFor(std::string address) {
  HttpRequest request;
  request.url = std::move(address);
  request.headers = {{"Accept", "application/json"}};
  request.requestClass = RequestClass::background;
  request.bodyLimit = kLargestReleaseList;
  return request;
}

std::string failure(std::string_view why) {
  return fmt::format("The list of releases could not be read: {}.", why);
}

}  // namespace

bool isPackaged(const std::filesystem::path& program) {
  const std::string& path = program.native();
  if (path.starts_with("/usr/local/")) return false;
  return std::ranges::any_of(
      std::array<std::string_view, 5>{"/usr/", "/app/", "/snap/", "/nix/store/", "/gnu/store/"},
      [&path](std::string_view folder) { return path.starts_with(folder); });
}

Updates::Updates(UpdateWorld world) : world_(std::move(world)) {
  feed_ = feed();
  state_ = remembered();
  connect(&timer_, &QTimer::timeout, this, &Updates::lookWhenDue);
  connect(&world_.settings, &LiveSettings::changed, this,
          [this](const std::set<std::string>& keys) {
            if (keys.contains(std::string(kUpdateFeedUrl.key))) settle();
          });
}

std::string Updates::feed() const { return world_.settings.text(kUpdateFeedUrl.key).value_or(""); }

FlagSetting Updates::setting() const {
  return {kCheckForUpdates.key, kCheckForUpdates.fallback && !isPackaged(world_.program)};
}

std::optional<Instant> Updates::lookedAt() const {
  const QJsonObject kept = world_.state.value(kRemembered).toObject();
  if (kept[kFeed].toString() != textOf(feed_) || !kept[kLookedAt].isDouble()) return {};
  const qint64 seconds = std::clamp<qint64>(kept[kLookedAt].toInteger(), 0, kLatest);
  return Instant(std::chrono::seconds(seconds));
}

/// What a file of ours says is judged like a list from the network.
UpdateState Updates::remembered() const {
  if (feed_.empty()) return NoReleaseList{};
  const QJsonObject kept = world_.state.value(kRemembered).toObject();
  if (!lookedAt() || !kept[kReleases].isArray()) return NotLookedForUpdates{};
  try {
    const QJsonObject list{{u"releases"_s, kept[kReleases]}};
    return judged(newestRelease(QJsonDocument(list).toJson().toStdString()));
  } catch (const DecodingError&) {
    return NotLookedForUpdates{};
  }
}

UpdateState Updates::judged(const std::optional<Release>& newest) const {
  if (!newest || compareVersions(newest->version, world_.version) <= 0) return NoNewerRelease{};
  const QJsonObject kept = world_.state.value(kRemembered).toObject();
  return NewerRelease{*newest, kept[kSkipped].toString() == textOf(newest->version)};
}

/// Another list is set. One that is being read is another one's now.
void Updates::settle() {
  if (feed_ == feed()) return;
  feed_ = feed();
  take(remembered());
}

void Updates::begin() {
  timer_.start(kTick);
  lookWhenDue();
}

/// A clock that was set back must not keep it from looking.
void Updates::lookWhenDue() {
  if (!readSetting(world_.settings, setting())) return;
  if (!mayAskUnbidden(world_.isMetered, world_.settings)) return;
  const std::optional<Instant> last = lookedAt();
  const Instant now = world_.clock.now();
  if (!last || now - *last >= kBetweenLooks || *last > now) look();
}

void Updates::look() {
  if (isLooking_ || feed_.empty() || stop_.token().stopRequested()) return;
  if (!isUsableAddress(kUpdateFeedUrl, feed_))
    return take(UpdateLookFailed{"The address of the list of releases is no https address."});
  isLooking_ = true;
  take(LookingForUpdates{});
  detach(lookOnce(this, &world_.http, feed_, stop_.token()), "Updates");
}

Task<> Updates::lookOnce(QPointer<Updates> self, HttpClient* http, std::string address,
                         StopToken stop) {
  std::optional<Release> newest;
  std::string why;
  try {
    HttpRequest request = requestFor(address);
    const HttpResponse response = co_await http->get(std::move(request), stop);
    if (isSuccess(response.status))
      newest = newestRelease(response.body);
    else
      why = fmt::format("the server answered {}", response.status);
  } catch (const NetworkError& error) {
    why = error.what();
  } catch (const DecodingError& error) {
    why = error.what();
  }
  if (!self) co_return;
  self->isLooking_ = false;
  for (const Completion& each : std::exchange(self->waiting_, {})) each.set();
  if (stop.stopRequested() || self->feed_ != address) co_return;
  self->rememberLook();
  if (!why.empty()) {
    self->take(UpdateLookFailed{failure(why)});
    co_return;
  }
  self->remember(newest);
  self->take(self->judged(newest));
}

/// What another list said is forgotten.
void Updates::rememberLook() {
  QJsonObject kept = world_.state.value(kRemembered).toObject();
  if (kept[kFeed].toString() != textOf(feed_)) kept.remove(kReleases);
  kept[kFeed] = textOf(feed_);
  kept[kLookedAt] = static_cast<qint64>(
      std::chrono::floor<std::chrono::seconds>(world_.clock.now()).time_since_epoch().count());
  world_.state.setValue(kRemembered, kept);
}

void Updates::remember(const std::optional<Release>& newest) {
  QJsonObject kept = world_.state.value(kRemembered).toObject();
  kept[kReleases] = newest ? QJsonArray{objectOf(*newest)} : QJsonArray{};
  world_.state.setValue(kRemembered, kept);
}

void Updates::skip() {
  if (const auto* newer = std::get_if<NewerRelease>(&state_))
    rememberSkipped(newer->release.version);
}

void Updates::takeBackSkip() { rememberSkipped({}); }

void Updates::rememberSkipped(const std::string& version) {
  QJsonObject kept = world_.state.value(kRemembered).toObject();
  kept[kSkipped] = textOf(version);
  world_.state.setValue(kRemembered, kept);
  if (const auto* newer = std::get_if<NewerRelease>(&state_)) take(judged(newer->release));
}

std::optional<Release> Updates::takeNews() {
  const auto* newer = std::get_if<NewerRelease>(&state_);
  if (newer == nullptr || newer->isSkipped || newer->release.version == told_) return {};
  told_ = newer->release.version;
  return newer->release;
}

void Updates::take(UpdateState state) {
  state_ = std::move(state);
  Q_EMIT changed();
}

Task<> Updates::end() {
  timer_.stop();
  stop_.requestStop();
  if (!isLooking_) co_return;
  const Completion last;
  waiting_.push_back(last);
  co_await last;
}

}  // namespace quillet
