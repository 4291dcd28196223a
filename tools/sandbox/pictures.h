// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quillet::sandbox {

/// The kinds of pictures that there are; each has addresses of its own form. A bundle's icon is one
/// by the bundle's ID, a story's picture one by the story's.
enum class Picture { icon, macScreenshot, iphoneScreenshot, ipadScreenshot, story };

/// Which picture, at whatever size.
struct PictureName {
  std::int64_t id = 0;
  Picture picture = Picture::icon;
  int number = 0;

  bool operator==(const PictureName&) const = default;
};

struct PictureSize {
  int width = 0;
  int height = 0;

  bool operator==(const PictureSize&) const = default;
};

/// How large pictures of a kind are, as their makers handed them in.
[[nodiscard]] PictureSize wholeSize(Picture picture);

/// The address of a picture at a size, in the form that the store's image servers use; the last
/// part is `lastPart`, as "100x100bb.jpg". `host` is where it leads, as "http://127.0.0.1:8080";
/// empty: to a server that does not exist.
[[nodiscard]] std::string pictureUrl(std::string_view host, const PictureName& name,
                                     std::string_view lastPart);

/// So many screenshot addresses, at the size in which the search service names them.
[[nodiscard]] std::vector<std::string> screenshotUrls(std::string_view host, std::int64_t appId,
                                                      Picture picture, int count);

/// A picture's address taken apart.
struct AskedPicture {
  PictureName name;
  PictureSize box;  ///< what the picture shall fit in
};

/// What the path of a picture's address asks for; absent where it is none. Whether there is such a
/// picture is another question.
[[nodiscard]] std::optional<AskedPicture> askedPicture(std::string_view path);

/// The largest size in the box, and within our own bounds, that has the picture's proportions.
[[nodiscard]] PictureSize sizeWithin(PictureSize box, Picture picture);

}  // namespace quillet::sandbox
