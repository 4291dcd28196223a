// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/schema/keyed_archive.h"

#include <gtest/gtest.h>
#include <plist/plist.h>

#include <limits>
#include <memory>

#include "support/place.h"
#include "support/temporary_folder.h"

namespace quillet {
namespace {

using Integers = std::vector<std::int64_t>;
using Texts = std::vector<std::string>;

struct FreePlist {
  void operator()(void* node) const { plist_free(node); }
};
using Plist = std::unique_ptr<void, FreePlist>;

std::string written(const Plist& node, decltype(&plist_to_bin) form = plist_to_bin) {
  char* bytes = nullptr;
  std::uint32_t size = 0;
  form(node.get(), &bytes, &size);
  std::string text(bytes, size);
  plist_to_bin_free(bytes);
  return text;
}

plist_t listOf(const std::vector<plist_t>& nodes) {
  plist_t list = plist_new_array();
  for (plist_t node : nodes) plist_array_append_item(list, node);
  return list;
}

plist_t dictionaryOf(std::initializer_list<std::pair<const char*, plist_t>> entries) {
  plist_t dictionary = plist_new_dict();
  for (const auto& [key, node] : entries) plist_dict_set_item(dictionary, key, node);
  return dictionary;
}

/// An archive as libplist makes it: an array, in which each of the values stands so many times.
Plist archiveOf(const std::vector<plist_t>& values, std::size_t times = 1,
                const char* type = "NSArray") {
  std::vector<plist_t> places;
  for (std::size_t i = 0; i < values.size() * times; ++i) {
    places.push_back(plist_new_uid(i / times + 2));
  }
  plist_t classPlace = plist_new_uid(values.size() + 2);
  std::vector<plist_t> objects{
      plist_new_string("$null"),
      dictionaryOf({{"NS.objects", listOf(places)}, {"$class", classPlace}})};
  objects.insert(objects.end(), values.begin(), values.end());
  plist_t classes = listOf({plist_new_string(type), plist_new_string("NSObject")});
  objects.push_back(dictionaryOf({{"$classname", plist_new_string(type)}, {"$classes", classes}}));
  return Plist(dictionaryOf({{"$version", plist_new_uint(100000)},
                             {"$archiver", plist_new_string("NSKeyedArchiver")},
                             {"$top", dictionaryOf({{"root", plist_new_uid(1)}})},
                             {"$objects", listOf(objects)}}));
}

/// What libplist finds in an archive of ours.
std::string xmlOf(const std::string& bytes) {
  plist_t node = nullptr;
  plist_from_bin(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &node);
  return written(Plist(node), plist_to_xml);
}

TEST(KeyedArchive, IsWhatASecondWriterMakes) {
  Integers integers{0, 1, 255, 256, 65536, 1480068668, std::numeric_limits<std::int64_t>::max()};
  integers.resize(300, 77);  // more than fit a byte of places
  std::vector<plist_t> values;
  for (const auto each : integers)
    values.push_back(plist_new_uint(static_cast<std::uint64_t>(each)));
  EXPECT_EQ(xmlOf(archive(integers)), written(archiveOf(values), plist_to_xml));

  const Texts texts{"", "fourteen bytes", "fifteen bytes..", "naïve 😀"};
  values.clear();
  for (const std::string& text : texts) values.push_back(plist_new_string(text.c_str()));
  EXPECT_EQ(xmlOf(archive(texts)), written(archiveOf(values), plist_to_xml));
}

TEST(KeyedArchive, ReadsBackWhatItWrote) {
  Integers values(70000, 1480068668);  // more than fit two bytes of places
  values.back() = -5;
  EXPECT_EQ(unarchive<std::int64_t>(archive(values)), values);
  const Texts texts{std::string("a\0b", 3), "🇩🇪"};
  EXPECT_EQ(unarchive<std::string>(archive(texts)), texts);
  EXPECT_EQ(unarchive<std::string>(archive(Texts{"\xFF"})), Texts{"\xEF\xBF\xBD"});
}

TEST(KeyedArchive, ReadsWhatOthersWrite) {
  const auto read = [](plist_t value) {
    return unarchive<std::int64_t>(written(archiveOf({value}, 2)));
  };
  EXPECT_EQ(read(plist_new_uint(300)), (Integers{300, 300}));
  EXPECT_EQ(read(plist_new_bool(1)), (Integers{1, 1}));
  EXPECT_EQ(read(plist_new_real(-3.9)), (Integers{-3, -3}));
  EXPECT_EQ(read(plist_new_real(1e300)), std::nullopt);
  EXPECT_EQ(read(plist_new_uid(1)), std::nullopt);
  // Places of eight bytes, integers of sixteen, a real of four; offsets of two, references of one.
  EXPECT_EQ(unarchive<std::int64_t>(contentOf(placeOf(QUILLET_WIDE_ARCHIVE))),
            (Integers{42, 7, 42}));
}

TEST(KeyedArchive, RefusesWhatIsNoArrayOfTheKind) {
  const std::pair<const char*, std::string> rows[] = {
      {"nothing", ""},
      {"garbage", std::string(200, '\xFF')},
      {"a list that is no archive", written(Plist(plist_new_array()))},
      {"a set", written(archiveOf({plist_new_uint(1)}, 1, "NSSet"))},
      {"an array of text", archive(Texts{"1"})},
  };
  for (const auto& [what, bytes] : rows) EXPECT_FALSE(unarchive<std::int64_t>(bytes)) << what;
  const std::string page(100'000, 'x');
  const Plist bomb = archiveOf({plist_new_string(page.c_str())}, 20'000);
  EXPECT_FALSE(unarchive<std::string>(written(bomb)))
      << "a small archive never grows into a large array";
}

TEST(KeyedArchive, SurvivesDamage) {
  const std::string good = archive(Integers{1, 300, 1480068668, -1});
  for (std::size_t i = 0; i < good.size(); ++i) {
    EXPECT_FALSE(unarchive<std::int64_t>(good.substr(0, i))) << "cut to " << i;
    for (const int flip : {0x01, 0x10, 0x80, 0xFF}) {
      std::string damaged = good;
      damaged[i] = static_cast<char>(damaged[i] ^ flip);
      const auto values = unarchive<std::int64_t>(damaged);
      if (values) EXPECT_LE(values->size(), good.size()) << i;
    }
  }
}

}  // namespace
}  // namespace quillet
