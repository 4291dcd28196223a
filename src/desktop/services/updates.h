// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <QTimer>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "desktop/services/live_settings.h"
#include "desktop/services/state_file.h"
#include "net/clock.h"
#include "net/completion.h"
#include "net/http_client.h"
#include "system/settings_keys.h"
#include "updates/release_list.h"

namespace quillet {

/// No list of releases is set.
struct NoReleaseList {};
/// Nobody has looked into it yet.
struct NotLookedForUpdates {};
struct LookingForUpdates {};
struct NoNewerRelease {};
struct NewerRelease {
  Release release;
  bool isSkipped = false;  ///< the user does not want to hear of it
};
struct UpdateLookFailed {
  std::string why;  ///< a sentence
};

/// How this program stands to the list of its releases.
using UpdateState = std::variant<NoReleaseList, NotLookedForUpdates, LookingForUpdates,
                                 NoNewerRelease, NewerRelease, UpdateLookFailed>;

/// What Updates works with. All but the values outlive it.
struct UpdateWorld {
  HttpClient& http;
  Clock& clock;
  LiveSettings& settings;
  StateFile& state;
  std::string version;                   ///< of this program
  std::filesystem::path program;         ///< where it lies
  std::function<bool()> isMetered = {};  ///< the network that is in use; empty where none is
};

/// Looks into the list of releases that the settings name, by itself at most once a day, and tells
/// of a newer one. It reads what a release is called and says, and never fetches or runs any. What
/// was found is remembered from one run to the next.
///
/// An object of the event-loop thread; end() is to be awaited before it goes while the event loop
/// runs on.
class Updates : public QObject {
  Q_OBJECT

 public:
  explicit Updates(UpdateWorld world);

  [[nodiscard]] const UpdateState& state() const { return state_; }
  /// When the list was last asked for, with or without an answer.
  [[nodiscard]] std::optional<Instant> lookedAt() const;
  [[nodiscard]] const std::string& version() const { return world_.version; }
  /// Whether it looks by itself, with the default that this installation has.
  [[nodiscard]] FlagSetting setting() const;

  /// Looks by itself when a day has passed, now and from now on. On a metered network it waits,
  /// unless the user lets it check there too.
  void begin();
  /// Looks now; nothing without a list, or while it looks.
  void look();
  /// The newer release that there is, skipped or not from now on.
  void skip();
  void takeBackSkip();

  /// A newer release that is not skipped and was not told of in this run; then it was.
  [[nodiscard]] std::optional<Release> takeNews();

  /// Stops, and returns when nothing is under way.
  Task<> end();

 Q_SIGNALS:
  void changed();

 private:
  [[nodiscard]] std::string feed() const;
  [[nodiscard]] UpdateState remembered() const;
  [[nodiscard]] UpdateState judged(const std::optional<Release>& newest) const;
  void settle();
  void lookWhenDue();
  void rememberLook();
  void remember(const std::optional<Release>& newest);
  void rememberSkipped(const std::string& version);
  void take(UpdateState state);
  static Task<> lookOnce(QPointer<Updates> self, HttpClient* http, std::string address,
                         StopToken stop);

  UpdateWorld world_;
  UpdateState state_;
  std::string feed_;  ///< that the state is about
  std::string told_;  ///< the version
  bool isLooking_ = false;
  StopSource stop_;
  std::vector<Completion> waiting_;  ///< for the end
  QTimer timer_;
};

/// Whether a package manager put a program there, and so brings its new releases as well.
[[nodiscard]] bool isPackaged(const std::filesystem::path& program);

}  // namespace quillet
