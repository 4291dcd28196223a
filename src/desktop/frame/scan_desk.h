// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <filesystem>
#include <string>

#include "desktop/models/store_question.h"
#include "desktop/models/view_world.h"
#include "desktop/services/found_app.h"

namespace quillet {

class ScanResultWindow;

/// What the user does with scans of installed apps: begins and ends them, chooses the folders, and
/// decides about what was found.
class ScanDesk : public QObject {
  Q_OBJECT

 public:
  /// All outlive it; dialogs stand before `window`.
  ScanDesk(const ViewWorld& world, QWidget& window);

  [[nodiscard]] bool isScanning() const { return world_.installed.isScanning(); }
  /// Scans the folders that were chosen, else those that are found on mounted disks, else asks for
  /// one. Ends the scan that runs.
  void scan();
  /// Scans another folder, which is one of the chosen ones from now on.
  void chooseFolder();
  /// Reads these bundles, and offers them to My Apps.
  void look(const FolderList& bundles);

 Q_SIGNALS:
  /// A scan began or ended.
  void changed();
  void said(const QString& text);
  /// The user wants to find an app in the store that the scan did not.
  void searched(const QString& text);

 private:
  /// A bundle of which the user says which app it is.
  struct LinkedBundle {
    QPointer<ScanResultWindow> result;  ///< where it was undecided; it may have gone since
    std::size_t place;                  ///< there
    InstalledBundle bundle;
    Instant at;
    std::string country;
  };

  static Task<> propose(QPointer<ScanDesk> desk);
  void take(const std::filesystem::path& folder);
  void scanFolders(const FolderList& folders);
  void noteScan();
  void show(const ScanOutcome& outcome);
  void apply(const ScanResultWindow& result);
  void askForLink(std::size_t place);
  void link(std::size_t place, const QString& text);
  void takeLinked(const LinkedBundle& linked, const std::optional<ITunesApp>& app);
  void tellQuestion();
  void ignore(std::size_t place);
  /// Says why where it could not be done.
  bool turn(void (*change)(WritableSettings&, const std::string&), const std::string& id);

  ViewWorld world_;
  QWidget& window_;
  StoreQuestion question_;
  QPointer<ScanResultWindow> result_;
  bool wasScanning_ = false;
};

}  // namespace quillet
