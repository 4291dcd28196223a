// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

namespace quillet {

// Applications folders of made-up apps, for tests and benchmarks.

/// What an app's Info.plist may hold, in this order.
struct SampleInfo {
  std::string bundleId;
  std::string name;
  std::string version;
  std::string minimumSystem;
  std::string executable;
};

[[nodiscard]] std::string xmlPlist(const SampleInfo& info);
[[nodiscard]] std::string binaryPlist(const SampleInfo& info);
/// What the store leaves beside a wrapped app.
[[nodiscard]] std::string storeNotePlist(std::int64_t trackId, std::string_view bundleId);

/// As an executable names what it is compiled for.
enum class SampleCpu : std::uint32_t { intel64 = 0x01000007, arm64 = 0x0100000C };
/// The start of an executable for these; of more than one, of a joined one.
[[nodiscard]] std::string machOHead(const std::vector<SampleCpu>& processors);

/// Makes the file, and the folders that it lies in.
void writeFile(const std::filesystem::path& file, std::string_view content);

// Everything that lies in such a folder. The number stands in the identifier and the name.
enum class SampleBundle {
  bought,         ///< from the store, for both processors, with an XML list
  intel,          ///< from elsewhere, for Intel alone, with a binary list
  wrapped,        ///< an iPhone app with the store's note
  bare,           ///< of a list that names no identifier
  damaged,        ///< of a list that ends too early
  deep,           ///< of a list nested a thousand levels
  withoutList,    ///< a folder that only looks like an app
  linkedOutside,  ///< a link to an app that lies elsewhere: none
};
inline constexpr int kSampleBundles = 8;

void makeBundle(const std::filesystem::path& bundle, SampleBundle kind, int number);

/// Makes `count` bundles, of each kind an eighth, each tenth of them in a folder of its own, and
/// each with so many files besides what names it.
void makeBundleTree(const std::filesystem::path& folder, int count, int filesEach);

}  // namespace quillet
