// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/fault.h"

#include <array>

#include "base/numbers.h"
#include "base/text.h"

namespace quillet::sandbox {

namespace {

constexpr int kDepth = 200;
constexpr std::string_view kNoText = "\xC3\x28\xFF\xED\xA0\x80";  // four ways to be no UTF-8

std::int64_t number(std::string_view key, std::string_view value, std::int64_t lowest,
                    std::int64_t highest) {
  const auto whole = parseWhole(value);
  if (!whole || *whole < lowest || *whole > highest)
    throw BadFault(
        fmt::format("{} takes a number from {} to {}, not \"{}\"", key, lowest, highest, value));
  return *whole;
}

void setKind(Fault& fault, FaultKind kind) {
  if (fault.kind != FaultKind::none) throw BadFault("only one kind of damage at a time");
  fault.kind = kind;
}

constexpr std::int64_t kMostCount = 1'000'000;

void setPath(Fault& fault, std::string_view value) {
  if (!value.starts_with('/')) throw BadFault("path begins with a slash");
  fault.path = value;
}
void setStatus(Fault& fault, std::string_view value) {
  fault.status = static_cast<int>(number("status", value, 200, 599));
}
void setDelay(Fault& fault, std::string_view value) {
  fault.delay = std::chrono::milliseconds(number("delay", value, 0, 600'000));
}
void setCount(Fault& fault, std::string_view value) {
  fault.count = static_cast<std::uint32_t>(number("count", value, 1, kMostCount));
}
void setAfter(Fault& fault, std::string_view value) {
  fault.after = static_cast<std::uint32_t>(number("after", value, 0, kMostCount));
}
void setTruncate(Fault& fault, std::string_view value) {
  setKind(fault, FaultKind::truncate);
  fault.keep = static_cast<std::size_t>(number("truncate", value, 0, 1'000'000'000));
}
void setBody(Fault& fault, std::string_view value) {
  if (value == "deep") return setKind(fault, FaultKind::deepBody);
  if (value == "invalid-utf8") return setKind(fault, FaultKind::invalidUtf8Body);
  if (value == "huge") return setKind(fault, FaultKind::hugeBody);
  throw BadFault(fmt::format("body takes deep, invalid-utf8 or huge, not \"{}\"", value));
}
void setRedirect(Fault& fault, std::string_view value) {
  if (value != "circle") throw BadFault(fmt::format("redirect takes circle, not \"{}\"", value));
  setKind(fault, FaultKind::redirectCircle);
}

struct ValueKey {
  std::string_view name;
  void (*set)(Fault&, std::string_view);
};

constexpr std::array<ValueKey, 8> kValueKeys{{
    {"path", setPath},
    {"status", setStatus},
    {"delay", setDelay},
    {"count", setCount},
    {"after", setAfter},
    {"truncate", setTruncate},
    {"body", setBody},
    {"redirect", setRedirect},
}};

struct BareKey {
  std::string_view name;
  FaultKind kind;
};

constexpr std::array<BareKey, 6> kBareKeys{{
    {"drop", FaultKind::drop},
    {"stall", FaultKind::stall},
    {"drip", FaultKind::drip},
    {"garbage", FaultKind::garbage},
    {"empty", FaultKind::empty},
    {"stale", FaultKind::stale},
}};

void readWord(Fault& fault, std::string_view word) {
  const std::size_t equals = word.find('=');
  const std::string_view name = word.substr(0, equals);
  if (equals == std::string_view::npos) {
    const auto key = std::ranges::find(kBareKeys, name, &BareKey::name);
    if (key != kBareKeys.end()) return setKind(fault, key->kind);
  } else {
    const auto key = std::ranges::find(kValueKeys, name, &ValueKey::name);
    if (key != kValueKeys.end()) return key->set(fault, word.substr(equals + 1));
  }
  throw BadFault(fmt::format("\"{}\" is no word of a fault", word));
}

/// Wherever a reader of some service looks for its list.
std::string deepBody() {
  const std::string lists = std::string(kDepth, '[') + std::string(kDepth, ']');
  return fmt::format(
             R"({{"data": {0}, "feed": {{"entry": {0}}}, "resultCount": 1, "results": {0}}})",
             lists) +
         '\n';
}

/// The body with bytes that are no text in front of the first name, title or word of a record.
std::string withInvalidUtf8(std::string body) {
  for (const std::string_view start :
       {"\"trackName\": \"", "\"name\": \"", "\"title\": \"", "\"label\": \"", "\": \""}) {
    const std::size_t found = body.find(start);
    if (found != std::string::npos) return body.insert(found + start.size(), kNoText);
  }
  return body.append(kNoText);
}

Answer emptied(int status) { return {.status = status, .contentType = "text/html", .body = {}}; }

}  // namespace

Fault parseFault(std::string_view text) {
  Fault fault;
  bool isEmpty = true;
  for (const std::string_view word : split(text, ' ')) {
    if (word.empty()) continue;
    readWord(fault, word);
    isEmpty = false;
  }
  if (isEmpty) throw BadFault("a fault says what goes wrong, as in \"path=/search status=429\"");
  const bool isHarmless =
      fault.kind == FaultKind::none && !fault.status && fault.delay.count() == 0;
  if (isHarmless) throw BadFault("nothing goes wrong in it");
  return fault;
}

std::vector<Fault> parseFaults(std::string_view lines) {
  std::vector<Fault> faults;
  for (const std::string_view line : split(lines, '\n')) {
    if (!line.empty()) faults.push_back(parseFault(line));
  }
  return faults;
}

FaultPlan::FaultPlan(std::vector<Fault> faults) {
  for (Fault& fault : faults) entries_.push_back({std::move(fault)});
}

std::optional<Fault> FaultPlan::next(std::string_view path) {
  for (Entry& entry : entries_) {
    const Fault& fault = entry.fault;
    if (!path.starts_with(fault.path)) continue;
    if (entry.seen < fault.after) {
      ++entry.seen;
      continue;
    }
    if (fault.count && entry.seen - fault.after >= *fault.count) continue;
    ++entry.seen;
    return fault;
  }
  return std::nullopt;
}

Answer damaged(Answer answer, const Fault& fault, std::string_view target) {
  // A status alone comes without a body, as the real store's refusals do.
  if (fault.status && fault.kind == FaultKind::none) return emptied(*fault.status);
  if (fault.status) answer.status = *fault.status;
  switch (fault.kind) {
    case FaultKind::truncate: answer.body.resize(std::min(answer.body.size(), fault.keep)); break;
    case FaultKind::garbage:
      answer.contentType = "text/html";
      answer.body = "<!DOCTYPE html>\n<html><body><h1>We will be back soon.</h1></body></html>\n";
      break;
    case FaultKind::empty: return emptied(answer.status);
    case FaultKind::deepBody: answer.body = deepBody(); break;
    case FaultKind::invalidUtf8Body: answer.body = withInvalidUtf8(std::move(answer.body)); break;
    case FaultKind::redirectCircle:
      answer = emptied(302);
      answer.headers.emplace_back("Location", target);
      break;
    case FaultKind::none:
    case FaultKind::drop:
    case FaultKind::stall:
    case FaultKind::drip:
    case FaultKind::stale:
    case FaultKind::hugeBody: break;
  }
  return answer;
}

}  // namespace quillet::sandbox
