// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <charconv>
#include <cmath>

#include "base/json_reader.h"
#include "base/json_scanner.h"
#include "base/json_writer.h"
#include "fuzzing.h"

using namespace quillet;

namespace {

template <typename... Types>
void readAs(JsonElement element) {
  (readOrRefuse([element] {
     Types value{};
     readElement(element, "key", value);
   }),
   ...);
}

void readAsEverything(JsonElement element) {
  readAs<std::optional<std::string>, double, std::int64_t, bool, Instant, std::vector<std::string>,
         std::vector<std::int64_t>>(element);
}

void checkReader(std::string_view bytes) {
  readOrRefuse([bytes] {
    const JsonDocument document{std::string(bytes)};
    readAsEverything(document.root());
    JsonObject object;
    if (document.root().get(object) != simdjson::SUCCESS) return;
    for (const auto field : object) readAsEverything(field.value);
  });
}

/// The document again, without the white space between its values.
std::string walked(JsonScanner& scanner) {
  std::string text;
  const char first = scanner.next();
  if (first == '{') {
    scanner.eachMember([&](std::string_view key) {
      text.append(text.empty() ? "{\"" : ",\"").append(key) += "\":";
      text += walked(scanner);
    });
    return text.empty() ? "{}" : text + '}';
  }
  if (first == '[') {
    scanner.eachItem([&] {
      text += text.empty() ? '[' : ',';
      text += walked(scanner);
    });
    return text.empty() ? "[]" : text + ']';
  }
  JsonScanner again = scanner;
  const std::string_view value = scanner.takeValue();
  const auto number = again.takeNumber();
  double expected = 0;
  const auto parsed = std::from_chars(value.data(), value.data() + value.size(), expected);
  require(number.has_value() == (parsed.ec == std::errc() && first != 'n'), "numbers are numbers");
  require(!number || *number == expected, "a number is the nearest one");
  return std::string(value);
}

/// Whatever the parser takes for JSON, the scanner walks through to the same end.
void checkScanner(std::string_view bytes) {
  JsonScanner walker(bytes);
  simdjson::dom::parser parser;
  if (parser.parse(bytes.data(), bytes.size()).error() != simdjson::SUCCESS) {
    return readOrRefuse([&] { walker.skipValue(); });
  }
  std::string expected(bytes.size() + simdjson::SIMDJSON_PADDING, '\0');
  std::size_t size = 0;
  require(simdjson::minify(bytes.data(), bytes.size(), expected.data(), size) == simdjson::SUCCESS,
          "a document can be made smaller");
  expected.resize(size);
  JsonScanner skipper = walker;
  skipper.skipValue();
  require(skipper.next() == '\0', "what is passed over ends where it should");
  require(walked(walker) == expected, "the scanner sees what the parser sees");
}

std::string documentWith(std::string_view text, double number) {
  JsonWriter writer;
  writer.beginObject();
  writer.member("a", std::vector<std::string>{std::string(text)});
  writer.member("b", number);
  writer.member(std::string("c").append(text), true);
  writer.endObject();
  return writer.take();
}

void checkWriter(std::string_view text, double number) {
  const JsonDocument document(documentWith(text, number));
  const JsonObject object = document.root().get_object();
  const auto texts = memberOf<std::vector<std::string>>(object, "a").value();
  require(isValidUtf8(texts.at(0)), "written text is valid UTF-8");
  require(!isValidUtf8(text) || texts.at(0) == text, "valid text reads back as written");
  const auto read = memberOf<double>(object, "b");
  require(read.has_value() == std::isfinite(number), "a number is null where JSON has none");
  require(!read || *read == number, "a number reads back as written");
  if (isValidUtf8(text)) {
    require(memberOf<bool>(object, std::string("c").append(text)) == true, "a key is found again");
  }
}

}  // namespace

void quillet::tryInput(std::string_view input) {
  checkReader(input);
  checkScanner(input);
  const auto number = takeNumber<double>(input);
  checkWriter(input, number);
}
