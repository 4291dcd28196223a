// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <chrono>
#include <cstddef>

namespace quillet {

/// The largest file that is taken for a picture. The store's largest screenshots have some 5 MiB.
inline constexpr std::size_t kPictureBytes = std::size_t{16} * 1024 * 1024;

/// Decoded pictures that are kept: seven screens full of rows' artwork on a fine screen, and beside
/// them, so that they do not drive it out, one of larger ones: screenshots and the pictures of
/// stories. They are full after some dozens of pages, and grow no more.
inline constexpr int kArtworkMemory = 3 * 1024 * 1024;
inline constexpr int kLargePictureMemory = 16 * 1024 * 1024;

/// Device pixels of the largest artwork: that of a page's head, on the finest screens.
inline constexpr int kLargestArtwork = 288;

/// The longest side of a picture in its largest size; one that is longer is made smaller.
inline constexpr int kLargestPicture = 8192;

inline constexpr std::size_t kPictureRequests = 6;
inline constexpr int kPictureThreads = 2;

/// How long one that is no picture, or that its server does not have, is not asked for again; and
/// one whose server could not be reached.
inline constexpr std::chrono::hours kPictureRetry{1};
inline constexpr std::chrono::minutes kPictureServerRetry{1};

}  // namespace quillet
