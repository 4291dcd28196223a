// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/run.h"

#include <QCoreApplication>
#include <chrono>
#include <filesystem>

#include "base/errors.h"
#include "net/run_task.h"
#include "sandbox/child_process.h"
#include "sandbox/library/sample_library.h"
#include "sandbox/library/sample_pictures.h"
#include "sandbox/options.h"
#include "sandbox/server.h"

namespace quillet::sandbox {

namespace {

constexpr int kFailed = 1;
constexpr int kBadUsage = 2;

std::chrono::sys_days currentDay() {
  return std::chrono::floor<std::chrono::days>(std::chrono::system_clock::now());
}

// Whoever keeps a library keeps pictures too, by addresses that hold the port: mostly it is this
// one, which lies below those that systems hand out by themselves.
constexpr int kUsualPort = 28315;

/// What a library that is made now takes for the present: noon on another day than this.
Instant presentOf(std::chrono::sys_days day) {
  const auto now = std::chrono::floor<std::chrono::seconds>(std::chrono::system_clock::now());
  return day == currentDay() ? Instant(now) : Instant(day) + std::chrono::hours(12);
}

void makeLibrary(const SampleStore& store, const std::string& folder) {
  int count = 0;
  const QCoreApplication eventLoop(count, nullptr);
  runTask(writeSampleLibrary(&store, folder, presentOf(store.today())));
}

Server::Options serverOptions(const Options& options) {
  return {.port = options.port,
          .usualPort = options.library.empty() ? 0 : kUsualPort,
          .faults = options.faults,
          .log = options.isLogging ? stderr : nullptr,
          .hasPictures = options.hasPictures};
}

int serve(const Options& options) {
  const HeldSignals signals;
  const SampleStore store(options.store);
  const Server server(store, serverOptions(options));
  const std::string address = server.address();
  if (!options.library.empty()) {
    makeLibrary(store, options.library);
    if (options.hasPictures) leadPicturesTo(options.library, address);
  }
  if (!options.command.empty()) {
    Environment added{{"QUILLET_ITUNES_URL", address},
                      {"QUILLET_APP_STORE_URL", address},
                      {"QUILLET_PRICE_DATA_URL", address}};
    if (!options.library.empty())
      added.emplace_back("QUILLET_DATA_DIR", std::filesystem::absolute(options.library));
    return runChild(options.command, childEnvironment(added), signals);
  }
  fmt::print("{}\n", address);
  std::fflush(stdout);
  signals.waitForEnd();
  return 0;
}

}  // namespace

int runSandbox(std::span<const std::string> arguments) {
  try {
    const Options options = parseOptions(arguments, currentDay());
    if (options.answer.empty()) return serve(options);
    fmt::print("{}", options.answer);
    return 0;
  } catch (const BadUsage& bad) {
    fmt::print(stderr, "quillet-sandbox: {}\nTry quillet-sandbox --help.\n", bad.what());
    return kBadUsage;
  } catch (const DatabaseError& error) {
    fmt::print(stderr, "quillet-sandbox: {}\n", error.what());
    return kFailed;
  } catch (const CannotListen& error) {
    fmt::print(stderr, "quillet-sandbox: {}\n", error.what());
    return kFailed;
  }
}

}  // namespace quillet::sandbox
