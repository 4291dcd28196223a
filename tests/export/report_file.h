// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <gtest/gtest.h>
#include <stdlib.h>

#include <filesystem>
#include <fstream>
#include <sstream>

#include "export/known_app.h"

namespace quillet {

inline std::string contentOf(const std::filesystem::path& file) {
  std::ostringstream content;
  content << std::ifstream(file, std::ios::binary).rdbuf();
  return content.str();
}

/// A test with a folder of its own for reports.
class ReportFile : public testing::Test {
 protected:
  void SetUp() override {
    std::string name = (std::filesystem::temp_directory_path() / "quillet-test-XXXXXX").string();
    ASSERT_NE(mkdtemp(name.data()), nullptr);
    folder = name;
  }
  void TearDown() override { std::filesystem::remove_all(folder); }

  std::filesystem::path folder;
};

}  // namespace quillet
