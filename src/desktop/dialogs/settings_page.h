// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QScrollArea>
#include <QWidget>
#include <functional>
#include <vector>

#include "desktop/dialogs/setting_row.h"
#include "desktop/dialogs/settings_edit.h"

class QVBoxLayout;

namespace quillet {

class LinkButton;

/// A page of the settings: a title with what resets it, and rows that scroll.
class SettingsPage : public QWidget {
  Q_OBJECT

 public:
  /// `id` is stored; never change one. The edit outlives the page.
  SettingsPage(const QString& id, const QString& title, const QString& icon, SettingsEdit& edit);

  [[nodiscard]] const QString& id() const { return id_; }
  [[nodiscard]] const QString& title() const { return title_; }
  [[nodiscard]] const QString& icon() const { return icon_; }
  [[nodiscard]] SettingsEdit& edit() const { return edit_; }
  [[nodiscard]] const std::vector<SettingRow*>& rows() const { return rows_; }

  SettingRow& add(const SettingTexts& texts, QWidget* control);
  /// Quieter text between the rows.
  void addText(const QString& text);
  /// A hairline below that text.
  void addLine();
  /// Something else, with a gap above it.
  void addBelow(QWidget* widget, int gap);

  /// Shows what is kept: called now, and whenever that may have changed.
  void follow(std::function<void()> show);
  /// What the reset does besides forgetting keys.
  void onReset(std::function<void()> reset);
  /// A key that the reset forgets. A page without any has no reset.
  void owns(std::string_view key);

  /// Shows all that is kept once more.
  void refresh();
  /// Brings the row into sight and gives its control the focus.
  void reveal(SettingRow& row);

 private:
  void reset();
  void keepInset();

  QString id_;
  QString title_;
  QString icon_;
  SettingsEdit& edit_;
  LinkButton* reset_;
  QScrollArea* area_;
  QVBoxLayout* column_;
  std::vector<SettingRow*> rows_;
  std::vector<std::function<void()>> shows_;
  std::vector<std::function<void()>> resets_;
  WritableSettings::Keys keys_;
};

}  // namespace quillet
