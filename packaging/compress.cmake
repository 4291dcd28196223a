# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT

# Run by cpack before it packs: Debian wants manual pages and changelogs compressed, by the best
# method and without a time stamp.
foreach(pattern man/man1/*.1 doc/*/changelog doc/*/CHANGELOG.md)
  file(GLOB files "${CPACK_TEMPORARY_DIRECTORY}/*/usr/share/${pattern}")
  foreach(file IN LISTS files)
    execute_process(COMMAND gzip -9n "${file}" COMMAND_ERROR_IS_FATAL ANY)
  endforeach()
endforeach()
