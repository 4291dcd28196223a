// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/log_topics.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "base/text.h"

namespace quillet {

namespace {

struct TopicRow {
  std::string_view word;
  bool LogTopics::* wanted;
};

constexpr auto kTopics = std::to_array<TopicRow>({
    {"net", &LogTopics::net},
    {"db", &LogTopics::db},
    {"lib", &LogTopics::lib},
    {"start", &LogTopics::start},
    {"loop", &LogTopics::loop},
});

void addWord(LogTopics& topics, std::string_view word) {
  const auto row = std::find_if(kTopics.begin(), kTopics.end(),
                                [&](const TopicRow& r) { return r.word == lowerAscii(word); });
  if (row == kTopics.end()) {
    topics.unknown.emplace_back(word);
  } else {
    topics.*row->wanted = true;
  }
}

}  // namespace

LogTopics readLogTopics(const Environment& environment) {
  LogTopics topics;
  const auto words = environment.get("QUILLET_LOG");
  if (!words) return topics;
  for (const std::string_view piece : split(*words, ',')) {
    if (const std::string_view word = trimmed(piece); !word.empty()) addWord(topics, word);
  }
  return topics;
}

std::string unknownTopicsLine(const LogTopics& topics) {
  if (topics.unknown.empty()) return {};
  std::vector<std::string> known;
  for (const TopicRow& row : kTopics) known.emplace_back(row.word);
  return fmt::format("quillet: QUILLET_LOG takes {}; got '{}'.", join(known, ", "),
                     printable(join(topics.unknown, "', '")));
}

}  // namespace quillet
