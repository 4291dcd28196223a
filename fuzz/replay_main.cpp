// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Runs a fuzz target over folders of kept inputs, where no fuzzer is linked.

#include <fmt/format.h>

#include <filesystem>
#include <vector>

#include "fuzzing.h"
#include "support/temporary_folder.h"

namespace {

namespace fs = std::filesystem;

std::size_t replay(const fs::path& folder) {
  std::size_t count = 0;
  for (const auto& entry : fs::recursive_directory_iterator(folder)) {
    if (!entry.is_regular_file()) continue;
    const std::string content = quillet::contentOf(entry.path());
    // No byte follows it that a sanitizer would let pass.
    const std::vector<char> input(content.begin(), content.end());
    quillet::tryInput({input.data(), input.size()});
    ++count;
  }
  return count;
}

}  // namespace

int main(int argc, char** argv) {
  std::size_t count = 0;
  for (int i = 1; i < argc; ++i) count += replay(argv[i]);
  fmt::print("{} inputs replayed\n", count);
  // An empty corpus would pass for ever.
  return count > 0 ? 0 : 1;
}
