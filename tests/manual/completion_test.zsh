# SPDX-FileCopyrightText: 2026 The Quillet developers
# SPDX-License-Identifier: MIT
#
# completion_test.zsh FOLDER: what the completions in FOLDER offer, asked of an interactive shell.
zmodload zsh/zpty || { print 'Skipped: this zsh cannot run a terminal.'; exit 77 }
integer failures=0

# ^T lists the candidates for what is typed, between the marks ^A and ^B, and drops the line.
setup='stty -echo cols 250 rows 200; PS1= PROMPT_SP=; unsetopt prompt_sp prompt_cr
unset zle_bracketed_paste; LISTMAX=0; fpath=('${(q)1}' $fpath); autoload -Uz compinit; compinit -D -u
unsetopt list_types list_packed; zstyle ":completion:*" list-separator "--"
show() { print -n "\x01"; zle list-choices; zle -R; print -n "\x02"; zle kill-buffer }
zle -N show; bindkey "^T" show; print -n "REA""DY"'

# The list without what moves the cursor, each run of blanks as one.
plain() {
  emulate -L zsh -o extended_glob
  local text=${${1##*$'\x01'}%%$'\x02'*}
  text=${text%%$'\e['[0-9]#A*}
  text=${text//$'\e['[0-9;]#[A-Za-z]/}
  print -r -- ${=text//$'\r'/}
}

# expect LINE LIST: completing the line lists these.
expect() {
  local output offered
  zpty -w -n asked "$1"$'\x14'
  zpty -r asked output $'*\x01*\x02'
  offered=$(plain "$output")
  [[ $offered == $2 ]] && return
  print -r -- "'$1' offers '$offered' instead of '$2'"
  (( ++failures ))
}

zpty asked zsh -f -i 2>/dev/null || { print 'Skipped: no terminal can be had here.'; exit 77 }
zpty -w asked ${setup//$'\n'/; }
zpty -r asked output '*READY'
expect 'quillet sea' 'search -- Search the App Store'
expect 'quillet --v' '--version -- Print the version'
expect 'quillet deals --min' '--min-drop -- Only prices that fell by this much'
expect 'quillet search charts --ch' ''
expect 'quillet watchlist -' '--agent -- The same as --json --help -h -- Print help --json -- Machine readable output --limit -n -- The most results, 1 to 200 (default: 25)'
expect 'quillet search notes --sort price-' 'price-high price-low'
expect 'quillet search -p ' 'ipad iphone mac'
expect 'quillet charts --genre F' 'Finance Food\ \&\ Drink'
expect 'quillet search --limit ' ''
expect 'quillet help rev' 'reviews'
zpty -d asked
exit $(( failures > 0 ))
