// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/frame/quick_open.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPainter>
#include <QVBoxLayout>

#include "desktop/frame/quick_row.h"
#include "desktop/look/button_look.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/widgets.h"
#include "desktop/models/app_row.h"
#include "desktop/models/row_parts.h"

namespace quillet {

namespace {

constexpr int kWidth = 480;
constexpr int kMostRows = 10;
constexpr std::size_t kMostFound = 200;
constexpr int kTop = 72;
constexpr int kPadding = 12;

}  // namespace

QuickOpen::QuickOpen(LibraryGateway& library, QWidget& window,
                     std::function<std::string()> storefront)
    : QWidget(&window),
      library_(library),
      window_(window),
      storefront_(std::move(storefront)),
      field_(new QLineEdit(this)),
      list_(new QListView(this)) {
  setAccessibleName(tr("Go to App"));
  field_->setAccessibleName(tr("Name of an app"));
  field_->setPlaceholderText(tr("Go to an app in your lists"));
  field_->installEventFilter(this);
  list_->setAccessibleName(tr("Apps"));
  list_->setModel(&found_);
  list_->setItemDelegate(new QuickRowDelegate(list_));
  list_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  list_->setFrameShape(QFrame::NoFrame);
  list_->setUniformItemSizes(true);
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list_->viewport()->setAutoFillBackground(false);
  list_->installEventFilter(this);
  auto* layout = new QVBoxLayout(this);
  layout->setContentsMargins(kPadding, kPadding, kPadding, kPadding);
  layout->setSpacing(8);
  layout->addWidget(field_);
  layout->addWidget(list_);
  connect(field_, &QLineEdit::textChanged, this, &QuickOpen::search);
  connect(list_, &QListView::clicked, this, &QuickOpen::choose);
  connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
    if (isVisible() && now != nullptr && !isAncestorOf(now)) hide();
  });
  window.installEventFilter(this);
  hide();
}

void QuickOpen::open() {
  before_ = QApplication::focusWidget();
  field_->clear();
  listed_.clear();
  search();
  raise();
  QWidget::show();
  place();
  field_->setFocus(Qt::ShortcutFocusReason);
  detach(read(this, ++generation_), "Apps");
}

void QuickOpen::leave() {
  if (before_) before_->setFocus(Qt::OtherFocusReason);
  hide();
}

Task<> QuickOpen::read(QPointer<QuickOpen> view, int generation) {
  std::vector<ListedApp> listed = co_await view->library_.read(listedApps);
  if (view && view->generation_ == generation) view->show(std::move(listed));
}

void QuickOpen::show(std::vector<ListedApp> listed) {
  listed_ = std::move(listed);
  folded_.clear();
  for (const ListedApp& each : listed_)
    folded_.push_back(foldedText({QString::fromStdString(each.name)}));
  search();
}

/// Names that begin with the text come first, in the order of the lists.
void QuickOpen::search() {
  const QString text = field_->text().simplified().toCaseFolded();
  shown_.clear();
  std::vector<std::size_t> within;
  for (std::size_t i = 0; i < listed_.size() && shown_.size() < kMostFound; ++i) {
    if (folded_[i].startsWith(text)) {
      shown_.push_back(i);
    } else if (folded_[i].contains(text)) {
      within.push_back(i);
    }
  }
  shown_.insert(shown_.end(), within.begin(), within.end());
  if (shown_.size() > kMostFound) shown_.resize(kMostFound);
  found_.clear();
  for (const std::size_t at : shown_) {
    auto* item = new QStandardItem(nameLine(listed_[at].name));
    const QString list = listText(listed_[at]);
    item->setData(list, QuickListRole);
    item->setData(item->text() + QStringLiteral(", ") + list, Qt::AccessibleTextRole);
    found_.appendRow(item);
  }
  if (!text.isEmpty()) addStoreRow();
  if (found_.rowCount() > 0) list_->setCurrentIndex(found_.index(0, 0));
  place();
}

/// What is in no list may be in the store.
void QuickOpen::addStoreRow() {
  auto* item = new QStandardItem(tr("Search the store for “%1”").arg(field_->text().simplified()));
  item->setData(item->text(), Qt::AccessibleTextRole);
  found_.appendRow(item);
}

/// The same app may be listed in several storefronts.
QString QuickOpen::listText(const ListedApp& listed) const {
  const QString name = listNameOf(listed);
  if (listed.app.country == storefront_()) return name;
  return name + QStringLiteral(" · ") + QString::fromStdString(listed.app.country);
}

void QuickOpen::choose() {
  const int row = list_->currentIndex().row();
  if (row < 0) return;
  const auto at = static_cast<std::size_t>(row);
  if (at == shown_.size()) {
    const QString text = field_->text().simplified();
    leave();
    Q_EMIT searched(text);
    return;
  }
  const Place place = placeOf(listed_[shown_[at]]);
  leave();
  Q_EMIT chosen(place);
}

void QuickOpen::place() {
  const int rows = std::min(kMostRows, found_.rowCount());
  list_->setVisible(rows > 0);
  const int height = 2 * kPadding + field_->sizeHint().height() +
                     (rows > 0 ? 8 + rows * QuickRowDelegate::kHeight : 0);
  const int width = std::min(kWidth, window_.width() - 2 * kPadding);
  setGeometry((window_.width() - width) / 2, kTop, width,
              std::min(height, window_.height() - kTop - kPadding));
}

/// The field keeps the focus: arrows move the choice in the list.
bool QuickOpen::eventFilter(QObject* watched, QEvent* event) {
  if (watched == &window_) {
    if (event->type() == QEvent::Resize && isVisible()) place();
    return false;
  }
  if (event->type() == QEvent::ShortcutOverride &&
      static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape) {
    event->accept();
    return true;
  }
  if (steers(*list_, watched, *event)) return true;
  const bool leaves =
      event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->key() == Qt::Key_Escape;
  if (leaves) leave();
  if (isReturn(*event)) choose();
  return leaves || isReturn(*event);
}

void QuickOpen::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  const bool isDark = look.palette.scheme() == Scheme::dark;
  painter.fillRect(rect(), look[Token::base]);
  paintBox(painter, rect(), 0, look[isDark ? Token::raised : Token::base], {look[Token::edge]});
}

}  // namespace quillet
