// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <algorithm>
#include <iterator>

#include "sandbox/hand_written.h"
#include "sandbox/makers.h"

namespace quillet::sandbox {

using namespace makers;

namespace {

std::vector<AppSketch> otherScripts() {
  return {
      {.id = 1398805512,
       .name = "メモの庭 – notes",
       .bundleId = "jp.mizunosawa.memonoma",
       .maker = mizuno(),
       .machines = kMacAndIos,
       .genres = {6007},
       .usCents = 299,
       .stars = 4.6,
       .ratings = 3'912,
       .macRatings = MacRatings::shown,
       .version = "5.0",
       .updated = 15,
       .every = 30,
       .first = 1800,
       .bytes = 18'874'368,
       .languages = {"JA", "EN"},
       .tagline = "静かなメモ帳",
       .about = "思いついたことを、そのまま植えておく場所です。",
       .notes = "・検索が速くなりました\n・細かい不具合を直しました"},
      {.id = 1402277841,
       .name = "写真の引き出し",
       .bundleId = "jp.mizunosawa.hikidashi",
       .maker = mizuno(),
       .genres = {6008},
       .usCents = 1299,
       .stars = 4.4,
       .ratings = 120,
       .macRatings = MacRatings::shown,
       .version = "2.3",
       .updated = 73,
       .every = 50,
       .first = 1400,
       .bytes = 45'088'768,
       .languages = {"JA"},
       .storefronts = soldIn({Storefront::jp}),
       .tagline = "photo sorter",
       .about = "写真を引き出しにしまうように整理します。"},
      {.id = 1344556688,
       .name = "دفتر الواحة للملاحظات",
       .bundleId = "example.daftar.waha",
       .maker = daftar(),
       .machines = kIos,
       .genres = {6007, 6002},
       .stars = 4.5,
       .ratings = 2'204,
       .version = "1.12",
       .updated = 39,
       .every = 40,
       .first = 950,
       .bytes = 22'020'096,
       .languages = {"AR", "EN"},
       .tagline = "notes",
       .about = "دفتر هادئ لكل ما يخطر ببالك."},
      {.id = 1288103390,
       .name = "Écrivailleur — éditeur Markdown",
       .bundleId = "com.inesquintal.ecrivailleur",
       .maker = inesQuintal(),
       .genres = {6007},
       .usCents = 999,
       .stars = 4.3,
       .ratings = 71,
       .macRatings = MacRatings::shown,
       .version = "2.5",
       .updated = 48,
       .every = 66,
       .first = 1500,
       .bytes = 10'485'760,
       .languages = {"FR", "PT"},
       .tagline = "Markdown editor à la française",
       .about = "Pour écrire sans être dérangé: à l'œuvre, déjà, naïvement."},
      {.id = 1477009913,
       .name = "🎨 Colour Otter 🦦 für Größen",
       .bundleId = "com.hazelworks.otter",
       .maker = hazelworks(),
       .machines = kIos,
       .genres = {6027, 6016},
       .stars = 4.1,
       .ratings = 808,
       .version = "1.5",
       .updated = 101,
       .every = 60,
       .first = 700,
       .bytes = 60'817'408,
       .purchases = {boughtOnce("👩‍👩‍👧‍👦 Family Pack", 499)},
       .tagline = "Palettes from photos 🌈",
       .about = "Finds five colours in any picture. 🎉"},
      {.id = 1577009914,
       .name = "Leaflet 10",
       .bundleId = "com.rookandreed.leaflet10",
       .maker = rookAndReed(),
       .genres = {6018},
       .usCents = 699,
       .stars = 4.0,
       .ratings = 18,
       .version = "10.0",
       .updated = 82,
       .every = 100,
       .first = 82,
       .bytes = 12'582'912,
       .tagline = "Book covers",
       .about = "The tenth Leaflet."},
      {.id = 1577009915,
       .name = "leaflet 2",
       .bundleId = "com.rookandreed.leaflet2",
       .maker = rookAndReed(),
       .genres = {6018},
       .usCents = 699,
       .version = "2.0.3",
       .updated = 2900,
       .every = 100,
       .first = 3000,
       .bytes = 8'388'608,
       .minimumMac = "10.8",
       .macBuild = MacBuild::intelOnly,
       .tagline = "Book covers",
       .about = "The second Leaflet."},
  };
}

std::vector<AppSketch> hostileOnes() {
  return {
      {.id = 1666013130,
       .name = "Evil\x1b[31mRed\x1b[0m\x07 \"App\"\r\n'; touch gotcha; '",
       .bundleId = "example.hostile.app",
       .maker = {1666013001,
                 "Trixie\x1b]0;owned\x07 \xc2\x9b"
                 "1mPranks\n& Sons",
                 "$(Trixie) `Pranks`", "javascript:alert(1)"},
       .machines = kMacAndIos,
       .genres = {6002},
       .usCents = 199,
       .stars = 4.9,
       .ratings = 666,
       .macRatings = MacRatings::shown,
       .version = "6.6\x1b[2J",
       .updated = 13,
       .every = 13,
       .first = 666,
       .bytes = 666'666,
       .purchases = {boughtOnce("Pro\x1b[8m unlock\n\t\"x\"", 199)},
       .tagline = "Tests\xc2\x9b 31m your terminal",
       .about = "<script>alert('hi')</script> | cells | "
                "and *stars* \\ backslashes \xe2\x80\xae turned around \x01\x02\x7f.",
       .notes =
           "line one\n\x1b[1A\x1b[2Kline two pretends to be line one\r\nC:\\temp \x08\x08 %s %n "
           "\x1b]8;;http://hostile.example\x1b\\click\x1b]8;;\x1b\\"},
      {.id = 1666013131,
       .name = "An Exceedingly Long Name for a Rather Small Utility That Renames "
               "Files, Folders, Photos and Notes in the Order in Which They Were Made, Including "
               "Those That "
               "Were Made Twice – Second, Revised and Enlarged Edition for the Patient Reader of "
               "Titles",
       .bundleId = "com.inesquintal.long",
       .maker = {1666013002,
                 "The Society of Patient Readers, "
                 "Renamers and Archivists of the Lower Valley and the Adjoining Hills, Registered "
                 "Association",
                 "Patient Readers",
                 "https://patient.example/a/very/long/path/that/does/not/end/soon?with=items"},
       .genres = {6002, 6006},
       .usCents = 99999,
       .stars = 5,
       .ratings = 1,
       .macRatings = MacRatings::shown,
       .version = "2026.11.21.1048576.1",
       .updated = 1,
       .every = 1,
       .first = 12,
       .bytes = 999'999'999'999,
       .minimumMac = "26.0.1",
       .tagline = "Names things",
       .about = "Unimaginably-unbreakable-words-without-any-blank-in-between-are-part-of-"
                "this-description-on-purpose."},
      {.id = 999000001,
       .name = "X",
       .bundleId = "x.y",
       .maker = {999000000, "Y", "Y", ""},
       .machines = kIos,
       .genres = {6002},
       .version = "1",
       .updated = 4000,
       .every = 1,
       .first = 4000,
       .bytes = 1,
       .minimumIos = "4.3",
       .languages = {},
       .about = "X."},
  };
}

}  // namespace

std::vector<AppSketch> oddApps() {
  std::vector<AppSketch> all = otherScripts();
  std::ranges::move(hostileOnes(), std::back_inserter(all));
  return all;
}

}  // namespace quillet::sandbox
