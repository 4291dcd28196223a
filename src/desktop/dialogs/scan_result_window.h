// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QDialog>
#include <QStandardItemModel>
#include <vector>

#include "desktop/services/installed_apps.h"

class QListView;
class QPushButton;

namespace quillet {

/// What a scan has found: apps that are new or may be, those with an update, and those that the
/// store does not have, with the reason. What is ticked is in My Apps once it is accepted.
class ScanResultWindow : public QDialog {
  Q_OBJECT

 public:
  ScanResultWindow(ScanOutcome outcome, std::string country, QWidget* parent);

  [[nodiscard]] const ScanOutcome& outcome() const { return outcome_; }
  [[nodiscard]] const FoundApp& found(std::size_t place) const { return outcome_.apps.at(place); }

  /// Ticked, and not in My Apps.
  [[nodiscard]] std::vector<OwnedApp> wanted() const;
  /// New in My Apps by this scan, and no longer ticked.
  [[nodiscard]] std::vector<AppKey> unwanted() const;

  /// There is nothing to be decided any more about this one.
  void settle(std::size_t place);

 Q_SIGNALS:
  void searched(const QString& name);
  void linkAsked(std::size_t place);
  void ignored(std::size_t place);

 protected:
  void paintEvent(QPaintEvent* event) override;

 private:
  void fill();
  void addHeading(const QString& text, std::size_t count);
  static void setCount(QStandardItem& heading, std::size_t count);
  void recount(int row);
  void addRow(std::size_t place, const QString& detail, std::optional<Qt::CheckState> tick);
  [[nodiscard]] std::vector<const FoundApp*> foundWith(Qt::CheckState tick) const;
  [[nodiscard]] std::optional<std::size_t> chosen() const;
  void follow();

  ScanOutcome outcome_;
  std::string country_;
  QStandardItemModel rows_;
  QListView* list_;
  QPushButton* search_;
  QPushButton* link_;
  QPushButton* ignore_;
};

}  // namespace quillet
