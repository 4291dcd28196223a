// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QStackedWidget>

#include "desktop/frame/check_state.h"
#include "desktop/frame/section_table.h"

namespace quillet {

/// The sections, one of which is seen. Each is made when it is first shown.
class SectionStack : public QStackedWidget {
  Q_OBJECT

 public:
  /// `makers` has one for each section that is ever shown, at least one.
  SectionStack(const ViewWorld& world, SectionMakers makers);
  ~SectionStack() override;

  [[nodiscard]] bool has(SectionId id) const { return makers_.contains(id); }
  /// Of those that it has.
  [[nodiscard]] SectionId first() const { return makers_.begin()->first; }
  /// The one that is seen; null before the first showPlace().
  [[nodiscard]] Section* current() const { return current_; }
  void showPlace(const Place& place);
  /// How the price checks stand now, for all that are or will be made.
  void noteChecks(const CheckState& checks);
  /// The sections go; what they showed stays, and shows nothing new.
  void forget();

 Q_SIGNALS:
  /// A section was made, whose widgets are to be placed in the window.
  void grown(quillet::Section& section);
  // Of the section that is seen, as it says them; none of them while showPlace() runs.
  void placeChanged();
  void goes(const quillet::Place& to);
  void opens(const quillet::RowKey& row);
  void menuAsked(const QPoint& at);
  void saveAsked();
  void settingsAsked();
  void actionAsked(const QString& id);

 private:
  Section& made(SectionId id);
  void listenTo(Section& section);

  ViewWorld world_;
  SectionMakers makers_;
  std::map<SectionId, std::unique_ptr<Section>> sections_;
  Section* current_ = nullptr;
  CheckState checks_;
  bool isShowing_ = false;
};

}  // namespace quillet
