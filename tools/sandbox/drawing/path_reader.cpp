// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/drawing/path_reader.h"

#include <array>
#include <charconv>
#include <cmath>
#include <numbers>

namespace quillet::sandbox {

namespace {

using Numbers = std::array<double, 7>;

/// How many numbers a command takes; absent for what is no command.
constexpr std::array<std::pair<char, std::size_t>, 12> kCommands{{
    {'M', 2},
    {'L', 2},
    {'H', 1},
    {'V', 1},
    {'C', 6},
    {'Q', 4},
    {'A', 7},
    {'Z', 0},
    {'O', 3},
    {'E', 4},
    {'R', 5},
    {'W', 0},
}};

double degrees(double radians) { return radians * 180 / std::numbers::pi; }

/// An arc as SVG has it, by its end and radii, as Qt has it, by its ellipse and angles.
void arcTo(QPainterPath& path, const Numbers& n) {
  const QPointF radii(n[0], n[1]);
  const QPointF start = path.currentPosition();
  const QPointF end(n[5], n[6]);
  // As on a circle of radius one.
  const QPointF half((start.x() - end.x()) / 2 / radii.x(), (start.y() - end.y()) / 2 / radii.y());
  const double distance = std::hypot(half.x(), half.y());
  const double scale = std::max(1.0, distance);  // radii that are too small grow
  const double away = std::sqrt(std::max(0.0, scale * scale / (distance * distance) - 1));
  const double side = (n[3] != 0) == (n[4] != 0) ? -1 : 1;
  const QPointF center(side * away * half.y(), -side * away * half.x());
  const auto angle = [&](double sign) {
    return degrees(std::atan2(-(sign * half.y() - center.y()), sign * half.x() - center.x()));
  };
  const double first = angle(1);
  double sweep = angle(-1) - first;
  if (n[4] != 0 && sweep > 0) sweep -= 360;
  if (n[4] == 0 && sweep < 0) sweep += 360;
  const QPointF middle((start.x() + end.x()) / 2 + center.x() * radii.x(),
                       (start.y() + end.y()) / 2 + center.y() * radii.y());
  const QSizeF size(2 * radii.x() * scale, 2 * radii.y() * scale);
  path.arcTo(QRectF(middle - QPointF(size.width() / 2, size.height() / 2), size), first, sweep);
}

void draw(QPainterPath& path, char command, const Numbers& n) {
  switch (command) {
    case 'M': path.moveTo(n[0], n[1]); break;
    case 'L': path.lineTo(n[0], n[1]); break;
    case 'H': path.lineTo(n[0], path.currentPosition().y()); break;
    case 'V': path.lineTo(path.currentPosition().x(), n[0]); break;
    case 'C': path.cubicTo(n[0], n[1], n[2], n[3], n[4], n[5]); break;
    case 'Q': path.quadTo(n[0], n[1], n[2], n[3]); break;
    case 'A': arcTo(path, n); break;
    case 'Z': path.closeSubpath(); break;
    case 'O': path.addEllipse(QPointF(n[0], n[1]), n[2], n[2]); break;
    case 'E': path.addEllipse(QPointF(n[0], n[1]), n[2], n[3]); break;
    case 'R': path.addRoundedRect(n[0], n[1], n[2], n[3], n[4], n[4]); break;
    default: path.setFillRule(Qt::WindingFill); break;
  }
}

/// Takes so many numbers from the front; false where there are fewer.
bool takeNumbers(std::string_view& text, std::size_t count, Numbers& into) {
  for (std::size_t i = 0; i < count; ++i) {
    text.remove_prefix(std::min(text.find_first_not_of(" ,"), text.size()));
    const auto [rest, error] = std::from_chars(text.data(), text.data() + text.size(), into.at(i));
    if (error != std::errc()) return false;
    text.remove_prefix(static_cast<std::size_t>(rest - text.data()));
  }
  return true;
}

}  // namespace

QPainterPath outlineOf(std::string_view text) {
  QPainterPath path;
  Numbers numbers{};
  while (!text.empty()) {
    const char letter = text.front();
    text.remove_prefix(1);
    if (letter == ' ') continue;
    const auto command = std::ranges::find(kCommands, letter, &std::pair<char, std::size_t>::first);
    if (command == kCommands.end() || !takeNumbers(text, command->second, numbers)) break;
    draw(path, letter, numbers);
  }
  return path;
}

}  // namespace quillet::sandbox
