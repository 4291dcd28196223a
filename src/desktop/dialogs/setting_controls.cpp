// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/setting_controls.h"

#include <algorithm>

#include "desktop/look/segmented_control.h"
#include "desktop/look/switch.h"

namespace quillet {

SettingRow& addSwitch(SettingsPage& page, const SettingTexts& texts, const FlagSetting& setting) {
  auto* control = new Switch(texts.title);
  control->setFocusPolicy(Qt::StrongFocus);
  SettingRow& row = page.add(texts, control);
  page.owns(setting.key);
  SettingsEdit& edit = page.edit();
  QObject::connect(control, &QAbstractButton::clicked, &page, [&edit, setting](bool isOn) {
    edit.write({{std::string(setting.key), isOn ? "true" : "false"}});
  });
  page.follow(
      [control, &edit, setting] { control->setChecked(readSetting(edit.settings(), setting)); });
  return row;
}

SettingRow& addChoice(SettingsPage& page, const SettingTexts& texts, const TextSetting& setting,
                      const std::vector<SettingChoice>& choices) {
  QStringList words;
  for (const SettingChoice& choice : choices) words.append(choice.text);
  auto* control = new SegmentedControl(texts.title, words);
  SettingRow& row = page.add(texts, control);
  page.owns(setting.key);
  SettingsEdit& edit = page.edit();
  QObject::connect(control, &SegmentedControl::chosenChanged, &page,
                   [&edit, setting, choices](int index) {
                     const auto& chosen = choices[static_cast<std::size_t>(index)];
                     edit.write({{std::string(setting.key), std::string(chosen.value)}});
                   });
  page.follow([control, &edit, setting, choices] {
    const std::string kept = edit.settings().text(setting.key).value_or("");
    auto at = std::ranges::find(choices, kept, &SettingChoice::value);
    if (at == choices.end())
      at = std::ranges::find(choices, setting.fallback, &SettingChoice::value);
    control->choose(static_cast<int>(at - choices.begin()));
  });
  return row;
}

}  // namespace quillet
