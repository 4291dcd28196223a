// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/images/image_decoder.h"

#include <QBuffer>
#include <QImageReader>
#include <array>

namespace quillet {

namespace {

constexpr int kMemoryLimit = 64;  // MiB

bool isOfStore(const QByteArray& format) {
  constexpr std::array kFormats{"png", "jpeg", "webp"};
  return std::ranges::any_of(kFormats, [&](const char* each) { return format == each; });
}

}  // namespace

QImage decodePicture(const std::string& bytes, int pixels) {
  QByteArray content = QByteArray::fromRawData(bytes.data(), static_cast<qsizetype>(bytes.size()));
  QBuffer buffer(&content);
  buffer.open(QIODevice::ReadOnly);
  QImageReader::setAllocationLimit(kMemoryLimit);
  QImageReader reader(&buffer);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  if (!isOfStore(reader.format())) return {};
  const QSize size = reader.size();
  if (size.isEmpty()) return {};
  const QSize square(pixels, pixels);
  if (size.width() > pixels || size.height() > pixels) {
    reader.setScaledSize(size.scaled(square, Qt::KeepAspectRatio).expandedTo(QSize(1, 1)));
  }
  return reader.read().convertToFormat(QImage::Format_ARGB32_Premultiplied);
}

}  // namespace quillet
