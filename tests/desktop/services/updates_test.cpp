// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/updates.h"

#include <gtest/gtest.h>

#include "net/run_task.h"
#include "support/event_loop.h"
#include "support/fake_clock.h"
#include "support/memory_settings.h"
#include "support/scripted_http_client.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

constexpr const char* kList = "https://q.example/releases.json";

std::string listOf(const std::string& version, const std::string& page = "https://q.example/new") {
  return R"({"releases": [{"version": ")" + version + R"(", "page": ")" + page + R"("}]})";
}

struct UpdatesTest : testing::Test {
  Updates& start(const std::filesystem::path& program = "/home/wren/quillet") {
    updates = std::make_unique<Updates>(
        UpdateWorld{http, clock, live, state, "1.9", program, [this] { return isMetered; }});
    updates->begin();
    handlePendingEvents();
    return *updates;
  }
  void TearDown() override {
    if (updates) runTask(updates->end());
  }
  template <typename State>
  const State* now() {
    return std::get_if<State>(&updates->state());
  }
  std::string failure() {
    const auto* failed = now<UpdateLookFailed>();
    return failed == nullptr ? "no failure" : failed->why;
  }

  FakeClock clock{Instant(std::chrono::sys_days{std::chrono::year{2026} / 11 / 20})};
  ScriptedHttpClient http;
  MemorySettings settings;
  LiveSettings live{settings};
  StateFile state{{}};
  bool isMetered = false;
  std::unique_ptr<Updates> updates;
};

TEST_F(UpdatesTest, AskOncePerDayAndRememberWhatWasFound) {
  settings.set("updateFeedURL", kList);
  http.answer(kList, 200, listOf("1.10"));
  start();
  ASSERT_TRUE(now<NewerRelease>());
  EXPECT_EQ(http.requests().front().cachePolicy, CachePolicy::revalidate);
  EXPECT_EQ(updates->takeNews()->version, "1.10");
  EXPECT_FALSE(updates->takeNews());
  updates->skip();
  clock.advance(23h);
  start();
  ASSERT_TRUE(now<NewerRelease>()) << "known from the run before";
  EXPECT_TRUE(now<NewerRelease>()->isSkipped && !updates->takeNews());
  EXPECT_EQ(http.requests().size(), 1u);
  clock.advance(1h);
  http.answer(kList, 200, listOf("1.11"));
  start();
  EXPECT_EQ(updates->takeNews()->version, "1.11") << "another one was skipped";

  live.write({{"updateFeedURL", "https://other.example"}});
  EXPECT_TRUE(now<NotLookedForUpdates>());
  live.write({{"updateFeedURL", ""}});
  EXPECT_TRUE(now<NoReleaseList>());
  updates->look();
}

TEST_F(UpdatesTest, LookByThemselvesOnlyWhereTheUserOrTheInstallationWantsIt) {
  settings.set("updateFeedURL", kList);
  start("/usr/bin/quillet");
  EXPECT_TRUE(now<NotLookedForUpdates>());
  settings.set("checkForUpdates", "false");
  start();
  EXPECT_TRUE(http.requests().empty());
  settings.set("checkForUpdates", "true");
  isMetered = true;
  start();
  EXPECT_TRUE(http.requests().empty());
  settings.set("checkOnMetered", "true");
  http.answer(kList, 200, listOf("1.9.0"));
  start("/usr/bin/quillet");
  EXPECT_TRUE(now<NoNewerRelease>());
}

TEST_F(UpdatesTest, SayWhyTheListCannotBeReadAndKeepWhatWasKnown) {
  settings.set("updateFeedURL", kList);
  http.answer(kList, 200, listOf("2"));
  start();
  struct Row {
    int status;
    std::string body;
    const char* says;
  };
  for (const Row& row : {
           Row{404, "", "the server answered 404"},
           {200, "<html>", "it is not JSON"},
           {200, listOf("3", "http://q.example"), "a 'page' is no https address"},
       }) {
    http.answer(kList, row.status, row.body);
    updates->look();
    updates->look();
    handlePendingEvents();
    EXPECT_EQ(failure(), std::string("The list of releases could not be read: ") + row.says + '.');
  }
  http.fail(kList, NetworkError(NetworkError::Kind::notConnected, "Network unreachable"));
  updates->look();
  handlePendingEvents();
  EXPECT_EQ(failure(), "The list of releases could not be read: Network unreachable.");
  start();
  EXPECT_TRUE(now<NewerRelease>());

  for (const char* bad : {"http://q.example", "http://127.0.0.1:80@q.example/", "file:///etc/x"}) {
    live.write({{"updateFeedURL", bad}});
    updates->look();
    EXPECT_EQ(failure(), "The address of the list of releases is no https address.") << bad;
  }
}

TEST_F(UpdatesTest, EndWhileTheyLook) {
  settings.set("updateFeedURL", kList);
  http.hold(kList);
  start();
  EXPECT_TRUE(now<LookingForUpdates>());
  runTask(updates->end());
  EXPECT_TRUE(now<LookingForUpdates>()) << "what was stopped says nothing";
}

}  // namespace
}  // namespace quillet
