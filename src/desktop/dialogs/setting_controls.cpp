// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/setting_controls.h"

#include <QCheckBox>
#include <QComboBox>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/look/segmented_control.h"
#include "desktop/look/switch.h"

namespace quillet {

namespace {

constexpr int kBetweenChecks = 12;
constexpr int kAboveChecks = 4;
constexpr int kBelowChecks = 8;
constexpr int kIsOther = Qt::UserRole + 1;

}  // namespace

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

namespace {

/// Shows a number, and offers it for as long as it is kept.
void showNumber(QComboBox& box, std::int64_t kept, const QString& otherText) {
  const QSignalBlocker quiet(box);
  for (int i = box.count() - 1; i >= 0; --i) {
    if (box.itemData(i, kIsOther).toBool()) box.removeItem(i);
  }
  int at = box.findData(QVariant::fromValue(kept));
  if (at < 0) {
    at = box.count();
    box.addItem(otherText, QVariant::fromValue(kept));
    box.setItemData(at, true, kIsOther);
  }
  box.setCurrentIndex(at);
}

/// As wide as there is room for, so that its row puts it below the title.
class CheckColumn : public QWidget {
 public:
  CheckColumn() : column_(new QVBoxLayout(this)) {
    column_->setContentsMargins(0, kAboveChecks, 0, kBelowChecks);
    column_->setSpacing(kBetweenChecks);
  }
  void add(QCheckBox* box) { column_->addWidget(box); }

  [[nodiscard]] QSize sizeHint() const override {
    return {QWIDGETSIZE_MAX, QWidget::sizeHint().height()};
  }

 private:
  QVBoxLayout* column_;
};

}  // namespace

SettingRow& addNumberList(SettingsPage& page, const SettingTexts& texts,
                          const WholeSetting& setting, const std::vector<NumberChoice>& choices,
                          std::function<QString(std::int64_t)> otherText) {
  auto* box = new QComboBox;
  for (const NumberChoice& each : choices) box->addItem(each.text, QVariant::fromValue(each.value));
  SettingRow& row = page.add(texts, box);
  page.owns(setting.key);
  SettingsEdit& edit = page.edit();
  QObject::connect(box, &QComboBox::currentIndexChanged, &page, [box, &edit, setting](int index) {
    const auto value = box->itemData(index).toLongLong();
    edit.write({{std::string(setting.key), std::to_string(value)}});
  });
  page.follow([box, &edit, setting, otherText = std::move(otherText)] {
    const std::int64_t kept = readSetting(edit.settings(), setting);
    showNumber(*box, kept, otherText(kept));
  });
  return row;
}

SettingRow& addChecks(SettingsPage& page, const SettingTexts& texts,
                      const std::vector<FlagChoice>& choices) {
  auto* column = new CheckColumn;
  column->setAccessibleName(texts.title);
  SettingsEdit& edit = page.edit();
  for (const FlagChoice& each : choices) {
    auto* box = new QCheckBox(each.text);
    column->add(box);
    page.owns(each.setting.key);
    QObject::connect(box, &QAbstractButton::clicked, &page,
                     [&edit, setting = each.setting](bool isOn) {
                       edit.write({{std::string(setting.key), isOn ? "true" : "false"}});
                     });
    page.follow([box, &edit, setting = each.setting] {
      box->setChecked(readSetting(edit.settings(), setting));
    });
  }
  return page.add(texts, column);
}

}  // namespace quillet
