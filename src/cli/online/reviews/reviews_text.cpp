// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/reviews/reviews_text.h"

#include <fmt/format.h>

#include <algorithm>

#include "base/text.h"
#include "cli/page.h"
#include "cli/rating_text.h"

namespace quillet {

namespace {

constexpr std::size_t kReplyIndent = 4;

std::string countText(std::size_t count) {
  return fmt::format("{} review{}", count, count == 1 ? "" : "s");
}

/// How many were read for it, where a filter left some out.
std::string readText(std::size_t fetched, const CLIReviewsPayload& payload) {
  return payload.stars ? fmt::format(", from {} read", fetched) : std::string();
}

std::string header(const CLIReviewsPayload& payload) {
  return fmt::format("{} ({}, {}){}.", countText(payload.count()),
                     textOf(kPlatformWords, payload.platform), join(payload.countries, ", "),
                     readText(payload.fetched(), payload));
}

void addLines(Page& page, std::string_view text, std::size_t indent) {
  const std::string margin(indent, ' ');
  const std::size_t width = std::max(page.textWidth(), indent + 1) - indent;
  for (const std::string& line : runningLines(text, width)) {
    page.line(line.empty() ? line : margin + line);
  }
}

void addTitle(Page& page, const AppReview& review) {
  std::string stars;
  if (review.rating) stars = starsText(*review.rating, page.style()) + "  ";
  const std::string title = printable(trimmed(review.title));
  page.line(inked(stars, Ink::yellow, page.style()) + inked(title, Ink::bold, page.style()));
}

/// "Birk V., 2026-09-28, version 2.1, edited"
std::string byline(const VersionedReview& each) {
  std::vector<std::string> parts;
  const std::string name = printable(trimmed(each.review.userName));
  const std::string version = printable(each.version);
  if (!name.empty()) parts.push_back(name);
  if (each.review.date) parts.push_back(formatDay(*each.review.date));
  if (!version.empty()) parts.push_back("version " + version);
  if (each.review.isEdited) parts.emplace_back("edited");
  return join(parts, ", ");
}

void addReply(Page& page, const AppReview& review) {
  if (!review.developerResponse) return;
  std::string heading(kReplyIndent, ' ');
  heading += "Developer";
  if (review.developerResponseDate) heading += ", " + formatDay(*review.developerResponseDate);
  page.startBlock();
  page.line(heading, Ink::dim);
  addLines(page, *review.developerResponse, kReplyIndent);
}

void addReview(Page& page, const VersionedReview& each) {
  page.startBlock();
  addTitle(page, each.review);
  if (const std::string line = byline(each); !line.empty()) page.line(line, Ink::dim);
  addLines(page, each.review.body, 0);
  addReply(page, each.review);
}

void addStorefront(Page& page, const StorefrontReviews& storefront,
                   const CLIReviewsPayload& payload) {
  if (payload.isGrouped()) {
    page.startBlock();
    page.line(fmt::format("{}: {}{}", storefront.country, countText(storefront.reviews.size()),
                          readText(storefront.fetched, payload)),
              Ink::bold);
  }
  for (const VersionedReview& review : storefront.reviews) addReview(page, review);
}

std::string nothingText(const CLIReviewsPayload& payload) {
  if (payload.fetched() > 0) {
    return fmt::format("None of the {} reviews read match that filter.", payload.fetched());
  }
  return fmt::format("No reviews published for this app in {}.",
                     payload.isGrouped() ? "any of those storefronts" : "this storefront");
}

/// What the reader must know of the sources.
std::vector<std::string> remarks(const CLIReviewsPayload& payload) {
  std::vector<std::string> lines;
  std::vector<std::string> replaced;
  for (const StorefrontReviews& each : payload.storefronts) {
    if (each.feedEmpty && !each.reviews.empty()) replaced.push_back(each.country);
  }
  if (!replaced.empty()) {
    lines.push_back(
        fmt::format("Apple's recent-reviews feed was empty for {}; those came from the default "
                    "source, without versions.",
                    join(replaced, ", ")));
  }
  for (const std::string& country : payload.unavailable) {
    lines.push_back(country + " could not be read.");
  }
  return lines;
}

/// One line, wherever it does not have to be read on a terminal.
void addRemark(Page& page, const std::string& remark) {
  if (page.style().width == 0) {
    page.line(remark);
  } else {
    addLines(page, remark, 0);
  }
}

}  // namespace

std::string renderReviewsText(const CLIReviewsPayload& payload, const LocaleFormats& formats,
                              const TextStyle& style) {
  Page page(style, formats);
  if (payload.count() == 0) {
    page.line(nothingText(payload));
  } else {
    if (payload.name) page.heading(printable(*payload.name), "");
    page.line(header(payload));
    for (const StorefrontReviews& each : payload.storefronts) addStorefront(page, each, payload);
  }
  const std::vector<std::string> lines = remarks(payload);
  if (!lines.empty()) page.startBlock();
  for (const std::string& line : lines) addRemark(page, line);
  return page.take();
}

}  // namespace quillet
