// SPDX-FileCopyrightText: 2026 The Quillet developers
// SPDX-License-Identifier: MIT

#include "collector/worker_name.h"

#include <fmt/format.h>
#include <signal.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <fstream>

#include "base/numbers.h"
#include "collector/namespace_number.h"

namespace quillet {

namespace {

std::string hostName() {
  std::array<char, 256> name{};
  if (::gethostname(name.data(), name.size() - 1) != 0) return "unknown";
  return name.data();
}

/// Tells apart two machines of one name, and two starts of one machine.
std::string bootId() {
  std::string id;
  std::ifstream("/proc/sys/kernel/random/boot_id") >> id;
  return id.substr(0, 8);
}

/// All of a name but the number of the process.
std::string machineName() {
  return fmt::format("{}/{}/{}/", hostName(), bootId(), namespaceNumber("pid"));
}

/// Whether the process has ended and only its parent has not asked yet how.
bool isZombie(std::int64_t process) {
  std::string stat;
  std::getline(std::ifstream(fmt::format("/proc/{}/stat", process)), stat);
  const std::size_t nameEnd = stat.rfind(") ");
  return nameEnd != std::string::npos && stat.substr(nameEnd + 2).starts_with('Z');
}

}  // namespace

std::string workerName() { return machineName() + std::to_string(::getpid()); }

std::optional<std::int64_t> processBeside(const std::string& own, const std::string& other) {
  const std::size_t machineEnd = own.rfind('/') + 1;
  if (other == own || other.rfind('/') + 1 != machineEnd) return {};
  if (other.compare(0, machineEnd, own, 0, machineEnd) != 0) return {};
  return parseWhole(std::string_view(other).substr(machineEnd));
}

bool hasWorkerEnded(const std::string& worker) {
  const std::string machine = machineName();
  if (!worker.starts_with(machine)) return false;
  const auto process = parseWhole(worker.substr(machine.size()));
  if (!process || *process <= 0) return false;
  // Signal 0 asks only; a process of somebody else answers with EPERM.
  const bool isGone = ::kill(static_cast<pid_t>(*process), 0) != 0 && errno == ESRCH;
  return isGone || isZombie(*process);
}

}  // namespace quillet
