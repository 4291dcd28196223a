// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QCoreApplication>
#include <algorithm>
#include <array>

#include "desktop/dialogs/percent_slider.h"
#include "desktop/dialogs/sample_row.h"
#include "desktop/dialogs/setting_controls.h"
#include "desktop/dialogs/settings_pages.h"
#include "desktop/lists/text_label.h"
#include "desktop/look/dialog_button.h"
#include "desktop/page/arrange_window.h"
#include "desktop/page/block_table.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Settings", text); }

void addTextSize(SettingsPage& page) {
  const auto lowest = static_cast<int>(kTextPercent.lowest);
  const auto highest = static_cast<int>(kTextPercent.highest);
  auto* slider = new PercentSlider(tr("Text size"), lowest, highest);
  page.add({tr("Text size"), tr("%1 to %2\u00a0%").arg(lowest).arg(highest), tr("font zoom scale")},
           slider);
  page.owns(kTextPercent.key);
  SettingsEdit& edit = page.edit();
  QObject::connect(slider, &PercentSlider::chosen, &page, [&edit](int percent) {
    edit.write({{std::string(kTextPercent.key), std::to_string(percent)}});
  });
  page.follow([slider, &edit] {
    slider->setValue(static_cast<int>(readSetting(edit.settings(), kTextPercent)));
  });
}

void addMotion(SettingsPage& page, const DesktopAppearance* desktop) {
  SettingRow& row =
      addChoice(page, {tr("Reduce motion"), {}, tr("animation")}, kReduceMotion,
                {{"system", tr("As the system")}, {"on", tr("On")}, {"off", tr("Off")}});
  if (desktop == nullptr) return;
  const auto tell = [&row, desktop, &edit = page.edit()] {
    const std::string kept = edit.settings().text(kReduceMotion.key).value_or("");
    const bool isChosen = kept == "on" || kept == "off";
    const QString now = desktop->wanted().hasLessMotion ? tr("Now as the system says: on")
                                                        : tr("Now as the system says: off");
    row.setDetail(isChosen ? QString() : now);
  };
  QObject::connect(desktop, &DesktopAppearance::changed, &page, tell);
  page.follow(tell);
}

QString numberWord(std::size_t number) {
  constexpr std::array kWords{
      QT_TRANSLATE_NOOP("Settings", "no"),       QT_TRANSLATE_NOOP("Settings", "one"),
      QT_TRANSLATE_NOOP("Settings", "two"),      QT_TRANSLATE_NOOP("Settings", "three"),
      QT_TRANSLATE_NOOP("Settings", "four"),     QT_TRANSLATE_NOOP("Settings", "five"),
      QT_TRANSLATE_NOOP("Settings", "six"),      QT_TRANSLATE_NOOP("Settings", "seven"),
      QT_TRANSLATE_NOOP("Settings", "eight"),    QT_TRANSLATE_NOOP("Settings", "nine"),
      QT_TRANSLATE_NOOP("Settings", "ten"),      QT_TRANSLATE_NOOP("Settings", "eleven"),
      QT_TRANSLATE_NOOP("Settings", "twelve"),   QT_TRANSLATE_NOOP("Settings", "thirteen"),
      QT_TRANSLATE_NOOP("Settings", "fourteen"),
  };
  return number < kWords.size() ? tr(kWords[number]) : QString::number(number);
}

/// "Fourteen blocks in the usual order", "Ten of fourteen blocks in your own order"
QString blocksText(const Settings& kept) {
  const auto known = [](const Settings& settings) {
    std::vector<BlockChoice> choices = blockChoices(settings);
    std::erase_if(choices, [](const auto& choice) { return findBlock(choice.id) == nullptr; });
    return choices;
  };
  const std::vector<BlockChoice> choices = known(kept);
  const bool isUsual = std::ranges::equal(choices, known(IniSettings::parse({})), {},
                                          &BlockChoice::id, &BlockChoice::id);
  const auto shown =
      static_cast<std::size_t>(std::ranges::count(choices, true, &BlockChoice::isShown));
  const QString all = numberWord(choices.size());
  QString text = shown == choices.size() ? all : tr("%1 of %2").arg(numberWord(shown), all);
  text[0] = text[0].toUpper();
  return (isUsual ? tr("%1 blocks in the usual order") : tr("%1 blocks in your own order"))
      .arg(text);
}

void addBlocks(SettingsPage& page) {
  auto* arrange = new DialogButton(tr("Arrange…"));
  SettingRow& row =
      page.add({tr("App page blocks"), {}, tr("order hide sections layout")}, arrange);
  page.owns(kDetailSectionLayout.key);
  SettingsEdit& edit = page.edit();
  QObject::connect(arrange, &QPushButton::clicked, &page,
                   [&page, &edit] { arrangeBlocks(page.window(), edit.settings()); });
  page.follow([&row, &edit] { row.setDetail(blocksText(edit.settings())); });
}

}  // namespace

SettingsPage* makeAppearancePage(const SettingsWorld& world) {
  auto* page = new SettingsPage(QStringLiteral("appearance"), tr("Appearance"),
                                QStringLiteral("palette"), world.edit);
  addChoice(*page, {tr("Colours"), {}, tr("theme dark light mode colors")}, kAppearance,
            {{"system", tr("As the system")}, {"light", tr("Light")}, {"dark", tr("Dark")}});
  addTextSize(*page);
  addMotion(*page, world.system.appearance);
  addBlocks(*page);
  page->rows().back()->setLine(false);
  page->addBelow(new SampleRow(world.views.images), 16);
  auto* caption = new TextLabel(kFactType, Token::tertiary);
  caption->setText(tr("How a row looks with these settings"));
  page->addBelow(caption, 8);
  return page;
}

}  // namespace quillet
