// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/address_field.h"

#include <QCoreApplication>
#include <QLineEdit>

#include "system/endpoints.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Settings", text); }

/// As wide as there is room for, so that its row puts it below the title.
class WideField : public QLineEdit {
 public:
  [[nodiscard]] QSize sizeHint() const override {
    return {QWIDGETSIZE_MAX, QLineEdit::sizeHint().height()};
  }
};

bool isUsable(const QLineEdit& field, const TextSetting& setting) {
  return isUsableAddress(setting, field.text().trimmed().toStdString());
}

QString refusalOf(const TextSetting& setting) {
  if (setting.key == kUpdateFeedUrl.key) return tr("Not usable: it must be an https address.");
  if (setting.key == kPriceDataUrl.key)
    return tr(
        "Not usable: it must be an http or https address without a path, or the "
        "file address of a folder.");
  return tr("Not usable: it must be an http or https address without a path.");
}

void judge(const QLineEdit& field, SettingRow& row, const SettingTexts& texts,
           const TextSetting& setting) {
  row.setDetail(isUsable(field, setting) ? texts.detail : refusalOf(setting));
}

void keep(QLineEdit& field, SettingsEdit& edit, const TextSetting& setting) {
  if (!field.isModified() || !isUsable(field, setting)) return;
  field.setModified(false);
  const std::string key(setting.key);
  const std::string address = field.text().trimmed().toStdString();
  edit.attempt([&] {
    address.empty() ? edit.settings().forget({key}) : edit.settings().write({{key, address}});
  });
}

}  // namespace

SettingRow& addAddress(SettingsPage& page, const SettingTexts& texts, const TextSetting& setting,
                       const QString& unset) {
  auto* field = new WideField;
  field->setPlaceholderText(unset);
  SettingRow& row = page.add(texts, field);
  page.owns(setting.key);
  SettingsEdit& edit = page.edit();
  QObject::connect(field, &QLineEdit::textChanged, &page,
                   [field, &row, texts, setting] { judge(*field, row, texts, setting); });
  QObject::connect(field, &QLineEdit::editingFinished, &page,
                   [field, &edit, setting] { keep(*field, edit, setting); });
  page.follow([field, &edit, setting] {
    // What is being typed stays until it is done.
    if (field->hasFocus() && field->isModified()) return;
    field->setText(QString::fromStdString(edit.settings().text(setting.key).value_or("")));
  });
  return row;
}

}  // namespace quillet
