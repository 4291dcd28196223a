// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/sections/my_apps/upgrade_result.h"

#include <QLocale>
#include <QMenu>
#include <QPainter>
#include <QStyle>
#include <cmath>

#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"
#include "desktop/look/widgets.h"
#include "desktop/look/wrapped_tip.h"
#include "desktop/sections/my_apps/upkeep_columns.h"

namespace quillet {

namespace {

constexpr double kIcon = 14;
constexpr double kIconGap = 4;
constexpr double kInset = 6;
constexpr double kHeight = 28;
constexpr double kCorner = 7;
constexpr std::size_t kMostNames = 30;

QString briefOf(const UpgradeTold& told) {
  const std::size_t stopped = told.stops();
  const std::size_t older = told.older.size();
  if (stopped == 1) return UpgradeResult::tr("1 app stops");
  if (stopped > 1) return UpgradeResult::tr("%1 apps stop").arg(QLocale().toString(stopped));
  if (older == 1) return UpgradeResult::tr("1 app asks for a later one");
  if (older > 1)
    return UpgradeResult::tr("%1 apps ask for a later one").arg(QLocale().toString(older));
  return UpgradeResult::tr("none is known to stop");
}

/// Of how many apps what is known, and of how many nothing is.
QString wholeOf(const UpgradeTold& told) {
  const auto stopped = UpgradeResult::tr("Rosetta, which it does not have, is needed by %1.");
  const auto of32Bits = UpgradeResult::tr("32-bit, which no macOS since 10.15 runs: %1.");
  const auto older = UpgradeResult::tr("The store's version asks for a later macOS: %1.");
  const auto unknown = UpgradeResult::tr("Not known: %1.");
  QStringList parts;
  if (!told.stopped.empty()) parts << stopped.arg(appsText(told.stopped.size()));
  if (!told.of32Bits.empty()) parts << of32Bits.arg(appsText(told.of32Bits.size()));
  if (!told.older.empty()) parts << older.arg(appsText(told.older.size()));
  if (told.unknown > 0) parts << unknown.arg(appsText(told.unknown));
  return parts.join(u' ');
}

}  // namespace

UpgradeResult::UpgradeResult(QWidget* parent) : QPushButton(parent) {
  setAttribute(Qt::WA_Hover);
  setMenu(new QMenu(this));
  connect(menu(), &QMenu::aboutToShow, this, &UpgradeResult::fillMenu);
}

void UpgradeResult::show(UpgradeTold told) {
  told_ = std::move(told);
  const QString brief = briefOf(told_);
  if (text() != brief) setText(brief);
  const QString whole = wholeOf(told_);
  setAccessibleName(brief);
  setAccessibleDescription(whole);
  setToolTip(wrappedTip(whole));
  setEnabled(told_.stops() > 0 || !told_.older.empty());
  updateGeometry();
  update();
}

void UpgradeResult::fillMenu() {
  menu()->clear();
  const auto add = [this](const QString& title, const std::vector<NamedRow>& apps) {
    if (apps.empty()) return;
    if (!menu()->isEmpty()) menu()->addSeparator();
    menu()->addAction(title)->setEnabled(false);
    for (std::size_t i = 0; i < std::min(apps.size(), kMostNames); ++i) {
      QAction* action = menu()->addAction(controlText(apps[i].name));
      connect(action, &QAction::triggered, this, [this, row = apps[i].row] { Q_EMIT chosen(row); });
    }
    if (apps.size() > kMostNames)
      menu()
          ->addAction(tr("and %1 more").arg(QLocale().toString(apps.size() - kMostNames)))
          ->setEnabled(false);
  };
  add(tr("Need Rosetta, which it does not have"), told_.stopped);
  add(tr("32-bit, which no macOS since 10.15 runs"), told_.of32Bits);
  add(tr("Ask for a later macOS"), told_.older);
}

QSize UpgradeResult::sizeHint() const {
  Look& look = lookOf(*this);
  const double wide = look.text.width(text(), kControlType) + 2 * kInset +
                      (told_.stops() == 0 ? 0 : kIcon + kIconGap);
  return {static_cast<int>(std::ceil(wide)), static_cast<int>(std::ceil(kHeight * look.growth()))};
}

QSize UpgradeResult::minimumSizeHint() const { return sizeHint(); }

void UpgradeResult::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  const QRectF box(rect());
  if (isEnabled() && (underMouse() || isDown()))
    paintBox(painter, box, kCorner, look[Token::hover]);
  const Token color = told_.stops() == 0 ? Token::secondary : Token::low;
  QRect place = rect().adjusted(static_cast<int>(kInset), 0, -static_cast<int>(kInset), 0);
  if (told_.stops() > 0) {
    const QRect icon =
        QStyle::alignedRect(layoutDirection(), Qt::AlignLeft | Qt::AlignVCenter,
                            QSize(static_cast<int>(kIcon), static_cast<int>(kIcon)), place);
    look.icons.draw(painter, icon.topLeft(), QStringLiteral("exclamation-triangle"), kIcon,
                    look[color]);
    const int used = static_cast<int>(kIcon + kIconGap);
    place.adjust(isRightToLeft() ? 0 : used, 0, isRightToLeft() ? -used : 0, 0);
  }
  look.text.drawElided(painter,
                       {QRectF(place), isRightToLeft() ? TextAnchor::right : TextAnchor::left},
                       text(), kControlType, look[color]);
}

}  // namespace quillet
