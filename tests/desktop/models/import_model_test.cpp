// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/import_model.h"

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>

namespace quillet {
namespace {

using enum ImportFate;

WatchedItem item(std::int64_t trackId, const std::string& name, std::optional<double> target = {}) {
  return {trackId, "us", "mac", name, 9.99, target, true, true, false, {}};
}

EntryItem entry(std::int64_t trackId) { return {trackId, "us", "mac", "App", "", {}}; }

/// A watchlist with an app that is there and one that the file repeats, and collections of each
/// kind.
ReadLibrary made() {
  auto document = std::make_shared<LibraryExport>();
  WatchedItem german = item(3, "Chordbadger", 1159.99);
  german.country = "de";
  WatchedItem elsewhere = item(5, "\n\u202E", 2);
  elsewhere.country = "ch";
  document->watchlist = {item(1, "Riverrook RSS", 7.99), item(2, "Pagewren"), german,
                         item(1, "Riverrook RSS"), elsewhere};
  document->collections = {
      {"Writing", "pencil", {entry(1), entry(2), entry(3)}},
      {"Band practice", "musicnote", {entry(1)}},
      {"Shop", "house", {}},
      {"Kept", "star", {entry(1)}},
      {std::string(299, 'x') + "é" + std::string(5'000'000, 'x'), "nonsense", {}}};
  ImportPreview preview;
  preview.watchlist = {added, alreadyPresent, added, alreadyPresent, added};
  preview.collections = {{alreadyPresent, {added, added, alreadyPresent}},
                         {added, {added}},
                         {added, {}},
                         {alreadyPresent, {alreadyPresent}},
                         {alreadyPresent, {}}};
  return {document, preview};
}

class ImportModelTest : public testing::Test {
 protected:
  QModelIndex at(int group, int row = -1) const {
    const QModelIndex top = model_.index(group, 0, {});
    return row < 0 ? top : model_.index(row, 0, top);
  }
  std::string told(const QModelIndex& index) const {
    return index.data(Qt::AccessibleTextRole).toString().left(90).toStdString();
  }
  std::string rows(int group) const {
    std::string text = told(at(group)) + '\n';
    for (int i = 0; i < model_.rowCount(at(group)); ++i) text += told(at(group, i)) + '\n';
    return text;
  }
  std::vector<std::int64_t> watched() const {
    std::vector<std::int64_t> ids;
    for (const WatchedItem& each : model_.chosen().watchlist) ids.push_back(each.trackId);
    return ids;
  }

  ImportModel model_{made(), {}};
  QAbstractItemModelTester tester_{&model_};
};

TEST_F(ImportModelTest, SaysOfEachRowWhatBecomesOfIt) {
  EXPECT_EQ(rows(0),
            "Watchlist, 3 of 5 to add, ticked\n"
            "Riverrook RSS, us · target $7.99, ticked\n"
            "Pagewren, already watched\n"
            "Chordbadger, de · target €1,159.99, ticked\n"
            "Riverrook RSS, already watched\n"
            "Unnamed app, ch · target 2.00, ticked\n");
  const std::string collections = rows(1);
  EXPECT_TRUE(
      collections.starts_with("Collections, 5, 2 of them new, ticked\n"
                              "Writing, joins your own, 2 to add, 1 already in it, ticked\n"
                              "Band practice, new, 1 app, ticked\n"
                              "Shop, new, empty, ticked\n"
                              "Kept, 1 already in it\nxxxx"))
      << collections;
  const QString longest = model_.line(at(1, 4)).text;
  EXPECT_LT(longest.size(), 500) << "a row shows a line, however long it is";
  EXPECT_FALSE(longest.contains(QChar::ReplacementCharacter)) << "and no part of a letter";
  EXPECT_EQ(model_.summary().toStdString(),
            "Adds 6 of 10 items. Nothing of yours is replaced; one undo takes all back.");
}

TEST_F(ImportModelTest, ImportsWhatIsTickedAlone) {
  EXPECT_EQ(model_.chosen(), model_.document());
  EXPECT_FALSE(model_.canTickMore());

  model_.toggle(at(0, 0));
  EXPECT_EQ(watched(), (std::vector<std::int64_t>{2, 3, 5})) << "nor what the file repeats of it";
  EXPECT_EQ(model_.stateOf(at(0)), Qt::PartiallyChecked);
  model_.toggle(at(0, 1));
  EXPECT_EQ(watched().size(), 3U) << "what is there has no tick to take";
  model_.toggle(at(1, 1));
  EXPECT_EQ(model_.chosen().collections.size(), 4U);
  EXPECT_EQ(model_.tally(), (ImportTally{4, 10, 1}));

  model_.toggle(at(0));
  EXPECT_EQ(model_.stateOf(at(0)), Qt::Checked) << "in part becomes whole";
  model_.toggle(at(0));
  model_.toggle(at(1));
  EXPECT_TRUE(model_.canImport()) << "one collection was not ticked yet";
  model_.toggle(at(1));
  EXPECT_EQ(model_.tally(), (ImportTally{0, 10, 0}));
  EXPECT_FALSE(model_.canImport());
  EXPECT_EQ(model_.summary(), QStringLiteral("Nothing is ticked."));
  model_.tickAll();
  EXPECT_EQ(model_.chosen(), model_.document());
}

TEST(ImportModels, TakeCollectionsOfOneNameForOne) {
  auto document = std::make_shared<LibraryExport>();
  document->collections = {{"Games", "star", {entry(1)}},
                           {"Games", "star", {entry(2)}},
                           {"Games", "star", {entry(1)}},
                           {"Work", "star", {}}};
  ImportModel model({document,
                     {.watchlist = {},
                      .collections = {{added, {added}},
                                      {alreadyPresent, {added}},
                                      {alreadyPresent, {alreadyPresent}},
                                      {added, {}}}}},
                    {});
  const QModelIndex top = model.index(0, 0, {});
  for (const int row : {0, 1}) {
    model.toggle(model.index(row, 0, top));
    ASSERT_EQ(model.chosen().collections.size(), 1U) << "nor what the file repeats of it: " << row;
    EXPECT_EQ(model.chosen().collections[0].name, "Work");
    EXPECT_EQ(model.tally(), (ImportTally{0, 3, 1}));
    model.toggle(model.index(row, 0, top));
    EXPECT_EQ(model.chosen(), *document);
  }
}

TEST(ImportModels, SayWhereThereIsNothingToTick) {
  const ImportModel bare({std::make_shared<LibraryExport>(), {}}, {});
  EXPECT_FALSE(bare.canImport());
  EXPECT_EQ(bare.summary(), QStringLiteral("The file holds no apps and no collections."));
  auto document = std::make_shared<LibraryExport>();
  document->watchlist = {item(1, "Pagewren")};
  const ImportModel present({document, {.watchlist = {alreadyPresent}}}, {});
  EXPECT_TRUE(present.canImport()) << "which then says so";
  EXPECT_EQ(present.summary(), QStringLiteral("All of it is in your library already."));
}

}  // namespace
}  // namespace quillet
