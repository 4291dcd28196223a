// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/images/image_decoder.h"

#include <QBuffer>
#include <QImageReader>
#include <algorithm>

namespace quillet {

namespace {

constexpr int kMemoryLimit = 64;  // MiB

struct Format {
  const char* name;
  const char* ending;
};
constexpr Format kFormats[] = {{"png", "png"}, {"jpeg", "jpg"}, {"webp", "webp"}};

/// Null for what the store does not send.
const Format* formatOf(QImageReader& reader) {
  reader.setDecideFormatFromContent(true);
  const QByteArray name = reader.format();
  const auto* const format =
      std::ranges::find_if(kFormats, [&](const Format& each) { return name == each.name; });
  return format == std::end(kFormats) ? nullptr : format;
}

QByteArray contentOf(const std::string& bytes) {
  return QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
}

}  // namespace

QImage decodePicture(const std::string& bytes, int pixels) {
  QByteArray content = contentOf(bytes);
  QBuffer buffer(&content);
  buffer.open(QIODevice::ReadOnly);
  QImageReader::setAllocationLimit(kMemoryLimit);
  QImageReader reader(&buffer);
  reader.setAutoTransform(true);
  if (formatOf(reader) == nullptr) return {};
  const QSize size = reader.size();
  if (size.isEmpty()) return {};
  const QSize square(pixels, pixels);
  if (size.width() > pixels || size.height() > pixels) {
    reader.setScaledSize(size.scaled(square, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
  }
  return reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

std::string pictureEnding(const std::string& bytes) {
  QByteArray content = contentOf(bytes);
  QBuffer buffer(&content);
  buffer.open(QIODevice::ReadOnly);
  QImageReader reader(&buffer);
  const Format* format = formatOf(reader);
  return format == nullptr ? std::string() : format->ending;
}

}  // namespace quillet
