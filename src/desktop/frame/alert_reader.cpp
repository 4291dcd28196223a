// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/alert_reader.h"

#include <algorithm>

#include "desktop/models/row_filter_model.h"
#include "library/alerts.h"

namespace quillet {

namespace {

using namespace std::chrono_literals;

// As long as somebody has to look at a page for it to count as seen.
constexpr auto kRest = 300ms;

constexpr const char* kUnreadChip = "unread";

Task<> markRead(LibraryGateway* library, RowId alert) {
  co_await library->change(setAlertsRead, std::vector{alert}, ReadState::read);
}

}  // namespace

AlertReader::AlertReader(LibraryGateway& library, Guide& guide, const QWidget& page, Clock& clock)
    : library_(library), guide_(guide), page_(page), clock_(clock) {
  connect(&guide, &Guide::moved, this, &AlertReader::look);
}

AlertReader::~AlertReader() { resting_.requestStop(); }

void AlertReader::look() {
  const std::optional<RowKey> now = alertInSight();
  if (now != alert_) take(now);
}

void AlertReader::take(const std::optional<RowKey>& alert) {
  resting_.requestStop();
  if (std::exchange(isOwed_, false)) mark();
  alert_ = alert;
  if (!alert_ || !isUnread(*alert_)) return;
  resting_ = StopSource();
  detach(rest(this, resting_.token()), "An alert");
}

std::optional<RowKey> AlertReader::alertInSight() const {
  const Place& here = guide_.here();
  // None is chosen before the rows are there.
  const bool isOne = guide_.section() != nullptr && guide_.section()->chosen().size() < 2;
  if (here.section != SectionId::alerts || !isOne || !page_.isVisible()) return std::nullopt;
  return here.chosen;
}

/// One whose row is not there yet may be.
bool AlertReader::isUnread(const RowKey& alert) const {
  const RowFilterModel* rows = guide_.section()->rows();
  const int at = rows == nullptr ? -1 : rows->find(alert);
  return at < 0 || rows->at(at).marks.testFlag(RowMark::unread);
}

Task<> AlertReader::rest(QPointer<AlertReader> reader, StopToken stop) {
  co_await reader->clock_.sleepFor(kRest, stop);
  if (!reader) co_return;
  const std::vector<std::string>& chips = reader->guide_.here().rows.chips;
  reader->isOwed_ = std::ranges::find(chips, kUnreadChip) != chips.end();
  if (!reader->isOwed_) reader->mark();
}

void AlertReader::mark() { detach(markRead(&library_, alert_->row), "An alert"); }

}  // namespace quillet
