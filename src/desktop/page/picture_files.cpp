// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/picture_files.h"

#include <fmt/format.h>

#include "base/errors.h"
#include "system/whole_file.h"

namespace quillet {

namespace {

namespace fs = std::filesystem;

constexpr int kMostNumbers = 1000;

/// A link that leads nowhere is something as well.
bool isTaken(const fs::path& file) {
  std::error_code error;
  return fs::exists(fs::symlink_status(file, error));
}

bool holds(const fs::path& file, std::string_view bytes) {
  std::error_code error;
  if (fs::file_size(file, error) != bytes.size() || error) return false;
  try {
    return readWholeFile(file, bytes.size()) == bytes;
  } catch (const FileError&) {
    return false;
  }
}

fs::path numbered(const fs::path& file, int number) {
  return file.parent_path() /
         fmt::format("{} ({}){}", file.stem().string(), number, file.extension().string());
}

}  // namespace

fs::path addFile(const fs::path& folder, const std::string& name, std::string_view bytes) {
  const fs::path wanted = folder / name;
  fs::path file = wanted;
  for (int number = 2; isTaken(file); ++number) {
    if (holds(file, bytes)) return file;
    if (number > kMostNumbers) {
      throw FileError(
          fmt::format("'{}' could not be written: too many files have its name.", wanted.string()));
    }
    file = numbered(wanted, number);
  }
  replaceFile(file, bytes);
  return file;
}

}  // namespace quillet
