// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "desktop/platform/network_state.h"

#include <gtest/gtest.h>

#include "support/event_loop.h"

namespace quillet {
namespace {

constexpr const char* kHead =
    "Iface\tDestination\tGateway \tFlags\tRefCnt\tUse\tMetric\tMask\t\tMTU\tWindow\tIRTT   \n";
constexpr const char* kOut = "wlan0\t00000000\t0101A8C0\t0003\t0\t0\t600\t00000000\t0\t0\t0   \n";
constexpr const char* kHouse = "wlan0\t0001A8C0\t00000000\t0001\t0\t0\t600\t00FFFFFF\t0\t0\t0  \n";
constexpr const char* kDown = "eth0\t00000000\t0101A8C0\t0002\t0\t0\t100\t00000000\t0\t0\t0   \n";
// All addresses are in two halves, as some tunnels have them; neither is the whole.
constexpr const char* kHalf = "tun0\t00000000\t00000000\t0001\t0\t0\t0\t00000080\t0\t0\t0   \n";
constexpr const char* kZeros = "00000000000000000000000000000000";
constexpr const char* kRouter = "fe800000000000000000000000000001";

std::string sixth(const std::string& destination, const char* length, const char* flags) {
  return destination + ' ' + length + ' ' + kZeros + " 00 " + kRouter +
         " 00000400 00000003 00000000 " + flags + "    wlan0\n";
}

TEST(HasWayOut, IsARouteToEverywhereThatIsUp) {
  const std::string head = kHead;
  struct {
    std::string routes;
    std::string sixth;
    bool isOut;
  } const rows[] = {
      {"", "", false},
      {head, "", false},
      {head + kHouse, sixth("fd000000000000000000000000000000", "40", "00000001"), false},
      {head + kHouse + kOut, "", true},
      {head + kDown, "", false},
      {head + kHalf, "", false},
      {head, sixth(kZeros, "00", "00000003"), true},
      {head, sixth(kZeros, "00", "00200200"), false},
      {head, sixth(kZeros, "80", "80200001"), false},
      {"wlan0\t00000000\n", std::string(kZeros) + " 00 x", false},
  };
  for (const auto& row : rows) EXPECT_EQ(hasWayOut(row.routes, row.sixth), row.isOut) << row.routes;
}

TEST(NetworkState, TellsThatItReturnedOnceItStays) {
  NetworkState network(std::chrono::milliseconds(0));
  int returned = 0;
  QObject::connect(&network, &NetworkState::returned, &network, [&returned] { ++returned; });
  const auto heardAfter = [&](std::initializer_list<bool> states) {
    for (const bool isConnected : states) network.take(isConnected);
    handlePendingEvents();
    return std::exchange(returned, 0);
  };
  EXPECT_EQ(heardAfter({true, true}), 0) << "it was never away";
  EXPECT_EQ(heardAfter({false, true, false}), 0) << "gone again before it was told";
  EXPECT_EQ(heardAfter({false, true, true}), 1);
  EXPECT_EQ(heardAfter({true}), 0);
  EXPECT_EQ(heardAfter({false}) + heardAfter({true}), 1);
}

}  // namespace
}  // namespace quillet
