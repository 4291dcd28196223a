#!/bin/sh
# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
#
# manual_page_test.sh FILE: man shows the page and finds nothing to warn of.
warnings=$(man --warnings -E UTF-8 -l "$1" 2>&1 >/dev/null) && [ -z "$warnings" ] && exit
echo "$warnings"
exit 1
