// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <exception>
#include <map>
#include <set>
#include <vector>

#include "desktop/models/store_question.h"
#include "desktop/models/view_world.h"
#include "desktop/sections/compare/compared_facts.h"

namespace quillet {

/// What is known of the apps that are compared, in their order. The library is read at once and
/// after each change; the store is asked for those that it did not tell of within the hour, all in
/// one question, and for the releases of those that are seen, one app after the other. What could
/// not be read anew stays as it was. While nobody looks the store is asked for nothing.
class CompareFeed : public QObject {
  Q_OBJECT

 public:
  explicit CompareFeed(const ViewWorld& world, QObject* parent = nullptr);
  ~CompareFeed() override;

  [[nodiscard]] std::vector<ComparedFacts> apps() const;
  /// Whether somebody looks.
  void setSeen(bool seen);
  /// The apps whose columns are seen.
  void showReleases(const std::set<AppKey>& seen);
  /// Asks for all anew.
  void refresh();
  /// What the button of the strip says.
  void act(StripAction action);
  [[nodiscard]] ListState state() const;
  [[nodiscard]] bool isAsking() const { return comparison_.isUnderWay() || releases_.isUnderWay(); }

 Q_SIGNALS:
  void changed();
  void stateChanged();

 private:
  struct Told {
    std::optional<ComparedApp> app;  ///< absent: the storefront does not have it
    Instant asOf{};
  };

  void take(const LibraryChanges& changes);
  void takeList();
  void readLibrary();
  static Task<> read(QPointer<CompareFeed> feed);
  /// An answer in which something is unknown is good as long as nobody comes anew.
  enum class Visit { same, another };
  void ask(Visit visit);
  [[nodiscard]] bool isKnown(const AppKey& app, Visit visit) const;
  void askFor(std::vector<std::int64_t> ids);
  void takeAnswer(const std::string& country, AppComparison answer);
  void learn(const AppKey& app, ComparedApp told);
  [[nodiscard]] std::exception_ptr unread() const;
  void askReleases();

  ViewWorld world_;
  bool isSeen_ = false;
  bool isReading_ = false;
  bool isStale_ = false;  ///< what is being read was asked for too early
  std::map<AppKey, PageFacts> library_;
  std::map<AppKey, Told> told_;
  std::map<AppKey, AppEnrichment> catalog_;
  std::set<AppKey> anew_;  ///< whose releases are to be asked for anew; they stay till then
  std::set<AppKey> seen_;
  std::string askedStorefront_;
  std::vector<std::int64_t> asked_;  ///< of the last question
  StoreQuestion comparison_;
  StoreQuestion releases_;
  std::optional<AppKey> releasesOf_;  ///< whose were asked for last
};

}  // namespace quillet
