// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <set>

#include "desktop/models/app_list_model.h"
#include "desktop/models/list_state.h"

namespace quillet {

/// The rows of one list, wherever they come from, and how they stand. While nobody looks at them
/// nothing is asked for.
class RowFeed : public QObject {
  Q_OBJECT

 public:
  [[nodiscard]] AppListModel& rows() { return rows_; }

  /// Asks for all anew; what is there stays until the answer.
  virtual void refresh() = 0;
  /// What the button of the strip says.
  virtual void act(StripAction action);
  /// Nobody looks at the rows any more.
  virtual void rest() {}
  /// Somebody looks at them again.
  virtual void wake() {}
  /// Somebody sees the rows up to this one, as they are shown; not above 0 where there are none.
  virtual void showUpTo(int row);
  /// The apps of the rows that are seen: what is shown of them besides is read, and forgotten of
  /// all others.
  virtual void showExtras(std::set<AppKey> seen) = 0;

  [[nodiscard]] const ListState& state() const { return state_; }
  /// Whether the rows were read since others were asked for.
  [[nodiscard]] bool isFilled() const { return isFilled_; }
  /// How many rows there are with those that are filtered out before they come here.
  [[nodiscard]] virtual int total() const { return rows_.rowCount(); }
  /// Whether some rows are still to come.
  [[nodiscard]] virtual bool isBehind() const = 0;

 Q_SIGNALS:
  /// The rows were read, for the first time or again.
  void filled();
  void stateChanged();

 protected:
  void setState(ListState state);

  AppListModel rows_;
  bool isFilled_ = false;

 private:
  ListState state_ = Ready{};
};

}  // namespace quillet
