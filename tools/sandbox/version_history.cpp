// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/version_history.h"

#include "base/numbers.h"
#include "base/text.h"

namespace quillet::sandbox {

namespace {

constexpr std::size_t kLongestHistory = 25;  // what the store's version list shows at most

constexpr auto kNotes = std::to_array<std::string_view>({
    "Fixes a crash that some of you met when opening very old documents.",
    "Smaller, faster, and easier on the battery.",
    "The side bar remembers its width again.\n\nThank you for the reports!",
    "• New: keyboard shortcuts for everything\n• Fixed: windows no longer wander off the screen\n"
    "• Fixed: printing in landscape",
    "Bug fixes and improvements.",
    "This release is about polish: crisper icons, calmer animations, and a settings window that "
    "fits on small screens.",
    "• Export to more formats\n• Better VoiceOver labels\n• Many small corrections",
    "Sync is more patient with slow connections.",
    "You can now undo a batch rename. We should have done that years ago.",
    "Ready for the newest system release.",
    "Translations have been reviewed by native speakers.",
    "Fixes two rare problems after waking from sleep.",
});

Instant onDay(std::chrono::sys_days today, int daysAgo, Random& random) {
  // A day that is over: nothing may be newer than the moment in which it is asked for.
  const std::chrono::seconds time(random.between(7 * 3600, 23 * 3600));
  return today - std::chrono::days(std::max(daysAgo, 1)) + time;
}

/// "3.4.0" is written "3.4", "3.0.0" is "3.0".
std::string shortened(const std::vector<std::int64_t>& parts) {
  std::size_t size = parts.size();
  while (size > 2 && parts[size - 1] == 0) --size;
  std::string text = std::to_string(parts[0]);
  for (std::size_t i = 1; i < size; ++i) text += fmt::format(".{}", parts[i]);
  return text;
}

}  // namespace

std::string versionBefore(std::string_view version) {
  std::vector<std::int64_t> parts;
  for (const std::string_view piece : split(version, '.')) {
    const auto number = parseWhole(piece);
    if (!number) return {};
    parts.push_back(*number);
  }
  std::size_t last = parts.size();
  while (last > 0 && parts[last - 1] == 0) --last;
  const bool isFirst = last == 0 || (last == 1 && parts[0] == 1) || version == "0.1";
  if (isFirst) return {};
  --parts[last - 1];
  if (last == 1) {
    parts.resize(2);
    parts[1] = 9;
  }
  return shortened(parts);
}

std::vector<SampleVersion> versionHistory(const HistoryPlan& plan, std::chrono::sys_days today,
                                          Random random) {
  std::vector<SampleVersion> versions;
  std::string number = plan.newest;
  int day = plan.updated;
  while (!number.empty() && versions.size() < kLongestHistory &&
         (versions.empty() || day < plan.first)) {
    versions.push_back({number, onDay(today, day, random), std::string(random.pick(kNotes))});
    number = versionBefore(number);
    day += std::max(plan.every * random.between(50, 150) / 100, 1);
  }
  if (!plan.newestNotes.empty()) versions.front().notes = plan.newestNotes;
  return versions;
}

}  // namespace quillet::sandbox
