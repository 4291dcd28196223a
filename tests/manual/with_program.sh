#!/bin/sh
# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
#
# with_program.sh PROGRAM COMMAND...: runs the command; where the program that it needs is not
# installed, says so and ends with 77.
command -v "$1" >/dev/null || {
  echo "Skipped: $1 is not installed."
  exit 77
}
shift
exec "$@"
