// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/descriptor.h"

#include <unistd.h>

namespace quillet {

Descriptor::~Descriptor() {
  if (isOpen()) (void)close();
}

int Descriptor::close() { return ::close(release()); }

}  // namespace quillet
