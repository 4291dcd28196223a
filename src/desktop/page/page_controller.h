// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <QObject>
#include <QPointer>
#include <optional>
#include <utility>
#include <vector>

#include "desktop/models/page_facts.h"
#include "desktop/models/store_question.h"
#include "desktop/models/view_world.h"

namespace quillet {

/// Whether the history tells that somebody looked at the app.
enum class Visits { noted, unnoted };

/// What is known of the app whose page is shown, and how it becomes more.
///
/// The library is read at once, and again after each change that touched the app; what the store
/// told in this run comes on top. The store itself is asked once somebody looked at the app for a
/// moment: for its record unless that is young, and for what the catalog adds. What is known stays
/// whatever becomes of the questions. An app at which somebody looked with young facts was visited,
/// which the library notes, once.
class PageController : public QObject {
  Q_OBJECT

 public:
  explicit PageController(const ViewWorld& world, Visits visits = Visits::noted,
                          QObject* parent = nullptr);
  ~PageController() override;

  void show(const std::optional<AppKey>& app);
  /// Whether anybody sees the page; the store is asked for nothing else.
  void setSeen(bool seen);
  /// Asks for all anew, whatever its age.
  void refresh();
  /// What the button of the strip says.
  void act(StripAction action);

  [[nodiscard]] const std::optional<AppKey>& app() const { return app_; }
  /// Of the app that is shown; absent until the library was read.
  [[nodiscard]] const std::optional<PageFacts>& facts() const { return facts_; }
  /// How the questions stand, in one.
  [[nodiscard]] ListState state() const;
  [[nodiscard]] bool isAsking() const { return record_.isUnderWay() || catalog_.isUnderWay(); }
  /// Whether the store was asked, and answered or did not do so for long.
  [[nodiscard]] bool isSettled() const;

 Q_SIGNALS:
  void factsChanged();
  /// The library cannot be read; there are no facts.
  void unreadable();
  void stateChanged();

 private:
  /// What the catalog said, and whether a request was sent for it.
  struct CatalogAnswer {
    AppEnrichment catalog;
    bool isNew = false;
  };

  static Task<> readLibrary(QPointer<PageController> controller, AppKey app);
  static Task<> rest(QPointer<PageController> controller, StopToken stop);
  static Task<CatalogAnswer> askCatalogFor(AppKey app, Platform platform, Freshness freshness,
                                           QueryServices services, QueryCall call);

  void wantLibrary();
  void takeLibrary(const AppKey& app, std::optional<PageFacts> facts);
  void note(const LibraryChanges& changes);
  void compose();

  void beginRest();
  void endRest();
  void takeRest();
  void ask(Freshness freshness);
  void askRecord();
  void askCatalog();
  void takeRecord(std::optional<ITunesApp> app);
  void takeCatalog(CatalogAnswer answer);
  void takeState();
  void settle();
  bool join(const ShelvedRecord& record);
  void forgetQuestions();

  [[nodiscard]] std::optional<ShelvedRecord> newestRecord() const;
  [[nodiscard]] std::optional<Platform> knownPlatform() const;
  [[nodiscard]] bool isYoung(const ShelvedRecord& record) const;
  [[nodiscard]] std::shared_ptr<const StoreFacts> kept() const;
  void keep(std::shared_ptr<const StoreFacts> facts);
  void noteVisit(const ShelvedRecord& record);

  ViewWorld world_;
  Visits visits_;
  std::optional<AppKey> app_;
  bool isSeen_ = false;

  std::optional<PageFacts> library_;  ///< what it knows of the app
  std::optional<PageFacts> facts_;    ///< with what the store told
  bool isReading_ = false;
  bool isStale_ = false;  ///< what is being read was asked for too early

  StopSource resting_;
  bool hasRested_ = false;
  bool hasAsked_ = false;
  Freshness freshness_ = Freshness::known;
  std::optional<Platform> platform_;  ///< whose build the questions are about
  StoreQuestion record_;
  StoreQuestion catalog_;
  bool isGone_ = false;
  std::optional<CatalogAnswer> answer_;
  bool hasNews_ = false;  ///< an answer that is not in the facts yet

  bool isVisitNoted_ = false;
  bool isRankNoted_ = false;

  /// Of the apps that were shown last, the latest first.
  std::vector<std::pair<AppKey, std::shared_ptr<const StoreFacts>>> kept_;
};

}  // namespace quillet
