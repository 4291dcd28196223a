// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "support/pictures.h"

#include <QDir>
#include <cstdlib>
#include <map>
#include <utility>

#include "support/place.h"

namespace quillet {

namespace {

constexpr int kSteps = 8;
constexpr int kTile = 16;
constexpr double kLargestShare = 0.0005;  // of all pixels
constexpr double kLargestTile = 0.25;     // of a tile's

bool differs(QRgb first, QRgb second) {
  return std::abs(qRed(first) - qRed(second)) > kSteps ||
         std::abs(qGreen(first) - qGreen(second)) > kSteps ||
         std::abs(qBlue(first) - qBlue(second)) > kSteps;
}

struct Difference {
  int pixels = 0;
  int worstTile = 0;
  QImage marked;
};

Difference compare(const QImage& expected, const QImage& actual) {
  Difference result{0, 0, actual.convertToFormat(QImage::Format_RGB32)};
  std::map<std::pair<int, int>, int> tiles;
  for (int y = 0; y < actual.height(); ++y) {
    for (int x = 0; x < actual.width(); ++x) {
      if (!differs(expected.pixel(x, y), actual.pixel(x, y))) continue;
      ++result.pixels;
      result.worstTile = std::max(result.worstTile, ++tiles[{x / kTile, y / kTile}]);
      result.marked.setPixel(x, y, qRgb(255, 0, 255));
    }
  }
  return result;
}

}  // namespace

testing::AssertionResult looksLike(const QString& name, const QImage& actual) {
  const QString kept =
      QString::fromStdString(placeOf(QUILLET_PICTURES)) + u'/' + name + QStringLiteral(".png");
  if (qEnvironmentVariableIsSet("QUILLET_RENEW_PICTURES")) {
    // Compressed as far as can be: written once, fetched often.
    return actual.save(kept, "PNG", 0)
               ? testing::AssertionSuccess()
               : testing::AssertionFailure() << "cannot write " << kept.toStdString();
  }
  const QImage expected(kept);
  const auto fail = [&](const QImage& marked) {
    const QString folder = QDir::currentPath() + QStringLiteral("/pictures");
    QDir().mkpath(folder);
    actual.save(folder + u'/' + name + QStringLiteral(".png"));
    marked.save(folder + u'/' + name + QStringLiteral("-difference.png"));
    return testing::AssertionFailure() << name.toStdString() << " is in " << folder.toStdString();
  };
  if (expected.size() != actual.size()) return fail(actual) << ": another size";
  const Difference found = compare(expected, actual);
  const double pixels = double(actual.width()) * actual.height();
  if (found.pixels <= pixels * kLargestShare && found.worstTile <= kTile * kTile * kLargestTile) {
    return testing::AssertionSuccess();
  }
  return fail(found.marked) << ": " << found.pixels << " pixels differ, " << found.worstTile
                            << " in one tile";
}

}  // namespace quillet
