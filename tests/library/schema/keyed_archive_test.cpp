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

Plist parsed(const std::string& bytes) {
  plist_t node = nullptr;
  plist_from_bin(bytes.data(), static_cast<std::uint32_t>(bytes.size()), &node);
  return Plist(node);
}

std::string bytesOf(const Plist& node) {
  char* bytes = nullptr;
  std::uint32_t size = 0;
  plist_to_bin(node.get(), &bytes, &size);
  std::string text(bytes, size);
  plist_to_bin_free(bytes);
  return text;
}

plist_t placeOf(plist_t objects, plist_t holder) {
  std::uint64_t place = 0;
  plist_get_uid_val(holder, &place);
  return plist_array_get_item(objects, static_cast<std::uint32_t>(place));
}

/// The elements of an archive as libplist reads them.
std::vector<plist_t> elementsOf(const Plist& root) {
  plist_t objects = plist_dict_get_item(root.get(), "$objects");
  plist_t array = placeOf(objects, plist_access_path(root.get(), 2, "$top", "root"));
  plist_t list = plist_dict_get_item(array, "NS.objects");
  std::vector<plist_t> elements;
  for (std::uint32_t i = 0; i < plist_array_get_size(list); ++i) {
    elements.push_back(placeOf(objects, plist_array_get_item(list, i)));
  }
  return elements;
}

TEST(KeyedArchive, ASecondReaderFindsTheSameValues) {
  Integers integers{0, 1, 255, 256, 65536, 1480068668, std::numeric_limits<std::int64_t>::max(),
                    -5};
  integers.resize(300, 77);  // more than fit a byte of places
  const Plist integerRoot = parsed(archive(integers));
  Integers found;
  for (plist_t element : elementsOf(integerRoot)) {
    std::uint64_t value = 0;
    plist_get_uint_val(element, &value);
    found.push_back(static_cast<std::int64_t>(value));
  }
  EXPECT_EQ(found, integers);

  const Texts texts{"", "plain", "fourteen bytes", "fifteen bytes..", "naïve 😀"};
  const Plist textRoot = parsed(archive(texts));
  Texts foundTexts;
  for (plist_t element : elementsOf(textRoot)) {
    foundTexts.emplace_back(plist_get_string_ptr(element, nullptr));
  }
  EXPECT_EQ(foundTexts, texts);

  plist_t objects = plist_dict_get_item(textRoot.get(), "$objects");
  plist_t array = placeOf(objects, plist_access_path(textRoot.get(), 2, "$top", "root"));
  plist_t arrayClass = placeOf(objects, plist_dict_get_item(array, "$class"));
  const auto isText = [](plist_t node, const char* text) {
    return plist_string_val_compare(node, text) == 0;
  };
  EXPECT_TRUE(isText(plist_dict_get_item(textRoot.get(), "$archiver"), "NSKeyedArchiver"));
  EXPECT_TRUE(isText(plist_array_get_item(objects, 0), "$null"));
  EXPECT_TRUE(isText(plist_dict_get_item(arrayClass, "$classname"), "NSArray"));
  plist_t classes = plist_dict_get_item(arrayClass, "$classes");
  ASSERT_EQ(plist_array_get_size(classes), 2U);
  EXPECT_TRUE(isText(plist_array_get_item(classes, 0), "NSArray"));
  EXPECT_TRUE(isText(plist_array_get_item(classes, 1), "NSObject"));
}

TEST(KeyedArchive, ReadsBackWhatItWrote) {
  const Integers values(70000, 1480068668);  // more than fit two bytes of places
  EXPECT_EQ(unarchive<std::int64_t>(archive(values)), values);
  const Texts texts{std::string("a\0b", 3), "🇩🇪"};
  EXPECT_EQ(unarchive<std::string>(archive(texts)), texts);
  EXPECT_EQ(unarchive<std::string>(archive(Texts{"\xFF"})), Texts{"\xEF\xBF\xBD"});
}

/// An archive as other programs may make it: the array after its values, in a class of its own,
/// each of whose places names the one value `shared`.
std::string foreignArchive(plist_t shared, std::uint32_t count, const Texts& classNames) {
  plist_t places = plist_new_array();
  for (std::uint32_t i = 0; i < count; ++i) plist_array_append_item(places, plist_new_uid(1));
  plist_t array = plist_new_dict();
  plist_dict_set_item(array, "NS.objects", places);
  plist_dict_set_item(array, "$class", plist_new_uid(2));
  plist_t names = plist_new_array();
  for (const auto& name : classNames) {
    plist_array_append_item(names, plist_new_string(name.c_str()));
  }
  plist_t arrayClass = plist_new_dict();
  plist_dict_set_item(arrayClass, "$classes", names);
  plist_t objects = plist_new_array();
  for (plist_t object : {plist_new_string("$null"), shared, arrayClass, array}) {
    plist_array_append_item(objects, object);
  }
  plist_t top = plist_new_dict();
  plist_dict_set_item(top, "root", plist_new_uid(3));
  const Plist root(plist_new_dict());
  plist_dict_set_item(root.get(), "$objects", objects);
  plist_dict_set_item(root.get(), "$top", top);
  return bytesOf(root);
}

const Texts kChangeable{"NSMutableArray", "NSArray", "NSObject"};

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
  EXPECT_EQ(unarchive<std::int64_t>(foreignArchive(plist_new_uint(300), 3, kChangeable)),
            (Integers{300, 300, 300}));
  EXPECT_EQ(unarchive<std::int64_t>(foreignArchive(plist_new_bool(1), 1, kChangeable)),
            Integers{1});
  EXPECT_EQ(unarchive<std::string>(foreignArchive(plist_new_string("é"), 2, kChangeable)),
            (Texts{"é", "é"}));
  EXPECT_EQ(unarchive<std::int64_t>(foreignArchive(plist_new_real(-3.9), 1, kChangeable)),
            Integers{-3});
  const std::string_view wide(reinterpret_cast<const char*>(kWide), sizeof kWide - 1);
  EXPECT_EQ(unarchive<std::int64_t>(wide), (Integers{42, 7, 42}));
}

TEST(KeyedArchive, RefusesWhatIsNoArrayOfTheKind) {
  const std::string good = archive(Integers{1, 300, -1});
  const struct {
    const char* situation;
    std::string bytes;
  } rows[] = {
      {"nothing", ""},
      {"garbage", std::string(200, '\xFF')},
      {"a list that is no archive", bytesOf(Plist(plist_new_array()))},
      {"a set", foreignArchive(plist_new_uint(1), 1, {"NSSet", "NSObject"})},
      {"an array of text", archive(Texts{"1"})},
      {"a number that no integer holds", foreignArchive(plist_new_real(1e300), 1, kChangeable)},
      {"a place that names no object", foreignArchive(plist_new_uid(1), 1, kChangeable)},
  };
  for (const auto& row : rows) EXPECT_FALSE(unarchive<std::int64_t>(row.bytes)) << row.situation;
  for (std::size_t size = 0; size < good.size(); ++size) {
    EXPECT_FALSE(unarchive<std::int64_t>(good.substr(0, size))) << "cut to " << size;
  }
}

TEST(KeyedArchive, ASmallArchiveNeverGrowsIntoALargeArray) {
  const std::string page(100'000, 'x');
  const std::string bytes = foreignArchive(plist_new_string(page.c_str()), 20'000, kChangeable);
  EXPECT_FALSE(unarchive<std::string>(bytes));
}

TEST(KeyedArchive, DamageIsSurvived) {
  const std::string good = archive(Integers{1, 300, 1480068668, -1});
  for (std::size_t i = 0; i < good.size(); ++i) {
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
