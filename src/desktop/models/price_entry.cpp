// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/price_entry.h"

#include <QRegularExpression>
#include <algorithm>

namespace quillet {

namespace {

constexpr qsizetype kGroup = 3;  // digits between two group separators
constexpr QChar kMinus(0x2212);

bool isPoint(QChar letter) { return letter == u'.' || letter == u','; }

/// Digits, points and commas alone, as ASCII; null where something else is left.
QString bareNumber(const QString& text) {
  // A code may end in a point of its own: "kr.".
  static const QRegularExpression sign(
      QStringLiteral("\\p{L}[\\p{L}\\p{M}]*\\.?|\\p{Sc}|[\\s\\p{Cf}']"),
      QRegularExpression::UseUnicodePropertiesOption);
  QString bare = QString(text).remove(sign);
  for (QChar& letter : bare) {
    if (letter.digitValue() >= 0) letter = QChar(u'0' + letter.digitValue());
    if (letter == QChar(0x066B)) letter = u',';  // the Arabic decimal separator
    if (!letter.isDigit() && !isPoint(letter)) return {};
  }
  return bare;
}

/// Where the fraction begins; -1 where there is none.
qsizetype fractionPoint(const QString& number, QChar decimalPoint) {
  const qsizetype last = std::max(number.lastIndexOf(u'.'), number.lastIndexOf(u','));
  if (last < 0) return -1;
  const QChar point = number[last];
  const QChar other = point == u'.' ? u',' : u'.';
  if (number.count(point) > 1) return -1;
  if (number.contains(other)) return last;
  const bool mayGroup = number.size() - last - 1 == kGroup && last > 0;
  return mayGroup && point != decimalPoint ? -1 : last;
}

/// Whether all that points part is three digits, but for what stands before the first.
bool isGrouped(const QString& whole) {
  const QStringList groups = QString(whole).replace(u',', u'.').split(u'.');
  return std::all_of(groups.begin() + 1, groups.end(),
                     [](const QString& group) { return group.size() == kGroup; });
}

}  // namespace

PriceEntry readPrice(const QString& text, QChar decimalPoint) {
  QString written = text.trimmed();
  if (written.isEmpty()) return NoPrice();
  const bool isNegative = written.contains(u'-') || written.contains(kMinus);
  written.remove(u'-').remove(kMinus);
  const QString number = bareNumber(written);
  const qsizetype point = fractionPoint(number, decimalPoint);
  QString plain = point < 0 ? number : number.first(point);
  if (!isGrouped(plain)) return UnreadablePrice();
  plain.remove(u'.').remove(u',');
  if (point >= 0) plain += u'.' + number.sliced(point + 1);
  bool isRead = false;
  const double price = plain.toDouble(&isRead);
  if (!isRead) return UnreadablePrice();
  if (isNegative && price > 0) return NegativePrice();
  return price;
}

}  // namespace quillet
