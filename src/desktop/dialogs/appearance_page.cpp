// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QCoreApplication>

#include "desktop/dialogs/percent_slider.h"
#include "desktop/dialogs/sample_row.h"
#include "desktop/dialogs/setting_controls.h"
#include "desktop/dialogs/settings_pages.h"
#include "desktop/lists/text_label.h"

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

}  // namespace

SettingsPage* makeAppearancePage(const SettingsWorld& world) {
  auto* page = new SettingsPage(QStringLiteral("appearance"), tr("Appearance"),
                                QStringLiteral("palette"), world.edit);
  addChoice(*page, {tr("Colours"), {}, tr("theme dark light mode colors")}, kAppearance,
            {{"system", tr("As the system")}, {"light", tr("Light")}, {"dark", tr("Dark")}});
  addTextSize(*page);
  addMotion(*page, world.system.appearance);
  page->rows().back()->setLine(false);
  page->addBelow(new SampleRow(world.views.images), 16);
  auto* caption = new TextLabel(kFactType, Token::tertiary);
  caption->setText(tr("How a row looks with these settings"));
  page->addBelow(caption, 8);
  return page;
}

}  // namespace quillet
