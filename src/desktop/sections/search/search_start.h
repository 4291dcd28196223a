// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <QWidget>
#include <vector>

#include "desktop/models/place.h"
#include "desktop/models/view_world.h"
#include "desktop/sections/search/search_hints.h"
#include "net/task.h"

class QBoxLayout;
class QVBoxLayout;

namespace quillet {

/// What Search shows before anything is searched for: what it is good for, and ways to begin.
class SearchStart : public QWidget {
  Q_OBJECT

 public:
  explicit SearchStart(const ViewWorld& world);

  /// Reads again what was saved and searched for.
  void renew();

 Q_SIGNALS:
  void presetChosen(const quillet::AppFilters& filters);
  void chosen(const quillet::StoreQuery& query);

 protected:
  void showEvent(QShowEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  /// Searches under a heading.
  struct Group {
    QWidget* box = nullptr;
    QVBoxLayout* links = nullptr;
    std::vector<SearchHint> shown;
  };

  static Task<> read(QPointer<SearchStart> view, int generation);
  void addPresets(QBoxLayout& column);
  [[nodiscard]] Group addGroup(const QString& heading);
  void show(Group& group, std::vector<SearchHint> hints);
  using QWidget::show;

  ViewWorld world_;
  QBoxLayout* groups_ = nullptr;
  Group saved_;
  Group recent_;
  int generation_ = 0;  ///< of the reading that counts
};

}  // namespace quillet
