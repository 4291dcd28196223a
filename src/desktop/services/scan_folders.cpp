// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/scan_folders.h"

#include <QJsonArray>
#include <QJsonObject>
#include <algorithm>

#include "base/text.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

namespace fs = std::filesystem;
using namespace Qt::StringLiterals;

// The library keeps times as seconds with a fraction.
constexpr std::chrono::milliseconds kStoredPrecision{10};

// Stored; never change.
constexpr auto kState = "lastScan"_L1;
constexpr auto kAt = "at"_L1;
constexpr auto kBundles = "bundles"_L1;
constexpr auto kMatched = "matched"_L1;
constexpr auto kFolders = "folders"_L1;
constexpr auto kFoundBundles = "foundBundles"_L1;

double numberOf(Instant when) { return static_cast<double>(when.time_since_epoch().count()); }

Instant instantOf(const QJsonValue& number) {
  return Instant(Instant::duration(static_cast<std::int64_t>(number.toDouble())));
}

bool isBelow(std::string_view path, std::string_view folder) {
  return path.starts_with(folder) &&
         (folder.ends_with('/') || (path.size() > folder.size() && path[folder.size()] == '/'));
}

void writeIgnored(WritableSettings& settings, const std::set<std::string>& ids) {
  const std::vector<std::string> all(ids.begin(), ids.end());
  if (all.empty()) return settings.forget({std::string(kIgnoredBundles.key)});
  settings.write({{std::string(kIgnoredBundles.key), join(all, ",")}});
}

}  // namespace

FolderList chosenFolders(const Settings& settings) {
  const std::string kept = settings.text(kApplicationsFolders.key).value_or("");
  FolderList folders;
  for (const std::string_view line : split(kept, '\n')) {
    const fs::path folder{std::string(trimmed(line))};
    if (folder.is_absolute() && std::ranges::find(folders, folder) == folders.end())
      folders.push_back(folder);
  }
  return folders;
}

void writeFolders(WritableSettings& settings, const FolderList& folders) {
  std::vector<std::string> lines;
  for (const fs::path& each : folders) lines.push_back(each.string());
  if (lines.empty()) return settings.forget({std::string(kApplicationsFolders.key)});
  settings.write({{std::string(kApplicationsFolders.key), join(lines, "\n")}});
}

FolderList mountFolders() {
  const std::string user = qgetenv("USER").toStdString();
  if (user.empty()) return {};
  return {fs::path("/media") / user, fs::path("/run/media") / user};
}

std::set<std::string> ignoredBundles(const Settings& settings) {
  const std::string kept = settings.text(kIgnoredBundles.key).value_or("");
  std::set<std::string> ids;
  for (const std::string_view id : split(kept, ',')) {
    if (!trimmed(id).empty()) ids.insert(lowerAscii(trimmed(id)));
  }
  return ids;
}

void ignoreBundle(WritableSettings& settings, const std::string& bundleId) {
  std::set<std::string> ids = ignoredBundles(settings);
  ids.insert(lowerAscii(bundleId));
  writeIgnored(settings, ids);
}

void heedBundle(WritableSettings& settings, const std::string& bundleId) {
  std::set<std::string> ids = ignoredBundles(settings);
  ids.erase(lowerAscii(bundleId));
  writeIgnored(settings, ids);
}

std::set<std::string> foundBundles(const StateFile& state) {
  std::set<std::string> ids;
  for (const QJsonValue& id : state.value(kFoundBundles).toArray())
    ids.insert(id.toString().toStdString());
  return ids;
}

void rememberFound(StateFile& state, const std::set<std::string>& bundleIds) {
  QJsonArray ids;
  for (const std::string& id : bundleIds) ids.append(QString::fromStdString(id));
  state.setValue(kFoundBundles, ids);
}

std::optional<LastScan> lastScan(const StateFile& state) {
  const QJsonObject kept = state.value(kState).toObject();
  if (!kept.value(kAt).isDouble()) return {};
  LastScan scan{instantOf(kept.value(kAt)),
                static_cast<std::size_t>(std::max(0, kept.value(kBundles).toInt())),
                static_cast<std::size_t>(std::max(0, kept.value(kMatched).toInt())),
                {}};
  const QJsonObject folders = kept.value(kFolders).toObject();
  for (auto each = folders.begin(); each != folders.end(); ++each)
    scan.folders[each.key().toStdString()] = instantOf(each.value());
  return scan;
}

void rememberScan(StateFile& state, const LastScan& scan) {
  QJsonObject folders;
  for (const auto& [folder, at] : scan.folders)
    folders.insert(QString::fromStdString(folder), numberOf(at));
  state.setValue(kState, QJsonObject{{kAt, numberOf(scan.at)},
                                     {kBundles, static_cast<qint64>(scan.bundles)},
                                     {kMatched, static_cast<qint64>(scan.matched)},
                                     {kFolders, folders}});
}

bool isMissing(const OwnedApp& app, const FolderScans& folders) {
  if (!app.installedPath || !app.lastScannedAt) return false;
  return std::ranges::any_of(folders, [&app](const auto& scan) {
    return isBelow(*app.installedPath, scan.first) &&
           *app.lastScannedAt + kStoredPrecision < scan.second;
  });
}

}  // namespace quillet
