#!/bin/sh
# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
#
# manual_page_test.sh FILE: man shows the page, finds nothing to warn of, and parts no word that
# somebody may want to copy.
wrong=$(MANWIDTH=80 man --warnings -E UTF-8 -l "$1" 2>&1 >/dev/null)
[ -n "$wrong" ] || wrong=$(MANWIDTH=80 man -E UTF-8 -l "$1" | grep -e '-$' -e '‐$')
[ -z "$wrong" ] && exit
echo "$wrong"
exit 1
