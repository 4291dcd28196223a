// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/published_status.h"

#include <fstream>
#include <sstream>

#include "base/errors.h"
#include "publisher/price_files.h"

namespace quillet {

namespace fs = std::filesystem;

std::vector<SeedManifest::Entry> publishedEntries(const fs::path& files) {
  std::ostringstream content;
  content << std::ifstream(files / kManifestName, std::ios::binary).rdbuf();
  try {
    return decodeSeedManifest(content.str()).storefronts;
  } catch (const DecodingError&) {
    return {};
  }
}

PublishedStatus statusOfPublished(const fs::path& folder) {
  PublishedStatus status{folder, {}};
  const fs::path files = folder / kPriceFilesPath;
  for (const SeedManifest::Entry& entry : publishedEntries(files)) {
    status.storefronts.push_back({entry.country, entry.apps,
                                  stampOfPriceFile(files / priceFileName(entry.country)),
                                  entry.lookedAt});
  }
  return status;
}

}  // namespace quillet
