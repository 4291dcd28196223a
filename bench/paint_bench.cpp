// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

// Paints a chart of 2,000 recorded prices, as wide as a page beside a list, and prints how long
// that takes: the median of many times, in milliseconds of processor time, with one pixel for each
// of the screen's and with four.

#include <fmt/format.h>

#include <QImage>
#include <QPainter>
#include <algorithm>
#include <vector>

#include "bench_world.h"
#include "desktop/charts/step_chart.h"

namespace quillet {
namespace {

constexpr int kPoints = 2000;
constexpr int kTimes = 101;
constexpr QSize kSize(544, 168);

/// A change every other day, of some forty prices.
PriceHistory history() {
  PriceHistory history;
  history.from = Instant(std::chrono::days(16'000));
  history.now = history.from + std::chrono::days(2 * kPoints);
  for (int i = 0; i < kPoints; ++i) {
    const double price = 4.99 + (i * 7919 % 41) * 0.5;
    history.steps.push_back({history.from + std::chrono::days(2 * i), price});
  }
  history.low = PriceMark{4.99, QStringLiteral("Lowest $4.99, last on 28 Oct")};
  history.target = PriceMark{2.99, QStringLiteral("Target")};
  history.priceText = [](double price) { return u'$' + QString::number(price, 'f', 2); };
  return history;
}

double paintTime(double ratio) {
  QImage image((QSizeF(kSize) * ratio).toSize(), QImage::Format_ARGB32_Premultiplied);
  image.setDevicePixelRatio(ratio);
  QWidget widget;
  std::vector<double> times;
  for (int i = 0; i < kTimes; ++i) {
    // Nothing is kept from one time to the next.
    StepChart chart(history());
    const Stopwatch watch;
    image.fill(Qt::white);
    QPainter painter(&image);
    chart.paint(painter, lookOf(widget), QRectF(QPointF(0, 0), kSize));
    painter.end();
    times.push_back(watch.ofThread());
  }
  std::ranges::sort(times);
  return times[kTimes / 2];
}

void run() { fmt::print("{{\"single\":{:.2f},\"double\":{:.2f}}}\n", paintTime(1), paintTime(2)); }

}  // namespace
}  // namespace quillet

int main(int argc, char** argv) { return quillet::measureViews(argc, argv, quillet::run); }
