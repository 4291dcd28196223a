# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
#
# completion_test.bash FILE: what the completions in FILE offer.
source "$1"
failures=0

# expect OFFERED WORD...: completing the last word offers these, parted by blanks.
expect() {
  local expected=$1
  shift
  COMP_WORDS=(quillet "$@") COMP_CWORD=$#
  _quillet
  [[ ${COMPREPLY[*]} == "$expected" ]] && return
  printf "'quillet %s' offers '%s' instead of '%s'\n" "$*" "${COMPREPLY[*]}" "$expected"
  failures=$((failures + 1))
}

complete -p quillet || exit 1
expect 'search storefronts saved-searches screenshots' s
expect '--help --version --background --check-prices' --
expect '--json --agent --limit -n --help -h' watchlist ''
expect '' deals --recent
expect '' nosuchcommand --j
expect 'mac iphone ipad' search -p ''
expect 'Finance Food\ \&\ Drink' charts --genre F
expect 'Food & Drink' charts --genre '"Fo'
expect 'Food\ \&\ Drink' charts --genre 'Food\ '
expect '' search --limit ''
expect 'reviews rank-history' help r
exit $((failures > 0))
