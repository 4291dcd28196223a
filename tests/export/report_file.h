// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>

#include <filesystem>

#include "export/known_app.h"
#include "support/temporary_folder.h"

namespace quillet {

/// A test with a folder of its own for reports.
class ReportFile : public testing::Test {
 protected:
  const TemporaryFolder own;
  const std::filesystem::path folder = own.path();
};

}  // namespace quillet
