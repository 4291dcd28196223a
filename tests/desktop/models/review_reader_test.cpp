// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/review_reader.h"

#include <QAbstractItemModelTester>

#include "desktop/models/review_list_model.h"
#include "net/run_task.h"
#include "queries/query_test.h"
#include "support/event_loop.h"
#include "support/store_requests.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using namespace Qt::Literals::StringLiterals;

using Countries = std::vector<std::string>;

class ReviewReaderTest : public QueryTest, protected ReviewRequests {
 protected:
  ReviewReaderTest() { store_.use(services(), stop.token()); }
  void TearDown() override {
    stop.requestStop();
    reader_.reset();
    runTask(store_.ended());
  }

  /// Reviews of 5, 4, … stars whose titles are "COUNTRY NUMBER", from `first` on.
  void answerPage(int first, int count, std::string_view next = "", std::string_view country = "us",
                  int offset = -1) {
    std::vector<std::string> items;
    for (int i = first; i < first + count; ++i) {
      items.push_back(fmt::format(R"({{"attributes":{{"title":"{} {}","rating":{}}}}})", country, i,
                                  5 - i % 5));
    }
    http.answer(page(offset < 0 ? first : offset, country), 200,
                fmt::format(R"({{"data":[{}]{}}})", fmt::join(items, ","), next));
  }
  void answerFeed(int number, int count) {
    const std::vector<std::string_view> entries(
        static_cast<std::size_t>(count),
        R"({"im:rating":{"label":"5"},"im:version":{"label":"2.1"},"title":{"label":"New"}})");
    http.answer(feed(number), 200,
                fmt::format(R"({{"feed":{{"entry":[{}]}}}})", fmt::join(entries, ",")));
  }
  void choose(const Countries& countries, ReviewOrder order = ReviewOrder::asTheStoreHasThem) {
    reader_->choose(order, countries);
    handlePendingEvents();
  }
  void readMore(std::size_t index = 0) {
    reader_->readMore(index);
    handlePendingEvents();
  }
  /// "us 20+, jp failed": how many reviews each storefront has, and whether it has more.
  std::string state() {
    std::vector<std::string> texts;
    for (std::size_t i = 0; i < reader_->count(); ++i) {
      const ReviewSample& sample = reader_->sample(i);
      std::string text = fmt::format("{} {}", sample.country, sample.reviews.size());
      if (sample.next) text += "+";
      if (std::holds_alternative<Failed>(sample.state)) text += " failed";
      if (sample.isUnderWay()) text += " under way";
      texts.push_back(text);
    }
    return fmt::format("{}", fmt::join(texts, ", "));
  }
  std::vector<AppReview> knownReviews(int count) {
    std::vector<AppReview> reviews(static_cast<std::size_t>(count));
    for (AppReview& each : reviews) each = {.title = "known", .rating = 5, .date = clock.now()};
    return reviews;
  }

  StoreGateway store_;
  std::unique_ptr<ReviewReader> reader_ = std::make_unique<ReviewReader>(
      ReviewSubject{11, Platform::mac}, std::vector<VersionEntry>{{"1.4", Instant{}, {}}}, store_,
      clock);
};

constexpr std::string_view kNext = R"(,"next":"/more")";

TEST_F(ReviewReaderTest, AsksForAPageOnlyWhenItIsWanted) {
  reader_->know("us", knownReviews(kEnrichmentReviews));
  choose({"us"});
  EXPECT_EQ(state(), "us 10+") << "what is known asks nothing";
  EXPECT_EQ(reader_->sample(0).reviews[0].version, "1.4");
  answerPage(0, 20, kNext);
  readMore();
  EXPECT_EQ(state(), "us 20+") << "the page stands for what was known before";
  EXPECT_EQ(reader_->sample(0).reviews[0].review.title, "us 0");
  answerPage(20, 3);
  readMore();
  EXPECT_EQ(state(), "us 23");
  readMore();
  EXPECT_EQ(http.requests().size(), 2U);

  reader_->know("gb", knownReviews(2));
  choose({"gb"});
  EXPECT_EQ(state(), "gb 2") << "a list that is not full is whole";
  choose({"us"});
  EXPECT_EQ(state(), "us 23") << "kept";
  EXPECT_EQ(http.requests().size(), 2U);
}

TEST_F(ReviewReaderTest, EndsWithTheSample) {
  answerPage(0, 20, kNext);
  choose({"us"});
  for (int i = 1; i < kMostReviewPages; ++i) {
    answerPage(20 * i, 20, kNext);
    readMore();
  }
  EXPECT_EQ(state(), "us 500");
}

TEST_F(ReviewReaderTest, LetsTheOthersStandWhereOneStorefrontFails) {
  answerPage(0, 20, kNext);
  http.answer(page(0, "jp"), 400, "");
  http.answer(page(0, "de"), 404, "");
  choose({"us", "jp", "de"});
  EXPECT_EQ(state(), "us 20+, jp 0+ failed, de 0");
  EXPECT_TRUE(std::holds_alternative<Ready>(stateOf(*reader_))) << "it says so in its place";
  choose({"us", "jp"});
  EXPECT_EQ(http.requests().size(), 3U) << "nothing that stays is asked anew";
  answerPage(0, 2, "", "jp");
  reader_->tryAgain();
  handlePendingEvents();
  EXPECT_EQ(state(), "us 20+, jp 2");
  EXPECT_EQ(http.requests().size(), 4U);
}

TEST_F(ReviewReaderTest, ReadsTheStoresOrderWhereTheFeedIsEmpty) {
  answerFeed(1, 0);
  answerPage(0, 2);
  choose({"us"}, ReviewOrder::mostRecent);
  EXPECT_EQ(state(), "us 2");
  EXPECT_TRUE(reader_->sample(0).feedEmpty);
  EXPECT_EQ(reader_->sample(0).reviews[0].version, "") << "as the command line prints them";
}

TEST_F(ReviewReaderTest, DropsTheAnswerOfWhatIsNoLongerWanted) {
  http.hold(page(0));
  choose({"us"});
  EXPECT_EQ(state(), "us 0+ under way");
  answerFeed(1, 3);
  choose({"us"}, ReviewOrder::mostRecent);
  EXPECT_EQ(state(), "us 3");
  http.hold(page(0, "gb"));
  choose({"gb"});
  answerPage(0, 20, "", "gb");
  reader_.reset();  // and with it what it asked
  handlePendingEvents();
}

TEST_F(ReviewReaderTest, ShowsWhatWaits) {
  http.answer(page(0), 429, "");
  http.answer(page(0), 429, "");
  http.answer(page(0), 429, "");
  choose({"us"});
  for (int i = 0; i < 3; ++i) {
    clock.advance(6s);
    handlePendingEvents();
  }
  EXPECT_TRUE(std::holds_alternative<Throttled>(stateOf(*reader_)));
  reader_->stop();
  EXPECT_EQ(std::get<Failed>(stateOf(*reader_)).message, u"us could not be read."_s);
}

class ReviewListTest : public ReviewReaderTest {
 protected:
  ReviewListTest() {
    QObject::connect(reader_.get(), &ReviewReader::changed, &list_,
                     [this] { list_.take(*reader_); });
  }
  /// The rows, reviews by their titles.
  std::vector<QString> rows() const {
    std::vector<QString> texts;
    for (int row = 0; row < list_.rowCount(); ++row) {
      const bool isReview = list_.row(row).kind == ReviewRowKind::review;
      texts.push_back(isReview ? list_.review(row).title : list_.lineOf(row));
    }
    return texts;
  }
  using Rows = std::vector<QString>;

  ReviewListModel list_{clock, [](Instant) { return std::chrono::seconds(0); }};
  QAbstractItemModelTester tester_{&list_};
};

TEST_F(ReviewListTest, FiltersWhatWasReadAndCountsAll) {
  answerPage(0, 7, kNext);
  choose({"us"});
  list_.setFilter({.stars = {5, 1}, .text = u"US"_s});
  EXPECT_EQ(rows(), (Rows{u"us 0"_s, u"us 4"_s, u"us 5"_s, u"Read More"_s}));
  const ReviewTally tally = list_.tally();
  EXPECT_EQ(tally.stars, (std::array<std::size_t, kMostStars>{1, 1, 1, 2, 2}));
  EXPECT_EQ(tallyText(tally.fetched, tally.matching, list_.filter()), u"Fetched 7, 3 match"_s);
  answerPage(7, 4, "", "us", 20);
  readMore();
  EXPECT_EQ(rows(), (Rows{u"us 0"_s, u"us 4"_s, u"us 5"_s, u"us 9"_s, u"us 10"_s}));
  list_.setFilter({.text = u"us 1"_s});
  EXPECT_EQ(rows(), (Rows{u"us 1"_s, u"us 10"_s}));
  list_.setFilter({});
  EXPECT_EQ(list_.rowCount(), 11);
}

TEST_F(ReviewListTest, PutsStorefrontsBelowOneAnother) {
  answerPage(0, 1, kNext);
  http.answer(page(0, "jp"), 400, "");
  http.answer(page(0, "de"), 404, "");
  http.hold(page(0, "fr"));
  choose({"us", "jp", "de", "fr"});
  const QString none = u"de · No reviews published for this app in this storefront"_s;
  EXPECT_EQ(rows(), (Rows{u"us · Fetched 1"_s, u"us 0"_s, u"Read More from us"_s, u"jp"_s,
                          u"jp could not be read. Try Again"_s, none, u"fr"_s, u"Reading…"_s}));
  answerPage(1, 1, "", "us", 20);
  readMore(0);
  EXPECT_EQ(rows()[2], u"us 1"_s);
  list_.setFilter({.stars = {4}});
  EXPECT_EQ(rows()[0], u"us · Fetched 2, 1 match"_s);
  answerPage(0, 0, "", "fr");
}

}  // namespace
}  // namespace quillet
