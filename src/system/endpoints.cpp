// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "system/endpoints.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <optional>

#include "base/errors.h"
#include "base/numbers.h"
#include "base/text.h"
#include "base/urls.h"
#include "system/settings_keys.h"

namespace quillet {

namespace {

enum class FolderAddresses { refused, allowed };

struct EndpointRow {
  std::string_view variable;
  TextSetting setting;
  FolderAddresses folders;
};

constexpr EndpointRow kITunes{"QUILLET_ITUNES_URL", kITunesUrl, FolderAddresses::refused};
constexpr EndpointRow kAppStore{"QUILLET_APP_STORE_URL", kAppStoreUrl, FolderAddresses::refused};
constexpr EndpointRow kPriceData{"QUILLET_PRICE_DATA_URL", kPriceDataUrl, FolderAddresses::allowed};

bool isHostCharacter(char c) {
  // Bytes from 0x80 on belong to names in other scripts, which the networking layer encodes.
  return (c >= 'a' && c <= 'z') || (c >= '0' && c <= '9') || c == '-' || c == '.' || c == '_' ||
         static_cast<unsigned char>(c) >= 0x80;
}

bool isHostName(std::string_view host) {
  return !host.empty() && std::all_of(host.begin(), host.end(), isHostCharacter) &&
         printable(host) == host && trimmed(host) == host;
}

bool isBracketedAddress(std::string_view host) {
  return host.size() > 2 && host.starts_with('[') && host.ends_with(']') &&
         host.substr(1, host.size() - 2).find_first_not_of("0123456789abcdef:.") ==
             std::string_view::npos;
}

bool isPort(std::string_view text) {
  if (text.empty() || text.find_first_not_of("0123456789") != std::string_view::npos) return false;
  const auto port = parseWhole(text);
  return port && *port >= 1 && *port <= 65535;
}

bool isHostWithPort(std::string_view text) {
  // The colons inside "[::1]" separate no port.
  const std::size_t hostEnd = text.starts_with('[') ? text.find(']') : 0;
  const std::size_t colon = text.find(':', std::min(hostEnd, text.size()));
  if (colon != std::string_view::npos && !isPort(text.substr(colon + 1))) return false;
  const std::string_view host = text.substr(0, colon);
  return isHostName(host) || isBracketedAddress(host);
}

std::string_view withoutTrailingSlash(std::string_view text) {
  if (text.ends_with('/')) text.remove_suffix(1);
  return text;
}

/// The scheme and host in lower case.
std::optional<std::string> serverAddress(std::string_view text) {
  const std::string address = lowerAscii(withoutTrailingSlash(text));
  for (const std::string_view scheme : {"https://", "http://"}) {
    if (!address.starts_with(scheme)) continue;
    if (isHostWithPort(std::string_view(address).substr(scheme.size()))) return address;
  }
  return {};
}

std::optional<std::string> folderAddress(std::string_view text) {
  constexpr std::string_view kScheme = "file://";
  if (lowerAscii(text.substr(0, kScheme.size())) != kScheme) return {};
  const std::string_view path = text.substr(kScheme.size());
  if (!path.starts_with('/') || printable(path) != path) return {};
  if (path.find_first_of("?#") != std::string_view::npos) return {};
  return std::string(kScheme).append(withoutTrailingSlash(path));
}

[[noreturn]] void refuse(std::string_view name, const EndpointRow& row, std::string_view value) {
  throw BadSetting(
      fmt::format("{} must be an http or https address without a path{}; got '{}'.", name,
                  row.folders == FolderAddresses::allowed ? " or the file address of a folder" : "",
                  printable(value)));
}

std::optional<std::string> addressIn(const EndpointRow& row, std::string_view value) {
  if (auto server = serverAddress(value)) return server;
  return row.folders == FolderAddresses::allowed ? folderAddress(value) : std::nullopt;
}

std::string usableAddress(std::string_view name, const EndpointRow& row, std::string_view value) {
  if (auto address = addressIn(row, value)) return *address;
  refuse(name, row, value);
}

/// Absent where neither the environment nor the settings name an address.
std::optional<std::string> chosenAddress(const EndpointRow& row, const Environment& environment,
                                         const Settings& settings) {
  if (const auto value = environment.get(row.variable)) {
    return usableAddress(row.variable, row, *value);
  }
  const auto value = settings.text(row.setting.key);
  if (!value || value->empty()) return {};
  return usableAddress(row.setting.key, row, *value);
}

/// Nobody stands between us and these.
constexpr std::array<std::string_view, 3> kThisMachine{
    "http://127.0.0.1:", "http://localhost:", "http://[::1]:"};

std::string fileAddress(const std::filesystem::path& folder) {
  std::string address = "file://";
  for (const std::string_view piece : split(folder.native(), '/')) {
    if (!piece.empty()) address += '/' + percentEncoded(piece);
  }
  return address;
}

}  // namespace

Endpoints findEndpoints(const Environment& environment, const Settings& settings,
                        const Places& places) {
  const auto find = [&](const EndpointRow& row) {
    return chosenAddress(row, environment, settings);
  };
  const std::string collected = fileAddress(places.dataDirectory / "price-data");
  return {.itunes = find(kITunes).value_or(std::string(kITunesUrl.fallback)),
          .appStore = find(kAppStore).value_or(std::string(kAppStoreUrl.fallback)),
          .priceData = find(kPriceData).value_or(collected)};
}

namespace {

bool isReleaseFeed(std::string_view address) {
  if (isSecureAddress(address)) return true;
  constexpr std::size_t kScheme = 7;
  const std::string_view host = address.substr(0, address.find_first_of("/?#\\", kScheme));
  return isWebAddress(address) && host.find('@') == std::string_view::npos &&
         std::ranges::any_of(kThisMachine, [host](auto start) { return host.starts_with(start); });
}

}  // namespace

bool isUsableAddress(const TextSetting& setting, std::string_view value) {
  if (value.empty()) return true;
  if (setting.key == kUpdateFeedUrl.key) return isReleaseFeed(value);
  for (const EndpointRow* row : {&kITunes, &kAppStore, &kPriceData}) {
    if (row->setting.key == setting.key) return addressIn(*row, value).has_value();
  }
  return false;
}

}  // namespace quillet
