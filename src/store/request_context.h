// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include "net/request_class.h"
#include "net/stop_token.h"

namespace quillet {

/// Who asks, and until when the answer is wanted.
struct RequestContext {
  RequestClass requestClass = RequestClass::interactive;
  StopToken stop;
};

}  // namespace quillet
