// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPointer>
#include <filesystem>

#include "desktop/models/place.h"
#include "desktop/models/view_world.h"

namespace quillet {

/// What is known here of who sells the app that is chosen: of its record in this run, or of the one
/// that is kept.
class ChosenApp : public QObject {
  Q_OBJECT

 public:
  struct Facts {
    std::optional<Developer> developer;
    std::string website;  ///< the developer's; empty for none
    Platform platform = Platform::mac;

    friend bool operator==(const Facts&, const Facts&) = default;
  };

  /// All outlive this.
  ChosenApp(LibraryGateway& library, RecordShelf& records);

  /// Absent where none is chosen, or several are.
  void show(const std::optional<AppKey>& app);
  [[nodiscard]] const std::optional<AppKey>& app() const { return app_; }
  [[nodiscard]] const Facts& facts() const { return facts_; }
  /// Where it is installed, and was there when it was chosen; empty for nowhere.
  [[nodiscard]] const std::filesystem::path& copy() const { return copy_; }

 Q_SIGNALS:
  /// Other facts.
  void changed();

 private:
  void want();
  static Task<> read(QPointer<ChosenApp> chosen, AppKey app);
  void wantCopy();
  static Task<> readCopy(QPointer<ChosenApp> chosen, AppKey app);

  LibraryGateway& library_;
  RecordShelf& records_;
  std::optional<AppKey> app_;
  Facts facts_;
  std::filesystem::path copy_;
  bool isReading_ = false;
  bool isStale_ = false;  ///< what is being read was asked for too early
};

}  // namespace quillet
