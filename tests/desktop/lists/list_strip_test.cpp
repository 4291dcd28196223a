// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/lists/list_strip.h"

#include <gtest/gtest.h>

#include <QPushButton>
#include <QSignalSpy>

#include "base/errors.h"
#include "desktop/lists/list_fixtures.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;

TEST(ListStripTest, TellsEachStateOnce) {
  FakeClock clock{Instant(24h)};
  const Instant now = clock.now();
  QWidget window;
  ListStrip strip(clock);
  strip.setParent(&window);
  const auto& button = *strip.findChild<QPushButton*>();
  struct {
    ListState state;
    QString text;  ///< empty: nothing is shown
    QString button;
  } const rows[] = {
      {Empty{}, {}, {}},
      {Stale{now - 3h}, u"From 3 hours ago."_s, u"Refresh"_s},
      {Loading{now}, {}, {}},
      {BudgetWait{now + 11500ms}, u"Waiting 12 s: at most 15 requests a minute."_s, {}},
      {Throttled{now + 43s}, u"Apple is limiting requests. Trying again in 43 s."_s, u"Stop"_s},
      {Offline{}, u"You're offline. Showing what was saved."_s, u"Try Again"_s},
      {listStateOf(
           std::make_exception_ptr(NetworkError(NetworkError::Kind::notConnected, "no network"))),
       u"You're offline. Showing what was saved."_s, u"Try Again"_s},
      {listStateOf(std::make_exception_ptr(DatabaseError("The library is locked."))),
       u"The library is locked."_s, u"Try Again"_s},
      {Ready{}, {}, {}},
  };
  for (const auto& row : rows) {
    strip.setState(row.state);
    EXPECT_EQ(strip.accessibleName(), row.text);
    EXPECT_EQ(strip.isHidden(), row.text.isEmpty()) << row.text.toStdString();
    EXPECT_EQ(button.isHidden(), row.button.isEmpty()) << row.text.toStdString();
    EXPECT_EQ(button.text(), row.button);
  }
}

TEST(ListStripTest, CountsDownWhereItIsSeenAndNowhereElse) {
  FakeClock clock;
  ListStrip strip(clock);
  strip.resize(400, strip.height());
  strip.setState(Throttled{clock.now() + 43s});
  const QString told = strip.accessibleName();
  const QImage before = strip.grab().toImage();
  clock.advance(5s);
  EXPECT_NE(strip.grab().toImage(), before);
  EXPECT_EQ(strip.accessibleName(), told);
  QSignalSpy acted(&strip, &ListStrip::acted);
  strip.findChild<QPushButton*>()->click();
  EXPECT_EQ(acted.count(), 1);
}

}  // namespace
}  // namespace quillet
