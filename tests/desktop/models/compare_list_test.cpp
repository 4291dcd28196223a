// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/compare_list.h"

#include <gtest/gtest.h>

#include <QJsonArray>
#include <QJsonObject>

#include "desktop/models/compare_edits.h"
#include "support/temporary_folder.h"

namespace quillet {
namespace {

using namespace Qt::Literals::StringLiterals;
using Ids = std::vector<std::int64_t>;

NamedCompared app(std::int64_t id, std::string country = "us") {
  return {{{id, std::move(country)}, Platform::mac}, u"App %1"_s.arg(id)};
}

std::vector<NamedCompared> apps(std::int64_t first, std::int64_t last) {
  std::vector<NamedCompared> apps;
  for (std::int64_t id = first; id <= last; ++id) apps.push_back(app(id));
  return apps;
}

Ids idsOf(const CompareList& list) {
  Ids ids;
  for (const ComparedKey& each : list.apps()) ids.push_back(each.app.trackId);
  return ids;
}

/// As the history of edits does it, and then its undo and its redo.
void make(const LibraryEdit& edit) { edit.beside(); }

TEST(CompareList, ANinthIsRefusedAndNothingIsDropped) {
  const TemporaryFolder folder;
  StateFile state{folder.path() / "windows.json"};
  CompareList list(state);
  CompareAddition addition = addToCompare(list, apps(1, 7));
  ASSERT_TRUE(addition.edit);
  addition = addToCompare(list, apps(7, 10));
  ASSERT_TRUE(addition.edit);
  EXPECT_EQ(addition.edit->done,
            u"Added “App 8” to Compare. At most 8 apps are compared at once."_s);
  EXPECT_EQ(idsOf(list), (Ids{1, 2, 3, 4, 5, 6, 7, 8}));

  addition = addToCompare(list, {app(9)});
  EXPECT_FALSE(addition.edit);
  EXPECT_EQ(addition.refusal, u"“App 9”: not added. At most 8 apps are compared at once."_s);
  EXPECT_EQ(idsOf(list), (Ids{1, 2, 3, 4, 5, 6, 7, 8}));
}

TEST(CompareList, RefusesOtherStorefrontsAndWhatIsThere) {
  const TemporaryFolder folder;
  StateFile state{folder.path() / "windows.json"};
  CompareList list(state);
  ASSERT_TRUE(addToCompare(list, {app(1)}).edit);
  EXPECT_EQ(addToCompare(list, {app(2, "de")}).refusal,
            u"“App 2”: not added. Only apps of one storefront are compared, now of “us”."_s);
  EXPECT_EQ(addToCompare(list, {app(1)}).refusal, u"“App 1” is compared already."_s);
  EXPECT_EQ(idsOf(list), Ids{1});
  // In the place of all others, one of another storefront is the first of its own.
  ASSERT_TRUE(compareInstead(list, {app(2, "de"), app(3)}).edit);
  EXPECT_EQ(idsOf(list), Ids{2});
}

TEST(CompareList, EveryChangeIsUndoneAndDoneAgain) {
  const TemporaryFolder folder;
  StateFile state{folder.path() / "windows.json"};
  CompareList list(state);
  std::vector<LibraryEdit> done;
  const auto perform = [&](LibraryEdit edit) {
    make(edit);
    done.push_back(std::move(edit));
  };
  perform(*addToCompare(list, apps(1, 3)).edit);
  perform(moveCompared(list, app(3).key.app, 0, u"App 3"_s));
  EXPECT_EQ(idsOf(list), (Ids{3, 1, 2}));
  perform(removeFromCompare(list, {app(1).key.app}, u"App 1"_s));
  EXPECT_EQ(idsOf(list), (Ids{3, 2}));
  for (const Ids& before : {Ids{3, 1, 2}, Ids{1, 2, 3}, Ids{}}) {
    const LibraryEdit& edit = done[before.empty() ? 0 : before == Ids{1, 2, 3} ? 1 : 2];
    edit.beside();
    EXPECT_EQ(idsOf(list), before) << edit.name.toStdString();
  }
  for (const LibraryEdit& edit : done) edit.beside();
  EXPECT_EQ(idsOf(list), (Ids{3, 2}));
}

TEST(CompareList, IsRememberedAndReadWithCare) {
  const TemporaryFolder folder;
  const auto file = folder.path() / "windows.json";
  {
    StateFile state(file);
    CompareList list(state);
    (void)addToCompare(list, apps(1, 2));
    list.setYears(9);
  }
  StateFile state(file);
  const CompareList list(state);
  EXPECT_EQ(idsOf(list), (Ids{1, 2}));
  EXPECT_EQ(list.years(), CompareList::kMostYears);

  // Somebody else's file may hold anything.
  const auto entry = [](const char* id, const char* country) {
    return QJsonObject{{u"app"_s, QString::fromLatin1(id)},
                       {u"country"_s, QString::fromLatin1(country)}};
  };
  state.setValue(u"compare"_s,
                 QJsonObject{{u"years"_s, -3},
                             {u"apps"_s, QJsonArray{entry("5", "us"), entry("5", "us"),
                                                    entry("6", "de"), entry("x", "us"),
                                                    entry("7", "nowhere"), entry("8", "us")}}});
  const CompareList repaired(state);
  EXPECT_EQ(idsOf(repaired), (Ids{5, 8}));
  EXPECT_EQ(repaired.years(), 1);
}

}  // namespace
}  // namespace quillet
