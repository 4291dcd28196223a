// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/symbol_grid.h"

#include <QButtonGroup>
#include <QCoreApplication>
#include <QGridLayout>
#include <QPainter>
#include <QRadioButton>
#include <QStyleOptionButton>

#include "desktop/look/focus_ring.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/models/collection_symbol.h"

namespace quillet {

namespace {

constexpr int kColumns = 8;
constexpr int kTile = 36;
constexpr int kGap = 8;
constexpr double kIcon = 18;
constexpr double kCorner = 8;

/// A radio button, so that arrows go from one to the next, that looks like a tile.
class SymbolTile : public QRadioButton {
 public:
  explicit SymbolTile(const CollectionSymbol& symbol) : icon_(QString::fromLatin1(symbol.icon)) {
    const QString title = QCoreApplication::translate("Symbols", symbol.title);
    setAccessibleName(title);
    setToolTip(title);
    setAttribute(Qt::WA_Hover);
    keepRingInside(*this);
    setFixedSize(kTile, kTile);
  }

 protected:
  [[nodiscard]] bool hitButton(const QPoint& position) const override {
    return rect().contains(position);
  }

  void paintEvent(QPaintEvent* /*event*/) override {
    QStyleOptionButton option;
    initStyleOption(&option);
    Look& look = lookOf(*this);
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    if (isChecked()) {
      paintBox(painter, rect(), kCorner, look[Token::selection]);
    } else if (option.state.testFlag(QStyle::State_MouseOver)) {
      paintBox(painter, rect(), kCorner, look[Token::hover]);
    }
    constexpr double kInset = (kTile - kIcon) / 2;
    look.icons.draw(painter, {kInset, kInset}, icon_, kIcon,
                    look[isChecked() ? Token::accentText : Token::secondary]);
    const bool showsRing = option.state.testFlag(QStyle::State_HasFocus) &&
                           option.state.testFlag(QStyle::State_KeyboardFocusChange);
    if (showsRing)
      paintBox(painter, rect(), kCorner, Qt::transparent, {look[Token::accentText], 2});
  }

 private:
  QString icon_;
};

}  // namespace

SymbolGrid::SymbolGrid(std::string symbol, QWidget* parent)
    : QWidget(parent), before_(std::move(symbol)), group_(new QButtonGroup(this)) {
  setAccessibleName(tr("Symbol"));
  auto* layout = new QGridLayout(this);
  layout->setContentsMargins({});
  layout->setSpacing(kGap);
  const QString icon = iconOfSymbol(before_);
  for (int i = 0; i < static_cast<int>(kCollectionSymbols.size()); ++i) {
    const CollectionSymbol& each = kCollectionSymbols.at(static_cast<std::size_t>(i));
    auto* tile = new SymbolTile(each);
    group_->addButton(tile, i);
    layout->addWidget(tile, i / kColumns, i % kColumns);
    tile->setChecked(icon == QLatin1String(each.icon));
  }
  layout->setColumnStretch(kColumns, 1);
}

std::string SymbolGrid::symbol() const {
  const auto& chosen = kCollectionSymbols.at(static_cast<std::size_t>(group_->checkedId()));
  const bool isAsBefore = iconOfSymbol(before_) == QLatin1String(chosen.icon);
  return isAsBefore && !before_.empty() ? before_ : std::string(chosen.name);
}

}  // namespace quillet
