// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/search/search_start.h"

#include <QEvent>
#include <QLabel>
#include <QLayout>
#include <QScrollArea>

#include "analysis/search_presets.h"
#include "desktop/lists/text_label.h"
#include "desktop/look/look.h"
#include "desktop/look/wrapped_tip.h"
#include "desktop/models/recent_searches.h"
#include "desktop/sections/search/start_rows.h"
#include "desktop/store_lists/large_icon.h"
#include "library/saved_searches.h"

namespace quillet {

namespace {

constexpr int kMargin = 24;
constexpr int kWidest = 560;
constexpr int kLeastForTwo = 480;  // groups side by side
constexpr int kBetweenGroups = 24;
constexpr int kLinkInset = 8;  // of a link's icon
constexpr std::size_t kMostLinks = 6;

class Heading final : public TextLabel {
 public:
  explicit Heading(const QString& text) : TextLabel(kGroupType, Token::tertiary) {
    setText(QLocale().toUpper(text));
    setAccessibleName(text);
  }
};

std::vector<SearchHint> savedHints(SQLite::Database& database) {
  std::vector<SearchHint> hints = libraryHints(database);
  std::erase_if(hints, [](const SearchHint& each) { return each.kind != HintKind::saved; });
  return hints;
}

}  // namespace

SearchStart::SearchStart(const ViewWorld& world)
    : world_(world), words_(new QLabel(tr("Search the App Store with filters it doesn't have."))) {
  setAccessibleName(words_->text());
  words_->setWordWrap(true);
  words_->setAlignment(Qt::AlignHCenter);
  fitWords();

  auto* sheet = new QWidget;
  sheet->setMaximumWidth(kWidest);
  auto* column = new QVBoxLayout(sheet);
  column->setContentsMargins(0, kMargin, 0, kMargin);
  column->setSpacing(0);
  column->addStretch(2);
  column->addWidget(new LargeIcon(QStringLiteral("search")), 0, Qt::AlignHCenter);
  column->addSpacing(16);
  column->addWidget(words_);
  column->addSpacing(24);
  addPresets(*column);
  column->addSpacing(28);
  groups_ = new QBoxLayout(QBoxLayout::LeftToRight);
  groups_->setSpacing(kBetweenGroups);
  column->addLayout(groups_);
  saved_ = addGroup(tr("Saved searches"));
  recent_ = addGroup(tr("Recent searches"));
  column->addStretch(3);

  auto* content = new QWidget;
  auto* centre = new QHBoxLayout(content);
  centre->setContentsMargins(kMargin, 0, kMargin, 0);
  centre->addWidget(sheet);
  auto* area = new QScrollArea;
  area->setWidget(content);
  area->setWidgetResizable(true);
  area->setFrameShape(QFrame::NoFrame);
  area->setFocusPolicy(Qt::NoFocus);
  area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  area->viewport()->setAutoFillBackground(false);
  content->setAutoFillBackground(false);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(0, 0, 0, 0);
  layout->addWidget(area);

  connect(&world_.library, &LibraryGateway::changed, this, [this](const LibraryChanges& changes) {
    if (isVisible() && !changes.savedSearches.empty()) renew();
  });
}

void SearchStart::fitWords() { words_->setFont(lookOf(*this).text.font(kBlockType)); }

void SearchStart::addPresets(QBoxLayout& column) {
  for (const SearchPreset& preset : searchPresets()) {
    auto* card = new StartCard(QString::fromStdString(preset.title),
                               QString::fromStdString(preset.subtitle));
    card->setToolTip(wrappedTip(QString::fromStdString(presetTooltip(preset))));
    connect(card, &QPushButton::clicked, this,
            [this, filters = preset.filters] { Q_EMIT presetChosen(filters); });
    column.addWidget(card);
    column.addSpacing(8);
  }
}

SearchStart::Group SearchStart::addGroup(const QString& heading) {
  Group group;
  group.box = new QWidget;
  group.box->setAccessibleName(heading);
  auto* column = new QVBoxLayout(group.box);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(4);
  auto* words = new QHBoxLayout;
  words->setContentsMargins(kLinkInset, 0, kLinkInset, 0);
  words->addWidget(new Heading(heading));
  column->addLayout(words);
  group.links = new QVBoxLayout;
  group.links->setSpacing(0);
  column->addLayout(group.links);
  column->addStretch();
  group.box->hide();
  groups_->addWidget(group.box, 1);
  return group;
}

void SearchStart::renew() {
  show(recent_,
       hintsOf(recentSearches(world_.state.value(QString::fromLatin1(kRecentSearchesKey)))));
  detach(read(this, ++generation_), "Saved searches");
}

Task<> SearchStart::read(QPointer<SearchStart> view, int generation) {
  std::vector<SearchHint> saved = co_await view->world_.library.read(savedHints);
  if (view && view->generation_ == generation) view->show(view->saved_, std::move(saved));
}

void SearchStart::show(Group& group, std::vector<SearchHint> hints) {
  if (hints.size() > kMostLinks) hints.resize(kMostLinks);
  if (group.shown == hints) return;
  group.shown = std::move(hints);
  while (QLayoutItem* item = group.links->takeAt(0)) {
    item->widget()->hide();
    item->widget()->deleteLater();
    delete item;
  }
  for (const SearchHint& hint : group.shown) {
    auto* link = new StartLink(iconOf(hint.kind), hint.text,
                               asideOf(hint.query.request, world_.storefront()));
    connect(link, &QPushButton::clicked, this,
            [this, query = hint.query] { Q_EMIT chosen(query); });
    group.links->addWidget(link);
  }
  group.box->setVisible(!group.shown.empty());
}

void SearchStart::showEvent(QShowEvent* event) {
  QWidget::showEvent(event);
  renew();
}

void SearchStart::resizeEvent(QResizeEvent* event) {
  QWidget::resizeEvent(event);
  groups_->setDirection(width() - 2 * kMargin < kLeastForTwo ? QBoxLayout::TopToBottom
                                                             : QBoxLayout::LeftToRight);
}

void SearchStart::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange) fitWords();
}

}  // namespace quillet
