// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/state_file.h"

#include <QJsonDocument>
#include <system_error>

#include "base/errors.h"
#include "system/whole_file.h"

namespace quillet {

namespace {

constexpr std::size_t kLargest = 1 << 20;  // ours has some kilobytes
constexpr std::chrono::milliseconds kRest{500};

QJsonObject readValues(const std::filesystem::path& file) {
  try {
    const std::string text = readWholeFile(file, kLargest);
    return QJsonDocument::fromJson(QByteArray::fromStdString(text)).object();
  } catch (const FileError&) {
    return {};
  }
}

}  // namespace

StateFile::StateFile(std::filesystem::path file)
    : file_(std::move(file)), values_(readValues(file_)) {
  timer_.setSingleShot(true);
  timer_.setInterval(kRest);
  connect(&timer_, &QTimer::timeout, this, &StateFile::write);
}

StateFile::~StateFile() {
  if (timer_.isActive()) write();
}

void StateFile::setValue(const QString& key, const QJsonValue& value) {
  if (values_.value(key) == value) return;
  values_[key] = value;
  timer_.start();
}

void StateFile::write() {
  timer_.stop();
  std::error_code ignored;
  std::filesystem::create_directories(file_.parent_path(), ignored);
  try {
    replaceFile(file_, QJsonDocument(values_).toJson(QJsonDocument::Indented).toStdString());
  } catch (const FileError& error) {
    // The next run begins as if nothing had been remembered.
    qInfo("%s", error.what());
  }
}

}  // namespace quillet
