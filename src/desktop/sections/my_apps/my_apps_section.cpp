// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/my_apps/my_apps_section.h"

#include "desktop/lists/list_section.h"
#include "desktop/models/scan_words.h"
#include "desktop/sections/my_apps/my_apps_rows.h"
#include "desktop/sections/my_apps/scan_button.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

RowSource rowSource(const Place& /*place*/, const ViewWorld& world) {
  const std::optional<LastScan> scan = world.installed.last();
  return myAppsSource(rowContext(world), scan ? scan->folders : FolderScans());
}

ListSectionRow sectionRow() {
  return {SectionId::myApps,
          QT_TRANSLATE_NOOP("Sections", "My Apps"),
          QT_TRANSLATE_NOOP("Sections", "Find in My Apps"),
          myAppsTable(),
          rowSource,
          {std::string(kSlowingAfterMonths.key), std::string(kStaleAfterMonths.key),
           std::string(kAbandonedAfterMonths.key)},
          nullptr,
          {QT_TRANSLATE_NOOP("Sections", "Remove from My Apps"),
           QT_TRANSLATE_NOOP("Sections", "%n apps"),
           [](const Place& /*place*/, const std::vector<RowKey>& rows) {
             return disowning(appsOf(rows));
           }}};
}

/// The list with what is told of scans.
class MyAppsSection : public ListSection {
 public:
  explicit MyAppsSection(const ViewWorld& world) : ListSection(sectionRow(), world), world_(world) {
    connect(scan_, &QPushButton::clicked, this,
            [this] { Q_EMIT actionAsked(QStringLiteral("scan-applications")); });
    connect(&world.installed, &InstalledApps::changed, this, &MyAppsSection::tellScan);
    connect(&world.installed, &InstalledApps::scanned, this, [this](const ScanOutcome& outcome) {
      // By itself, a disk that is not mounted is nothing to speak of.
      if (outcome.cause != ScanCause::start) problem_ = scanProblem(outcome);
      tellScan();
      refresh();
    });
    tellScan();
  }
  ~MyAppsSection() override { delete scan_; }

  QWidget* tools() override { return scan_; }
  [[nodiscard]] ToolsPlace toolsPlace() const override { return ToolsPlace::beside; }
  void refresh() override {
    ListSection::refresh();
    tellLast();
  }

 private:
  void tellScan() {
    ListState state = scanState(world_.installed);
    if (world_.installed.isScanning()) {
      problem_.clear();
    } else if (!problem_.isEmpty()) {
      state = Failed{problem_};
    }
    pane().setRemark(state, QStringLiteral("scan-applications"));
    tellLast();
  }
  void tellLast() {
    pane().setCaption(lastScanTexts(world_.installed.last(), world_.clock.now(), world_.zone));
  }

  ViewWorld world_;
  QPointer<ScanButton> scan_ = new ScanButton(world_.installed);
  QString problem_;  ///< of the last scan of this run
};

}  // namespace

std::unique_ptr<Section> makeMyApps(const ViewWorld& world) {
  return std::make_unique<MyAppsSection>(world);
}

}  // namespace quillet
