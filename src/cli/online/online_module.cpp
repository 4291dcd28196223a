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
#include "net/qt_http_client.h"
#include "net/run_task.h"
#include "system/endpoints.h"
#include "system/environment.h"
#include "system/even_random.h"
#include "system/places.h"
#include "system/settings.h"
#include "system/user_locale.h"

namespace quillet {

namespace {

void keepQuiet(QtMsgType, const QMessageLogContext&, const QString&) {
  // Standard error holds our own lines only, unless QUILLET_LOG asks for the libraries' warnings.
}

ExitStatus runWithServices(const CommandInvocation& invocation, const Environment& environment,
                           const Places& places, const Settings& settings, const Streams& streams) {
  try {
    const Endpoints endpoints = findEndpoints(environment, settings, places);
    const LocaleFormats formats(findUserLocale(environment));
    SystemClock clock;
    QtHttpClient http(places.cacheDirectory / "http");
    ITunesClient itunes(http, clock, endpoints.itunes);
    CatalogClient catalog(http, clock, endpoints.appStore, evenRandom(), AnswerCacheLimits{});
    ChartsPageScraper chartPages(http, endpoints.appStore);
    ChartsService charts(itunes, chartPages, endpoints.itunes);
    StoreScraper pages(http, endpoints.appStore);
    PriceDataClient prices(http, endpoints.priceData);
    const UtcOffsetAt zone = localTimeZone();
    const std::size_t width = progressWidth(STDERR_FILENO, environment);
    if (width > 0) eraseLineOnInterrupt();
    ProgressLine progress(clock, streams, width, [&itunes] { return itunes.budgetWait(); });
    const CommandServices services{
        itunes,
        catalog,
        prices,
        clock,
        formats,
        zone,
        [&] { return readOwnedTrackIds(environment); },
        charts,
        pages,
        [&](const RecordedChartQuery& query) { return readPreviousChart(environment, query); },
        [&](const CLIOptions& options, OutputForm form, const TextStyle& style,
            const std::optional<std::string>& name) {
          CLIRankHistoryPayload payload = readRankHistory({options, environment});
          if (name) payload.name = name;
          return form == OutputForm::json ? renderRankHistoryJson(payload)
                                          : renderRankHistoryText(payload, zone, style);
        },
        readMaintenanceThresholds(settings),
        Progress(progress)};
    const ExitStatus status =
        runTask(showProgress(&progress, runCommand(invocation, services, progress.streams())));
    // All is written: taking down the network's thread and the libraries would only cost time.
    std::_Exit(static_cast<int>(status));
  } catch (...) {
    const CLIError error = toCLIError(std::current_exception());
    streams.err.write(renderError(error, invocation.form));
    return exitStatusOf(error.code());
  }
}

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
    if (!quillet::ProcessEnvironment().get("QUILLET_LOG")) {
      qInstallMessageHandler(quillet::keepQuiet);
    }
    const QCoreApplication application(argc, argv);
    return static_cast<int>(quillet::runOnline({argv + 1, argv + argc}));
  } catch (const std::exception&) {
    return static_cast<int>(ExitStatus::failure);
  }
}
