// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "net/library_messages.h"

#include <fmt/format.h>

#include <QString>
#include <QtGlobal>
#include <cstdio>
#include <cstdlib>
#include <string>

#include "base/text.h"

namespace quillet {
namespace {

// The command line's status for failures.
constexpr int kFailed = 3;

std::string_view wordOf(QtMsgType type) {
  switch (type) {
    case QtDebugMsg: return "debug";
    case QtInfoMsg: return "info";
    case QtWarningMsg: return "warning";
    case QtCriticalMsg: return "error";
    case QtFatalMsg: return "fatal";
  }
  return "message";
}

/// What Qt says of a display that does not answer blames the installation.
std::string sentenceOf(const QString& message) {
  if (!message.contains(QLatin1String("platform plugin")))
    return printable(message.section(u'\n', 0, 0).toStdString());
  return "the display to open a window on does not answer; "
         "env -u DISPLAY -u WAYLAND_DISPLAY quillet --background runs without one.";
}

void endWhenFatal(QtMsgType type, const QMessageLogContext& /*context*/, const QString& message) {
  if (type != QtFatalMsg) return;
  fmt::print(stderr, "quillet: {}\n", sentenceOf(message));
  std::_Exit(kFailed);
}

void tell(QtMsgType type, const QMessageLogContext& context, const QString& message) {
  fmt::print(stderr, "lib {} {}: {}\n", wordOf(type),
             context.category == nullptr ? "default" : context.category,
             printable(message.toStdString()));
  endWhenFatal(type, context, message);
}

}  // namespace

void handleLibraryMessages(LibraryMessages fate) {
  qInstallMessageHandler(fate == LibraryMessages::logged ? tell : endWhenFatal);
}

}  // namespace quillet
