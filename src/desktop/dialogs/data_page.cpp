// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QCoreApplication>
#include <QSpinBox>

#include "desktop/dialogs/address_field.h"
#include "desktop/dialogs/applications_rows.h"
#include "desktop/dialogs/setting_controls.h"
#include "desktop/dialogs/settings_pages.h"
#include "desktop/images/image_store.h"
#include "desktop/look/dialog_button.h"
#include "system/locale_formats.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Settings", text); }

void addAddresses(SettingsPage& page) {
  const QString later = tr("Counts from the next start");
  addAddress(page, {tr("Price data"), later, tr("server address advanced url folder")},
             kPriceDataUrl, tr("The folder that the collector fills"));
  addAddress(page, {tr("Search service"), later, tr("server address advanced url itunes")},
             kITunesUrl, QString::fromUtf8(kITunesUrl.fallback));
  addAddress(page, {tr("App Store pages"), later, tr("server address advanced url")}, kAppStoreUrl,
             QString::fromUtf8(kAppStoreUrl.fallback));
}

void addPictureLimit(SettingsPage& page) {
  constexpr int kStep = 64;
  auto* box = new QSpinBox;
  box->setRange(static_cast<int>(kImageCacheMB.lowest), static_cast<int>(kImageCacheMB.highest));
  box->setSingleStep(kStep);
  box->setSuffix(tr(" MB"));
  // A limit counts when it is whole: at its first digit it would clear nearly everything.
  box->setKeyboardTracking(false);
  page.add({tr("Image cache limit"), {}, tr("pictures disk space megabytes")}, box);
  page.owns(kImageCacheMB.key);
  SettingsEdit& edit = page.edit();
  QObject::connect(box, &QSpinBox::valueChanged, &page, [&edit](int megabytes) {
    edit.write({{std::string(kImageCacheMB.key), std::to_string(megabytes)}});
  });
  page.follow([box, &edit] {
    const QSignalBlocker quiet(box);
    box->setValue(static_cast<int>(readSetting(edit.settings(), kImageCacheMB)));
  });
}

Task<> showUse(QPointer<SettingRow> row, ImageStore* images,
               std::shared_ptr<const LocaleFormats> formats) {
  const std::uintmax_t bytes = co_await images->size();
  if (!row) co_return;
  const std::string text = formats->byteCount(static_cast<std::int64_t>(bytes));
  row->setDetail(tr("%1 used").arg(QString::fromStdString(text)));
}

Task<> clear(QPointer<SettingRow> row, ImageStore* images,
             std::shared_ptr<const LocaleFormats> formats) {
  co_await images->sweep(0);
  co_await showUse(std::move(row), images, std::move(formats));
}

void addKeptPictures(SettingsPage& page, const ViewWorld& views) {
  auto* button = new DialogButton(tr("Clear"));
  button->setAccessibleDescription(tr("Removes the kept pictures"));
  SettingRow& row = page.add({tr("Kept pictures"), {}, tr("image cache clear disk used")}, button);
  row.setLine(false);
  auto formats = std::make_shared<const LocaleFormats>(views.locale);
  ImageStore* images = &views.images;
  QObject::connect(button, &QPushButton::clicked, &page, [&row, images, formats] {
    detach(clear(&row, images, formats), "Kept pictures");
  });
  page.follow([&row, images, formats] { detach(showUse(&row, images, formats), "Kept pictures"); });
}

}  // namespace

SettingsPage* makeDataPage(const SettingsWorld& world) {
  auto* page =
      new SettingsPage(QStringLiteral("data"), tr("Data"), QStringLiteral("database"), world.edit);
  addSwitch(*page,
            {tr("Read published price data"), tr("Once a day, from the address below"),
             tr("import prices history deals")},
            kImportPriceData);
  addSwitch(
      *page,
      {tr("Record charts daily"), tr("The top 50, to show what rises"), tr("ranks snapshots")},
      kRecordCharts);
  addApplications(*page, world.views);
  addPictureLimit(*page);
  addKeptPictures(*page, world.views);
  addAddresses(*page);
  page->rows().back()->setLine(false);
  return page;
}

}  // namespace quillet
