// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <gtest/gtest.h>

#include "quillet_pch_widgets.h"
