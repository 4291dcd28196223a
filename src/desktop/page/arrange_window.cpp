// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/page/arrange_window.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QListWidget>
#include <QPainter>
#include <QPushButton>
#include <QVBoxLayout>
#include <algorithm>
#include <cmath>

#include "desktop/look/checked_row.h"
#include "desktop/look/dialog_button.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/widgets.h"
#include "desktop/page/block_table.h"
#include "desktop/page/page_text.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

constexpr QSize kUsualSize(400, 596);
constexpr int kRow = 36;
constexpr int kGrip = 12;
constexpr int kIdRole = Qt::UserRole;

/// A row: whether the block is seen, its title, and what it is dragged by.
class BlockDelegate : public CheckedRowDelegate {
 public:
  explicit BlockDelegate(QObject* parent) : CheckedRowDelegate(kRow, parent) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option,
             const QModelIndex& index) const override {
    CheckedRowDelegate::paint(painter, option, index);
    Look& look = lookOf(*option.widget);
    const bool isShown = index.data(Qt::CheckStateRole).toInt() == Qt::Checked;
    const bool isMirrored = option.direction == Qt::RightToLeft;
    const QRectF text = QStyle::visualRect(
        option.direction, option.rect, option.rect.adjusted(kTextLeft, 0, -(kTextLeft - kGrip), 0));
    look.text.drawElided(*painter, {text, isMirrored ? TextAnchor::right : TextAnchor::left},
                         index.data().toString(), kControlType,
                         look[isShown ? Token::text : Token::secondary]);
    paintGrip(*painter, look, option);
  }

 private:
  static void paintGrip(QPainter& painter, Look& look, const QStyleOptionViewItem& option) {
    const QRect& row = option.rect;
    const QRectF grip = QStyle::visualRect(
        option.direction, row,
        QRect(row.right() - kBoxLeft - kGrip, row.top() + (row.height() - 8) / 2, kGrip, 8));
    PixelGrid grid(painter);
    for (const double y : {0.0, 3.0, 6.0})
      grid.horizontal(grip.left(), grip.right(), grip.top() + y, look[Token::control]);
  }
};

}  // namespace

ArrangeWindow::ArrangeWindow(LiveSettings& settings, QWidget* parent)
    : QDialog(parent),
      settings_(settings),
      list_(new QListWidget),
      remark_(new PageText({.type = kFactType, .ink = Token::up, .lineHeight = 16})),
      reset_(new DialogButton(tr("Reset"))) {
  setWindowTitle(tr("Arrange App Page"));
  setAttribute(Qt::WA_DeleteOnClose);
  resize(kUsualSize);
  auto* hint = new PageText({.type = kBodyType, .ink = Token::secondary});
  hint->show(
      tr("Drag a block to its place, or move it with Alt+Up and Alt+Down. What is not checked is "
         "not shown."));
  list_->setAccessibleName(tr("Blocks of the page"));
  list_->setItemDelegate(new BlockDelegate(list_));
  list_->setDragDropMode(QAbstractItemView::InternalMove);
  list_->setFrameShape(QFrame::NoFrame);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->setUniformItemSizes(true);
  list_->installEventFilter(this);
  auto* close = new DialogButton(tr("Close"));
  close->setDefault(true);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(reset_);
  buttons->addStretch();
  buttons->addWidget(close);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(24, 20, 24, 20);
  column->setSpacing(12);
  column->addWidget(hint);
  column->addWidget(list_, 1);
  column->addWidget(remark_);
  column->addLayout(buttons);
  remark_->hide();
  change_.setSingleShot(true);
  change_.setInterval(0);
  connect(&change_, &QTimer::timeout, this, &ArrangeWindow::keep);
  for (const auto moved : {&QAbstractItemModel::rowsInserted, &QAbstractItemModel::rowsRemoved})
    connect(list_->model(), moved, &change_, [this] { change_.start(); });
  connect(list_->model(), &QAbstractItemModel::rowsMoved, &change_, [this] { change_.start(); });
  connect(list_, &QListWidget::itemChanged, &change_, [this] { change_.start(); });
  connect(reset_, &QPushButton::clicked, this, [this] { write({}); });
  connect(close, &QPushButton::clicked, this, &QDialog::close);
  connect(&settings, &LiveSettings::changed, this, [this](const std::set<std::string>& keys) {
    if (keys.contains(std::string(kDetailSectionLayout.key))) showKept();
  });
  showKept();
  list_->setCurrentRow(0);
  list_->setFocus(Qt::OtherFocusReason);
}

std::vector<BlockChoice> ArrangeWindow::listed() const {
  std::vector<BlockChoice> choices;
  for (int row = 0; row < list_->count(); ++row) {
    const QListWidgetItem& item = *list_->item(row);
    choices.push_back(
        {item.data(kIdRole).toString().toStdString(), item.checkState() == Qt::Checked});
  }
  return choices;
}

void ArrangeWindow::showKept() {
  std::vector<BlockChoice> kept = blockChoices(settings_);
  reset_->setEnabled(!settings_.text(kDetailSectionLayout.key).value_or("").empty());
  std::erase_if(kept, [](const BlockChoice& choice) { return findBlock(choice.id) == nullptr; });
  if (kept == listed()) return;
  const int current = std::max(0, list_->currentRow());
  list_->clear();
  for (const BlockChoice& choice : kept) {
    auto* item = new QListWidgetItem(titleOf(*findBlock(choice.id)), list_);
    item->setData(kIdRole, QString::fromStdString(choice.id));
    item->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable |
                   Qt::ItemIsDragEnabled);
    item->setCheckState(choice.isShown ? Qt::Checked : Qt::Unchecked);
  }
  list_->setCurrentRow(current);
  change_.stop();  // none of the user's
}

/// Those that nobody knows (any more) stay behind the ones that they stood behind.
void ArrangeWindow::keep() {
  std::vector<BlockChoice> wanted = listed();
  std::string before;
  for (const BlockChoice& choice : blockChoices(settings_)) {
    if (findBlock(choice.id) == nullptr) {
      const auto place = std::ranges::find(wanted, before, &BlockChoice::id);
      wanted.insert(place == wanted.end() ? wanted.begin() : std::next(place), choice);
    }
    before = choice.id;
  }
  if (wanted != blockChoices(settings_)) write(wanted);
}

/// Without choices all is as usual again.
void ArrangeWindow::write(const std::vector<BlockChoice>& choices) {
  try {
    writeBlockChoices(settings_, choices);
    remark_->show({});
  } catch (const BadSetting& error) {
    remark_->show(QString::fromUtf8(error.what()));
    showKept();
  }
}

bool ArrangeWindow::eventFilter(QObject* watched, QEvent* event) {
  if (watched == list_ && event->type() == QEvent::KeyPress) {
    const auto& key = *static_cast<QKeyEvent*>(event);
    const bool isMove = key.modifiers().testFlag(Qt::AltModifier) &&
                        (key.key() == Qt::Key_Up || key.key() == Qt::Key_Down);
    if (isMove) move(key.key() == Qt::Key_Up ? -1 : 1);
    return isMove;
  }
  return QDialog::eventFilter(watched, event);
}

void ArrangeWindow::move(int by) {
  const int from = list_->currentRow();
  const int to = from + by;
  if (from < 0 || to < 0 || to >= list_->count()) return;
  list_->insertItem(to, list_->takeItem(from));
  list_->setCurrentRow(to);
}

void arrangeBlocks(QWidget* parent, LiveSettings& settings) {
  QWidget* before = parent->window();
  auto* window = before->findChild<ArrangeWindow*>({}, Qt::FindDirectChildrenOnly);
  if (window == nullptr) window = new ArrangeWindow(settings, before);
  bringUp(*window);
}

}  // namespace quillet
