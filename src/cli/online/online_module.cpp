// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <unistd.h>

#include <QCoreApplication>
#include <cstdlib>

#include "cli/local/owned_track_ids.h"
#include "cli/local/previous_chart.h"
#include "cli/local/rank_history_text.h"
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

ExitStatus runWithServices(const CommandInvocation& invocation, const Environment& environment,
                           const Places& places, const Settings& settings, const Streams& streams) {
  try {
    const Endpoints endpoints = findEndpoints(environment, settings, places);
    const LocaleFormats formats(findUserLocale(environment));
    const LogTopics topics = readLogTopics(environment);
    SystemClock clock;
    // Messages of the libraries come by themselves and would run into a line that is shown.
    const std::size_t width = topics.lib ? 0 : progressWidth(STDERR_FILENO, environment);
    if (width > 0) eraseLineOnInterrupt();
    BudgetWait budgetWait;
    ProgressLine progress(clock, streams, width, [&budgetWait] { return budgetWait(); });
    const Streams guarded = progress.streams();
    const LogSink queryLog = topics.db ? logSinkTo(guarded.err) : LogSink();
    QtHttpClient network(places.cacheDirectory / "http");
    LoggingHttpClient logged(network, clock, logSinkTo(guarded.err));
    HttpClient& http = topics.net ? static_cast<HttpClient&>(logged) : network;
    ITunesClient itunes(http, clock, endpoints.itunes);
    CatalogClient catalog(http, clock, endpoints.appStore, evenRandom(), AnswerCacheLimits{});
    ChartsPageScraper chartPages(http, endpoints.appStore);
    ChartsService charts(itunes, chartPages, endpoints.itunes);
    StoreScraper pages(http, endpoints.appStore);
    PriceDataClient prices(http, endpoints.priceData);
    const UtcOffsetAt zone = localTimeZone();
    budgetWait = [&itunes] { return itunes.budgetWait(); };
    const CommandServices services{
        itunes,
        catalog,
        prices,
        clock,
        formats,
        zone,
        [&] { return readOwnedTrackIds(environment, queryLog); },
        charts,
        pages,
        [&](const RecordedChartQuery& query) {
          return readPreviousChart(environment, query, queryLog);
        },
        [&](const CLIOptions& options, OutputForm form, const TextStyle& style,
            const std::optional<std::string>& name) {
          CLIRankHistoryPayload payload = readRankHistory({options, environment, queryLog});
          if (name) payload.name = name;
          return form == OutputForm::json ? renderRankHistoryJson(payload)
                                          : renderRankHistoryText(payload, zone, style);
        },
        readMaintenanceThresholds(settings),
        Progress(progress)};
    const ExitStatus status =
        runTask(showProgress(&progress, runCommand(invocation, services, guarded)));
    // All is written: taking down the network's thread and the libraries would only cost time.
    std::_Exit(static_cast<int>(status));
  } catch (...) {
    const CLIError error = toCLIError(std::current_exception());
    streams.err.write(renderError(error, invocation.form));
    return exitStatusOf(error.code());
  }
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

ExitStatus runOnline(const std::vector<std::string>& arguments) {
  const ProcessEnvironment environment;
  const Places places = findPlaces(environment);
  const IniSettings settings(places.settingsFile);
  FileDescriptorStream out(STDOUT_FILENO, WriteFailure::report);
  FileDescriptorStream err(STDERR_FILENO, WriteFailure::ignore);
  const Streams streams{out, err, textStyleOf(STDOUT_FILENO, environment)};
  const Dispatch decision = dispatch(
      arguments, [&] { return defaultStorefront(settings, environment); }, programVersion(),
      streams);
  if (const auto* invocation = std::get_if<CommandInvocation>(&decision)) {
    return runWithServices(*invocation, environment, places, settings, streams);
  }
  // The executable hands over commands alone, and has read the same arguments in the same way.
  const auto* status = std::get_if<ExitStatus>(&decision);
  return status == nullptr ? ExitStatus::failure : *status;
}

}  // namespace

}  // namespace quillet

// The executable has a C++ library of its own: no exception may reach it.
extern "C" __attribute__((visibility("default"))) int quillet_entry(int argc, char** argv) {
  using quillet::ExitStatus;
  try {
    const quillet::LogTopics topics = quillet::readLogTopics(quillet::ProcessEnvironment());
    quillet::handleLibraryMessages(topics.lib ? quillet::LibraryMessages::logged
                                              : quillet::LibraryMessages::quiet);
    std::optional<quillet::PlainLocale> plain(std::in_place);
    const QCoreApplication application(argc, argv);
    plain.reset();
    return static_cast<int>(quillet::runOnline({argv + 1, argv + argc}));
  } catch (const std::exception&) {
    return static_cast<int>(ExitStatus::failure);
  }
}
