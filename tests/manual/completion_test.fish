# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
#
# completion_test.fish FILE: what the completions in FILE offer.
source $argv[1]
set -g failures 0

# expect LINE OFFER...: completing the line offers these, each as "word description".
function expect
    set -l offered (complete -C $argv[1] | string replace \t ' ' | sort)
    set -l expected (printf '%s\n' $argv[2..-1] | sort)
    test "$offered" = "$expected"; and return
    echo "'$argv[1]' offers '$offered' instead of '$expected'"
    set -g failures (math $failures + 1)
end

expect 'quillet sea' 'search Search the App Store'
expect 'quillet deals --min' '--min-drop Only prices that fell by this much'
expect 'quillet watchlist --l' '--limit The most results, 1 to 200 (default: 25)'
expect 'quillet search notes --sort price-' 'price-low Order of the results' \
    'price-high Order of the results'
expect 'quillet search -p i' 'iphone Which store, or which of an app\'s builds' \
    'ipad Which store, or which of an app\'s builds'
expect 'quillet charts --genre Food' 'Food & Drink Category, as Apple names it'
expect 'quillet search --limit '
expect 'quillet help rev' 'reviews What customers wrote'
exit $failures
