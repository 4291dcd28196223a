// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/amount_text.h"

#include "base/numbers.h"

namespace quillet {

namespace {

constexpr qsizetype kGroup = 3;  // digits

bool isPoint(QChar sign) { return sign == u'.' || sign == u',' || sign == u'\u066B'; }

/// What stands between digits and never before a fraction.
bool isGrouping(QChar sign) {
  return sign.isSpace() || sign == u'\'' || sign == u'\u2019' || sign == u'\u066C';
}

/// Without a currency's sign or code, at one end or the other.
QString withoutCurrency(const QString& text) {
  const auto isOfCurrency = [](QChar sign) {
    return sign.isLetter() || sign.isSpace() || sign.category() == QChar::Symbol_Currency;
  };
  qsizetype begin = 0;
  qsizetype end = text.size();
  while (begin < end && isOfCurrency(text[begin])) ++begin;
  while (end > begin && isOfCurrency(text[end - 1])) --end;
  return text.mid(begin, end - begin);
}

/// Where the fraction begins; the text's end where there is none.
qsizetype pointOf(const QString& text, const QLocale& locale) {
  qsizetype last = -1;
  int alike = 0;
  bool hasOther = false;
  for (qsizetype i = 0; i < text.size(); ++i) {
    if (!isPoint(text[i])) continue;
    if (last >= 0 && text[last] != text[i]) {
      hasOther = true;
      alike = 0;
    }
    last = i;
    ++alike;
  }
  if (last < 0) return text.size();
  if (alike > 1) return hasOther ? -1 : text.size();
  const bool isGroup = !hasOther && text.size() - last - 1 == kGroup && last > 0 &&
                       locale.groupSeparator() == text.mid(last, 1);
  return isGroup ? text.size() : last;
}

}  // namespace

std::optional<double> readAmount(const QString& text, const QLocale& locale) {
  const QString amount = withoutCurrency(text);
  const qsizetype point = pointOf(amount, locale);
  if (point < 0) return std::nullopt;
  std::string plain;
  qsizetype digits = 0;  // since what groups them
  bool isGrouped = false;
  for (qsizetype i = 0; i < amount.size(); ++i) {
    const QChar sign = amount[i];
    if (i == point || (i < point && (isPoint(sign) || isGrouping(sign)))) {
      if (isGrouped ? digits != kGroup : (i < point && digits > kGroup)) return std::nullopt;
      isGrouped = i < point;
      digits = 0;
      if (i == point) plain += '.';
    } else if (sign.digitValue() >= 0) {
      plain += static_cast<char>('0' + sign.digitValue());
      ++digits;
    } else {
      return std::nullopt;
    }
  }
  if (isGrouped && digits != kGroup) return std::nullopt;
  return parseDecimal(plain);
}

QString amountText(double amount, const QLocale& locale) {
  QLocale plain = locale;
  plain.setNumberOptions(QLocale::OmitGroupSeparator);
  return plain.toString(amount, 'f', QLocale::FloatingPointShortest);
}

}  // namespace quillet
