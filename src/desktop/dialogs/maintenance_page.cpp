// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QCoreApplication>
#include <QSpinBox>
#include <array>
#include <cmath>

#include "analysis/maintenance_texts.h"
#include "desktop/dialogs/pushed_thresholds.h"
#include "desktop/dialogs/setting_controls.h"
#include "desktop/dialogs/settings_pages.h"
#include "desktop/dialogs/verdict_list.h"
#include "desktop/look/look.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Settings", text); }

struct ThresholdRow {
  const char* title;
  const WholeSetting& setting;
  Threshold threshold;
};

constexpr std::array kRows{
    ThresholdRow{QT_TRANSLATE_NOOP("Settings", "Slowing down after"), kSlowingAfterMonths,
                 &MaintenanceThresholds::slowing},
    ThresholdRow{QT_TRANSLATE_NOOP("Settings", "Stale after"), kStaleAfterMonths,
                 &MaintenanceThresholds::stale},
    ThresholdRow{QT_TRANSLATE_NOOP("Settings", "Likely abandoned after"), kAbandonedAfterMonths,
                 &MaintenanceThresholds::abandoned},
};

/// As wide as any number of months needs: those below one another end and begin alike.
class MonthsBox : public QSpinBox {
 public:
  [[nodiscard]] QSize sizeHint() const override {
    constexpr int kAround = 40;
    QSize size = QSpinBox::sizeHint();
    const double text = lookOf(*this).text.width(tr("%1 months").arg(kWidest), kBodyType);
    return {static_cast<int>(std::ceil(text)) + kAround, size.height()};
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return sizeHint(); }

 private:
  static constexpr int kWidest = 888;
};

/// Only what is another value than before: what nobody chose goes on following the default.
WritableSettings::Values changesTo(const MaintenanceThresholds& wanted, const Settings& kept) {
  const MaintenanceThresholds before = readMaintenanceThresholds(kept);
  WritableSettings::Values changes;
  for (const ThresholdRow& row : kRows) {
    if (wanted.*row.threshold != before.*row.threshold)
      changes[std::string(row.setting.key)] = std::to_string(wanted.*row.threshold);
  }
  return changes;
}

void addThreshold(SettingsPage& page, const ThresholdRow& row) {
  auto* box = new MonthsBox;
  box->setRange(static_cast<int>(row.setting.lowest), static_cast<int>(row.setting.highest));
  // A figure pushes the others when it is whole, not at its first digit.
  box->setKeyboardTracking(false);
  page.add({tr(row.title), {}, tr("maintenance rating months")}, box);
  page.owns(row.setting.key);
  SettingsEdit& edit = page.edit();
  QObject::connect(
      box, &QSpinBox::valueChanged, &page, [&edit, threshold = row.threshold](int months) {
        const LiveSettings& kept = edit.settings();
        const auto changes =
            changesTo(pushed(readMaintenanceThresholds(kept), threshold, months), kept);
        if (!changes.empty()) edit.write(changes);
      });
  page.follow([box, &edit, threshold = row.threshold] {
    const QSignalBlocker quiet(box);
    const auto months = static_cast<int>(readMaintenanceThresholds(edit.settings()).*threshold);
    box->setSuffix(months == 1 ? tr(" month") : tr(" months"));
    box->setValue(months);
  });
}

}  // namespace

SettingsPage* makeMaintenancePage(const SettingsWorld& world) {
  auto* page = new SettingsPage(QStringLiteral("maintenance"), tr("Maintenance"),
                                QStringLiteral("wrench-adjustable"), world.edit);
  addSwitch(*page, {tr("Show the maintenance rating"), tr("On the page of an app"), tr("badge")},
            kShowMaintenanceRating);
  for (const ThresholdRow& row : kRows) addThreshold(*page, row);
  page->addText(tr(
      "How long since an app's last release before Quillet calls it slowing, stale or abandoned. "
      "This rating is ours, not Apple's — a nightly-build utility and a finished "
      "single-purpose app age differently."));
  auto* verdicts = new VerdictList;
  page->addBelow(verdicts, 16);
  page->follow([verdicts, &edit = world.edit] {
    verdicts->setThresholds(readMaintenanceThresholds(edit.settings()));
  });
  return page;
}

}  // namespace quillet
