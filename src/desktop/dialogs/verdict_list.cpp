// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/verdict_list.h"

#include <QPainter>
#include <array>
#include <cmath>

#include "analysis/maintenance_texts.h"
#include "desktop/look/look.h"
#include "desktop/look/pixel_grid.h"

namespace quillet {

namespace {

constexpr int kInset = 12;
constexpr int kPadding = 6;
constexpr int kLine = 26;
constexpr double kDot = 8;
constexpr double kGap = 10;

struct Verdict {
  MaintenanceLevel level;
  Token ink;
};

constexpr std::array kVerdicts{Verdict{MaintenanceLevel::active, Token::good},
                               Verdict{MaintenanceLevel::slowing, Token::fair},
                               Verdict{MaintenanceLevel::stale, Token::weak},
                               Verdict{MaintenanceLevel::abandoned, Token::bad}};

QString textOf(std::string_view text) {
  return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

}  // namespace

VerdictList::VerdictList() { setSizePolicy(QSizePolicy::Preferred, QSizePolicy::Fixed); }

void VerdictList::setThresholds(const MaintenanceThresholds& thresholds) {
  thresholds_ = thresholds;
  QStringList all;
  for (const Verdict& verdict : kVerdicts) {
    all.append(
        QStringLiteral("%1: %2").arg(textOf(maintenanceTitle(verdict.level)),
                                     textOf(maintenanceExplanation(verdict.level, thresholds_))));
  }
  setAccessibleName(all.join(QStringLiteral("; ")));
  update();
}

double VerdictList::line() const { return std::ceil(kLine * lookOf(*this).growth()); }

QSize VerdictList::sizeHint() const {
  return {0, 2 * kPadding + static_cast<int>(line() * kVerdicts.size())};
}

void VerdictList::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  paintBox(painter, rect(), 8, look[Token::raised], {look[Token::line]});
  QRectF line(kInset, kPadding, width() - 2 * kInset, this->line());
  for (const Verdict& verdict : kVerdicts) {
    const bool isMirrored = layoutDirection() == Qt::RightToLeft;
    const double left = isMirrored ? line.right() - kDot : line.left();
    const QRectF dot(left, line.center().y() - kDot / 2, kDot, kDot);
    paintBox(painter, dot, kDot / 2, look[verdict.ink]);
    const double indent = kDot + kGap;
    const QRectF texts = line.adjusted(isMirrored ? 0 : indent, 0, isMirrored ? -indent : 0, 0);
    const double name = look.text.draw(
        painter, {texts, isMirrored ? TextAnchor::right : TextAnchor::left},
        textOf(maintenanceTitle(verdict.level)), kFactType.weighing(600), look[Token::text]);
    const double taken = name + kGap;
    look.text.drawElided(painter,
                         {texts.adjusted(isMirrored ? 0 : taken, 0, isMirrored ? -taken : 0, 0),
                          isMirrored ? TextAnchor::left : TextAnchor::right},
                         textOf(maintenanceExplanation(verdict.level, thresholds_)), kFactType,
                         look[Token::secondary]);
    line.translate(0, line.height());
  }
}

}  // namespace quillet
