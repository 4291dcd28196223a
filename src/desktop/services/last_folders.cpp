// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/services/last_folders.h"

#include <QFile>
#include <system_error>

namespace quillet {

namespace {

QString key() { return QStringLiteral("lastFolders"); }

}  // namespace

std::filesystem::path lastFolder(const StateFile& state, const QString& purpose,
                                 const std::filesystem::path& otherwise) {
  const QString kept = state.value(key()).toObject().value(purpose).toString();
  const std::filesystem::path folder(QFile::encodeName(kept).toStdString());
  std::error_code error;
  return std::filesystem::is_directory(folder, error) ? folder : otherwise;
}

void rememberFolder(StateFile& state, const QString& purpose, const std::filesystem::path& folder) {
  QJsonObject folders = state.value(key()).toObject();
  folders[purpose] = QFile::decodeName(folder.c_str());
  state.setValue(key(), folders);
}

}  // namespace quillet
