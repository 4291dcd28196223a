// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/platform/network_state.h"

#include <QSocketNotifier>
#include <array>
#include <charconv>
#include <vector>

#include "base/errors.h"
#include "base/text.h"
#include "system/whole_file.h"

#ifdef __linux__
#include <linux/netlink.h>
#include <linux/rtnetlink.h>
#include <sys/socket.h>
#endif

namespace quillet {

namespace {

// Of a route, as the kernel has them.
constexpr std::uint32_t kIsUp = 0x1;
constexpr std::uint32_t kRejects = 0x200;

/// Where a table has the fields that matter.
struct RouteColumns {
  std::size_t destination;
  std::size_t prefix;  ///< its length or mask: all zeros for everywhere
  std::size_t flags;
};
constexpr RouteColumns kColumns{1, 7, 3};
constexpr RouteColumns kColumnsOfIPv6{0, 1, 8};

bool isZero(std::string_view digits) {
  return digits.find_first_not_of('0') == std::string_view::npos;
}

std::vector<std::string_view> fieldsOf(std::string_view line) {
  std::vector<std::string_view> fields;
  constexpr std::string_view kBlanks = " \t";
  for (std::size_t at = line.find_first_not_of(kBlanks); at < line.size();
       at = line.find_first_not_of(kBlanks, at)) {
    const std::size_t end = std::min(line.find_first_of(kBlanks, at), line.size());
    fields.push_back(line.substr(at, end - at));
    at = end;
  }
  return fields;
}

bool leadsOut(std::string_view line, const RouteColumns& columns) {
  const std::vector<std::string_view> fields = fieldsOf(line);
  if (fields.size() <= std::max(columns.prefix, columns.flags)) return false;
  if (!isZero(fields[columns.destination]) || !isZero(fields[columns.prefix])) return false;
  const std::string_view digits = fields[columns.flags];
  std::uint32_t flags = 0;
  constexpr int kHexadecimal = 16;
  std::from_chars(digits.data(), digits.data() + digits.size(), flags, kHexadecimal);
  return (flags & kIsUp) != 0 && (flags & kRejects) == 0;
}

bool hasWayOutIn(std::string_view table, const RouteColumns& columns) {
  for (const std::string_view line : split(table, '\n')) {
    if (leadsOut(line, columns)) return true;
  }
  return false;
}

#ifdef __linux__

constexpr std::size_t kLargestTable = std::size_t{1} << 20;  // a desktop's has some hundred bytes

std::string tableOf(const char* file) {
  try {
    return readWholeFile(file, kLargestTable);
  } catch (const FileError&) {
    return {};
  }
}

bool isConnectedNow() {
  return hasWayOut(tableOf("/proc/net/route"), tableOf("/proc/net/ipv6_route"));
}

/// Yields what the kernel tells of interfaces, addresses and routes; not open where it does not.
Descriptor openRouteNews() {
  Descriptor socket(::socket(AF_NETLINK, SOCK_RAW | SOCK_CLOEXEC | SOCK_NONBLOCK, NETLINK_ROUTE));
  sockaddr_nl address{};
  address.nl_family = AF_NETLINK;
  // An interface that goes down takes its routes along without a word of them.
  address.nl_groups =
      RTMGRP_LINK | RTMGRP_IPV4_IFADDR | RTMGRP_IPV4_ROUTE | RTMGRP_IPV6_IFADDR | RTMGRP_IPV6_ROUTE;
  if (!socket.isOpen() ||
      ::bind(socket.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0)
    return {};
  return socket;
}

/// What it says does not matter: the tables are read anew.
void drain(const Descriptor& socket) {
  std::array<char, 8192> heard{};
  while (::recv(socket.get(), heard.data(), heard.size(), 0) > 0) {
  }
}

#endif

}  // namespace

bool hasWayOut(std::string_view routes, std::string_view routesOfIPv6) {
  return hasWayOutIn(routes, kColumns) || hasWayOutIn(routesOfIPv6, kColumnsOfIPv6);
}

NetworkState::NetworkState(std::chrono::milliseconds settles) {
  settling_.setSingleShot(true);
  settling_.setInterval(settles);
  connect(&settling_, &QTimer::timeout, this, &NetworkState::returned);
}

NetworkState::~NetworkState() = default;

void NetworkState::begin() {
#ifdef __linux__
  routes_ = openRouteNews();
  if (!routes_.isOpen()) return;
  isConnected_ = isConnectedNow();
  news_ = std::make_unique<QSocketNotifier>(routes_.get(), QSocketNotifier::Read);
  connect(news_.get(), &QSocketNotifier::activated, this, &NetworkState::listen);
#endif
}

void NetworkState::listen() {
#ifdef __linux__
  drain(routes_);
  take(isConnectedNow());
#endif
}

void NetworkState::take(bool isConnected) {
  if (std::exchange(isConnected_, isConnected) == isConnected) return;
  isConnected ? settling_.start() : settling_.stop();
}

}  // namespace quillet
