// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include <QDBusConnectionInterface>
#include <memory>
#include <string>

#include "desktop/platform/portal_appearance.h"
#include "desktop/platform/stand_in_portal.h"
#include "support/event_loop.h"
#include "support/memory_settings.h"
#include "support/private_bus.h"

namespace quillet {
namespace {

std::string inWords(const Appearance& appearance) {
  std::string words = appearance.isDark ? "dark" : "light";
  if (appearance.hasMoreContrast) words += ", contrast";
  if (appearance.hasLessMotion) words += ", still";
  return words;
}

class PortalAppearanceTest : public testing::Test {
 protected:
  PortalAppearanceTest() {
    QObject::connect(&appearance_, &DesktopAppearance::changed, &appearance_,
                     [this] { heard_ += inWords(appearance_.wanted()) + "; "; });
  }

  void startPortal(const StandInPortal::Values& values) {
    portal_.reset();
    portal_ = std::make_unique<StandInPortal>(bus_.service, values);
  }

  /// Goes on when all that the portal, and the bus, have said so far was heard.
  void hear() {
    for (int there = 0; there < 2; ++there) {
      for (const QDBusConnection& connection : {bus_.application, bus_.service}) {
        connection.interface()->isServiceRegistered(QStringLiteral("x.y"));
        handlePendingEvents();
      }
    }
  }

  /// What was said to have changed since the last call.
  std::string heard() {
    hear();
    return std::exchange(heard_, {});
  }

  std::string tell(const QString& space, const QString& key, const QVariant& value) {
    Q_EMIT portal_->SettingChanged(space, key, QDBusVariant(value));
    return heard();
  }

  PrivateBus bus_;
  PortalAppearance appearance_;
  std::string heard_;
  std::unique_ptr<StandInPortal> portal_;
};

TEST_F(PortalAppearanceTest, TakesWhatThePortalSaysNowAndLater) {
  startPortal({{QStringLiteral("color-scheme"), 1U}, {QStringLiteral("contrast"), 1U}});
  appearance_.useBus(bus_.application);
  EXPECT_EQ(inWords(appearance_.wanted()), "light") << "asked, but not waited for";
  EXPECT_EQ(heard(), "dark; dark, contrast; ");
  const QString space = QStringLiteral("org.freedesktop.appearance");
  const QString scheme = QStringLiteral("color-scheme");
  struct {
    QString space;
    QString key;
    QVariant value;
    const char* heard;
  } const rows[] = {
      {space, scheme, 1U, ""},
      {space, scheme, 2U, "light, contrast; "},
      {space, QStringLiteral("contrast"), 0U, "light; "},
      {space, QStringLiteral("reduced-motion"), 1U, "light, still; "},
      {space, scheme, 7U, ""},
      {space, scheme, QStringLiteral("dark"), ""},
      {space, QStringLiteral("accent-color"), 1U, ""},
      {QStringLiteral("org.example.desktop"), scheme, 1U, ""},
      {space, scheme, 1U, "dark, still; "},
      {space, scheme, 0U, "light, still; "},
  };
  for (const auto& row : rows) {
    EXPECT_EQ(tell(row.space, row.key, row.value), row.heard)
        << row.key.toStdString() << ' ' << row.value.toString().toStdString();
  }
}

TEST_F(PortalAppearanceTest, AsksAPortalThatComesLate) {
  appearance_.useBus(bus_.application);
  EXPECT_EQ(heard(), "");
  startPortal({{QStringLiteral("color-scheme"), 1U}});
  EXPECT_EQ(heard(), "dark; ");
  startPortal({{QStringLiteral("color-scheme"), 2U}});
  EXPECT_EQ(heard(), "light; ");
}

TEST_F(PortalAppearanceTest, IsGoneBeforeTheAnswer) {
  startPortal({{QStringLiteral("color-scheme"), 1U}});
  portal_->isSlow = true;
  auto early = std::make_unique<PortalAppearance>();
  early->useBus(bus_.application);
  hear();
  early.reset();
  portal_->release();
  hear();
}

TEST_F(PortalAppearanceTest, IsLightWithoutABus) {
  appearance_.useBus(QDBusConnection(QStringLiteral("nowhere")));
  EXPECT_EQ(heard(), "");
  EXPECT_EQ(appearance_.wanted(), Appearance{});
}

TEST(ChosenAppearanceTest, TheSettingsWinOverTheDesktop) {
  const Appearance plain{.hasMoreContrast = true};
  const Appearance dark{true, true, true};
  struct {
    WritableSettings::Values settings;
    Appearance desktop;
    const char* chosen;
  } const rows[] = {
      {{}, plain, "light, contrast"},
      {{}, dark, "dark, contrast, still"},
      {{{"appearance", "system"}, {"reduceMotion", "system"}}, dark, "dark, contrast, still"},
      {{{"appearance", "light"}}, dark, "light, contrast, still"},
      {{{"appearance", "dark"}}, plain, "dark, contrast"},
      {{{"appearance", "mauve"}, {"reduceMotion", "1"}}, dark, "dark, contrast, still"},
      {{{"reduceMotion", "off"}}, dark, "dark, contrast"},
      {{{"reduceMotion", "on"}}, plain, "light, contrast, still"},
  };
  for (const auto& row : rows)
    EXPECT_EQ(inWords(chosenAppearance(row.desktop, MemorySettings(row.settings))), row.chosen);
}

}  // namespace
}  // namespace quillet
