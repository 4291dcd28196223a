// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <filesystem>
#include <string>

namespace quillet::sandbox {

/// Lets the sample store's pictures that a library in `folder` names lead to `host`, as
/// "http://127.0.0.1:8080", wherever they led before: a store may serve at another port than the
/// last time. Pictures of others stay as they are, and so does a library that cannot be read, or
/// that an application has open: its store is still there.
void leadPicturesTo(const std::filesystem::path& folder, const std::string& host);

}  // namespace quillet::sandbox
