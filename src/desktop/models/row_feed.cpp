// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/row_feed.h"

#include <utility>

namespace quillet {

void RowFeed::act(StripAction /*action*/) { refresh(); }

void RowFeed::showUpTo(int /*row*/) {}

void RowFeed::setState(ListState state) {
  state_ = std::move(state);
  Q_EMIT stateChanged();
}

}  // namespace quillet
