// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QLineEdit>

#include "desktop/dialogs/scan_result_window.h"
#include "desktop/frame/name_dialog.h"
#include "desktop/frame/window_fixture.h"
#include "library/owned_apps.h"

namespace quillet {
namespace {

class ScanDeskTest : public WindowTest {
 protected:
  /// What a scan tells that found these, none of them in the store.
  ScanResultWindow& scanned(std::initializer_list<const char*> names) {
    ScanOutcome outcome;
    for (const char* name : names)
      outcome.apps.push_back({.bundle = {.path = std::string("/Applications/") + name + ".app",
                                         .name = name,
                                         .bundleId = std::string("example.") + name},
                              .as = FoundAs::notInStorefront});
    Q_EMIT parts_.installed.scanned(outcome);
    return part<ScanResultWindow>();
  }
};

TEST_F(ScanDeskTest, ALinkIsOfTheBundleThatItWasSetFor) {
  library_.use(*store_);
  open();
  Q_EMIT scanned({"Ant", "Bee"}).linkAsked(1);
  auto& asks = part<NameDialog>();
  asks.findChild<QLineEdit*>()->setText(QStringLiteral("77"));
  asks.accept();
  // Before the answer another scan has ended.
  ScanResultWindow& later = scanned({"Cat"});
  http_.answer(ScriptedStore::lookupUrl(77), 200,
               ScriptedStore::found(R"({"trackId":77,"trackName":"Beehive","kind":"mac-software",
                                        "version":"2.0","price":0,"currency":"USD"})"));
  ScriptedStore store(http_, clock_);
  StopSource stop;
  parts_.store.use(store.services(), stop.token());
  std::vector<OwnedApp> apps;
  waitFor([&] {
    apps = runTask(store_->read(ownedApps));
    return !apps.empty();
  });
  ASSERT_EQ(apps.size(), 1U);
  EXPECT_EQ(apps[0].name, "Beehive");
  EXPECT_EQ(apps[0].installedPath, "/Applications/Bee.app");
  EXPECT_EQ(later.found(0).bundle.name, "Cat");
}

TEST_F(ScanDeskTest, IgnoringIsTakenBack) {
  library_.use(*store_);
  open();
  const auto ignored = [&] { return ignoredBundles(settings_); };
  Q_EMIT scanned({"Ant", "Bee"}).ignored(0);
  settle();
  EXPECT_EQ(ignored(), (std::set<std::string>{"example.ant"}));
  run("undo");
  settle();
  EXPECT_TRUE(ignored().empty());
  run("redo");
  settle();
  EXPECT_EQ(ignored(), (std::set<std::string>{"example.ant"}));
}

}  // namespace
}  // namespace quillet
