// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/status_command.h"

#include "collector/record_repair.h"
#include "collector/status_json.h"
#include "collector/status_metrics.h"
#include "collector/status_text.h"
#include "system/whole_file.h"

namespace quillet {

namespace {

namespace fs = std::filesystem;

/// The exporter runs as somebody else. It takes whole files alone, by their names' ends, so that
/// what is being written is none of its own.
void writeForAll(const fs::path& file, const std::string& text) {
  replaceFile(file, text);
  using fs::perms;
  fs::permissions(file, perms::group_read | perms::others_read, fs::perm_options::add);
}

}  // namespace

int statusCommand(const CommandCall& call) {
  const Instant now = call.world.clock.now();
  const auto database = call.record();
  requirePast(*database, now);
  const StatusReport report = reportOn(
      statusOf(*database), statusOfPublished(call.publishedFolder()), call.options.every, now);
  if (!call.options.metricsFile.empty())
    writeForAll(call.options.metricsFile, statusMetrics(report));
  call.world.out(call.options.wantsJson ? statusJson(report) + '\n' : statusText(report));
  return report.problems.empty() ? kCollectorOk : kCollectorUnwell;
}

}  // namespace quillet
