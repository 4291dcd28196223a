// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <unistd.h>

#include <QCoreApplication>
#include <cstdlib>

#include "base/module_entry.h"
#include "cli/local/owned_track_ids.h"
#include "cli/local/previous_chart.h"
#include "cli/module_call.h"
#include "cli/online/command_runner.h"
#include "cli/online/progress_line.h"
#include "cli/process_streams.h"
#include "net/library_messages.h"
#include "net/logging_http_client.h"
#include "net/qt_http_client.h"
#include "net/run_task.h"
#include "system/endpoints.h"
#include "system/environment.h"
#include "system/even_random.h"
#include "system/log_topics.h"
#include "system/places.h"
#include "system/settings.h"
#include "system/user_locale.h"

namespace quillet {

namespace {

/// Everything that a command works with, made and ended in one place.
class OnlineServices {
 public:
  explicit OnlineServices(const ModuleCall& call)
      : environment_(call.environment),
        topics_(readLogTopics(call.environment)),
        endpoints_(findEndpoints(call.environment, call.settings, call.places)),
        formats_(findUserLocale(call.environment)),
        thresholds_(readMaintenanceThresholds(call.settings)),
        progress_(clock_, call.streams, lineWidth(), [this] { return itunes_.budgetWait(); }),
        streams_(progress_.streams()),
        queryLog_(topics_.db ? logSinkTo(streams_.err) : LogSink()),
        network_(call.places.cacheDirectory / "http"),
        http_(network_, clock_, topics_.net ? logSinkTo(streams_.err) : LogSink()) {}

  ExitStatus run(const CommandInvocation& invocation) {
    if (lineWidth() > 0) eraseLineOnInterrupt();
    return runTask(showProgress(&progress_, runCommand(invocation, services(), streams_)));
  }

 private:
  /// Messages of the libraries come by themselves and would run into a line that is shown.
  [[nodiscard]] std::size_t lineWidth() const {
    return topics_.lib ? 0 : progressWidth(STDERR_FILENO, environment_);
  }

  CommandServices services() {
    return {itunes_,
            catalog_,
            prices_,
            clock_,
            formats_,
            zone_,
            [this] { return readOwnedTrackIds(environment_, queryLog_); },
            charts_,
            pages_,
            [this](const RecordedChartQuery& query) {
              return readPreviousChart(environment_, query, queryLog_);
            },
            thresholds_,
            Progress(progress_)};
  }

  const Environment& environment_;
  LogTopics topics_;
  Endpoints endpoints_;
  LocaleFormats formats_;
  MaintenanceThresholds thresholds_;
  UtcOffsetAt zone_ = localTimeZone();
  SystemClock clock_;
  ProgressLine progress_;
  Streams streams_;  // what goes through them erases the line first
  LogSink queryLog_;
  QtHttpClient network_;
  LoggingHttpClient http_;
  ITunesClient itunes_{http_, clock_, endpoints_.itunes};
  CatalogClient catalog_{http_, clock_, endpoints_.appStore, evenRandom(), AnswerCacheLimits{}};
  PriceSeedClient prices_{http_, endpoints_.priceData};
  ChartsPageScraper chartPages_{http_, endpoints_.appStore};
  ChartsService charts_{itunes_, chartPages_, endpoints_.itunes};
  StoreScraper pages_{http_, clock_, endpoints_.appStore, AnswerCacheLimits{}};
};

ExitStatus runOnline(const ModuleCall& call) {
  OnlineServices services(call);
  const ExitStatus status = services.run(call.invocation);
  // All is written: taking down the network's thread and the libraries would only cost time.
  std::_Exit(static_cast<int>(status));
}

/// While it lives, the process appears to have been started without a language of its user. Qt
/// would load all of its locale, two dozen files, of which nothing here is used: texts are our own,
/// and formats are ICU's.
class PlainLocale {
 public:
  PlainLocale() { setenv(kVariable, "C", 1); }
  ~PlainLocale() {
    if (before_) {
      setenv(kVariable, before_->c_str(), 1);
    } else {
      unsetenv(kVariable);
    }
  }
  PlainLocale(const PlainLocale&) = delete;
  PlainLocale& operator=(const PlainLocale&) = delete;

 private:
  static constexpr const char* kVariable = "LC_ALL";
  std::optional<std::string> before_ = ProcessEnvironment().get(kVariable);
};

int enter(int argc, char** argv) {
  const LogTopics topics = readLogTopics(ProcessEnvironment());
  handleLibraryMessages(topics.lib ? LibraryMessages::logged : LibraryMessages::quiet);
  // Qt takes arguments that it knows out of argv.
  const std::vector<std::string> arguments(argv + 1, argv + argc);
  std::optional<PlainLocale> plain(std::in_place);
  const QCoreApplication application(argc, argv);
  plain.reset();
  return static_cast<int>(runModuleCall(arguments, runOnline));
}

}  // namespace

}  // namespace quillet

QUILLET_MODULE_ENTRY(quillet::enter)
