// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "cli/online/app/screenshots_result.h"

#include <fmt/format.h>

#include <algorithm>

#include "analysis/search_command_line.h"
#include "base/json_writer.h"
#include "base/text.h"
#include "base/urls.h"
#include "cli/online/app/info_text.h"
#include "store/records/sized_picture.h"

namespace quillet {

namespace {

bool isOneOf(char c, std::string_view others) {
  return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') ||
         others.find(c) != std::string_view::npos;
}

/// In single quotes, within which a shell gives a meaning to nothing, not even to "!".
std::string singleQuoted(std::string_view text) {
  std::string quoted = "'";
  for (const char c : text) {
    if (c == '\'') {
      quoted += R"('\'')";
    } else {
      quoted += c;
    }
  }
  return quoted + '\'';
}

/// One argument of a command.
std::string shellWord(std::string_view text) {
  const std::string shown = printable(text);
  const bool isPlain =
      !shown.starts_with('-') &&
      std::all_of(shown.begin(), shown.end(), [](char c) { return isOneOf(c, "._:/=%@+,-"); });
  return isPlain ? shown : singleQuoted(shown);
}

/// A name in a comment. Some shells take what is typed as a comment for a command, so that one that
/// means anything to a shell is quoted there too.
std::string nameInComment(std::string_view name) {
  const std::string shown = printable(name);
  const bool isPlain = std::all_of(shown.begin(), shown.end(), [](char c) {
    return isOneOf(c, " ._:/=%@+,-") || static_cast<unsigned char>(c) >= 0x80;
  });
  return isPlain ? shown : singleQuoted(shown);
}

/// An address in which curl finds no pattern that stands for many.
std::string withoutPatterns(std::string_view address) {
  std::string result;
  for (const char c : address) {
    if (std::string_view("[]{}").find(c) == std::string_view::npos) {
      result += c;
    } else {
      result += percentEncoded({&c, 1});
    }
  }
  return result;
}

std::vector<std::string> wordsOf(const std::vector<Platform>& platforms) {
  std::vector<std::string> words;
  for (const Platform platform : platforms) words.emplace_back(textOf(kPlatformWords, platform));
  return words;
}

std::string elsewhere(const CLIScreenshotsPayload& payload) {
  if (payload.macApp && payload.platform != Platform::mac) {
    return fmt::format(
        "\nThis ID is the Mac app. An {} version, if there is one, has its own ID: quillet search "
        "{} --platform {}",
        platformName(payload.platform), searchTermWord(printable(payload.name)),
        textOf(kPlatformWords, payload.platform));
  }
  if (payload.otherPlatforms.empty()) return {};
  const std::vector<std::string> words = wordsOf(payload.otherPlatforms);
  return fmt::format("\nIt has some for: {}. Try --platform {}.", join(words, ", "), words.front());
}

std::string nothingText(const CLIScreenshotsPayload& payload) {
  return fmt::format("Apple publishes no {} screenshots for this app.",
                     platformName(payload.platform)) +
         elsewhere(payload);
}

void writeShot(JsonWriter& writer, const CLIScreenshot& shot) {
  writer.beginObject();
  writer.member("filename", shot.filename);
  writer.member("index", shot.index);
  writer.member("url", shot.url);
  writer.endObject();
}

}  // namespace

void addShots(CLIScreenshotsPayload& payload, const std::vector<std::string>& addresses) {
  for (const std::string& address : addresses) {
    const std::size_t index = payload.screenshots.size() + 1;
    payload.screenshots.push_back(
        {index, fullSizeAddress(address), pictureFileName(payload.name, payload.platform, index)});
  }
}

std::string renderScreenshotsJson(const CLIScreenshotsPayload& payload) {
  return jsonObject([&](JsonWriter& writer) {
    writer.member("count", payload.screenshots.size());
    writer.member("country", payload.country);
    writer.member("macApp", payload.macApp);
    writer.member("name", payload.name);
    writer.member("otherPlatforms", wordsOf(payload.otherPlatforms));
    writer.member("platform", textOf(kPlatformWords, payload.platform));
    writer.list("screenshots", payload.screenshots, writeShot);
    writer.member("source", textOf(kPictureSourceWords, payload.source));
    writer.member("trackId", payload.trackId);
  });
}

std::string renderScreenshotsText(const CLIScreenshotsPayload& payload) {
  if (payload.screenshots.empty()) return nothingText(payload);
  std::string text;
  for (const CLIScreenshot& shot : payload.screenshots) {
    text += fmt::format("curl -sL {} -o {}\n", shellWord(withoutPatterns(shot.url)),
                        shellWord(shot.filename));
  }
  text += fmt::format("# {} screenshots for {} in the {} storefront.", payload.screenshots.size(),
                      nameInComment(payload.name), payload.country);
  // Last, for its apostrophe would open quotes in a shell that knows no comments.
  if (payload.source == PictureSource::storePage) {
    text += "\n# Read from the App Store page: Apple's search API listed none for this app.";
  }
  return text;
}

}  // namespace quillet
