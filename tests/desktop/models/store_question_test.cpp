// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/store_question.h"

#include <gtest/gtest.h>

#include "base/errors.h"
#include "net/run_task.h"
#include "queries/query_test.h"
#include "store/records/itunes_error.h"
#include "support/event_loop.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

class StoreQuestionTest : public QueryTest {
 protected:
  void TearDown() override {
    stop.requestStop();
    question_.reset();
    runTask(store_.ended());
  }

  void open() { store_.use(services(), stop.token()); }
  /// Each one adds its answer to those that were taken.
  void ask(const std::string& path) {
    question_->ask(
        [path](QueryServices services, QueryCall call) {
          return services.itunes.fetch("https://store.example" + path, call.context);
        },
        [this](std::string body) { taken_.push_back(std::move(body)); });
  }
  template <typename State>
  bool is() {
    handlePendingEvents();
    return std::holds_alternative<State>(question_->state());
  }

  StoreGateway store_;
  std::unique_ptr<StoreQuestion> question_ = std::make_unique<StoreQuestion>(store_, clock);
  std::vector<std::string> taken_;
};

TEST_F(StoreQuestionTest, WaitsForTheServicesAndTakesTheLastAnswerAlone) {
  ask("/first");
  EXPECT_TRUE(is<Loading>());
  http.answer("https://store.example/second", 200, "second");
  http.hold("https://store.example/third");
  open();
  ask("/second");
  EXPECT_TRUE(is<Ready>());
  ask("/third");
  handlePendingEvents();
  http.answer("https://store.example/fourth", 200, "fourth");
  ask("/fourth");
  EXPECT_TRUE(is<Ready>());
  EXPECT_EQ(taken_, (std::vector<std::string>{"second", "fourth"}));
}

TEST_F(StoreQuestionTest, AsksAgainTwiceWhereTheStoreLimitsRequests) {
  open();
  for (int i = 0; i < 3; ++i) http.answer("https://store.example/busy", 403, "");
  ask("/busy");
  ASSERT_TRUE(is<Throttled>());
  EXPECT_EQ(std::get<Throttled>(question_->state()).until, clock.now() + 20s);
  clock.advance(20s);
  ASSERT_TRUE(is<Throttled>());
  EXPECT_EQ(std::get<Throttled>(question_->state()).until, clock.now() + 45s);
  clock.advance(45s);
  EXPECT_TRUE(is<Failed>());
  http.answer("https://store.example/busy", 200, "well");
  question_->tryAgain();
  EXPECT_TRUE(is<Ready>());
  EXPECT_EQ(taken_, std::vector<std::string>{"well"});
}

TEST_F(StoreQuestionTest, StoppedSaysWhyItWaited) {
  open();
  http.answer("https://store.example/busy", 403, "");
  ask("/busy");
  ASSERT_TRUE(is<Throttled>());
  question_->stop();
  ASSERT_TRUE(is<Failed>());
  EXPECT_TRUE(std::get<Failed>(question_->state()).message.contains(QLatin1String("403")));
  clock.advance(5min);
  EXPECT_EQ(http.requests().size(), 1);
}

TEST_F(StoreQuestionTest, AsksOnceMoreWhenTheNetworkReturns) {
  open();
  const NetworkError away(NetworkError::Kind::notConnected, "no network");
  http.fail("https://store.example/away", away);
  ask("/away");
  ASSERT_TRUE(is<Offline>());
  http.fail("https://store.example/away", away);
  Q_EMIT store_.networkReturned();
  ASSERT_TRUE(is<Offline>());
  Q_EMIT store_.networkReturned();
  EXPECT_TRUE(is<Offline>());
  EXPECT_EQ(http.requests().size(), 2);
}

TEST_F(StoreQuestionTest, TheEndOfTheServicesEndsWhatIsUnderWay) {
  open();
  http.hold("https://store.example/slow");
  ask("/slow");
  handlePendingEvents();
  Task<> ended = store_.ended();
  EXPECT_FALSE(ended.isReady());
  stop.requestStop();
  runTask(std::move(ended));
  EXPECT_TRUE(taken_.empty());
}

}  // namespace
}  // namespace quillet
