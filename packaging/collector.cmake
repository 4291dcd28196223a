# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT

# What systemd runs of the collector, and as whom. The units name absolute paths, so only a package
# installs them; beside those for a package there are the same for the build's own program, to test.

file(READ collector/confinement.conf QUILLET_CONFINEMENT)
string(STRIP "${QUILLET_CONFINEMENT}" QUILLET_CONFINEMENT)

# quillet_collector_units(folder program)
function(quillet_collector_units folder QUILLET_COLLECTOR)
  configure_file(collector/collect.service.in "${folder}/quillet-collector.service" @ONLY)
  configure_file(collector/collect@.service.in "${folder}/quillet-collector@.service" @ONLY)
  configure_file(collector/publish.service.in "${folder}/quillet-collector-publish.service" @ONLY)
  configure_file(collector/quillet-collector.timer "${folder}/quillet-collector.timer" COPYONLY)
  configure_file(collector/quillet-collector@.timer "${folder}/quillet-collector@.timer" COPYONLY)
endfunction()
set(units "${CMAKE_CURRENT_BINARY_DIR}/units")
set(tested "${CMAKE_CURRENT_BINARY_DIR}/tested-units")
quillet_collector_units("${units}" /usr/bin/quillet-collector)
quillet_collector_units("${tested}" "${CMAKE_RUNTIME_OUTPUT_DIRECTORY}/quillet-collector")

if(QUILLET_PACKAGE)
  install(DIRECTORY "${units}/" DESTINATION /lib/systemd/system COMPONENT collector)
  install(FILES collector/quillet-collector.sysusers RENAME quillet-collector.conf
    DESTINATION lib/sysusers.d COMPONENT collector)
  install(FILES collector/collector.conf DESTINATION /etc/quillet-collector COMPONENT collector)
endif()

find_program(QUILLET_SYSTEMD_ANALYZE systemd-analyze)
if(QUILLET_SYSTEMD_ANALYZE AND QUILLET_TESTS)
  add_test(NAME collector_units COMMAND "${QUILLET_SYSTEMD_ANALYZE}" verify --man=no
    "${tested}/quillet-collector.timer" "${tested}/quillet-collector.service"
    "${tested}/quillet-collector@address.timer" "${tested}/quillet-collector@address.service"
    "${tested}/quillet-collector-publish.service")
  # It ends well where it knows a word of a unit as little as systemd will.
  set_tests_properties(collector_units PROPERTIES FAIL_REGULAR_EXPRESSION ignoring)
endif()
