// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QGridLayout>
#include <utility>

#include "desktop/models/store_question.h"
#include "desktop/page/block_table.h"
#include "desktop/page/state_line.h"
#include "desktop/page/story_card.h"
#include "desktop/page/text_growth.h"

namespace quillet {

namespace {

constexpr int kGap = 12;
constexpr int kTwoColumns = 440;

// The newest; old ones go on being listed.
constexpr std::size_t kMostStories = 12;

/// Cards beside one another, where there is width for them.
class StoryGrid : public QWidget {
 public:
  explicit StoryGrid(QWidget* parent) : QWidget(parent), layout_(new QGridLayout(this)) {
    layout_->setContentsMargins(0, 0, 0, 0);
    layout_->setSpacing(kGap);
  }

  void show(const std::vector<EditorialStory>& stories, ImageStore& images) {
    for (StoryCard* card : std::exchange(cards_, {})) delete card;
    for (const EditorialStory& story : stories)
      cards_.push_back(new StoryCard(story, images, this));
    arrange();
    setVisible(!cards_.empty());
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    QWidget::resizeEvent(event);
    if (columns() != columns_) arrange();
  }

 private:
  [[nodiscard]] int columns() const {
    return width() >= grownBy(lookOf(*this), kTwoColumns) && cards_.size() > 1 ? 2 : 1;
  }

  void arrange() {
    columns_ = columns();
    layout_->setColumnStretch(0, 1);
    layout_->setColumnStretch(1, columns_ - 1);
    int index = 0;
    for (StoryCard* card : cards_) {
      layout_->addWidget(card, index / columns_, index % columns_);
      ++index;
    }
  }

  QGridLayout* layout_;
  std::vector<StoryCard*> cards_;
  int columns_ = 1;
};

/// What the store's editors tell of the app.
class StoriesBlock : public Block {
 public:
  StoriesBlock(const QString& title, const PageWorld& world)
      : Block(title),
        world_(world),
        question_(world.view.store, world.view.clock),
        state_(new StateLine(world.view.clock, this)),
        grid_(new StoryGrid(this)) {
    content().addWidget(state_);
    content().addWidget(grid_);
    grid_->hide();
    connect(state_, &StateLine::acted, this, [this](StripAction action) {
      action == StripAction::stop ? question_.stop() : question_.tryAgain();
    });
    connect(&question_, &StoreQuestion::stateChanged, this, [this] { setVisible(showAnswer()); });
  }

  bool fill(const PageFacts& known) override {
    const Asked asked = askedOf(known);
    if (asked != asked_) {
      const bool isOther = asked.app != asked_.app;
      asked_ = asked;
      if (isOther) {
        hasApproached_ = false;
        stories_.clear();
      }
      question_.forget();
      if (hasApproached_) ask(Freshness::known);
    }
    return showAnswer();
  }

  void approach(Freshness freshness) override {
    hasApproached_ = true;
    ask(freshness);
  }

 private:
  struct Asked {
    AppKey app;
    Platform platform = Platform::mac;
    std::vector<std::string> ids;

    friend bool operator==(const Asked&, const Asked&) = default;
  };

  static Asked askedOf(const PageFacts& known) {
    Asked asked{known.app, Platform::mac, {}};
    if (!known.store || !known.store->catalog) return asked;
    asked.platform = known.store->app.platform;
    asked.ids = known.store->catalog->editorialStoryIds;
    if (asked.ids.size() > kMostStories) asked.ids.resize(kMostStories);
    return asked;
  }

  void ask(Freshness freshness) {
    if (asked_.ids.empty()) return;
    question_.ask(
        [asked = asked_, freshness](QueryServices services, const QueryCall& call) {
          if (freshness == Freshness::anew)
            services.catalog.forgetStories(asked.ids, asked.app.country, asked.platform);
          return services.catalog.stories(asked.ids, asked.app.country, asked.platform,
                                          call.context);
        },
        [this](std::vector<EditorialStory> stories) { stories_ = std::move(stories); });
  }

  bool showAnswer() {
    const bool tells = state_->show(question_.state());
    if (stories_ != shown_) grid_->show(shown_ = stories_, world_.view.images);
    return tells || !stories_.empty();
  }

  PageWorld world_;
  Asked asked_;
  bool hasApproached_ = false;
  std::vector<EditorialStory> stories_;
  std::vector<EditorialStory> shown_;
  StoreQuestion question_;
  StateLine* state_;
  StoryGrid* grid_;
};

}  // namespace

Block* makeStoriesBlock(const QString& title, const PageWorld& world) {
  return new StoriesBlock(title, world);
}

}  // namespace quillet
