// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QPagedPaintDevice>
#include <QTimer>
#include <string>
#include <vector>

#include "desktop/images/image_store.h"
#include "desktop/models/view_world.h"

namespace quillet {

/// Remembers what it was asked, and answers as it was told.
class KeptPrompts final : public Prompts {
 public:
  void openLink(const std::string& address) override { opened.push_back(address); }
  void showInFiles(const std::filesystem::path& file) override { opened.push_back(file.string()); }
  void chooseSaveFile(const FileQuestion& question, const QObject* context,
                      FileAnswer take) override {
    answer(question, context, std::move(take));
  }
  void chooseFile(const FileQuestion& question, const QObject* context, FileAnswer take) override {
    answer(question, context, std::move(take));
  }
  void chooseFolder(const FileQuestion& question, const QObject* context,
                    FileAnswer take) override {
    answer(question, context, std::move(take));
  }
  void choosePrinter(const QString& title, const QObject* context, PrintAnswer take) override {
    prints.push_back(title);
    if (printer == nullptr) return;
    QTimer::singleShot(0, context, [take = std::move(take), this] { take(*printer); });
  }

  std::vector<std::string> opened;
  std::vector<std::filesystem::path> suggested;  ///< of files and folders
  std::filesystem::path chosen;                  ///< empty: none is wanted
  std::vector<QString> prints;                   ///< what they are called
  QPagedPaintDevice* printer = nullptr;          ///< null: none is wanted

 private:
  void answer(const FileQuestion& question, const QObject* context, FileAnswer take) {
    suggested.push_back(question.suggested);
    if (chosen.empty()) return;
    QTimer::singleShot(0, context, [take = std::move(take), file = chosen] { take(file); });
  }
};

/// What views stand in, over a network, a clock and settings of the test's. Nothing is open before
/// the test opens it.
struct ViewParts {
  ViewParts(HttpClient& http, Clock& time, WritableSettings& kept)
      : records(time, {{}, kShelvedRecords}),
        images(http, time, {}),
        clock(time),
        settings(kept),
        state({}),
        installed({library, store, time, settings, state, [] { return "us"; }}) {}

  [[nodiscard]] ViewWorld world() { return world(state); }
  /// With what another run remembered.
  [[nodiscard]] ViewWorld world(StateFile& remembered) {
    compared = std::make_unique<CompareList>(remembered);
    return {library,
            edits,
            store,
            prices,
            installed,
            records,
            images,
            clock,
            settings,
            remembered,
            *compared,
            prompts,
            [] { return "us"; },
            [](Instant) { return std::chrono::seconds(0); },
            {}};
  }

  LibraryGateway library;
  EditHistory edits{library};
  StoreGateway store;
  PriceData prices;
  RecordShelf records;
  ImageStore images;
  Clock& clock;
  LiveSettings settings;
  StateFile state;
  InstalledApps installed;
  std::unique_ptr<CompareList> compared;
  KeptPrompts prompts;
};

}  // namespace quillet
