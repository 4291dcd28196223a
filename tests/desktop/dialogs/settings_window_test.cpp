// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/settings_window.h"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QPushButton>
#include <QRadioButton>
#include <QSlider>
#include <QSpinBox>
#include <QTest>

#include "desktop/dialogs/notice_bar.h"
#include "desktop/dialogs/pushed_thresholds.h"
#include "desktop/dialogs/settings_page.h"
#include "desktop/lists/list_fixtures.h"
#include "desktop/look/search_field.h"
#include "desktop/page/arrange_window.h"
#include "net/run_task.h"
#include "support/event_loop.h"
#include "system/settings_keys.h"

namespace quillet {
namespace {

class FakeLoginItem final : public LoginItem {
 public:
  [[nodiscard]] bool isEnabled() const override { return isOn; }
  void enable() override { set(true); }
  void disable() override { set(false); }

  bool isOn = false;
  bool isRefused = false;

 private:
  void set(bool on) {
    if (isRefused) throw LoginItemError("The login item could not be written: read-only.");
    isOn = on;
  }
};

class FakeAppearance final : public DesktopAppearance {
 public:
  [[nodiscard]] Appearance wanted() const override { return now; }
  void set(const Appearance& next) {
    now = next;
    Q_EMIT changed();
  }

  Appearance now;
};

class FakeNotifications final : public NotificationChoice {
 public:
  explicit FakeNotifications(LiveSettings& settings) : settings_(settings) {}

  [[nodiscard]] std::optional<AuthorizationStatus> status() const override { return now; }
  void refresh() override {}
  void allow() override { answer("true", AuthorizationStatus::authorized); }
  void refuse() override { answer("false", AuthorizationStatus::denied); }
  void showTest() override { Q_EMIT failed(QStringLiteral("The notification was not shown.")); }
  void set(std::optional<AuthorizationStatus> next) {
    now = next;
    Q_EMIT changed();
  }

  std::optional<AuthorizationStatus> now;

 private:
  void answer(const char* value, AuthorizationStatus next) {
    settings_.write({{std::string(kNotificationsEnabled.key), value}});
    set(next);
  }

  LiveSettings& settings_;
};

class SettingsWindowTest : public testing::Test {
 protected:
  /// What counts the kept pictures has answered.
  void TearDown() override {
    runTask(world_.parts.images.size());
    handlePendingEvents();
  }

  void open() {
    window_ = std::make_unique<SettingsWindow>(
        world_.world(),
        SystemChoices{
            "de", &appearance_, &loginItem_, &notifications_, library_, {}, {}, &updates_},
        nullptr);
    window_->show();
    handlePendingEvents();
  }

  /// The control of the row with that title, or of its name within a row.
  template <typename Control>
  Control& control(const char* title) {
    for (Control* each : window_->findChildren<Control*>()) {
      if (each->accessibleName() == QLatin1String(title)) return *each;
    }
    ADD_FAILURE() << title;
    std::abort();
  }
  void click(const char* title) { control<QAbstractButton>(title).click(); }
  /// A word of the choice with that title.
  void choose(const char* title, const char* word) {
    for (QRadioButton* each : control<QWidget>(title).findChildren<QRadioButton*>()) {
      if (each->text() == QLatin1String(word)) each->click();
    }
  }
  void check(const char* text) {
    for (QCheckBox* each : window_->findChildren<QCheckBox*>()) {
      if (each->text() == QLatin1String(text)) each->click();
    }
  }
  /// One key to the list of that row: an arrow, or a letter.
  void key(const char* title, const std::string& name) {
    auto& box = control<QComboBox>(title);
    if (name == "down") {
      QTest::keyClick(&box, Qt::Key_Down);
    } else {
      QTest::keyClicks(&box, QString::fromStdString(name));
    }
  }
  void type(const char* title, const char* text) {
    auto& field = control<QLineEdit>(title);
    field.clear();
    QTest::keyClicks(&field, QLatin1String(text));
    QTest::keyClick(&field, Qt::Key_Return);
  }
  SettingRow& row(const char* title) {
    for (SettingRow* each : window_->findChildren<SettingRow*>()) {
      if (each->title() == QLatin1String(title)) return *each;
    }
    ADD_FAILURE() << title;
    std::abort();
  }
  SettingsPage& page(const char* title) {
    for (SettingsPage* each : window_->findChildren<SettingsPage*>()) {
      if (each->title() == QLatin1String(title)) return *each;
    }
    ADD_FAILURE() << title;
    std::abort();
  }
  void reset(const char* title) {
    for (QAbstractButton* each : page(title).findChildren<QAbstractButton*>()) {
      if (each->text() == u"Reset"_s) each->click();
    }
  }
  std::string shown() {
    for (SettingsPage* each : window_->findChildren<SettingsPage*>()) {
      if (each->isVisible()) return each->title().toStdString();
    }
    return {};
  }
  /// What went wrong, as it is told.
  std::string notice() {
    const auto& bar = *window_->findChild<NoticeBar*>();
    return bar.isVisible() ? bar.accessibleName().toStdString() : "";
  }
  std::string kept(std::string_view key) { return world_.settings.text(key).value_or("-"); }

  TestWorld world_;
  FakeAppearance appearance_;
  FakeLoginItem loginItem_;
  Updates updates_{{world_.http, world_.clock, world_.parts.settings, world_.parts.state, "1", {}}};
  FakeNotifications notifications_{world_.parts.settings};
  std::filesystem::path library_ = "/nowhere/default.store";
  std::unique_ptr<SettingsWindow> window_;
};

TEST_F(SettingsWindowTest, EachControlWritesItsKeyAndTheResetForgetsIt) {
  struct {
    const char* page;
    const char* key;
    const char* value;
    std::function<void()> act;
  } const rows[] = {
      {"General", "storefrontCountry", "fr",
       [this] {
         auto& box = control<QComboBox>("Storefront");
         QTest::keyClicks(&box, u"Fra"_s);
       }},
      {"General", "defaultPlatform", "ipad",
       [this] { choose("Platform for new searches", "iPad"); }},
      {"General", "showMenuBarExtra", "false", [this] { click("Show in the menu bar"); }},
      {"General", "keepRunning", "false",
       [this] { click("Keep checking when the window is closed"); }},
      {"General", "keepHistory", "false", [this] { click("Keep a history of viewed apps"); }},
      {"Watchlist", "priceCheckIntervalHours", "6", [this] { key("Check prices every", "down"); }},
      {"Watchlist", "watchAnyDrop", "false", [this] { check("Any drop in price"); }},
      {"Watchlist", "watchFree", "false", [this] { check("The app becoming free"); }},
      {"Watchlist", "watchNewVersion", "true", [this] { check("A new version"); }},
      {"Watchlist", "watchPurchases", "false", [this] { check("In-app prices"); }},
      {"Watchlist", "checkOnMetered", "true", [this] { click("Check on metered networks"); }},
      {"Watchlist", "keepAlertsDays", "365", [this] { key("Keep alerts", "a"); }},
      {"Notifications", "notificationsEnabled", "true", [this] { click("Notify me"); }},
      {"Maintenance", "showMaintenanceRating", "false",
       [this] { click("Show the maintenance rating"); }},
      {"Maintenance", "maintenanceSlowingAfterMonths", "7",
       [this] { control<QSpinBox>("Slowing down after").stepUp(); }},
      {"Maintenance", "maintenanceStaleAfterMonths", "11",
       [this] { control<QSpinBox>("Stale after").stepDown(); }},
      {"Maintenance", "maintenanceAbandonedAfterMonths", "120",
       [this] { control<QSpinBox>("Likely abandoned after").setValue(500); }},
      {"Appearance", "appearance", "dark", [this] { choose("Colours", "Dark"); }},
      {"Appearance", "textPercent", "105",
       [this] { QTest::keyClick(&control<QSlider>("Text size"), Qt::Key_Right); }},
      {"Appearance", "reduceMotion", "on", [this] { choose("Reduce motion", "On"); }},
      {"Data", "importPriceData", "false", [this] { click("Read published price data"); }},
      {"Data", "recordCharts", "false", [this] { click("Record charts daily"); }},
      {"Data", "imageCacheMB", "320", [this] { control<QSpinBox>("Image cache limit").stepUp(); }},
      {"Data", "priceDataURL", "file:///srv/prices",
       [this] { type("Price data", "file:///srv/prices"); }},
      {"Data", "itunesURL", "http://localhost:8080",
       [this] { type("Search service", " http://localhost:8080 "); }},
      {"Data", "appStoreURL", "https://apps.example",
       [this] { type("App Store pages", "https://apps.example"); }},
      {"Updates & tools", "checkForUpdates", "false", [this] { click("Look for new releases"); }},
      {"Updates & tools", "updateFeedURL", "https://q.example/releases.json",
       [this] {
         type("List of releases", "http://q.example/releases.json");
         type("List of releases", "https://q.example/releases.json");
       }},
  };
  notifications_.now = AuthorizationStatus::notDetermined;
  open();
  const std::vector<std::string> pages{"General",           "Watchlist",      "Notifications",
                                       "Maintenance",       "Appearance",     "Data",
                                       "Privacy & storage", "Updates & tools"};
  for (const auto& row : rows) {
    EXPECT_EQ(kept(row.key), "-");
    row.act();
    EXPECT_EQ(kept(row.key), row.value);
    for (const std::string& other : pages) {
      if (other != row.page) reset(other.c_str());
    }
    EXPECT_EQ(kept(row.key), row.value) << row.key << " belongs to " << row.page;
    reset(row.page);
    EXPECT_EQ(kept(row.key), "-");
  }
  EXPECT_EQ(control<QComboBox>("Storefront").currentText(), u"From the system: de"_s);
  EXPECT_EQ(control<QSpinBox>("Likely abandoned after").value(), 24);
  EXPECT_EQ(control<QSlider>("Text size").value(), 100);
}

TEST_F(SettingsWindowTest, ThresholdsPushOneAnotherWithinTheirRanges) {
  open();
  const auto set = [&](const char* title, int months) {
    control<QSpinBox>(title).setValue(months);
    std::vector<int> all;
    for (const char* each : {"Slowing down after", "Stale after", "Likely abandoned after"})
      all.push_back(control<QSpinBox>(each).value());
    return all;
  };
  struct {
    const char* title;
    int months;
    std::vector<int> all;
  } const rows[] = {
      {"Slowing down after", 12, {12, 13, 24}}, {"Slowing down after", 118, {118, 119, 120}},
      {"Slowing down after", 0, {1, 119, 120}}, {"Likely abandoned after", 3, {1, 2, 3}},
      {"Stale after", 119, {1, 119, 120}},      {"Stale after", 2, {1, 2, 120}},
      {"Likely abandoned after", 1, {1, 2, 3}},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(set(row.title, row.months), row.all) << row.title << ' ' << row.months;
    const MaintenanceThresholds read = readMaintenanceThresholds(world_.settings);
    EXPECT_EQ((std::vector<int>{static_cast<int>(read.slowing), static_cast<int>(read.stale),
                                static_cast<int>(read.abandoned)}),
              row.all);
  }
}

TEST_F(SettingsWindowTest, WhatCannotBeKeptIsToldAndTheControlsGoBack) {
  open();
  world_.settings.refuseWrites("The settings could not be kept: read-only.");
  click("Keep a history of viewed apps");
  choose("Colours", "Dark");
  QTest::keyClicks(&control<QComboBox>("Storefront"), u"Fra"_s);
  control<QSpinBox>("Stale after").setValue(30);
  EXPECT_TRUE(control<QAbstractButton>("Keep a history of viewed apps").isChecked());
  for (QRadioButton* each : control<QWidget>("Colours").findChildren<QRadioButton*>())
    EXPECT_EQ(each->isChecked(), each->text() == u"As the system"_s);
  EXPECT_EQ(control<QComboBox>("Storefront").currentIndex(), 0);
  EXPECT_EQ(control<QSpinBox>("Stale after").value(), 12);
  EXPECT_EQ(notice(), "The settings could not be kept: read-only.");
  reset("Appearance");
  EXPECT_EQ(notice(), "The settings could not be kept: read-only.");
  world_.settings.allowWrites();
  click("Keep a history of viewed apps");
  EXPECT_EQ(notice(), "");
}

TEST_F(SettingsWindowTest, ShowsWhatOthersChange) {
  open();
  world_.parts.settings.write({{"appearance", "dark"}, {"textPercent", "130"}});
  EXPECT_EQ(control<QSlider>("Text size").value(), 130);
  // Another program, which nobody tells of.
  world_.settings.set("keepHistory", "false");
  loginItem_.isOn = true;
  QEvent activated(QEvent::WindowActivate);
  QCoreApplication::sendEvent(window_.get(), &activated);
  EXPECT_FALSE(control<QAbstractButton>("Keep a history of viewed apps").isChecked());
  EXPECT_TRUE(control<QAbstractButton>("Open Quillet at login").isChecked());
}

TEST_F(SettingsWindowTest, TheLoginItemIsWhatTheSystemHas) {
  open();
  click("Open Quillet at login");
  EXPECT_TRUE(loginItem_.isOn);
  loginItem_.isRefused = true;
  click("Open Quillet at login");
  EXPECT_TRUE(control<QAbstractButton>("Open Quillet at login").isChecked());
  EXPECT_EQ(notice(), "The login item could not be written: read-only.");
  reset("General");
  EXPECT_EQ(notice(), "The login item could not be written: read-only.");
  loginItem_.isRefused = false;
  reset("General");
  EXPECT_FALSE(loginItem_.isOn);
  EXPECT_FALSE(control<QAbstractButton>("Open Quillet at login").isChecked());
}

TEST_F(SettingsWindowTest, ANumberThatIsNotOfferedIsShownWhileItIsKept) {
  world_.settings.set("priceCheckIntervalHours", "5");
  open();
  auto& box = control<QComboBox>("Check prices every");
  EXPECT_EQ(box.currentText(), u"Every 5 hours"_s);
  EXPECT_EQ(kept("priceCheckIntervalHours"), "5") << "to be shown changes nothing";
  key("Check prices every", "2");
  EXPECT_EQ(kept("priceCheckIntervalHours"), "2");
  EXPECT_EQ(box.findText(u"Every 5 hours"_s), -1);
}

TEST_F(SettingsWindowTest, AnAddressIsJudgedAsItIsTypedAndKeptOnlyWhereItCanBeUsed) {
  open();
  auto& field = control<QLineEdit>("Search service");
  const auto says = [&](const char* text) {
    return row("Search service").matches(QString::fromLatin1(text));
  };
  EXPECT_TRUE(says("counts from the next start"));
  QTest::keyClicks(&field, u"file:///srv"_s);
  EXPECT_TRUE(says("not usable: it must be an http or https address without a path."));
  QTest::keyClick(&field, Qt::Key_Return);
  EXPECT_EQ(kept("itunesURL"), "-");
  type("Search service", "https://store.example");
  EXPECT_TRUE(says("counts from the next start"));
  type("Search service", "");
  EXPECT_EQ(kept("itunesURL"), "-") << "none is the built-in one";
}

TEST_F(SettingsWindowTest, TellsWhetherTheUserIsNotified) {
  struct {
    std::optional<AuthorizationStatus> status;
    const char* text;
    bool isOn;
    bool canSwitch;
  } const rows[] = {
      {std::nullopt, "", false, false},
      {AuthorizationStatus::notDetermined, "notifications haven't been enabled yet.", false, true},
      {AuthorizationStatus::denied,
       "notifications are turned off. enable them in system settings \u203a notifications to "
       "receive price alerts.",
       false, true},
      {AuthorizationStatus::unavailable,
       "this desktop has no notification service; alerts stay in the list.", false, false},
      {AuthorizationStatus::authorized, "of alerts of watched apps", true, true},
  };
  open();
  for (const auto& row : rows) {
    notifications_.set(row.status);
    const auto& control = this->control<QAbstractButton>("Notify me");
    EXPECT_TRUE(this->row("Notify me").matches(QString::fromUtf8(row.text))) << row.text;
    EXPECT_EQ(control.isChecked(), row.isOn) << row.text;
    EXPECT_EQ(control.isEnabled(), row.canSwitch) << row.text;
  }
  for (QPushButton* each : page("Notifications").findChildren<QPushButton*>()) each->click();
  EXPECT_EQ(notice(), "The notification was not shown.");
  world_.settings.refuseWrites("The settings could not be kept: read-only.");
  click("Notify me");
  EXPECT_TRUE(control<QAbstractButton>("Notify me").isChecked());
  EXPECT_EQ(notice(), "The settings could not be kept: read-only.");
}

TEST_F(SettingsWindowTest, TellsHowMuchMotionTheSystemWants) {
  open();
  const auto says = [&](const char* text) {
    return page("Appearance").rows()[2]->matches(QString::fromLatin1(text));
  };
  EXPECT_TRUE(says("now as the system says: off"));
  appearance_.set({.hasLessMotion = true});
  EXPECT_TRUE(says("now as the system says: on"));
  choose("Reduce motion", "Off");
  EXPECT_FALSE(says("now as the system says"));
}

TEST_F(SettingsWindowTest, TellsHowThePagesOfAppsAreArranged) {
  open();
  const std::pair<const char*, const char*> rows[] = {
      {"", "fourteen blocks in the usual order"},
      {"nobody-knows", "fourteen blocks in the usual order"},
      {"-prices", "thirteen of fourteen blocks in the usual order"},
      {"prices,screenshots", "fourteen blocks in your own order"},
      {"-prices,-screenshots", "twelve of fourteen blocks in your own order"},
  };
  for (const auto& [layout, text] : rows) {
    world_.parts.settings.write({{"detailSectionLayout", layout}});
    EXPECT_TRUE(page("Appearance").rows().back()->matches(QString::fromLatin1(text))) << layout;
  }
  reset("Appearance");
  EXPECT_EQ(kept("detailSectionLayout"), "-");
  for (QPushButton* each : page("Appearance").findChildren<QPushButton*>()) each->click();
  EXPECT_EQ(window_->findChildren<ArrangeWindow*>().size(), 1);
}

TEST_F(SettingsWindowTest, FindsRowsByTheirWordsAndGoesThereByKeys) {
  struct {
    const char* text;
    const char* page;
    const char* focus;
  } const rows[] = {
      {"ABANDON", "Maintenance", "Likely abandoned after"},
      {"size text", "Appearance", "Text size"},
      {"country", "General", "Storefront"},
      {"animation", "Appearance", "As the system"},
  };
  for (const auto& row : rows) {
    open();
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(row.text));
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Return);
    EXPECT_EQ(shown(), row.page) << row.text;
    const QWidget* focus = QApplication::focusWidget();
    ASSERT_NE(focus, nullptr);
    const auto* button = qobject_cast<const QAbstractButton*>(focus);
    EXPECT_EQ(button != nullptr ? button->text() : focus->accessibleName(),
              QString::fromLatin1(row.focus));
  }
  QTest::keyClick(window_.get(), Qt::Key_Escape);
  EXPECT_EQ(window_->findChild<SearchField*>()->text(), QString());
  EXPECT_TRUE(window_->isVisible());
  QTest::keyClick(window_.get(), Qt::Key_Escape);
  EXPECT_FALSE(window_->isVisible());
  open();
  EXPECT_EQ(shown(), "Appearance") << "as it was left";
  QTest::keyClick(window_.get(), Qt::Key_W, Qt::ControlModifier);
  EXPECT_FALSE(window_->isVisible());
}

}  // namespace
}  // namespace quillet
