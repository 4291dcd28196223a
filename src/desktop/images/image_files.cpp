// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/images/image_files.h"

#include <QCryptographicHash>
#include <algorithm>
#include <vector>

#include "base/errors.h"
#include "desktop/images/image_limits.h"
#include "system/whole_file.h"

namespace quillet {

namespace {

namespace fs = std::filesystem;

struct Kept {
  fs::path file;
  fs::file_time_type lastUse;
  std::uintmax_t size = 0;
};

std::vector<Kept> filesIn(const fs::path& folder) {
  std::vector<Kept> files;
  std::error_code error;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end;
       entry.increment(error)) {
    // Another thread or process may remove it while it is looked at.
    std::error_code gone;
    if (!entry->is_regular_file(gone)) continue;
    const Kept kept{entry->path(), entry->last_write_time(gone), entry->file_size(gone)};
    if (!gone) files.push_back(kept);
  }
  return files;
}

std::uintmax_t sizeOf(const std::vector<Kept>& files) {
  std::uintmax_t size = 0;
  for (const Kept& each : files) size += each.size;
  return size;
}

}  // namespace

std::optional<std::string> ImageFiles::find(const std::string& address) const {
  if (folder_.empty()) return {};
  const fs::path file = fileOf(address);
  try {
    std::string bytes = readWholeFile(file, kPictureBytes);
    std::error_code ignored;
    fs::last_write_time(file, fs::file_time_type::clock::now(), ignored);
    return bytes;
  } catch (const FileError&) {
    return {};
  }
}

void ImageFiles::keep(const std::string& address, const std::string& bytes) const {
  if (folder_.empty()) return;
  std::error_code ignored;
  fs::create_directories(folder_, ignored);
  try {
    replaceFile(fileOf(address), bytes);
  } catch (const FileError&) {
    return;  // a full disk is no reason to show no picture
  }
}

void ImageFiles::sweep(std::uintmax_t limit) const {
  std::vector<Kept> files = filesIn(folder_);
  std::ranges::sort(files, {}, &Kept::lastUse);
  std::uintmax_t size = sizeOf(files);
  for (const Kept& each : files) {
    if (size <= limit) return;
    std::error_code error;
    if (fs::remove(each.file, error)) size -= each.size;
  }
}

std::uintmax_t ImageFiles::size() const { return sizeOf(filesIn(folder_)); }

fs::path ImageFiles::fileOf(const std::string& address) const {
  const QByteArray hash = QCryptographicHash::hash(
      QByteArrayView(address.data(), static_cast<qsizetype>(address.size())),
      QCryptographicHash::Sha1);
  return folder_ / hash.toHex().toStdString();
}

}  // namespace quillet
