// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/drawing/png.h"

#include <QBuffer>

namespace quillet::sandbox {

std::string pngOf(const QImage& image) {
  QByteArray bytes;
  QBuffer file(&bytes);
  file.open(QIODevice::WriteOnly);
  image.save(&file, "PNG");
  return bytes.toStdString();
}

}  // namespace quillet::sandbox
