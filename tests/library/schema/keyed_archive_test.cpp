// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "library/schema/keyed_archive.h"

#include <gtest/gtest.h>
#include <plist/plist.h>

#include <limits>
#include <memory>

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

/// An archive as libplist makes it: an array of a class, whose elements are the values at `places`;
/// the first value's place is 2.
Plist archiveOf(const std::vector<plist_t>& values, const Integers& places, const Texts& classes) {
  std::vector<plist_t> elements;
  for (const auto place : places) {
    elements.push_back(plist_new_uid(static_cast<std::uint64_t>(place)));
  }
  plist_t array = dictionaryOf(
      {{"NS.objects", listOf(elements)}, {"$class", plist_new_uid(values.size() + 2)}});
  std::vector<plist_t> names;
  for (const std::string& name : classes) names.push_back(plist_new_string(name.c_str()));
  std::vector<plist_t> objects{plist_new_string("$null"), array};
  objects.insert(objects.end(), values.begin(), values.end());
  objects.push_back(dictionaryOf(
      {{"$classname", plist_new_string(classes[0].c_str())}, {"$classes", listOf(names)}}));
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
  Integers places;
  for (const auto value : integers) {
    values.push_back(plist_new_uint(static_cast<std::uint64_t>(value)));
    places.push_back(static_cast<std::int64_t>(values.size() + 1));
  }
  const Texts array{"NSArray", "NSObject"};
  EXPECT_EQ(xmlOf(archive(integers)), written(archiveOf(values, places, array), plist_to_xml));

  const Texts texts{"", "fourteen bytes", "fifteen bytes..", "naïve 😀"};
  values.clear();
  for (const std::string& text : texts) values.push_back(plist_new_string(text.c_str()));
  const Plist expected = archiveOf(values, {2, 3, 4, 5}, array);
  EXPECT_EQ(xmlOf(archive(texts)), written(expected, plist_to_xml));
}

TEST(KeyedArchive, ReadsBackWhatItWrote) {
  Integers values(70000, 1480068668);  // more than fit two bytes of places
  values.back() = -5;
  EXPECT_EQ(unarchive<std::int64_t>(archive(values)), values);
  const Texts texts{std::string("a\0b", 3), "🇩🇪"};
  EXPECT_EQ(unarchive<std::string>(archive(texts)), texts);
  EXPECT_EQ(unarchive<std::string>(archive(Texts{"\xFF"})), Texts{"\xEF\xBF\xBD"});
}

/// An archive as other programs may make it: many elements that are all the one value.
std::string shared(plist_t value, std::size_t count, std::string type = "NSArray") {
  return written(archiveOf({value}, Integers(count, 2), {"NSMutable", std::move(type)}));
}

/// Places of eight bytes, integers of sixteen, a real of four; offsets of two, references of one.
constexpr unsigned char kWide[] =
    "bplist00U$null\x14\0\0\0\0\0\0\0\0\0\0\0\0\0\0\0\x2A\x22\x40\xF0\0\0X$"
    "classesWNSArray\xA1\4\xD1"
    "\3\5ZNS.objects\x87\0\0\0\0\0\0\0\2\x87\0\0\0\0\0\0\0\3\x87\0\0\0\0\0\0\0\2\xA3\x08\x09\x0AV$"
    "cl"
    "ass\x87\0\0\0\0\0\0\0\4\xD2\7\x0C\x0B\x0DT$topTroot\x87\0\0\0\0\0\0\0\1\xD1\x10\x11X$"
    "objects\xA5"
    "\0\x0E\1\2\6\xD2\x0F\x13\x12\x14\0\x08\0\x0E\0\x1F\0\x24\0\x2D\0\x35\0\x37\0\x3A\0\x45\0\x4E\0"
    "\x57\0\x60\0\x64\0\x6B\0\x74\0\x79\0\x7E\0\x83\0\x8C\0\x8F\0\x98\0\x9E\0\0\0\0\0\0\2\1\0\0\0\0"
    "\0\0\0\x16\0\0\0\0\0\0\0\x15\0\0\0\0\0\0\0\xA3";

TEST(KeyedArchive, ReadsWhatOthersWrite) {
  EXPECT_EQ(unarchive<std::int64_t>(shared(plist_new_uint(300), 2)), (Integers{300, 300}));
  EXPECT_EQ(unarchive<std::int64_t>(shared(plist_new_bool(1), 1)), Integers{1});
  EXPECT_EQ(unarchive<std::int64_t>(shared(plist_new_real(-3.9), 1)), Integers{-3});
  EXPECT_EQ(unarchive<std::string>(shared(plist_new_string("é"), 2)), (Texts{"é", "é"}));
  const std::string_view wide(reinterpret_cast<const char*>(kWide), sizeof kWide - 1);
  EXPECT_EQ(unarchive<std::int64_t>(wide), (Integers{42, 7, 42}));
}

TEST(KeyedArchive, RefusesWhatIsNoArrayOfTheKind) {
  const std::string page(100'000, 'x');
  const std::pair<const char*, std::string> rows[] = {
      {"nothing", ""},
      {"garbage", std::string(200, '\xFF')},
      {"a list that is no archive", written(Plist(plist_new_array()))},
      {"a set", shared(plist_new_uint(1), 1, "NSSet")},
      {"an array of text", archive(Texts{"1"})},
      {"a number that no integer holds", shared(plist_new_real(1e300), 1)},
      {"a place that names no object", shared(plist_new_uid(1), 1)},
  };
  for (const auto& [what, bytes] : rows) EXPECT_FALSE(unarchive<std::int64_t>(bytes)) << what;
  EXPECT_FALSE(unarchive<std::string>(shared(plist_new_string(page.c_str()), 20'000)))
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
