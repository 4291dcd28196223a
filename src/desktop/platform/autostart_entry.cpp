// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/platform/autostart_entry.h"

#include <fmt/format.h>

#include <QFile>
#include <QSaveFile>
#include <map>
#include <string_view>
#include <utility>

#include "base/text.h"
#include "system/application_name.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

// An entry has a few hundred bytes; what follows is not read.
constexpr qint64 kLargestEntry = qint64{64} * 1024;

constexpr std::string_view kGroup = "[Desktop Entry]";

// The desktop comes first: a check of prices can wait this many seconds.
constexpr int kDelaySeconds = 20;

/// One argument of the Exec key, before the escapes of a value. A quoted argument keeps blanks and
/// everything that a shell would read; "%" begins a field code unless doubled.
std::string execArgument(std::string_view argument) {
  std::string quoted = "\"";
  for (const char c : argument) {
    if (std::string_view("\"`$\\").find(c) != std::string_view::npos) quoted += '\\';
    if (c == '%') quoted += '%';
    quoted += c;
  }
  return quoted + '"';
}

/// The escapes of every value, which a reader undoes before it splits arguments.
std::string valueText(std::string_view value) {
  std::string text;
  for (const char c : value) {
    switch (c) {
      case '\\': text += "\\\\"; break;
      case '\n': text += "\\n"; break;
      case '\t': text += "\\t"; break;
      case '\r': text += "\\r"; break;
      default: text += c;
    }
  }
  return text;
}

using Values = std::map<std::string_view, std::string_view>;

Values entryValues(std::string_view text) {
  Values values;
  bool isInGroup = false;
  for (const std::string_view line : split(text, '\n')) {
    const std::string_view content = trimmed(line);
    if (content.starts_with('[')) isInGroup = content == kGroup;
    const std::size_t equals = content.find('=');
    if (!isInGroup || content.starts_with('#') || equals == std::string_view::npos) continue;
    values[trimmed(content.substr(0, equals))] = trimmed(content.substr(equals + 1));
  }
  return values;
}

std::string_view valueOf(const Values& values, std::string_view key) {
  const auto found = values.find(key);
  return found == values.end() ? std::string_view{} : found->second;
}

/// Whether a session would start what an entry of this text names.
bool isActiveEntry(std::string_view text) {
  const Values values = entryValues(text);
  return !valueOf(values, "Exec").empty() && valueOf(values, "Hidden") != "true" &&
         valueOf(values, "X-GNOME-Autostart-enabled") != "false";
}

QString nameOf(const fs::path& path) { return QString::fromStdString(path.string()); }

LoginItemError failure(std::string_view what, const QString& reason) {
  return LoginItemError(fmt::format("{}: {}.", what, reason.toStdString()));
}

}  // namespace

std::string autostartEntryText(const fs::path& executable) {
  return fmt::format(
      "{}\n"
      "Type=Application\n"
      "Name={}\n"
      "Comment=Checks the prices of the apps that you watch\n"
      "Icon={}\n"
      "Exec={} --background\n"
      "Terminal=false\n"
      "StartupNotify=false\n"
      "X-GNOME-Autostart-enabled=true\n"
      "X-GNOME-Autostart-Delay={}\n",
      kGroup, kApplicationName, kApplicationId, valueText(execArgument(executable.string())),
      kDelaySeconds);
}

AutostartEntry::AutostartEntry(const fs::path& autostartDirectory, fs::path executable)
    : file_(autostartDirectory / (std::string(kApplicationId) + ".desktop")),
      executable_(std::move(executable)) {}

bool AutostartEntry::isEnabled() const {
  QFile file(nameOf(file_));
  if (!file.open(QIODevice::ReadOnly)) return false;
  return isActiveEntry(file.read(kLargestEntry).toStdString());
}

void AutostartEntry::enable() {
  constexpr std::string_view kFailure = "The login item could not be written";
  std::error_code error;
  fs::create_directories(file_.parent_path(), error);
  QSaveFile file(nameOf(file_));
  if (!file.open(QIODevice::WriteOnly)) throw failure(kFailure, file.errorString());
  file.write(QByteArray::fromStdString(autostartEntryText(executable_)));
  if (!file.commit()) throw failure(kFailure, file.errorString());
}

void AutostartEntry::disable() {
  std::error_code error;
  fs::remove(file_, error);
  if (!error) return;
  throw failure("The login item could not be removed", QString::fromStdString(error.message()));
}

}  // namespace quillet
