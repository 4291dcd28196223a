// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "scan/application_scan.h"

#include <utility>

#include "scan/bundle_listing.h"
#include "scan/bundle_reader.h"

namespace quillet {
namespace {

class Run {
 public:
  Run(BundleListing listing, const ScanWatch& watch)
      : watch_(watch), places_(std::move(listing.places)) {
    result_.folders = std::move(listing.folders);
    result_.end = listing.end;
  }

  ScanResult take() {
    readAll();
    measureAll();
    return std::move(result_);
  }

 private:
  void readAll() {
    for (const BundlePlace& place : places_) {
      if (hasStopped()) return;
      result_.bundles.push_back(readBundle(place));
      tell(watch_.bundleRead, ScanStep::reading, result_.bundles.size());
    }
  }

  void measureAll() {
    for (std::size_t i = 0; i < places_.size(); ++i) {
      if (hasStopped()) return;
      result_.bundles[i].sizeBytes = sizeOfBundle(places_[i], watch_.stopped);
      tell(watch_.bundleMeasured, ScanStep::measuring, i + 1);
    }
  }

  /// Of the bundle that was the last one done.
  void tell(const std::function<void(const InstalledBundle&, const ScanProgress&)>& told,
            ScanStep step, std::size_t done) const {
    if (told) told(result_.bundles[done - 1], {step, done, places_.size()});
  }

  [[nodiscard]] bool hasStopped() {
    if (watch_.stopped && watch_.stopped()) result_.end = ScanEnd::stopped;
    return result_.end == ScanEnd::stopped;
  }

  const ScanWatch& watch_;
  std::vector<BundlePlace> places_;
  ScanResult result_;
};

}  // namespace

ScanResult scanApplications(const std::vector<std::filesystem::path>& folders,
                            const ScanWatch& watch) {
  return Run(listBundles(folders, watch.stopped), watch).take();
}

}  // namespace quillet
