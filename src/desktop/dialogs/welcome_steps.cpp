// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/welcome_steps.h"

#include <QButtonGroup>
#include <QCheckBox>
#include <QCoreApplication>
#include <QRadioButton>
#include <QVBoxLayout>
#include <array>
#include <memory>

#include "base/enum_index.h"
#include "desktop/dialogs/storefront_list.h"
#include "desktop/lists/text_label.h"
#include "desktop/page/page_text.h"
#include "store/records/platform.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

constexpr int kIndent = 24;  // of what is said of a choice, below its text
constexpr int kBetweenChoices = 16;

constexpr std::array kPlatformNames{QT_TRANSLATE_NOOP("Welcome", "Mac"),
                                    QT_TRANSLATE_NOOP("Welcome", "iPhone"),
                                    QT_TRANSLATE_NOOP("Welcome", "iPad")};

QString tr(const char* text) { return QCoreApplication::translate("Welcome", text); }

Platform keptPlatform(const Settings& settings) {
  return valueOf(kPlatformWords, settings.text(kDefaultPlatform.key).value_or(""))
      .value_or(Platform::mac);
}

void addParagraph(QVBoxLayout& column, const QString& text, const TextLook& look) {
  auto* made = new PageText(look);
  column.addWidget(made);
  made->show(text);
}

QVBoxLayout* columnOf(QWidget& view) {
  auto* column = new QVBoxLayout(&view);
  column->setContentsMargins({});
  column->setSpacing(0);
  return column;
}

void addStepHead(QVBoxLayout& column, const QString& question, const QString& reason) {
  addParagraph(column, question, {.type = kSectionType.weighing(600), .lineHeight = 24});
  column.addSpacing(2);
  addParagraph(column, reason, {.type = kBodyType, .ink = Token::secondary});
  column.addSpacing(16);
}

/// A choice with a quieter line below it.
void addChoice(QVBoxLayout& column, QAbstractButton* button, const QString& detail) {
  button->setAccessibleDescription(detail);
  column.addWidget(button);
  auto* below = new QVBoxLayout;
  below->setContentsMargins(kIndent, 2, 0, kBetweenChoices);
  addParagraph(*below, detail, {.type = kFactType, .ink = Token::secondary, .lineHeight = 17});
  column.addLayout(below);
}

/// Each platform's place in kPlatformWords is its button's ID.
QWidget* makePlatforms(QButtonGroup& group, Platform chosen) {
  auto* view = new QWidget;
  view->setAccessibleName(tr("Show me apps for"));
  auto* title = new TextLabel(kBodyType.weighing(600), Token::text);
  title->setText(tr("Show me apps for"));
  auto* choices = new QHBoxLayout;
  choices->setSpacing(24);
  for (std::size_t i = 0; i < kPlatformNames.size(); ++i) {
    auto* choice = new QRadioButton(tr(kPlatformNames[i]));
    choice->setChecked(i == indexOf(chosen));
    group.addButton(choice, static_cast<int>(i));
    choices->addWidget(choice);
  }
  choices->addStretch(1);
  QVBoxLayout* column = columnOf(*view);
  column->setSpacing(8);
  column->addWidget(title);
  column->addLayout(choices);
  return view;
}

QString noticeReason(const NotificationChoice& choice) {
  return choice.status() == AuthorizationStatus::unavailable
             ? tr("This desktop has no notification service; alerts stay in the list.")
             : tr("Alerts are kept in their list in any case.");
}

/// One switch of what goes on in the background: what it shows at first, and what keeps it.
struct BackgroundChoice {
  QCheckBox* box;
  bool was;
  std::function<void(bool isOn)> keep;
};

BackgroundChoice flagChoice(QVBoxLayout& column, LiveSettings& settings, const FlagSetting& flag,
                            const QString& text, const QString& detail) {
  auto* box = new QCheckBox(text);
  const bool was = readSetting(settings, flag);
  box->setChecked(was);
  addChoice(column, box, detail);
  return {box, was, [&settings, flag](bool isOn) {
            settings.write({{std::string(flag.key), isOn ? "true" : "false"}});
          }};
}

BackgroundChoice loginChoice(QVBoxLayout& column, LoginItem& item) {
  auto* box = new QCheckBox(tr("Open Quillet at login"));
  const bool was = item.isEnabled();
  box->setChecked(was);
  addChoice(column, box, tr("In the background, without a window."));
  return {box, was, [&item](bool isOn) { isOn ? item.enable() : item.disable(); }};
}

}  // namespace

WelcomeStep makeStoreStep(const WelcomeWorld& world) {
  auto* view = new QWidget;
  QVBoxLayout* column = columnOf(*view);
  addStepHead(*column, tr("Which store do you buy from?"),
              tr("Prices and availability depend on it."));
  auto* storefronts = new StorefrontList;
  storefronts->choose(world.views.storefront());
  column->addWidget(storefronts, 1);
  column->addSpacing(16);
  LiveSettings& settings = world.edit.settings();
  auto* platforms = new QButtonGroup(view);
  column->addWidget(makePlatforms(*platforms, keptPlatform(settings)));
  return {tr("Store and devices"), view, [storefronts] { storefronts->takeFocus(); },
          [storefronts, platforms, &settings] {
            const auto platform = static_cast<std::size_t>(platforms->checkedId());
            settings.write(
                {{std::string(kStorefrontCountry.key), storefronts->chosen()},
                 {std::string(kDefaultPlatform.key), std::string(kPlatformWords[platform].text)}});
          }};
}

WelcomeStep makeNotificationsStep(const WelcomeWorld& world) {
  NotificationChoice& choice = *world.system.notifications;
  auto* view = new QWidget;
  QVBoxLayout* column = columnOf(*view);
  addStepHead(*column, tr("Shall Quillet tell you when an app gets cheaper?"),
              noticeReason(choice));
  auto* tells = new QRadioButton(tr("Tell me"));
  auto* later = new QRadioButton(tr("Not now"));
  addChoice(*column, tells,
            tr("A notification for each alert of an app that you watch: a drop, a target that is "
               "reached, a new version."));
  addChoice(*column, later, tr("Nothing is shown outside the window."));
  column->addStretch(1);
  const auto status = choice.status();
  const bool wasOn = status == AuthorizationStatus::authorized;
  tells->setEnabled(status != AuthorizationStatus::unavailable);
  (wasOn ? tells : later)->setChecked(true);
  return {tr("Notifications"), view, [now = wasOn ? tells : later] { now->setFocus(); },
          [tells, wasOn, &choice] {
            if (tells->isChecked() == wasOn) return;
            wasOn ? choice.refuse() : choice.allow();
          }};
}

WelcomeStep makeMyAppsStep(std::function<void(AppsWish)> wants) {
  auto* view = new QWidget;
  QVBoxLayout* column = columnOf(*view);
  addStepHead(*column, tr("Which apps do you own?"),
              tr("Quillet says whether they are cared for, and when there is an update."));
  auto* scan = new QRadioButton(tr("Scan for them now"));
  auto* now = new QRadioButton(tr("Add some now"));
  auto* later = new QRadioButton(tr("Later"));
  addChoice(*column, scan,
            tr("In an Applications folder on a disk or copied from one, once these steps are "
               "done."));
  addChoice(*column, now, tr("By name or link, likewise."));
  addChoice(*column, later, tr("My Apps has buttons for both."));
  column->addStretch(1);
  later->setChecked(true);
  const std::array choices{scan, now, later};
  return {tr("My Apps"), view,
          [choices] {
            for (QRadioButton* each : choices) {
              if (each->isChecked()) each->setFocus();
            }
          },
          [scan, now, wants = std::move(wants)] {
            const AppsWish byHand = now->isChecked() ? AppsWish::byHand : AppsWish::later;
            wants(scan->isChecked() ? AppsWish::scan : byHand);
          }};
}

WelcomeStep makeBackgroundStep(const WelcomeWorld& world) {
  auto* view = new QWidget;
  QVBoxLayout* column = columnOf(*view);
  addStepHead(*column, tr("What may Quillet do in the background?"),
              tr("Prices are only checked while it runs."));
  LiveSettings& settings = world.edit.settings();
  auto choices = std::make_shared<std::vector<BackgroundChoice>>();
  choices->push_back(flagChoice(*column, settings, kKeepRunning,
                                tr("Keep checking when the window is closed"),
                                tr("Its place in the menu bar brings the window back.")));
  choices->push_back(flagChoice(*column, settings, kShowMenuBarExtra, tr("Show in the menu bar"),
                                tr("Where the desktop has a place for it.")));
  if (world.system.loginItem != nullptr)
    choices->push_back(loginChoice(*column, *world.system.loginItem));
  choices->push_back(flagChoice(*column, settings, kImportPriceData,
                                tr("Read published price data"),
                                tr("Once a day: what apps have cost before you watched them.")));
  column->addStretch(1);
  return {tr("In the background"), view, [choices] { choices->front().box->setFocus(); },
          [choices] {
            for (const BackgroundChoice& each : *choices) {
              if (each.box->isChecked() != each.was) each.keep(each.box->isChecked());
            }
          }};
}

}  // namespace quillet
