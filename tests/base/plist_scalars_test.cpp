// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "base/plist_scalars.h"

#include <gtest/gtest.h>
#include <plist/plist.h>

#include <array>
#include <memory>
#include <vector>

#include "base/errors.h"
#include "support/message_of.h"

namespace quillet {
namespace {

constexpr std::array<std::string_view, 3> kKeys{"a", "b", "c"};

std::string listOf(const std::string& entries) {
  return "<?xml version=\"1.0\"?>\n<plist version=\"1.0\"><dict>" + entries + "</dict></plist>\n";
}

TEST(PlistScalars, ReadsWhatXmlCanSay) {
  struct Row {
    const char* what;
    std::string xml;
    PlistScalars expected;
  };
  const std::vector<Row> rows{
      {"plain",
       listOf("<key>a</key><string>x</string><key>b</key><integer>-7</integer>"),
       {{"a", "x"}, {"b", -7}}},
      {"entities",
       listOf("<key>a</key><string>&lt;&amp;&#65;&#x20AC;&#xD800;&quot;</string>"),
       {{"a", "<&A\u20AC\uFFFD\""}}},
      {"a key in pieces", listOf("<key><!-- - -->&#97;</key><string>x</string>"), {{"a", "x"}}},
      {"as it is",
       listOf("<key>a</key><string>1<![CDATA[<&>]]><!-- > -->2</string>"),
       {{"a", "1<&>2"}}},
      {"space kept",
       listOf("<key> a </key><string/>\n<key>a</key>\n<string> x\n</string>"),
       {{"a", " x\n"}}},
      {"empty",
       listOf("<key>a</key><string/><key>b</key><string></string>"),
       {{"a", ""}, {"b", ""}}},
      {"attributes",
       "\xEF\xBB\xBF<!-- ? --><!DOCTYPE plist SYSTEM \"x\">"
       "<plist a='>' b=\"'>\"><dict ><key>a</key><string >x</string></dict ></plist>",
       {{"a", "x"}}},
      {"other types",
       listOf("<key>a</key><true/><key>b</key><dict><key>a</key><string>inner</string></dict>"
              "<key>c</key><array><dict/><real>1</real><date>now</date><data>AA</data></array>"),
       {}},
      {"damage that is passed over",
       listOf("<key>d</key><string>\xE9&no;<![CDATA[</string>]]><!--</string>--></string>"
              "<key>a</key><string>x</string>"),
       {{"a", "x"}}},
      {"a number too large", listOf("<key>a</key><integer>9223372036854775808</integer>"), {}},
      {"nothing", "<plist><dict/></plist>", {}},
  };
  for (const Row& row : rows) {
    SCOPED_TRACE(row.what);
    EXPECT_EQ(readPlistScalars(row.xml, kKeys), row.expected);
  }
}

TEST(PlistScalars, SaysWhyItRefuses) {
  const std::string tooLarge(kLargestPlist + 1, ' ');
  const std::vector<std::pair<std::string, std::string>> rows{
      {"", "it is no property list (byte 0)"},
      {"\xFF\xFE<\0", "it is no property list (byte 0)"},
      {"<html></html>", "it is no property list (byte 6)"},
      {"<!DOCTYPE plist [<!ENTITY a \"b\">]><plist/>", "it declares entities (byte 32)"},
      {"<plist><array/></plist>", "it holds no dictionary (byte 15)"},
      {"<plist><dict><key>a</key><string>x", "it ends too early (byte 34)"},
      {"<plist><dict><!-- ", "it ends too early (byte 17)"},
      {"<plist><dict a=\"></dict></plist>", "it ends too early (byte 32)"},
      {"<plist><dict><string>x</string></dict></plist>", "a value has no key (byte 21)"},
      {listOf("<key>a</key>text<string/>"), "text stands between its values (byte 61)"},
      {listOf("<key>a</key><string><b/></string>"), "a text holds another value (byte 73)"},
      {listOf("<key>a</key><string>&lol;</string>"),
       "it names an entity that XML does not have (byte 74)"},
      {listOf("<key>a</key><string>&#0;</string>"), "a character's number is none (byte 73)"},
      {listOf("<key>a</key><string>\xE9</string>"), "a text is not in UTF-8 (byte 79)"},
      {listOf("<key>d</key><array></dict></array>"), "its values are not well nested (byte 75)"},
      {listOf("<key>d</key><thing/>"), "it holds a value of an unknown type (byte 69)"},
      {"<plist><dict></dict><dict/></plist>", "it holds more than one value (byte 27)"},
      {tooLarge, "it is larger than 1024 KiB"},
      {"bplist00 and then nothing that would be a list", "its binary form is damaged"},
  };
  for (const auto& [bytes, expected] : rows) {
    EXPECT_EQ(messageOf<DecodingError>([&] { static_cast<void>(readPlistScalars(bytes, kKeys)); }),
              expected)
        << bytes.substr(0, 80);
  }
}

TEST(PlistScalars, NestsToItsLimitAndNoFurther) {
  const auto nested = [](std::size_t inner) {
    std::string entries = "<key>d</key>";
    for (std::size_t i = 0; i < inner; ++i) entries += "<array>";
    for (std::size_t i = 0; i < inner; ++i) entries += "</array>";
    return listOf(entries + "<key>a</key><string>behind it</string>");
  };
  // The outermost dictionary is a level too.
  EXPECT_EQ(textAt(readPlistScalars(nested(kDeepestPlist - 1), kKeys), "a"), "behind it");
  EXPECT_EQ(messageOf<DecodingError>(
                [&] { static_cast<void>(readPlistScalars(nested(kDeepestPlist), kKeys)); }),
            "it nests deeper than 64 levels (byte 509)");
}

TEST(PlistScalars, ReadsBothFormsAsAnotherProgramWritesThem) {
  const std::unique_ptr<void, decltype(&plist_free)> list(plist_new_dict(), plist_free);
  plist_dict_set_item(list.get(), "a", plist_new_string("R\u00E9sum\u00E9 & <Co> \U0001F5C2"));
  plist_dict_set_item(list.get(), "b", plist_new_uint(1480068668));
  plist_dict_set_item(list.get(), "c", plist_new_real(2.5));
  plist_dict_set_item(list.get(), "d", plist_new_array());
  const PlistScalars expected{{"a", "R\u00E9sum\u00E9 & <Co> \U0001F5C2"}, {"b", 1480068668}};
  for (const auto& [write, free] : {std::pair(&plist_to_bin, &plist_to_bin_free),
                                    std::pair(&plist_to_xml, &plist_to_xml_free)}) {
    char* bytes = nullptr;
    std::uint32_t size = 0;
    write(list.get(), &bytes, &size);
    EXPECT_EQ(readPlistScalars({bytes, size}, kKeys), expected);
    free(bytes);
  }
}

}  // namespace
}  // namespace quillet
