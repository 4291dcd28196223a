// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "scan/application_scan.h"

#include <fmt/format.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <map>
#include <ostream>

#include "scan/applications_folders.h"
#include "scan/bundle_listing.h"
#include "support/bundle_tree.h"
#include "support/temporary_folder.h"

namespace quillet {

void PrintTo(const InstalledBundle& bundle, std::ostream* out) {
  *out << bundle.path << " '" << bundle.name << "' " << bundle.bundleId.value_or("-") << ' '
       << bundle.version.value_or("-") << ' ' << bundle.minimumSystem.value_or("-") << ' '
       << bundle.trackId.value_or(0) << " receipt " << bundle.hasReceipt << " architectures "
       << bundle.architectures.size() << " size " << bundle.sizeBytes.value_or(-1) << ' '
       << (bundle.fault ? bundle.fault->reason : "");
}

namespace {

namespace fs = std::filesystem;
using enum CpuArchitecture;

constexpr auto kBought = SampleBundle::bought;

class ApplicationScanTest : public testing::Test {
 protected:
  const fs::path& folder() const { return temporary_.path(); }
  fs::path make(const fs::path& name, SampleBundle kind, int number = 1) const {
    makeBundle(folder() / name, kind, number);
    return folder() / name;
  }
  ScanResult scan(const ScanWatch& watch = {}) const { return scanApplications({folder()}, watch); }
  std::vector<std::string> foundNames() const {
    std::vector<std::string> names;
    for (const auto& bundle : scan().bundles) {
      names.push_back(fs::relative(bundle.path, folder()).string());
    }
    return names;
  }

 private:
  TemporaryFolder temporary_;
};

TEST_F(ApplicationScanTest, TellsOfEachKindWhatItSaysOfItself) {
  InstalledBundle bought{make("A.app", kBought),
                         BundleKind::mac,
                         "Tool & Co 1",
                         "com.example.tool1",
                         "1.2",
                         "12.0",
                         {},
                         true,
                         {x8664, arm64},
                         {},
                         {}};
  InstalledBundle intel = bought;
  intel.path = make("B.app", SampleBundle::intel);
  intel.hasReceipt = false;
  intel.architectures = {x8664};
  InstalledBundle wrapped = bought;
  wrapped.path = make("C.app", SampleBundle::wrapped);
  wrapped.kind = BundleKind::wrapped;
  wrapped.trackId = 1'000'001;
  wrapped.architectures = {arm64};
  InstalledBundle bare = intel;
  bare.path = make("D.app", SampleBundle::bare);
  bare.bundleId = {};
  bare.architectures = {x8664, arm64};
  bare.fault = {BundleFaultKind::noIdentifier, "Its Info.plist names no identifier."};
  InstalledBundle damaged{make("E.app", SampleBundle::damaged)};
  damaged.name = "E";
  damaged.fault = {BundleFaultKind::unreadableList,
                   "Its Info.plist could not be read: it ends too early (byte 400)."};
  InstalledBundle deep{make("F.app", SampleBundle::deep)};
  deep.name = "F";
  InstalledBundle empty{make("G.app", SampleBundle::withoutList)};
  empty.name = "G";
  empty.fault = {BundleFaultKind::noList, "It has no Info.plist."};
  make("H.app", SampleBundle::linkedOutside);

  ScanResult result = scan();
  EXPECT_EQ(result.end, ScanEnd::complete);
  EXPECT_EQ(result.folders, (std::vector<ScannedFolder>{{folder(), FolderState::read, 7, {}}}));
  for (auto& bundle : result.bundles) {
    EXPECT_TRUE(bundle.sizeBytes.has_value());
    bundle.sizeBytes = {};
  }
  ASSERT_EQ(result.bundles.size(), 7U);
  EXPECT_EQ(result.bundles[5].fault->reason.substr(0, 64),
            "Its Info.plist could not be read: it nests deeper than 64 levels");
  deep.fault = result.bundles[5].fault;
  EXPECT_EQ(result.bundles, (std::vector{bought, intel, wrapped, bare, damaged, deep, empty}));
  EXPECT_EQ(needsRosetta(bought.architectures), false);
  EXPECT_EQ(needsRosetta(intel.architectures), true);
  EXPECT_EQ(needsRosetta(damaged.architectures), std::nullopt);
}

TEST_F(ApplicationScanTest, LooksTwoFoldersDeepAndNoFurther) {
  make("One.app", kBought, 1);
  make("One.app/Contents/Helper.app", kBought, 2);
  make("Suite/Two.APP", kBought, 3);
  make("Suite/Inner/Three.app", kBought, 4);
  make(".hidden/Four.app", kBought, 5);
  make("._Five.app", kBought, 6);
  writeFile(folder() / "Six.app", "a file");
  EXPECT_EQ(foundNames(), (std::vector<std::string>{"One.app", "Suite/Two.APP"}));
}

TEST_F(ApplicationScanTest, FollowsNoLinkOutOfTheFolder) {
  const TemporaryFolder outside;
  makeBundle(outside.path() / "Out.app", kBought, 9);
  const fs::path out = outside.path() / "Out.app/Contents";
  fs::create_directory_symlink(outside.path(), folder() / "Linked");
  fs::create_directory_symlink(outside.path() / "Out.app", folder() / "Linked.app");
  fs::create_directories(folder() / "A.app");
  fs::create_directory_symlink(out, folder() / "A.app/Contents");
  fs::create_directories(folder() / "B.app/Contents");
  fs::create_symlink(out / "Info.plist", folder() / "B.app/Contents/Info.plist");
  writeFile(folder() / "C.app/Contents/Info.plist",
            xmlPlist({"com.example.c", "C", "1", "11", "tool"}));
  fs::create_directory_symlink(out / "MacOS", folder() / "C.app/Contents/MacOS");
  fs::create_directory_symlink(out / "_MASReceipt", folder() / "C.app/Contents/_MASReceipt");
  fs::create_directory_symlink(folder(), folder() / "C.app/Around");

  const auto bundles = scan().bundles;
  ASSERT_EQ(bundles.size(), 3U);
  for (std::size_t i = 0; i < 2; ++i) {
    EXPECT_EQ(bundles[i].fault.value().kind, BundleFaultKind::noList);
    EXPECT_EQ(bundles[i].sizeBytes, 0);
  }
  EXPECT_EQ(bundles[2].bundleId, "com.example.c");
  EXPECT_FALSE(bundles[2].hasReceipt);
  EXPECT_TRUE(bundles[2].architectures.empty());
  EXPECT_EQ(bundles[2].sizeBytes, fs::file_size(folder() / "C.app/Contents/Info.plist"));
  // What was given may be a link itself, and what is reached by two ways is one.
  const fs::path link = outside.path() / "Applications";
  fs::create_directory_symlink(folder(), link);
  EXPECT_EQ(scanApplications({link, folder()}).bundles.size(), 3U);
}

TEST_F(ApplicationScanTest, SurvivesWhatElseCanLieThere) {
  const fs::path pipe = make("A.app", kBought) / "Contents/Info.plist";
  fs::remove(pipe);
  ASSERT_EQ(::mkfifo(pipe.c_str(), 0600), 0);
  const fs::path large = make("B.app", kBought) / "Contents/Info.plist";
  fs::resize_file(large, 8'000'000'000);
  const fs::path script = make("C.app", kBought) / "Contents/MacOS/tool";
  writeFile(script, "#!/bin/sh\n");
  const std::string broken = "D\xFF\u202E\n.app";
  writeFile(folder() / broken / "Contents/Info.plist", "");
  std::string within = "E.app";
  for (int i = 0; i < 100; ++i) within += "/deeper";
  writeFile(folder() / within / "file", "x");

  const auto bundles = scan().bundles;
  ASSERT_EQ(bundles.size(), 5U);
  EXPECT_EQ(bundles[0].fault.value().reason, "It has no Info.plist.");
  EXPECT_EQ(bundles[1].fault.value().reason,
            "Its Info.plist could not be read: it is larger than 1024 KiB.");
  EXPECT_GT(bundles[1].sizeBytes, 8'000'000'000);
  EXPECT_EQ(bundles[2].fault, std::nullopt);
  EXPECT_TRUE(bundles[2].architectures.empty());
  EXPECT_EQ(bundles[3].name, "D\uFFFD");
  EXPECT_EQ(bundles[4].sizeBytes, std::nullopt);
}

TEST_F(ApplicationScanTest, SaysWhatBecameOfEachFolder) {
  const fs::path file = folder() / "file";
  writeFile(file, "x");
  fs::create_directories(folder() / "unmounted");
  writeFile(folder() / "unmounted/.DS_Store", "x");
  fs::create_directories(folder() / "other/Documents");
  make("apps/A.app", kBought);
  const std::vector<fs::path> folders{folder() / "gone", file, folder() / "unmounted",
                                      folder() / "other", folder() / "apps"};
  const auto result = scanApplications(folders);
  EXPECT_EQ(result.end, ScanEnd::complete);
  EXPECT_EQ(result.folders,
            (std::vector<ScannedFolder>{{folders[0], FolderState::missing, 0, {}},
                                        {folders[1], FolderState::unreadable, 0, "Not a directory"},
                                        {folders[2], FolderState::empty, 0, {}},
                                        {folders[3], FolderState::read, 0, {}},
                                        {folders[4], FolderState::read, 1, {}}}));
  EXPECT_EQ(result.bundles.size(), 1U);
}

TEST_F(ApplicationScanTest, ProposesWhatMountedDisksHold) {
  make("media/Mac/Applications/A.app", kBought);
  make("media/Copy/root/Applications/Suite/B.app", kBought);
  make("media/Apps/C.app", kBought);
  fs::create_directories(folder() / "media/Empty/Applications");
  writeFile(folder() / "media/Photos/Applications", "a file");
  fs::create_directory_symlink("Mac", folder() / "media/Again");
  fs::create_directories(folder() / "media/Stick");
  fs::create_directory_symlink("../Mac/Applications", folder() / "media/Stick/Applications");
  const fs::path media = folder() / "media";
  EXPECT_EQ(applicationsFoldersOn({folder() / "run", media}),
            (std::vector{media / "Copy/root/Applications", media / "Mac/Applications"}));
}

TEST_F(ApplicationScanTest, TellsThatAFolderInsideCannotBeRead) {
  make("A.app", kBought);
  const fs::path closed = make("Closed/B.app", kBought).parent_path();
  const fs::path contents = make("C.app", kBought) / "Contents";
  fs::permissions(closed, fs::perms::none);
  fs::permissions(contents, fs::perms::none);
  const bool isRoot = ::geteuid() == 0;  // who may read everything
  if (isRoot) {
    fs::permissions(folder(), fs::perms::all);
    ASSERT_EQ(::seteuid(65534), 0);
  }
  const auto result = scan();
  if (isRoot) ASSERT_EQ(::seteuid(0), 0);
  fs::permissions(closed, fs::perms::owner_all);
  fs::permissions(contents, fs::perms::owner_all);
  const std::string reason = closed.string() + ": Permission denied";
  EXPECT_EQ(result.folders,
            (std::vector<ScannedFolder>{{folder(), FolderState::unreadable, 2, reason}}));
  ASSERT_EQ(result.bundles.size(), 2U);
  EXPECT_EQ(result.bundles[1].fault.value().reason,
            "Its folder could not be read: Permission denied.");
  EXPECT_EQ(result.bundles[1].sizeBytes, std::nullopt);
}

TEST_F(ApplicationScanTest, TellsOfAThousandAsItGoes) {
  constexpr int kCount = 1000;
  makeBundleTree(folder(), kCount, 0);
  std::map<ScanStep, std::size_t> told;
  const auto tell = [&told](const InstalledBundle& bundle, const ScanProgress& progress) {
    EXPECT_EQ(progress.done, ++told[progress.step]);
    EXPECT_EQ(progress.total, 875U);
    EXPECT_EQ(bundle.sizeBytes.has_value(), progress.step == ScanStep::measuring);
  };
  const ScanResult result = scan({{}, tell, tell});
  EXPECT_EQ(told, (std::map<ScanStep, std::size_t>{{ScanStep::reading, 875},
                                                   {ScanStep::measuring, 875}}));

  std::map<std::optional<BundleFaultKind>, int> faults;
  int receipts = 0;
  int rosetta = 0;
  for (const auto& bundle : result.bundles) {
    ++faults[bundle.fault ? std::optional(bundle.fault->kind) : std::nullopt];
    receipts += bundle.hasReceipt ? 1 : 0;
    rosetta += needsRosetta(bundle.architectures).value_or(false) ? 1 : 0;
    if (bundle.kind == BundleKind::wrapped) {
      EXPECT_EQ(bundle.bundleId, fmt::format("com.example.tool{}", *bundle.trackId - 1'000'000));
    }
  }
  EXPECT_EQ(faults,
            (std::map<std::optional<BundleFaultKind>, int>{{std::nullopt, 375},
                                                           {BundleFaultKind::noIdentifier, 125},
                                                           {BundleFaultKind::unreadableList, 250},
                                                           {BundleFaultKind::noList, 125}}));
  EXPECT_EQ(receipts, 250);
  EXPECT_EQ(rosetta, 125);
}

TEST_F(ApplicationScanTest, StopsBetweenBundles) {
  for (int i = 0; i < 5; ++i) make(fmt::format("{}.app", i), kBought, i);
  struct Row {
    ScanStep step;
    std::size_t read;
    std::size_t measured;
  };
  for (const Row& row : {Row{ScanStep::reading, 2, 0}, Row{ScanStep::measuring, 5, 2}}) {
    std::size_t measured = 0;
    bool stop = false;
    const auto tell = [&](const InstalledBundle&, const ScanProgress& progress) {
      stop = progress.step == row.step && progress.done == 2;
      if (progress.step == ScanStep::measuring) measured = progress.done;
    };
    const ScanResult result = scan({[&stop] { return stop; }, tell, tell});
    EXPECT_EQ(result.end, ScanEnd::stopped);
    EXPECT_EQ(result.bundles.size(), row.read);
    EXPECT_EQ(measured, row.measured);
  }
}

TEST_F(ApplicationScanTest, FindsSoManyAndNoMore) {
  for (const char* name : {"A.app", "Suite/B.app", "C.app"})
    fs::create_directories(folder() / name);
  fs::create_directories(folder() / "Suite/Not an app");
  for (const auto& [most, end] :
       {std::pair(3, ScanEnd::complete), std::pair(2, ScanEnd::tooMany)}) {
    const BundleListing listing = listBundles({folder(), folder() / "Suite"}, {}, most);
    EXPECT_EQ(listing.end, end);
    EXPECT_EQ(listing.places.size(), most);
  }
}

}  // namespace
}  // namespace quillet
