// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/task.h"

#include <exception>
#include <utility>

#include "base/errors.h"

namespace quillet {
namespace {

void logFailure(const std::string& what, const char* reason) {
  qWarning("%s: %s", what.c_str(), reason);
}

Task<> watch(Task<> task, std::string what) {
  try {
    co_await task;
  } catch (const NetworkError& error) {
    if (error.kind() != NetworkError::Kind::cancelled) logFailure(what, error.what());
  } catch (const std::exception& error) {
    logFailure(what, error.what());
  } catch (...) {
    logFailure(what, "unknown error");
  }
}

}  // namespace

void detach(Task<> task, std::string what) {
  // The coroutine frees itself at its end once nobody holds its task any more.
  const Task<> running = watch(std::move(task), std::move(what));
}

}  // namespace quillet
