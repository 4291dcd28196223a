// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/pictures.h"

#include <array>

#include "base/enum_index.h"
#include "sandbox/random.h"

namespace quillet::sandbox {

namespace {

struct PictureForm {
  std::string_view folder;
  std::string_view source;
  std::string_view lastPart;
};

// By picture.
constexpr std::array<PictureForm, 4> kForms{{
    {"Purple124", "source", "512x512bb.jpg"},
    {"Purple123", "pr_source.png", "800x500bb.jpg"},
    {"PurpleSource114", "pr_source.png", "392x696bb.png"},
    {"PurpleSource114", "pr_source.jpg", "552x414bb.jpg"},
}};

}  // namespace

std::string pictureUrl(std::int64_t appId, Picture picture, int number, std::string_view lastPart) {
  const PictureForm& form = kForms[indexOf(picture)];
  Random random(mixed(static_cast<std::uint64_t>(appId),
                      static_cast<std::uint64_t>(picture) * 100 + static_cast<unsigned>(number)));
  const std::string a = fmt::format("{:016x}", random.next());
  const std::string b = fmt::format("{:016x}", random.next());
  const std::string_view v = a;
  return fmt::format(
      "https://is{}-ssl.quillet-pictures.example/image/thumb/{}/v4/{}/{}/{}/{}-{}-{}-{}-{}/{}/{}",
      random.between(1, 5), form.folder, v.substr(0, 2), v.substr(2, 2), v.substr(4, 2),
      v.substr(0, 8), v.substr(8, 4), v.substr(12, 4), std::string_view(b).substr(0, 4),
      std::string_view(b).substr(4, 12), form.source, lastPart);
}

std::vector<std::string> screenshotUrls(std::int64_t appId, Picture picture, int count) {
  const std::string_view lastPart = kForms[indexOf(picture)].lastPart;
  std::vector<std::string> urls;
  for (int number = 0; number < count; ++number)
    urls.push_back(pictureUrl(appId, picture, number, lastPart));
  return urls;
}

}  // namespace quillet::sandbox
