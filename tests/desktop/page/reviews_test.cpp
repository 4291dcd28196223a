// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QAccessible>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QScrollBar>
#include <QTest>
#include <QToolButton>
#include <QVBoxLayout>

#include "desktop/lists/chip.h"
#include "desktop/look/quillet_style.h"
#include "desktop/look/search_field.h"
#include "desktop/page/block_table.h"
#include "desktop/page/review_list_view.h"
#include "desktop/page/reviews_window.h"
#include "desktop/page/viewer_notice.h"
#include "desktop/support/view_parts.h"
#include "net/run_task.h"
#include "page_moments.h"
#include "queries/query_test.h"
#include "support/event_loop.h"
#include "support/memory_settings.h"
#include "support/pictures.h"
#include "support/store_requests.h"
#include "support/temporary_folder.h"
#include "system/whole_file.h"

namespace quillet {
namespace {

using namespace Qt::Literals::StringLiterals;

std::vector<AppReview> invented() {
  return {{.title = "Finally the folder as it is",
           .body = "Opens three thousand notes at once and stays quick. The preview follows the "
                   "cursor, and nothing is written where I did not write it.",
           .rating = 5,
           .userName = "Wilhelmina P.",
           .date = moment(2026, 11, 14)},
          {.title = "Good, but no tables yet",
           .body = "Everything I need except editing tables. The license price is fair.",
           .rating = 3,
           .userName = "bramblefoot",
           .date = moment(2026, 10, 2),
           .isEdited = true,
           .developerResponse = "Thank you. Tables come with the next version; until then, they "
                                "can be edited as text.",
           .developerResponseDate = moment(2026, 10, 3)},
          {.title = "Lost my place",
           .body = "After the update the window forgets where I was.\nIt did not before.",
           .rating = 2,
           .userName = "Tomasz",
           .date = moment(2025, 8, 30)}};
}

class ReviewsWindowTest : public QueryTest, protected ReviewRequests {
 protected:
  ReviewsWindowTest() {
    clock.setNow(moment(2026, 11, 22, 12));
    parts_.store.use(services(), stop.token());
    setScheme(Scheme::light);
  }
  void TearDown() override {
    delete window_;
    stop.requestStop();
    runTask(parts_.store.ended());
  }

  static void setScheme(Scheme scheme) {
    auto& style = *qobject_cast<QuilletStyle*>(QApplication::style());
    style.setPalette(Palette(scheme, Contrast::normal));
  }

  ReviewListView& open(std::vector<AppReview> first) {
    const std::vector<VersionEntry> releases{{"1.14", moment(2026, 10, 26), {}},
                                             {"1.13", moment(2026, 9, 15), {}}};
    window_ = new ReviewsWindow(
        {{11, Platform::mac}, u"Pagewren Markdown"_s, "us", std::move(first), releases},
        parts_.world(), nullptr);
    window_->show();
    handlePendingEvents();
    return *window_->findChild<ReviewListView*>();
  }

  [[nodiscard]] QToolButton& exporting() const {
    const auto buttons = window_->findChildren<QToolButton*>();
    return **std::ranges::find(buttons, u"Export Reviews…"_s, &QToolButton::accessibleName);
  }

  /// A page of long reviews, "N" of all of them in front.
  void answerLongPage(int offset, bool hasMore = true) {
    std::string body;
    for (int i = 0; i < 60; ++i) body += "many words ";
    std::vector<std::string> items;
    for (int i = offset; i < offset + 20; ++i) {
      items.push_back(fmt::format(
          R"({{"attributes":{{"title":"Title {}","review":"{}","rating":4}}}})", i, body));
    }
    http.answer(page(offset), 200,
                fmt::format(R"({{"data":[{}]{}}})", fmt::join(items, ","),
                            hasMore ? R"(,"next":"/more")" : ""));
  }

  MemorySettings settings_;
  ViewParts parts_{http, clock, settings_};
  ReviewsWindow* window_ = nullptr;
};

TEST_F(ReviewsWindowTest, ReadsOnWhileItIsScrolledAndMeasuresWhatIsSeen) {
  answerLongPage(0);
  ReviewListView& list = open(std::vector<AppReview>(kEnrichmentReviews, invented()[0]));
  EXPECT_TRUE(http.requests().empty());
  Q_EMIT list.moreAsked(0);
  handlePendingEvents();
  EXPECT_EQ(list.model()->rowCount(), 21);
  for (int offset = 20; offset < 500; offset += 20) {
    answerLongPage(offset);
    list.verticalScrollBar()->setValue(list.verticalScrollBar()->maximum());
    handlePendingEvents();
  }
  EXPECT_EQ(list.model()->rowCount(), 500);
  EXPECT_EQ(http.requests().size(), 25U);
  waitFor([&] { return list.isMeasured(); });

  // Of another width, nothing is known of any review again.
  window_->resize(600, 640);
  list.verticalScrollBar()->setValue(list.verticalScrollBar()->maximum() / 2);
  list.viewport()->repaint();
  EXPECT_FALSE(list.isMeasured()) << "what is not seen waits for spare moments";
  const QModelIndex seen = list.indexAt(QPoint(100, 0));
  const int top = list.visualRect(seen).top();
  waitFor([&] { return list.isMeasured(); });
  EXPECT_EQ(list.visualRect(seen).top(), top);
}

TEST_F(ReviewsWindowTest, IsBrokenByNoText) {
  const std::string endless(3000, 'W');
  const std::string text = "<h1>&amp;</h1>\n\xE2\x80\xAE\x1B[31m\xFF" + endless;
  AppReview hostile{text, text, 5, text, moment(2026, 1, 1), true, text, moment(2026, 1, 2)};
  ReviewListView& list = open({hostile, {}, {.body = std::string(20'000, '\n') + "x"}});
  EXPECT_EQ(list.model()->rowCount(), 3);
  for (const QSize size : {QSize(520, 360), QSize(1200, 900)}) {
    window_->resize(size);
    handlePendingEvents();
    EXPECT_LT(list.heightOf(0), 900);
    EXPECT_FALSE(window_->grab().isNull());
  }
  QTest::keyClick(&list, Qt::Key_Home);
  QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
  const QString copied = QGuiApplication::clipboard()->text();
  EXPECT_TRUE(copied.startsWith(u"<h1>&amp;</h1>"_s)) << copied.toStdString();
  EXPECT_FALSE(copied.contains(QChar(0x202E)));
}

TEST_F(ReviewsWindowTest, SaysAReviewInASentence) {
  ReviewListView& list = open(invented());
  const QAccessibleInterface* rows = QAccessible::queryAccessibleInterface(&list);
  ASSERT_EQ(rows->childCount(), 3);
  EXPECT_EQ(
      rows->child(1)->text(QAccessible::Name),
      u"Good, but no tables yet, 3 of 5 stars, bramblefoot · 1.13 · edited, 2 Oct, Everything "
      u"I need except editing tables. The license price is fair., Developer · 3 Oct, Thank "
      u"you. Tables come with the next version; until then, they can be edited as text."_s);
}

TEST_F(ReviewsWindowTest, ExportsWhatIsShown) {
  const TemporaryFolder folder;
  open(invented());
  const auto stars = window_->findChildren<Chip*>();
  ASSERT_EQ(stars.size(), 5);
  stars[2]->setChecked(true);  // three of them
  handlePendingEvents();
  parts_.prompts.chosen = folder.path() / "kept.csv";
  const auto notice = [&] { return window_->findChild<ViewerNotice*>()->text(); };
  exporting().click();
  waitFor([&] { return notice() == u"Exported 1 review to “kept.csv”."_s; });
  EXPECT_EQ(parts_.prompts.suggested.at(0).filename(), "pagewren-markdown-reviews.csv");
  const std::string table = readWholeFile(parts_.prompts.chosen, 10'000);
  EXPECT_NE(table.find("3,1.13,\"Good, but no tables yet\""), std::string::npos) << table;
  EXPECT_EQ(std::ranges::count(table, '\n'), 2);

  parts_.prompts.chosen = "/nowhere/kept.csv";
  exporting().click();
  waitFor([&] { return notice().contains(u"could not be written"_s); });
}

TEST_F(ReviewsWindowTest, LooksAsItDid) {
  setScheme(Scheme::dark);
  ReviewListView& list = open(invented());
  window_->resize(760, 480);
  list.setCurrentIndex(list.model()->index(1, 0));
  handlePendingEvents();
  EXPECT_TRUE(looksLike(u"reviews-dark"_s, window_->grab().toImage()));
}

/// The two blocks of a page that tell what others think of the app.
class ReviewBlocksTest : public ReviewsWindowTest {
 protected:
  /// As the page places them.
  void show(const PageFacts& facts) {
    for (const auto& make : {makeRatingsBlock, makeReviewsBlock}) {
      Block* block = make(make == makeRatingsBlock ? u"Ratings"_s : u"Reviews"_s, world_);
      block->setParent(&page_);
      column_.addWidget(block);
      block->setVisible(block->fill(facts));
    }
    page_.resize(544, 560);
    page_.setFocusPolicy(Qt::StrongFocus);
    page_.setFocus();
    page_.show();
    handlePendingEvents();
  }
  QStringList texts() const {
    QStringList texts;
    for (const QLabel* label : page_.findChildren<QLabel*>())
      if (label->isVisible()) texts << label->text();
    return texts;
  }
  PageFacts facts() {
    PageFacts facts{.app = {11, "us"}, .name = "Pagewren Markdown"};
    facts.cached = CachedApp{
        .trackId = 11, .country = "us", .kind = "mac-software", .rating = 0, .ratingCount = 0};
    return facts;
  }
  static std::shared_ptr<const StoreFacts> told(AppEnrichment catalog) {
    StoreFacts store{.app = {.platform = Platform::mac}, .catalog = std::move(catalog)};
    return std::make_shared<const StoreFacts>(std::move(store));
  }

  PageWorld world_{parts_.world(), std::make_shared<const LocaleFormats>(UserLocale{})};
  QWidget page_;
  QVBoxLayout column_{&page_};
};

TEST_F(ReviewBlocksTest, SayWhatIsUnknownAndWhatIsNot) {
  show(facts());
  EXPECT_EQ(texts(), (QStringList{u"Ratings"_s,
                                  u"Unknown until the catalog has been read: Apple's "
                                  u"search tells no ratings of Mac apps."_s}));
  for (Block* block : page_.findChildren<Block*>()) delete block;
  PageFacts known = facts();
  known.store = told({.versions = {{"1.14", moment(2026, 10, 26), {}}}});
  show(known);
  EXPECT_EQ(texts(),
            (QStringList{u"Ratings"_s, u"Nobody has rated it in this storefront yet."_s,
                         u"Reviews"_s, u"No reviews published for this app in this storefront"_s}));
}

TEST_F(ReviewBlocksTest, LookAsTheyDid) {
  PageFacts known = facts();
  known.cached->rating = 4.1;
  known.cached->ratingCount = 87;
  known.cached->ratingHistogram = std::vector<std::int64_t>{3, 4, 14, 29, 37};
  AppEnrichment catalog;
  catalog.reviews = invented();
  catalog.reviews[0].body += " " + std::string(600, 'w');
  for (const int day : {2, 4, 6})
    catalog.reviews.push_back({.rating = 4, .date = moment(2026, 11, day)});
  catalog.reviews.push_back({.rating = 5, .date = moment(2026, 9, 20)});
  catalog.versions = {{"1.14", moment(2026, 10, 26), {}}, {"1.13", moment(2026, 9, 15), {}}};
  known.store = told(catalog);
  show(known);
  EXPECT_TRUE(looksLike(u"review-blocks"_s, page_.grab().toImage()));
}

}  // namespace
}  // namespace quillet
