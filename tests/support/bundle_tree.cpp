// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "support/bundle_tree.h"

#include <fmt/format.h>

#include <fstream>

#include "library/schema/binary_plist_writer.h"

namespace quillet {
namespace {

namespace fs = std::filesystem;

constexpr std::string_view kXmlHead =
    "<?xml version=\"1.0\" encoding=\"UTF-8\"?>\n"
    "<!DOCTYPE plist PUBLIC \"-//Apple//DTD PLIST 1.0//EN\" "
    "\"http://www.apple.com/DTDs/PropertyList-1.0.dtd\">\n<plist version=\"1.0\">\n";

std::string bigEndian(std::uint32_t number) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>(number >> shift & 0xFF);
  return bytes;
}

SampleInfo infoOf(int number) {
  return {fmt::format("com.example.tool{}", number), fmt::format("Tool & Co {}", number),
          fmt::format("{}.2", number % 20), "12.0", "tool"};
}

std::string nested(int levels) {
  std::string text(kXmlHead);
  for (int i = 0; i < levels; ++i) text += "<dict><key>a</key>";
  return text;
}

void makeMacApp(const fs::path& bundle, const std::string& list,
                const std::vector<SampleCpu>& processors) {
  writeFile(bundle / "Contents/Info.plist", list);
  writeFile(bundle / "Contents/MacOS/tool", machOHead(processors) + std::string(20'000, '\0'));
}

void makeWrapped(const fs::path& bundle, const SampleInfo& info, int number) {
  const fs::path app = bundle / "Wrapper/Tool.app";
  writeFile(app / "Info.plist", binaryPlist(info));
  writeFile(app / "tool", machOHead({SampleCpu::arm64}));
  writeFile(bundle / "Wrapper/iTunesMetadata.plist",
            storeNotePlist(1'000'000 + number, info.bundleId));
  fs::create_directory_symlink("Wrapper/Tool.app", bundle / "WrappedBundle");
}

}  // namespace

std::string xmlPlist(const SampleInfo& info) {
  const std::string name = info.name.find('&') == std::string::npos
                               ? info.name
                               : fmt::format("<![CDATA[{}]]>", info.name);
  return fmt::format(
      "{}<dict>\n<key>CFBundleIdentifier</key><string>{}</string>\n"
      "<key>CFBundleDocumentTypes</key><array><dict><key>LSItemContentTypes</key><array/>"
      "<key>Rank</key><integer>2</integer></dict></array>\n"
      "<key>CFBundleName</key><string>{}</string>\n"
      "<key>CFBundleShortVersionString</key><string>{}</string>\n"
      "<key>LSMinimumSystemVersion</key><string>{}</string>\n<key>Hidden</key><false/>\n"
      "<key>CFBundleExecutable</key><string>{}</string>\n</dict>\n</plist>\n",
      kXmlHead, info.bundleId, name, info.version, info.minimumSystem, info.executable);
}

std::string binaryPlist(const SampleInfo& info) {
  BinaryPlistWriter plist;
  const auto entry = [&plist](std::string_view key, const std::string& value) {
    const auto keyRef = plist.addText(key);
    return std::pair(keyRef, plist.addText(value));
  };
  const auto root = plist.addDictionary({entry("CFBundleIdentifier", info.bundleId),
                                         entry("CFBundleName", info.name),
                                         entry("CFBundleShortVersionString", info.version),
                                         entry("LSMinimumSystemVersion", info.minimumSystem),
                                         entry("CFBundleExecutable", info.executable)});
  return plist.finish(root);
}

std::string storeNotePlist(std::int64_t trackId, std::string_view bundleId) {
  return fmt::format(
      "{}<dict><key>itemId</key><integer>{}</integer>"
      "<key>softwareVersionBundleId</key><string>{}</string></dict></plist>",
      kXmlHead, trackId, bundleId);
}

std::string machOHead(const std::vector<SampleCpu>& processors) {
  if (processors.size() == 1) {
    // As on both processors, least significant byte first.
    const std::string type = bigEndian(static_cast<std::uint32_t>(processors.front()));
    return "\xCF\xFA\xED\xFE" + std::string(type.rbegin(), type.rend());
  }
  std::string head =
      bigEndian(0xCAFEBABE) + bigEndian(static_cast<std::uint32_t>(processors.size()));
  for (const SampleCpu processor : processors) {
    head += bigEndian(static_cast<std::uint32_t>(processor)) + std::string(16, '\0');
  }
  return head;
}

void writeFile(const fs::path& file, std::string_view content) {
  fs::create_directories(file.parent_path());
  std::ofstream(file, std::ios::binary) << content;
}

void makeBundle(const fs::path& bundle, SampleBundle kind, int number) {
  SampleInfo info = infoOf(number);
  const std::vector both{SampleCpu::intel64, SampleCpu::arm64};
  switch (kind) {
    case SampleBundle::bought:
      writeFile(bundle / "Contents/_MASReceipt/receipt", "receipt");
      return makeMacApp(bundle, xmlPlist(info), both);
    case SampleBundle::intel: return makeMacApp(bundle, binaryPlist(info), {SampleCpu::intel64});
    case SampleBundle::wrapped: return makeWrapped(bundle, info, number);
    case SampleBundle::bare:
      info.bundleId.clear();
      return makeMacApp(bundle, binaryPlist(info), both);
    case SampleBundle::damaged: return makeMacApp(bundle, xmlPlist(info).substr(0, 400), both);
    case SampleBundle::deep: return makeMacApp(bundle, nested(1000), both);
    case SampleBundle::withoutList: fs::create_directories(bundle); return;
    case SampleBundle::linkedOutside: fs::create_directory_symlink("/", bundle); return;
  }
}

void makeBundleTree(const fs::path& folder, int count, int filesEach) {
  for (int i = 0; i < count; ++i) {
    const auto kind = static_cast<SampleBundle>(i % kSampleBundles);
    const fs::path within = i % 10 == 0 ? folder / fmt::format("Suite {}", i) : folder;
    const fs::path bundle = within / fmt::format("Tool {}.app", i);
    fs::create_directories(within);
    makeBundle(bundle, kind, i);
    if (kind == SampleBundle::linkedOutside) continue;
    for (int file = 0; file < filesEach; ++file) {
      writeFile(bundle / fmt::format("Resources/{}.lproj/{}.strings", file / 8, file),
                std::string(static_cast<std::size_t>(100 * (file + 1)), 's'));
    }
  }
}

}  // namespace quillet
