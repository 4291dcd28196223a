// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <vector>

#include "desktop/models/app_texts.h"

namespace quillet {

/// Apps as they are dragged: for ourselves by their keys, for others as links and a text.
[[nodiscard]] std::unique_ptr<QMimeData> draggedApps(const std::vector<NamedKey>& apps);

/// The apps of ours in what is dragged; none where there are none.
[[nodiscard]] std::vector<NamedKey> appsIn(const QMimeData& data);

/// The first link to an app in the store among what somebody else drags; absent without one.
[[nodiscard]] std::optional<std::string> storeLinkIn(const QMimeData& data);

/// The file among what is dragged that an exported library may be; absent where several are
/// dragged, or one of another ending.
[[nodiscard]] std::optional<std::filesystem::path> libraryFileIn(const QMimeData& data);

/// The app bundles among the files that somebody drags, by their names alone.
[[nodiscard]] std::vector<std::filesystem::path> bundlesIn(const QMimeData& data);

}  // namespace quillet
