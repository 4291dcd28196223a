// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <functional>
#include <memory>

namespace quillet {

/// Tells operations of the event-loop thread that their result is no longer wanted. Copies share
/// one state; a default-made token never stops.
class StopToken {
 public:
  StopToken() = default;

  [[nodiscard]] bool stopRequested() const;

 private:
  friend class StopSource;
  friend class StopCallback;
  struct State;
  explicit StopToken(std::shared_ptr<State> state);

  std::shared_ptr<State> state_;
};

class StopSource {
 public:
  StopSource();

  [[nodiscard]] StopToken token() const;

  /// Calls the registered callbacks, once, in the order of their registration.
  void requestStop();

 private:
  std::shared_ptr<StopToken::State> state_;
};

/// Registers `callback` for the time of its own life; calls it at once if the stop came before.
class StopCallback {
 public:
  StopCallback(const StopToken& token, std::function<void()> callback);
  ~StopCallback();
  StopCallback(const StopCallback&) = delete;
  StopCallback& operator=(const StopCallback&) = delete;

 private:
  std::shared_ptr<StopToken::State> state_;
  int id_ = 0;
};

}  // namespace quillet
