// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/report_window.h"

#include <QAbstractButton>
#include <QClipboard>
#include <QComboBox>
#include <QGuiApplication>
#include <QLabel>
#include <QMimeData>
#include <QPdfWriter>
#include <QProcess>
#include <QTemporaryFile>
#include <fstream>

#include "desktop/dialogs/report_preview.h"
#include "desktop/page/page_fixture.h"
#include "library/store_rows.h"

namespace quillet {
namespace {

using namespace std::chrono_literals;
using namespace Qt::StringLiterals;

constexpr std::int64_t kPaperfold = 11;
const AppKey kKey{kPaperfold, "us"};
const std::string kName = "<b>Paper & fold</b> Über 日本";

std::string reviews(int from, int count) {
  std::vector<std::string> items;
  for (int i = from; i < from + count; ++i)
    items.push_back(
        fmt::format(R"({{"attributes":{{"title":"Title {}.","review":"Text","rating":4}}}})", i));
  return fmt::format(R"("data":[{}])", fmt::join(items, ","));
}

/// What a program that reads PDFs says of one.
QString readBy(const QString& program, const std::filesystem::path& file,
               const QStringList& more = {}) {
  QProcess process;
  process.start(program, QStringList{QString::fromStdString(file)} + more);
  EXPECT_TRUE(process.waitForFinished()) << program.toStdString() << " is needed";
  return QString::fromUtf8(process.readAllStandardOutput());
}

class ReportWindowTest : public PageTest {
 protected:
  ReportWindowTest() {
    change([](WriteTransaction& transaction) {
      const ITunesApp record{.trackId = kPaperfold,
                             .trackName = kName,
                             .kind = "mac-software",
                             .price = 9.99,
                             .currency = "USD"};
      recordView(transaction, cachedAppOf(record, {"us", Platform::mac, kNow - 10min}), kNow - 48h);
      addPricePoints(transaction, {{.trackId = kPaperfold,
                                    .country = "us",
                                    .price = 12.99,
                                    .currency = "USD",
                                    .date = kNow - 96h},
                                   {.trackId = kPaperfold,
                                    .country = "us",
                                    .price = 9.99,
                                    .currency = "EUR",
                                    .date = kNow - 48h}});
    });
  }

  void TearDown() override {
    window_.reset();
    stop_.requestStop();
    openStore();  // whoever waited for it ends
    settle();
    PageTest::TearDown();
  }

  void show() {
    window_ = std::make_unique<ReportWindow>(world(), nullptr);
    window_->setAttribute(Qt::WA_DeleteOnClose, false);
    window_->show(kKey);
    window_->show();
    settle();
    clock_.advance(300ms);
    settle();
  }
  void answerCatalog() {
    http_.answer(ScriptedStore::catalogUrl(kPaperfold), 200,
                 fmt::format(R"({{"data":[{{"id":"11","attributes":{{"editorialNotes":)"
                             R"({{"tagline":"Folds"}}}},"relationships":{{"reviews":{{{}}}}}}}]}})",
                             reviews(0, 10)));
  }
  void answerPage(int offset) {
    http_.answer(fmt::format("https://web.example/api/apps/v1/catalog/us/apps/11/reviews?"
                             "platform=mac&limit=20&offset={}&l=en-US",
                             offset),
                 200, fmt::format(R"({{{},"next":"/more"}})", reviews(offset, 20)));
  }
  QAbstractButton& button(const char* text) {
    for (auto* each : window_->findChildren<QAbstractButton*>()) {
      if (each->text() == QString::fromUtf8(text)) return *each;
    }
    throw std::runtime_error(text);
  }
  [[nodiscard]] std::string preview() const {
    return window_->findChild<ReportPreview*>()->toPlainText().toStdString();
  }
  [[nodiscard]] bool says(const QString& text) const {
    for (const auto* label : window_->findChildren<QLabel*>()) {
      if (label->isVisible() && label->text().contains(text)) return true;
    }
    return false;
  }
  /// The file that was saved.
  std::filesystem::path save(const std::string& name) {
    prompts_.chosen = own_.path() / name;
    button("Save As…").click();
    waitFor([&] { return says(u"Saved "_s + QString::fromStdString(name)); });
    return prompts_.chosen;
  }

  TemporaryFolder own_;
  std::unique_ptr<ReportWindow> window_;
};

TEST_F(ReportWindowTest, ShowsWhatIsKnownAndThenWhatTheStoreAdds) {
  show();
  EXPECT_EQ(window_->windowTitle(), u"Report on <b>Paper & fold</b> Über 日本"_s);
  EXPECT_NE(preview().find("2026-11-20 | 9.99 EUR"), std::string::npos) << preview();
  EXPECT_EQ(preview().find("Title"), std::string::npos);
  answerCatalog();
  openStore();
  waitFor([&] { return preview().find("Title 9.") != std::string::npos; });

  button("Reviews").click();
  handlePendingEvents();
  EXPECT_EQ(preview().find("Title"), std::string::npos);
  button("HTML, for browsers").click();
  handlePendingEvents();
  EXPECT_TRUE(preview().starts_with(kName)) << "texts of the store are no markup: " << preview();
  button("Copy").click();
  const QMimeData& copied = *QGuiApplication::clipboard()->mimeData();
  EXPECT_TRUE(copied.text().startsWith(u"<!DOCTYPE html>"_s));
  EXPECT_TRUE(copied.hasHtml());

  window_.reset();
  show();
  EXPECT_TRUE(button("HTML, for browsers").isChecked()) << "what was wanted is remembered";
  EXPECT_FALSE(button("Reviews").isChecked());
  const auto viewed = runTask(store_->read(cachedAppsOf, std::vector{kKey})).front().lastViewedAt;
  EXPECT_EQ(viewed, kNow - 48h) << "a report is no visit";
}

TEST_F(ReportWindowTest, SavesEachFormWhole) {
  show();
  const std::tuple<const char*, const char*, const char*> forms[] = {
      {"Markdown", "a.md", "# "},
      {"HTML, for browsers", "a.html", "<!DOCTYPE html>"},
      {"JSON, for scripts", "a.json", "{"},
      {"PDF", "a.pdf", "%PDF-"}};
  for (const auto& [form, name, beginning] : forms) {
    button(form).click();
    EXPECT_TRUE(contentOf(save(name)).starts_with(beginning)) << name;
    EXPECT_EQ(prompts_.suggested.back().extension(), std::filesystem::path(name).extension());
  }
  const std::filesystem::path pdf = own_.path() / "a.pdf";
  const QString text = readBy(u"pdftotext"_s, pdf, {u"-"_s});
  EXPECT_TRUE(text.contains(u"<b>Paper & fold</b> Über"_s)) << text.toStdString();
  EXPECT_TRUE(text.contains(u"9.99 EUR"_s) && text.contains(u"1 of 1"_s)) << text.toStdString();
  const QStringList fonts = readBy(u"pdffonts"_s, pdf).trimmed().split(u'\n').mid(2);
  EXPECT_FALSE(fonts.isEmpty());
  for (const QString& font : fonts)
    EXPECT_TRUE(font.contains(u" yes "_s)) << "is in the file: " << font.toStdString();

  button("Show in Files").click();
  EXPECT_EQ(prompts_.opened, std::vector{pdf.string()});
  prompts_.chosen = "/nowhere/a.pdf";
  button("Save As…").click();
  waitFor([&] { return says(u"/nowhere/a.pdf"_s); });
  EXPECT_FALSE(button("Show in Files").isVisible());
}

TEST_F(ReportWindowTest, ReadsAsManyReviewsAsAreWanted) {
  answerCatalog();
  openStore();
  show();
  waitFor([&] { return preview().find("Title 9.") != std::string::npos; });
  auto* count = window_->findChild<QComboBox*>();
  const std::size_t before = http_.requests().size();
  for (const int offset : {0, 20, 40}) answerPage(offset);
  count->setCurrentIndex(1);
  waitFor([&] { return says(u"the report has 50 reviews"_s); });
  EXPECT_EQ(http_.requests().size(), before + 3);
  EXPECT_EQ(preview().find("Title 25."), std::string::npos) << "the beginning alone is laid out";
  EXPECT_NE(contentOf(save("all.md")).find("Title 49"), std::string::npos);

  answerPage(60);
  http_.hold(
      fmt::format("https://web.example/api/apps/v1/catalog/us/apps/11/reviews?platform=mac"
                  "&limit=20&offset={}&l=en-US",
                  80));
  count->setCurrentIndex(2);
  waitFor([&] { return says(u"Reading reviews: 80 so far"_s); });
  button("Stop").click();
  waitFor([&] { return says(u"the report has 80 reviews"_s); });
}

TEST_F(ReportWindowTest, LeavesNoHeadingAtTheEndOfAPage) {
  AppReport report;
  report.name = kName;
  report.versionHistory.emplace();
  for (int i = 0; i < 800; ++i)
    report.versionHistory->push_back(
        {.version = fmt::format("Version {}", i),
         .releaseNotes = i % 7 == 0 ? "One line\nAnother" : "One line"});
  const std::filesystem::path pdf = own_.path() / "long.pdf";
  std::ofstream(pdf) << reportFile(report, ReportForm::pdf, QFont());
  // All of each page but its foot; a line beyond the page's edge is hidden, and in the file.
  const QStringList area{u"-x"_s,  u"0"_s,  u"-y"_s,  u"50"_s, u"-W"_s,
                         u"595"_s, u"-H"_s, u"712"_s, u"-"_s};
  const QStringList pages = readBy(u"pdftotext"_s, pdf, area).split(u'\f', Qt::SkipEmptyParts);
  EXPECT_GT(pages.size(), 5);
  for (const QString& page : pages)
    EXPECT_FALSE(page.trimmed().split(u'\n').back().startsWith(u"Version"_s)) << page.toStdString();
  EXPECT_EQ(pages.join(u' ').count(u"Version "_s), 801) << "with that of the chapter";
}

TEST_F(ReportWindowTest, PrintsOnceTheStoreHasAnswered) {
  answerCatalog();
  QTemporaryFile file;
  ASSERT_TRUE(file.open());
  QPdfWriter printer(&file);
  prompts_.printer = &printer;
  show();
  window_->printWhenKnown();
  EXPECT_TRUE(prompts_.prints.empty());
  openStore();
  waitFor([&] { return file.size() > 0; });
  EXPECT_EQ(prompts_.prints, std::vector{window_->windowTitle()});
}

}  // namespace
}  // namespace quillet
