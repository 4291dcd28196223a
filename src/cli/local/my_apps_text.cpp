// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/local/my_apps_text.h"

#include "base/columns.h"
#include "base/text.h"
#include "cli/local/list_text.h"
#include "cli/text_table.h"

namespace quillet {

namespace {

constexpr std::size_t kNameWidth = 35;
constexpr std::size_t kVersionWidth = 12;

std::string noteText(const CLIOwnedApp& app, const LocaleFormats& formats) {
  if (app.unavailable == true) return "no longer sold";
  if (app.updateAvailable == true) return "update to " + shown(app.storeVersion);
  return app.installedSizeBytes ? formats.byteCount(*app.installedSizeBytes) : "";
}

std::string lineOf(const CLIOwnedApp& app, const LocaleFormats& formats, const TextStyle& style) {
  const std::string version = shown(app.installedVersion);
  return nameColumn(app.name, kNameWidth, style) +
         column(version.empty() ? dash(style) : version, kVersionWidth) + noteText(app, formats);
}

}  // namespace

std::string renderMyAppsText(const CLIMyApps& apps, const LocaleFormats& formats,
                             const TextStyle& style) {
  if (apps.total == 0) return "My Apps is empty. Scan your Applications folder in the app.";
  std::string text = listHeader(apps.items.size(), apps.total, "in My Apps");
  if (!apps.items.empty()) text += '\n';
  for (const CLIOwnedApp& app : apps.items) text += '\n' + lineOf(app, formats, style);
  return text;
}

}  // namespace quillet
