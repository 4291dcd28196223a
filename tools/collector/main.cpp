// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <unistd.h>

#include <QCoreApplication>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <string>
#include <vector>

#include "collector/run.h"
#include "collector/timed_lines.h"
#include "collector/worker_name.h"
#include "net/qt_http_client.h"
#include "net/run_task.h"
#include "net/stop_signals.h"

namespace {

constexpr int kSignalStatus = 128;  // plus the signal, as a shell says it

/// Whatever is under way, such as the look-up of a database server's name, ends with the process
/// then; the record and what is published are whole at any moment.
constexpr std::chrono::milliseconds kLongestEnd{1'900};

std::function<void(const std::string&)> writerTo(std::FILE* stream) {
  return [stream](const std::string& text) {
    std::fwrite(text.data(), 1, text.size(), stream);
    std::fflush(stream);
  };
}

}  // namespace

int main(int argc, char** argv) {
  using namespace quillet;
  std::signal(SIGPIPE, SIG_IGN);
  const QCoreApplication application(argc, argv);
  const StopSignals signals(kLongestEnd, StopSignals::LateStatus::signal);
  const ProcessEnvironment environment;
  SystemClock clock;
  QtHttpClient http({});  // an answer about prices is wanted fresh, once
  const CollectorWorld world{environment,
                             http,
                             clock,
                             workerName(),
                             hasWorkerEnded,
                             writerTo(stdout),
                             lacksTimes(STDERR_FILENO, environment)
                                 ? timedLines(writerTo(stderr), clock)
                                 : writerTo(stderr),
                             signals.descriptor()};
  const int status = runTask(runCollector(world, {argv + 1, argv + argc}, signals.token()));
  QCoreApplication::processEvents();  // a signal that ended a wait outside the event loop is read
  // All is written. Qt's own end would wait for the name of a server that nobody tells.
  std::_Exit(signals.received() == 0 ? status : kSignalStatus + signals.received());
}
