// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/models/review_text.h"

#include <QCoreApplication>
#include <QStringList>

#include "desktop/models/row_parts.h"
#include "desktop/models/time_words.h"

namespace quillet {

namespace {

QString tr(const char* text) { return QCoreApplication::translate("Reviews", text); }

QString joined(QStringList parts, const QString& between) {
  parts.removeAll(QString());
  return parts.join(between);
}

QString withDots(const QStringList& parts) { return joined(parts, QStringLiteral(" · ")); }

QString dayText(const std::optional<Instant>& when, Instant now, const UtcOffsetAt& zone) {
  return when ? dateText(*when, now, zone) : QString();
}

QString starsText(const std::optional<int>& stars) {
  return stars ? tr("%1 of 5 stars").arg(*stars) : QString();
}

}  // namespace

ReviewText reviewTextOf(const VersionedReview& review, Instant now, const UtcOffsetAt& zone) {
  const AppReview& told = review.review;
  ReviewText text;
  text.title = plainLine(told.title);
  text.date = dayText(told.date, now, zone);
  if (told.rating && *told.rating >= 1 && *told.rating <= 5) text.stars = told.rating;
  text.byline = withDots({plainLine(told.userName), plainLine(review.version),
                          told.isEdited ? tr("edited") : QString()});
  text.body = plainLines(told.body);
  text.reply = plainLines(told.developerResponse.value_or(""));
  if (!text.reply.isEmpty())
    text.replyHead = withDots({tr("Developer"), dayText(told.developerResponseDate, now, zone)});
  return text;
}

QString sentenceOf(const ReviewText& review) {
  const QString sentence = joined({review.title, starsText(review.stars), review.byline,
                                   review.date, review.body, review.replyHead, review.reply},
                                  QStringLiteral(", "));
  // What would break a line breaks a sentence too.
  return sentence.simplified();
}

QString copyOf(const ReviewText& review) {
  const QString head = withDots({starsText(review.stars), review.byline, review.date});
  QString copied = joined({review.title, head, review.body}, QStringLiteral("\n"));
  if (!review.reply.isEmpty())
    copied += QStringLiteral("\n\n") + review.replyHead + u'\n' + review.reply;
  return copied;
}

}  // namespace quillet
