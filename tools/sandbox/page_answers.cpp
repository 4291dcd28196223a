// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "sandbox/page_answers.h"

#include <string>

namespace quillet::sandbox {

namespace {

constexpr const char* kContentType = "text/html; charset=utf-8";

/// Text that cannot end the element it stands in.
std::string escaped(std::string_view text) {
  std::string result;
  for (const char c : text) {
    if (c == '<') {
      result += "&lt;";
    } else if (c == '&') {
      result += "&amp;";
    } else {
      result += c;
    }
  }
  return result;
}

/// JSON in which "</" cannot end the script.
std::string scriptSafe(std::string_view json) {
  std::string result;
  for (const char c : json) {
    if (c == '<') {
      result += "\\u003c";
    } else {
      result += c;
    }
  }
  return result;
}

}  // namespace

Answer pageWith(std::string_view title, std::string_view data) {
  std::string body = fmt::format(
      "<!DOCTYPE html>\n<html lang=\"en-US\">\n<head>\n<meta charset=\"utf-8\">\n"
      "<title>{}</title>\n<script type=\"module\">window.sample = true;</script>\n</head>\n<body>\n"
      "<script type=\"application/json\" id=\"serialized-server-data\">{}</script>\n</body>\n"
      "</html>\n",
      escaped(title), scriptSafe(data));
  return {.contentType = kContentType, .body = std::move(body)};
}

Answer pageRefusal() { return {.status = 429, .contentType = kContentType}; }

Answer pageNotFound() {
  return {.status = 404,
          .contentType = kContentType,
          .body = "<!DOCTYPE html>\n<html><body>There is nothing here.</body></html>\n"};
}

}  // namespace quillet::sandbox
