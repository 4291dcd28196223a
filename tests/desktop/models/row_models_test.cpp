// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// The rows of a list through whatever may become of them, against the plainest way to say what is
// to be shown.

#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QPersistentModelIndex>
#include <algorithm>
#include <random>

#include "desktop/models/row_filter_model.h"
#include "desktop/models/row_parts.h"

namespace quillet {
namespace {

using namespace Qt::Literals::StringLiterals;

constexpr std::array kSorts{
    SortChoice{"name", "Name",
               [](const AppRow& left, const AppRow& right) { return left.folded < right.folded; }},
    SortChoice{"price", "Price", [](const AppRow& left, const AppRow& right) {
                 return left.price.amount < right.price.amount;
               }}};
constexpr std::array kChips{ChipChoice{"dropped", "Dropped", RowMark::dropped},
                            ChipChoice{"free", "Free", RowMark::isFree}};

AppRow row(std::int64_t id, int name = 0, double price = 0, RowMarks marks = {}) {
  AppRow made;
  made.key.app = {id, "us"};
  made.name = u"App %1"_s.arg(name);
  made.folded = foldedText({made.name});
  made.price.amount = price;
  made.marks = marks;
  return made;
}

std::vector<RowKey> shownBy(const RowFilterModel& model) {
  std::vector<RowKey> keys;
  for (int i = 0; i < model.rowCount(); ++i) keys.push_back(model.at(i).key);
  return keys;
}

/// The same, said plainly; alike names stand as in `model` where nobody chose an order.
std::vector<RowKey> expected(const std::map<RowKey, AppRow>& rows, const RowView& view,
                             const AppListModel& model) {
  std::vector<AppRow> left;
  for (const auto& [key, each] : rows) {
    bool passes = each.folded.contains(view.text.toCaseFolded());
    for (const ChipChoice& chip : kChips) {
      const bool isSet = std::ranges::find(view.chips, chip.id) != view.chips.end();
      passes = passes && (!isSet || each.marks.testFlag(chip.mark));
    }
    if (passes) left.push_back(each);
  }
  std::ranges::sort(left, [&](const AppRow& first, const AppRow& second) {
    const auto order = [&](const AppRow& each) {
      const bool byPrice = view.sort == "price";
      return std::tuple(byPrice ? *each.price.amount : 0, each.folded,
                        byPrice ? 0 : model.find(each.key), each.key);
    };
    return order(first) < order(second);
  });
  std::vector<RowKey> keys;
  for (const AppRow& each : left) keys.push_back(each.key);
  return keys;
}

class RandomRows {
 public:
  explicit RandomRows(unsigned seed) : random_(seed) {}

  int below(int limit) { return static_cast<int>(random_() % static_cast<unsigned>(limit)); }
  AppRow any() {
    RowMarks marks;
    marks.setFlag(RowMark::dropped, below(2) == 0);
    marks.setFlag(RowMark::isFree, below(3) == 0);
    return row(1 + below(60), below(40), below(5), marks);
  }
  std::vector<AppRow> some(int count) {
    std::map<RowKey, AppRow> rows;
    for (int i = 0; i < count; ++i) {
      const AppRow each = any();
      rows.insert_or_assign(each.key, each);
    }
    std::vector<AppRow> list;
    for (auto& [key, each] : rows) list.push_back(std::move(each));
    std::ranges::shuffle(list, random_);
    return list;
  }
  RowView view() {
    RowView view;
    if (below(2) == 0) view.text = u"aPP %1"_s.arg(below(4));
    if (below(2) == 0) view.chips.emplace_back("dropped");
    if (below(3) == 0) view.chips.emplace_back("free");
    view.sort = below(2) == 0 ? "price" : "";
    return view;
  }

 private:
  std::mt19937 random_;
};

TEST(RowModels, ShowWhatTheViewAsksForWhateverBecomesOfTheRows) {
  using Mode = QAbstractItemModelTester::FailureReportingMode;
  RandomRows random(7);
  AppListModel model;
  RowFilterModel filter(model, {.layout = {}, .sorts = kSorts, .chips = kChips, .empty = {}});
  const QAbstractItemModelTester rowsTester(&model, Mode::Fatal);
  const QAbstractItemModelTester filterTester(&filter, Mode::Fatal);
  std::map<RowKey, AppRow> rows;
  RowView view;
  for (int step = 0; step < 600; ++step) {
    // A row that is looked at: whatever moves, its index stays with it.
    const int looked = filter.rowCount() == 0 ? -1 : random.below(filter.rowCount());
    const QPersistentModelIndex index = filter.index(looked, 0);
    const std::optional<RowKey> key =
        looked < 0 ? std::nullopt : std::optional(filter.at(looked).key);
    switch (random.below(6)) {
      case 0: filter.setView(view = random.view()); break;
      case 1: {
        rows.clear();
        const auto all = random.some(random.below(50));
        for (const AppRow& each : all) rows[each.key] = each;
        model.setRows(all);
        break;
      }
      case 2: {
        const auto changed = random.some(5);
        std::set<AppKey> apps;
        for (int i = 0; i < 3; ++i) apps.insert(random.any().key.app);  // some that go
        for (const AppKey& app : apps) rows.erase({app});
        for (const AppRow& each : changed) {
          apps.insert(each.key.app);
          rows[each.key] = each;
        }
        model.setRowsOf(apps, changed);
        break;
      }
      case 3: {
        const LateFacts facts{.app = random.any().key.app, .purchasesChanged = random.below(5)};
        const auto into = [](AppRow& each, const LateFacts& late) {
          each.price.amount = static_cast<double>(late.purchasesChanged);
        };
        if (rows.contains({facts.app})) into(rows[{facts.app}], facts);
        model.take({facts}, into);
        break;
      }
      case 4: {
        rows.clear();
        const auto all = random.some(random.below(50));
        for (const AppRow& each : all) rows[each.key] = each;
        model.arrange(all);
        for (int i = 0; i < model.rowCount(); ++i)
          ASSERT_EQ(model.at(i), all.at(static_cast<std::size_t>(i)));
        break;
      }
      default: model.setExtras({{random.any().key.app, {}}});
    }
    ASSERT_EQ(shownBy(filter), expected(rows, view, model)) << "step " << step;
    if (key && index.isValid()) ASSERT_EQ(filter.at(index.row()).key, *key) << "step " << step;
    if (key && rows.contains(*key) && filter.find(*key) >= 0)
      ASSERT_TRUE(index.isValid()) << "step " << step;
  }
}

TEST(RowModels, HaveAHeadingAboveTheFirstRowOfADayInTheListsOwnOrderAlone) {
  AppListModel model;
  RowFilterModel filter(model,
                        {.layout = {.hasDays = true}, .sorts = kSorts, .chips = {}, .empty = {}});
  std::vector<AppRow> rows{row(1, 1, 3), row(2, 2, 2), row(3, 3, 1)};
  for (AppRow& each : rows) each.day = each.key.app.trackId < 3 ? u"Today"_s : u"Yesterday"_s;
  model.reset(rows);
  const auto headings = [&] {
    QStringList texts;
    for (int i = 0; i < filter.rowCount(); ++i)
      texts << filter.index(i, 0).data(HeadingRole).toString();
    return texts;
  };
  EXPECT_EQ(headings(), QStringList({u"Today"_s, {}, u"Yesterday"_s}));
  filter.setView({u"app 2"_s, {}, {}});
  EXPECT_EQ(headings(), QStringList({u"Today"_s}));
  filter.setView({{}, {}, "price"});
  EXPECT_EQ(headings(), QStringList({{}, {}, {}}));
}

TEST(RowModels, WriteAnAmountAsThePriceBesideItIsWritten) {
  struct Row {
    const char* shown;
    double price;
    const char* currency;
    double amount;
    const char* expected;
  };
  const LocaleFormats formats(UserLocale{});
  for (const Row& row : {
           Row{"199,99 €", 199.99, "EUR", 159.992, "159,99 €"},
           Row{"€1.99", 1.99, "EUR", 0, "€0.00"},
           Row{"CHF 5.00", 5, "CHF", 4.5, "CHF 4.50"},
           Row{"500 Ft", 500, "HUF", 400, "400 Ft"},
           // Where the way of writing is not known, the user's own.
           Row{"500 Ft", 500, "EUR", 99.5, "€99.50"},
           Row{"199,99 €", 199.99, "EUR", 1159.99, "€1,159.99"},
           Row{"1.199,99 €", 1199.99, "EUR", 159.99, "€159.99"},
           Row{"Gratuit", 0, "EUR", 1.5, "€1.50"},
           Row{"ab 3,99 €", 1.99, "EUR", 1.5, "€1.50"},
           Row{"", 1.99, "EUR", 1.5, "€1.50"},
       }) {
    const PriceCell shown{QString::fromUtf8(row.shown), PriceMove::none, row.price, row.currency};
    EXPECT_EQ(amountLike(shown, row.amount, formats).toStdString(), row.expected) << row.shown;
  }
}

TEST(RowModels, SayAWholeRowInASentence) {
  AppRow full = row(1, 1);
  full.name = u"Paperfold\nPro"_s;
  full.price.text = u"$4.99"_s;
  full.aside = u"−50 %"_s;
  full.seller = u"Studio Halvorsen"_s;
  full.ratingHalves = 9;
  full.marks = RowMark::atLowest;
  AppRow alert = row(2, 1);
  alert.title = u"Mailbarge was updated"_s;
  alert.detail = u"Version 2.31 is now available."_s;
  alert.day = u"October 2025"_s;
  alert.time = u"3 Oct"_s;
  alert.marks = RowMark::unread;
  AppListModel model;
  model.reset({full, alert});
  const auto sentence = [&](int at) {
    return model.index(at).data(Qt::AccessibleTextRole).toString();
  };
  EXPECT_EQ(sentence(0),
            u"Paperfold Pro, $4.99, −50 %, at its lowest, Studio Halvorsen, 4.5 of 5 stars"_s);
  EXPECT_EQ(sentence(1),
            u"Mailbarge was updated, unread, Version 2.31 is now available., October 2025, "
            u"3 Oct"_s);
}

}  // namespace
}  // namespace quillet
