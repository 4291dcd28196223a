// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/task.h"

#include <gtest/gtest.h>

#include <QSemaphore>
#include <QThread>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "base/errors.h"
#include "net/completion.h"
#include "net/network_errors.h"
#include "net/run_task.h"
#include "net/worker.h"
#include "support/event_loop.h"
#include "support/message_of.h"

namespace quillet {
namespace {

enum class When { atOnce, afterTheLoopRan };

Task<> reach(When when) {
  if (when == When::atOnce) co_return;
  const Completion turn;
  turn.set();
  co_await turn;
}

Task<std::unique_ptr<int>> yield(When when, int value) {
  co_await reach(when);
  co_return std::make_unique<int>(value);
}

Task<> fail(When when, NetworkError error) {
  co_await reach(when);
  throw error;
}

Task<> failDeeper(When when, NetworkError error) { co_await fail(when, std::move(error)); }

Task<> failStrangely() {
  throw 7;  // as a stranger may
  co_return;
}

TEST(RunTask, ReturnsTheValueOrRethrowsTheErrorWheneverTheTaskEnds) {
  for (const When when : {When::atOnce, When::afterTheLoopRan}) {
    EXPECT_EQ(*runTask(yield(when, 42)), 42);
    EXPECT_NO_THROW(runTask(reach(when)));
    EXPECT_EQ(messageOf<NetworkError>([&] { runTask(failDeeper(when, tooLargeError(3))); }),
              "The answer is larger than 3 bytes");
  }
}

TEST(Completion, ResumesOnceFromTheEventLoopHoweverOftenItIsSet) {
  int resumed = 0;
  const Completion happened;
  const auto wait = [](Completion completion, int* count) -> Task<> {
    co_await completion;
    ++*count;
  };
  const Task<> waiting = wait(happened, &resumed);
  happened.set();
  happened.set();
  EXPECT_EQ(resumed, 0) << "resumed inside set()";
  handlePendingEvents();
  EXPECT_EQ(resumed, 1);
  EXPECT_TRUE(wait(happened, &resumed).isReady()) << "what has happened is not waited for";
}

std::vector<std::string> logged;

void keepLine(QtMsgType /*type*/, const QMessageLogContext& /*context*/, const QString& line) {
  logged.push_back(line.toStdString());
}

TEST(Detach, LogsWhatItCatchesButNoCancellation) {
  const auto previous = qInstallMessageHandler(keepLine);
  detach(fail(When::atOnce, tooLargeError(3)), "First");
  detach(fail(When::afterTheLoopRan, cancelledError()), "Second");
  detach(failStrangely(), "Third");
  detach(reach(When::afterTheLoopRan), "Fourth");
  handlePendingEvents();
  qInstallMessageHandler(previous);
  EXPECT_EQ(logged, (std::vector<std::string>{"First: The answer is larger than 3 bytes",
                                              "Third: unknown error"}));
}

TEST(OnWorker, RunsElsewhereAndComesBackWithTheValueOrTheError) {
  const auto threads = [](QThread** before, QThread** after) -> Task<QThread*> {
    *before = QThread::currentThread();
    QThread* worker = co_await onWorker([] { return QThread::currentThread(); });
    *after = QThread::currentThread();
    co_return worker;
  };
  QThread* before = nullptr;
  QThread* after = nullptr;
  EXPECT_NE(runTask(threads(&before, &after)), before);
  EXPECT_EQ(after, before);

  EXPECT_THROW(runTask(onWorker([] { throw DecodingError("not JSON"); })), DecodingError);
}

TEST(OnWorker, IsNotWaitedForAfterAStop) {
  StopSource stop;
  QSemaphore goOn;
  Task<> working = onWorker([&goOn] { goOn.acquire(); }, stop.token());
  stop.requestStop();
  EXPECT_THROW(runTask(std::move(working)), NetworkError);
  goOn.release();
  QThreadPool::globalInstance()->waitForDone();
}

}  // namespace
}  // namespace quillet
