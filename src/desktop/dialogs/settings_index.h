// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QListView>
#include <QStandardItemModel>
#include <QWidget>
#include <vector>

#include "desktop/dialogs/settings_page.h"

namespace quillet {

class SearchField;

/// The pages of the settings, one below the other; while something is searched, the rows of all
/// pages that it means.
class SettingsIndex : public QWidget {
  Q_OBJECT

 public:
  explicit SettingsIndex(std::vector<SettingsPage*> pages);

  void choose(const SettingsPage& page);
  [[nodiscard]] bool isSearching() const;
  /// Back to the pages.
  void stopSearching();
  void takeFocus();
  void takeSearchFocus();

  [[nodiscard]] QSize sizeHint() const override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 Q_SIGNALS:
  void pageChosen(quillet::SettingsPage* page);
  /// A row that was found is wanted.
  void rowChosen(quillet::SettingsPage* page, quillet::SettingRow* row);
  /// Other rows are found than before, or none any more.
  void foundChanged();

 protected:
  void paintEvent(QPaintEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  struct Hit {
    SettingsPage* page = nullptr;
    SettingRow* row = nullptr;
  };

  void fit();
  void fill();
  void showPages();
  void showHits();
  void takeRow(int row);

  std::vector<SettingsPage*> pages_;
  const SettingsPage* chosen_ = nullptr;
  SearchField* field_;
  QListView* list_;
  QStandardItemModel shown_;
  std::vector<Hit> hits_;  ///< while something is searched
};

}  // namespace quillet
