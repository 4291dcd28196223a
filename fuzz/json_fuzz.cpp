// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include <cmath>

#include "base/json_reader.h"
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
  const auto number = takeNumber<double>(input);
  checkWriter(input, number);
}
