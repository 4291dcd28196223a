// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/stop_token.h"

#include <map>
#include <utility>

namespace quillet {

struct StopToken::State {
  bool stopped = false;
  int lastId = 0;
  std::map<int, std::function<void()>> callbacks;
};

StopToken::StopToken(std::shared_ptr<State> state) : state_(std::move(state)) {}

bool StopToken::stopRequested() const { return state_ && state_->stopped; }

StopSource::StopSource() : state_(std::make_shared<StopToken::State>()) {}

StopToken StopSource::token() const { return StopToken(state_); }

void StopSource::requestStop() {
  // Held here, since a callback may end the life of this source; each is taken out before its
  // call, since it may end the life of its own registration or of another's.
  const auto state = state_;
  state->stopped = true;
  while (!state->callbacks.empty()) {
    const auto first = state->callbacks.extract(state->callbacks.begin());
    first.mapped()();
  }
}

StopCallback::StopCallback(const StopToken& token, std::function<void()> callback)
    : state_(token.state_) {
  if (!state_) return;
  if (state_->stopped) {
    callback();
  } else {
    id_ = ++state_->lastId;
    state_->callbacks.emplace(id_, std::move(callback));
  }
}

StopCallback::~StopCallback() {
  if (state_) state_->callbacks.erase(id_);
}

}  // namespace quillet
