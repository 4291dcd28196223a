// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/release_list.h"

#include <QLabel>
#include <QPainter>
#include <QTimer>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>
#include <limits>

#include "desktop/look/look.h"
#include "desktop/page/link_button.h"
#include "desktop/page/page_text.h"
#include "desktop/page/text_growth.h"

namespace quillet {

namespace {

constexpr std::size_t kFoldedRows = 3;
constexpr int kFoldedLines = 4;
constexpr TypeStyle kRowText{12.5, 400, 0, Digits::tabular};
constexpr TypeStyle kVersionType = kRowText.weighing(600);
constexpr int kLine = 18;
constexpr int kBelow = 4;
constexpr int kNarrowBelow = 8;  // notes stand below their release
constexpr int kGap = 12;
constexpr int kAboveAll = 4;
constexpr int kWide = 440;  // notes stand beside their release
constexpr double kMostOfVersion = 120;

using Columns = ReleaseColumns;

double widthOf(const Columns& columns) {
  return columns.version + columns.date + columns.gap + 3 * kGap;
}

Columns columnsFor(Look& look, const std::vector<ReleaseRow>& rows) {
  Columns columns;
  columns.version *= look.growth();
  columns.date *= look.growth();
  const auto widen = [&](double& column, const QString& text, const TypeStyle& type) {
    column = std::max(column, std::ceil(look.text.width(text, type)));
  };
  for (const ReleaseRow& row : rows) {
    widen(columns.version, row.version, kVersionType);
    widen(columns.date, row.date, kRowText);
    widen(columns.gap, row.gap, kRowText);
  }
  columns.version = std::min(columns.version, kMostOfVersion * look.growth());
  return columns;
}

/// Version, date and gap, read as one text.
class ReleaseFacts : public QLabel {
 public:
  ReleaseFacts(const ReleaseRow& row, const Columns& columns, QWidget* parent)
      : QLabel(parent), row_(row), columns_(columns) {
    setTextFormat(Qt::PlainText);
    QString text = ReleaseList::tr("Version %1, %2").arg(row.version, row.date);
    if (!row.gap.isEmpty()) {
      text = ReleaseList::tr("%1, %2 after the one before").arg(text, row.gap);
      setToolTip(ReleaseList::tr("%1 after the one before").arg(row.gap));
    }
    setText(text);
  }

  [[nodiscard]] int lineHeight() const { return grownBy(lookOf(*this), kLine); }
  [[nodiscard]] QSize sizeHint() const override {
    return {static_cast<int>(widthOf(columns_)), lineHeight()};
  }
  [[nodiscard]] QSize minimumSizeHint() const override { return {0, lineHeight()}; }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    Look& look = lookOf(*this);
    QPainter painter(this);
    double left = 0;
    const auto draw = [&](const QString& text, double width, const TypeStyle& type, Token ink,
                          TextAnchor anchor) {
      look.text.drawElided(painter, {QRectF(left, 0, width, height()), anchor}, text, type,
                           look[ink]);
      left += width + kGap;
    };
    draw(row_.version, columns_.version, kVersionType, Token::text, TextAnchor::left);
    draw(row_.date, columns_.date, kRowText, Token::tertiary, TextAnchor::left);
    draw(row_.gap, columns_.gap, kRowText, Token::tertiary, TextAnchor::right);
  }

 private:
  ReleaseRow row_;
  Columns columns_;
};

/// One release: its facts, and its notes beside or below them.
class ReleaseView : public QWidget {
 public:
  ReleaseView(const ReleaseRow& row, const Columns& columns, QWidget* parent)
      : QWidget(parent),
        left_(static_cast<int>(std::ceil(widthOf(columns)))),
        facts_(new ReleaseFacts(row, columns, this)),
        notes_(new PageText({.type = kFactType,
                             .ink = Token::secondary,
                             .lineHeight = kLine,
                             .lines = kFoldedLines,
                             .use = TextUse::copy},
                            this)),
        more_(new LinkButton({}, kSmallControlType, {}, this)) {
    notes_->show(row.notes);
    version_ = row.version;
    fold(true);
    QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Preferred);
    policy.setHeightForWidth(true);
    setSizePolicy(policy);
    connect(more_, &QAbstractButton::clicked, this, [this] { fold(!isFolded_); });
  }

  [[nodiscard]] QSize sizeHint() const override { return {480, heightForWidth(480)}; }
  [[nodiscard]] QSize minimumSizeHint() const override { return {0, 0}; }
  [[nodiscard]] bool hasHeightForWidth() const override { return true; }
  [[nodiscard]] int heightForWidth(int width) const override { return arrange(width).bottom; }

 protected:
  void resizeEvent(QResizeEvent* /*event*/) override {
    const Places places = arrange(width());
    facts_->setGeometry(places.facts);
    notes_->setGeometry(places.notes);
    more_->setGeometry(places.more);
    more_->setVisible(hasMore(places.notes.width()));
  }

 private:
  struct Places {
    QRect facts, notes, more;
    int bottom = 0;
  };

  [[nodiscard]] bool hasMore(int width) const { return !isFolded_ || notes_->isCutAt(width); }

  [[nodiscard]] Places arrange(int width) const {
    Places places;
    const int line = facts_->lineHeight();
    const bool isWide = width >= grownBy(lookOf(*this), kWide);
    const int left = isWide ? left_ : 0;
    const int below = isWide ? kBelow : kNarrowBelow;
    places.facts = QRect(0, 0, isWide ? left_ : width, line);
    places.bottom = line + below;
    if (notes_->text().isEmpty()) return places;
    const int notesWidth = std::max(1, width - left);
    places.notes = QRect(left, isWide ? 0 : line, notesWidth, notes_->heightForWidth(notesWidth));
    places.bottom = std::max(line, places.notes.bottom() + 1) + below;
    if (hasMore(notesWidth)) {
      places.more = QRect(QPoint(left, places.notes.bottom() + 1), more_->sizeHint());
      places.bottom = places.more.bottom() + 1 + below;
    }
    return places;
  }

  void fold(bool isFolded) {
    isFolded_ = isFolded;
    notes_->setLines(isFolded ? kFoldedLines : std::numeric_limits<int>::max());
    more_->setText(isFolded ? ReleaseList::tr("More") : ReleaseList::tr("Less"));
    more_->setAccessibleName(
        (isFolded ? ReleaseList::tr("More of version %1") : ReleaseList::tr("Less of version %1"))
            .arg(version_));
    updateGeometry();
  }

  int left_;
  QString version_;
  ReleaseFacts* facts_;
  PageText* notes_;
  LinkButton* more_;
  bool isFolded_ = true;
};

}  // namespace

ReleaseList::ReleaseList(QWidget* parent)
    : QWidget(parent),
      layout_(new QVBoxLayout(this)),
      all_(new LinkButton({}, kSmallControlType, {}, this)) {
  setAccessibleName(tr("List of releases"));
  layout_->setContentsMargins(0, 0, 0, 0);
  layout_->setSpacing(0);
  layout_->addSpacing(kAboveAll);
  layout_->addWidget(all_, 0, Qt::AlignLeft);
  connect(all_, &QAbstractButton::clicked, this, [this] {
    isFolded_ = !isFolded_;
    cut(kFoldedRows);
    grow();
    tellAll();
  });
}

void ReleaseList::show(const std::vector<ReleaseRow>& releases) {
  if (releases == releases_) return;
  releases_ = releases;
  isFolded_ = true;
  build();
}

void ReleaseList::build() {
  columns_ = columnsFor(lookOf(*this), releases_);
  cut(0);
  grow();
  tellAll();
}

/// Leaves that many rows.
void ReleaseList::cut(std::size_t count) {
  while (rows_.size() > count) {
    delete rows_.back();
    rows_.pop_back();
  }
}

void ReleaseList::addRow() {
  auto* row = new ReleaseView(releases_[rows_.size()], columns_, this);
  layout_->insertWidget(static_cast<int>(rows_.size()), row);
  row->show();
  rows_.push_back(row);
}

/// The first ones at once, and an event for each of the others: it lays out a page of notes.
void ReleaseList::grow() {
  while (rows_.size() < std::min(kFoldedRows, releases_.size())) addRow();
  if (isFolded_ || rows_.size() == releases_.size()) return;
  addRow();
  QTimer::singleShot(0, this, &ReleaseList::grow);
}

void ReleaseList::tellAll() {
  all_->setText(isFolded_ ? tr("All %1 releases").arg(static_cast<qulonglong>(releases_.size()))
                          : tr("Fewer releases"));
  all_->setVisible(releases_.size() > kFoldedRows);
  all_->updateGeometry();
}

void ReleaseList::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() == QEvent::FontChange && !releases_.empty()) build();
}

}  // namespace quillet
