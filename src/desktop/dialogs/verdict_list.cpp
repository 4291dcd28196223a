// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/dialogs/verdict_list.h"

#include <QPainter>
#include <algorithm>
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
constexpr double kCloser = 6;  // two lines that belong together
constexpr TypeStyle kNameType = kFactType.weighing(600);

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

VerdictList::VerdictList() {
  QSizePolicy policy(QSizePolicy::Preferred, QSizePolicy::Fixed);
  policy.setHeightForWidth(true);
  setSizePolicy(policy);
}

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

bool VerdictList::isStacked(int width) const {
  TextPainter& text = lookOf(*this).text;
  const double room = width - 2 * kInset - kDot - kGap;
  return std::ranges::any_of(kVerdicts, [&](const Verdict& verdict) {
    const QString meaning = textOf(maintenanceExplanation(verdict.level, thresholds_));
    return text.width(textOf(maintenanceTitle(verdict.level)), kNameType) + kGap +
               text.width(meaning, kFactType) >
           room;
  });
}

int VerdictList::heightForWidth(int width) const {
  const std::size_t lines = kVerdicts.size() * (isStacked(width) ? 2 : 1);
  return 2 * kPadding + static_cast<int>(line() * static_cast<double>(lines));
}

QSize VerdictList::sizeHint() const {
  constexpr int kUsual = 374;
  return {0, heightForWidth(kUsual)};
}

void VerdictList::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  Look& look = lookOf(*this);
  paintBox(painter, rect(), 8, look[Token::raised], {look[Token::line]});
  const bool isMirrored = layoutDirection() == Qt::RightToLeft;
  const TextAnchor start = isMirrored ? TextAnchor::right : TextAnchor::left;
  const TextAnchor end = isMirrored ? TextAnchor::left : TextAnchor::right;
  const auto behind = [&](const QRectF& line, double taken) {
    return line.adjusted(isMirrored ? 0 : taken, 0, isMirrored ? -taken : 0, 0);
  };
  const bool stacked = isStacked(width());
  QRectF line(kInset, kPadding, width() - 2 * kInset, this->line());
  for (const Verdict& verdict : kVerdicts) {
    const double left = isMirrored ? line.right() - kDot : line.left();
    const QRectF dot(left, line.center().y() - kDot / 2, kDot, kDot);
    paintBox(painter, dot, kDot / 2, look[verdict.ink]);
    QRectF texts = behind(line, kDot + kGap);
    const double name =
        look.text.draw(painter, {texts, start}, textOf(maintenanceTitle(verdict.level)), kNameType,
                       look[Token::text]);
    if (stacked) {
      line.translate(0, line.height());
      texts.translate(0, line.height() - kCloser);
    } else {
      texts = behind(texts, name + kGap);
    }
    look.text.drawElided(painter, {texts, stacked ? start : end},
                         textOf(maintenanceExplanation(verdict.level, thresholds_)), kFactType,
                         look[Token::secondary]);
    line.translate(0, line.height());
  }
}

}  // namespace quillet
