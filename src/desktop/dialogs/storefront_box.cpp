// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/storefront_box.h"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QVBoxLayout>
#include <algorithm>

#include "desktop/dialogs/storefront_list.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/models/storefronts.h"

namespace quillet {

namespace {

constexpr int kShownLetters = 20;
constexpr QSize kPopup(340, 380);

/// What opens from the box; it goes with a click elsewhere.
class Popup : public QWidget {
 public:
  explicit Popup(QWidget* parent) : QWidget(parent, Qt::Popup) {
    setAttribute(Qt::WA_DeleteOnClose);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    Look& look = lookOf(*this);
    const bool isDark = look.palette.scheme() == Scheme::dark;
    const QColor& ground = look[isDark ? Token::raised : Token::base];
    painter.fillRect(rect(), ground);
    paintBox(painter, rect(), 0, ground, {look[Token::edge]});
  }
};

/// Below the box or, where there is no room, above it; all of it on the screen.
QRect placeBeside(const QWidget& box, const QSize& size) {
  const QRect screen = box.screen()->availableGeometry();
  const QRect around(box.mapToGlobal(QPoint(0, 0)), box.size());
  QRect place(QPoint(around.right() + 1 - size.width(), around.bottom() + 5), size);
  if (place.bottom() > screen.bottom()) place.moveBottom(around.top() - 4);
  place.moveLeft(std::clamp(place.left(), screen.left(),
                            std::max(screen.left(), screen.right() + 1 - size.width())));
  place.moveTop(std::max(place.top(), screen.top()));
  return place;
}

}  // namespace

StorefrontBox::StorefrontBox(const std::string& system) : StorefrontBox() {
  insertItem(0, tr("From the system: %1").arg(QString::fromStdString(system)), QString());
  setCurrentIndex(0);
}

StorefrontBox::StorefrontBox() {
  for (const Storefront& each : allStorefronts()) {
    const QString code = QString::fromStdString(each.code);
    addItem(QStringLiteral("%1 (%2)").arg(each.name, code), code);
  }
  setSizeAdjustPolicy(AdjustToMinimumContentsLengthWithIcon);
  setMinimumContentsLength(kShownLetters);
  connect(this, &QComboBox::activated, this, [this](int index) { Q_EMIT chosen(codeAt(index)); });
}

QString StorefrontBox::noneText() const { return codeAt(0).empty() ? itemText(0) : QString(); }

std::string StorefrontBox::codeAt(int index) const {
  return itemData(index).toString().toStdString();
}

void StorefrontBox::choose(const std::string& code) {
  setCurrentIndex(std::max(0, findData(QString::fromStdString(code))));
}

void StorefrontBox::showPopup() {
  auto* popup = new Popup(this);
  auto* list = new StorefrontList(noneText());
  auto* column = new QVBoxLayout(popup);
  column->setContentsMargins(8, 8, 8, 8);
  column->addWidget(list);
  popup->setAccessibleName(tr("Storefronts"));
  list->choose(codeAt(currentIndex()));
  connect(list, &StorefrontList::settled, this, [this, list] {
    const std::string code = list->chosen();
    hidePopup();
    Q_EMIT chosen(code);
  });
  popup_ = popup;
  const double growth = lookOf(*this).growth();
  popup->setGeometry(placeBeside(*this, QSize(qRound(kPopup.width() * growth), kPopup.height())));
  popup->show();
  list->takeFocus();
}

void StorefrontBox::hidePopup() {
  if (popup_) popup_->close();
  QComboBox::hidePopup();
}

}  // namespace quillet
