// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/log_topics.h"

#include <gtest/gtest.h>

#include "support/map_environment.h"

namespace quillet {
namespace {

TEST(LogTopics, AreReadFromAList) {
  const std::tuple<const char*, LogTopics, const char*> rows[] = {
      {"db,net", {.net = true, .db = true}, ""},
      {" lib , NET,,net", {.net = true, .lib = true}, ""},
      {"start", {.start = true}, ""},
      {"loop", {.loop = true}, ""},
      {"dbs,db,n\x1b[2Jet",
       {.db = true, .unknown = {"dbs", "n\x1b[2Jet"}},
       "quillet: QUILLET_LOG takes net, db, lib, start, loop; got 'dbs', 'n[2Jet'."},
  };
  for (const auto& [variable, expected, line] : rows) {
    const LogTopics topics = readLogTopics(MapEnvironment({{"QUILLET_LOG", variable}}));
    EXPECT_EQ(topics, expected) << variable;
    EXPECT_EQ(unknownTopicsLine(topics), line);
  }
}

}  // namespace
}  // namespace quillet
