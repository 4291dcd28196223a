// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/pictures.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>

#include "base/enum_index.h"
#include "base/text.h"
#include "sandbox/random.h"

namespace quillet::sandbox {

namespace {

struct PictureForm {
  std::string_view folder;
  std::string_view source;
  std::string_view lastPart;
  PictureSize whole;
};

// By picture. No two have both folder and source in common.
constexpr std::array<PictureForm, 5> kForms{{
    {"Purple124", "source", "512x512bb.jpg", {1024, 1024}},
    {"Purple123", "pr_source.png", "800x500bb.jpg", {2560, 1600}},
    {"PurpleSource114", "pr_source.png", "392x696bb.png", {1290, 2796}},
    {"PurpleSource114", "pr_source.jpg", "552x414bb.jpg", {2732, 2048}},
    {"Features126", "source", "1920x1080bb.jpg", {1920, 1080}},
}};

constexpr std::string_view kNowhere = "-ssl.quillet-pictures.example";
constexpr int kLongestSide = 1024;  // larger ones would take their time to be drawn
constexpr std::size_t kPartsOfPath = 11;

Random randomOf(const PictureName& name) {
  return Random(
      mixed(static_cast<std::uint64_t>(name.id),
            static_cast<std::uint64_t>(name.picture) * 100 + static_cast<unsigned>(name.number)));
}

/// The path up to the slash before the size. Its mark ends with the number and the ID, in
/// hexadecimal digits, by which the picture is found again.
std::string pathOf(const PictureName& name) {
  const PictureForm& form = kForms[indexOf(name.picture)];
  const std::string digits = fmt::format("{:016x}", randomOf(name).next());
  const std::string_view v = digits;
  return fmt::format("/image/thumb/{}/v4/{}/{}/{}/{}-{}-{}-{:04x}-{:012x}/{}", form.folder,
                     v.substr(0, 2), v.substr(2, 2), v.substr(4, 2), v.substr(0, 8), v.substr(8, 4),
                     v.substr(12, 4), name.number, name.id, form.source);
}

template <typename Number>
std::optional<Number> wholeNumber(std::string_view digits, int base) {
  Number number = 0;
  const auto [rest, error] =
      std::from_chars(digits.data(), digits.data() + digits.size(), number, base);
  if (error != std::errc() || rest != digits.data() + digits.size() || number < 0)
    return std::nullopt;
  return number;
}

/// "392x696bb.png"; what follows the height is neither here nor there.
std::optional<PictureSize> sizeIn(std::string_view lastPart) {
  const std::size_t times = lastPart.find('x');
  if (times == std::string_view::npos) return std::nullopt;
  const std::size_t end = lastPart.find_first_not_of("0123456789", times + 1);
  const auto width = wholeNumber<int>(lastPart.substr(0, times), 10);
  const auto height = wholeNumber<int>(lastPart.substr(times + 1, end - times - 1), 10);
  if (!width || !height || *width == 0 || *height == 0) return std::nullopt;
  return PictureSize{*width, *height};
}

std::optional<PictureName> nameIn(const std::vector<std::string_view>& parts) {
  const std::string_view mark = parts[8];
  const auto form = std::ranges::find_if(kForms, [&](const PictureForm& each) {
    return each.folder == parts[3] && each.source == parts[9];
  });
  const auto marks = split(mark, '-');
  if (form == kForms.end() || marks.size() != 5) return std::nullopt;
  const auto number = wholeNumber<int>(marks[3], 16);
  const auto id = wholeNumber<std::int64_t>(marks[4], 16);
  if (!number || !id) return std::nullopt;
  return PictureName{*id, static_cast<Picture>(form - kForms.begin()), *number};
}

}  // namespace

PictureSize wholeSize(Picture picture) { return kForms[indexOf(picture)].whole; }

std::string pictureUrl(std::string_view host, const PictureName& name, std::string_view lastPart) {
  if (!host.empty()) return fmt::format("{}{}/{}", host, pathOf(name), lastPart);
  return fmt::format("https://is{}{}{}/{}", randomOf(name).between(1, 5), kNowhere, pathOf(name),
                     lastPart);
}

std::vector<std::string> screenshotUrls(std::string_view host, std::int64_t appId, Picture picture,
                                        int count) {
  const std::string_view lastPart = kForms[indexOf(picture)].lastPart;
  std::vector<std::string> urls;
  for (int number = 0; number < count; ++number)
    urls.push_back(pictureUrl(host, {appId, picture, number}, lastPart));
  return urls;
}

std::optional<AskedPicture> askedPicture(std::string_view path) {
  const auto parts = split(path, '/');
  if (parts.size() != kPartsOfPath) return std::nullopt;
  const auto name = nameIn(parts);
  const auto box = sizeIn(parts.back());
  const bool isIt = name && box && path.starts_with(pathOf(*name) + '/');
  return isIt ? std::optional(AskedPicture{*name, *box}) : std::nullopt;
}

PictureSize sizeWithin(PictureSize box, Picture picture) {
  const PictureSize whole = wholeSize(picture);
  const double scale =
      std::min({static_cast<double>(std::min(box.width, kLongestSide)) / whole.width,
                static_cast<double>(std::min(box.height, kLongestSide)) / whole.height});
  const auto side = [&](int length) {
    return std::max(1, static_cast<int>(std::lround(length * scale)));
  };
  return {side(whole.width), side(whole.height)};
}

}  // namespace quillet::sandbox
