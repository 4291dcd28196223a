// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <QResizeEvent>
#include <QVBoxLayout>
#include <limits>

#include "desktop/page/block_table.h"
#include "desktop/page/link_button.h"
#include "desktop/page/linked_text.h"
#include "desktop/page/page_price.h"

namespace quillet {

namespace {

constexpr int kFoldedLines = 8;
constexpr int kAboveMore = 4;

/// What the developer says of the app, its first lines until the user wants more.
class DescriptionBlock : public Block {
 public:
  DescriptionBlock(const QString& title, const PageWorld& world)
      : Block(title),
        text_(new LinkedText(
            {.type = kBodyType, .lineHeight = 20, .lines = kFoldedLines, .use = TextUse::copy},
            this)),
        more_(new LinkButton({}, kSmallControlType, {}, this)) {
    content().addWidget(text_);
    content().addSpacing(kAboveMore);
    content().addWidget(more_, 0, Qt::AlignLeft);
    connect(text_, &LinkedText::opens, this,
            [&prompts = world.view.prompts](const std::string& link) { prompts.openLink(link); });
    connect(more_, &QAbstractButton::clicked, this, [this] { fold(!isFolded_); });
    fold(true);
  }

  bool fill(const PageFacts& known) override {
    const QString text = plainLines(known.cached ? known.cached->appDescription.value_or("") : "");
    if (text != text_->text()) fold(true);
    text_->show(text);
    showMore();
    return !text.isEmpty();
  }

 protected:
  void resizeEvent(QResizeEvent* event) override {
    Block::resizeEvent(event);
    showMore();
  }

 private:
  void fold(bool isFolded) {
    isFolded_ = isFolded;
    text_->setLines(isFolded ? kFoldedLines : std::numeric_limits<int>::max());
    more_->setText(isFolded ? tr("More") : tr("Less"));
    more_->setAccessibleName(isFolded ? tr("More of the description")
                                      : tr("Less of the description"));
  }

  void showMore() { more_->setVisible(!isFolded_ || text_->isCutAt(width())); }

  LinkedText* text_;
  LinkButton* more_;
  bool isFolded_ = true;
};

}  // namespace

Block* makeDescriptionBlock(const QString& title, const PageWorld& world) {
  return new DescriptionBlock(title, world);
}

}  // namespace quillet
