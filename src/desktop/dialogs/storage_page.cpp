// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QCoreApplication>
#include <QFile>

#include "desktop/dialogs/remove_everything.h"
#include "desktop/dialogs/settings_pages.h"
#include "desktop/look/dialog_button.h"
#include "system/locale_formats.h"

namespace quillet {

namespace {

namespace fs = std::filesystem;

QString tr(const char* text) { return QCoreApplication::translate("Settings", text); }

/// With what SQLite keeps beside it.
std::int64_t bytesOf(const fs::path& library) {
  std::int64_t bytes = 0;
  for (const char* ending : {"", "-wal", "-shm"}) {
    std::error_code error;
    const std::uintmax_t size = fs::file_size(library.native() + ending, error);
    if (!error) bytes += static_cast<std::int64_t>(size);
  }
  return bytes;
}

void addLibrary(SettingsPage& page, const SettingsWorld& world) {
  const fs::path& library = world.system.library;
  auto* button = new DialogButton(tr("Show in Files"));
  SettingRow& row = page.add({tr("Library"), {}, tr("folder database file size where")}, button);
  QObject::connect(button, &QPushButton::clicked, &page,
                   [&prompts = world.views.prompts, library] { prompts.showInFiles(library); });
  auto formats = std::make_shared<const LocaleFormats>(world.views.locale);
  page.follow([&row, library, formats] {
    const QString size = QString::fromStdString(formats->byteCount(bytesOf(library)));
    row.setDetail(tr("%1 in %2").arg(size, QFile::decodeName(library.c_str())));
  });
}

}  // namespace

SettingsPage* makeStoragePage(const SettingsWorld& world) {
  auto* page = new SettingsPage(QStringLiteral("privacy"), tr("Privacy & storage"),
                                QStringLiteral("shield-lock"), world.edit);
  if (!world.system.library.empty()) addLibrary(*page, world);
  auto* button = new DialogButton(tr("Remove Everything"), ButtonKind::danger);
  page->add({tr("Your lists"), tr("Takes all of them out of the library"),
             tr("delete erase reset clear history data")},
            button)
      .setLine(false);
  QObject::connect(button, &QPushButton::clicked, page, [page, views = world.views] {
    detach(askToRemoveEverything(views, page->window()), "The library's counts");
  });
  page->addText(tr(
      "Nothing about you is collected: Quillet has no server, no account and no telemetry. Apple "
      "is asked for what you search, for the apps whose pages you rest on, and for the prices of "
      "those that you watch, each by its number and storefront; pictures and the daily "
      "record of the charts come from Apple, too. "
      "Published price data is read for your storefront alone, from the address under Data. What "
      "you watch, own, collect and write stays on this machine."));
  return page;
}

}  // namespace quillet
