// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/section_stack.h"

#include <QScopedValueRollback>
#include <utility>

namespace quillet {

SectionStack::SectionStack(const ViewWorld& world, SectionMakers makers)
    : world_(world), makers_(std::move(makers)) {}

// The sections go before their views, which are this widget's children.
SectionStack::~SectionStack() = default;

void SectionStack::showPlace(const Place& place) {
  const QScopedValueRollback showing(isShowing_, true);
  Section& section = made(place.section);
  current_ = &section;
  setCurrentWidget(section.view());
  section.show(place);
}

void SectionStack::noteChecks(const CheckState& checks) {
  if (std::exchange(checks_, checks) == checks) return;
  for (const auto& [id, section] : sections_) section->noteChecks(remarkOf(checks_));
}

void SectionStack::forget() {
  current_ = nullptr;
  sections_.clear();
}

Section& SectionStack::made(SectionId id) {
  std::unique_ptr<Section>& section = sections_[id];
  if (section == nullptr) {
    section = makers_.at(id)(world_);
    addWidget(section->view());
    listenTo(*section);
    section->noteChecks(remarkOf(checks_));
    Q_EMIT grown(*section);
  }
  return *section;
}

void SectionStack::listenTo(Section& section) {
  const auto isHeard = [this, &section] { return current_ == &section && !isShowing_; };
  connect(&section, &Section::placeChanged, this, [this, isHeard] {
    if (isHeard()) Q_EMIT placeChanged();
  });
  connect(&section, &Section::goes, this, [this, isHeard](const Place& to) {
    if (isHeard()) Q_EMIT goes(to);
  });
  connect(&section, &Section::opens, this, [this, isHeard](const RowKey& row) {
    if (isHeard()) Q_EMIT opens(row);
  });
  connect(&section, &Section::saveAsked, this, [this, isHeard] {
    if (isHeard()) Q_EMIT saveAsked();
  });
  connect(&section, &Section::menuAsked, this, [this, isHeard](const QPoint& at) {
    if (isHeard()) Q_EMIT menuAsked(at);
  });
  connect(&section, &Section::settingsAsked, this, [this, isHeard] {
    if (isHeard()) Q_EMIT settingsAsked();
  });
  connect(&section, &Section::actionAsked, this, [this, isHeard](const QString& id) {
    if (isHeard()) Q_EMIT actionAsked(id);
  });
}

}  // namespace quillet
