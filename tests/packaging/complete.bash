#!/bin/bash
# complete.bash USR: completes command lines with the function that USR/share holds, and fails unless
# it offers what --help tells of.
set -uo pipefail

usr="$1"
program="$usr/bin/scenewright-cli"
words="$("$(dirname "$(readlink -f "$0")")/help_words.py" "$program")"
failures=0

# shellcheck source=/dev/null
source "$usr/share/bash-completion/completions/scenewright-cli"

# What --help tells of, of the program (.) or a command of it.
told() {
    sed -n "s/^$1 //p" <<<"$words"
}

# What is offered for the last of the words after the program's, one a line, in order.
offered() {
    COMP_WORDS=("$program" "$@") COMP_CWORD=$# COMPREPLY=()
    _scenewright_cli
    printf '%s\n' "${COMPREPLY[@]}" | LC_ALL=C sort
}

expect() {
    local wanted="$1" got
    shift
    got="$(offered "$@")"
    if [ "$got" != "$wanted" ]; then
        printf 'For "%s" is offered:\n%s\nand not:\n%s\n' "$*" "$got" "$wanted" >&2
        failures=$((failures + 1))
    fi
}

folder="$(mktemp -d)"
trap 'rm -rf "$folder"' EXIT
cd "$folder" || exit 1
mkdir folder
touch mine.bank "other one.bank"

known="$(told '[.]' | grep -v '^-')"
expect "$(told '[.]' | grep '^-')" --
expect "$known" ""
expect "$known" --virtual ""
expect "$known" --virtual = x ""
for command in $known; do
    expect "$(told "$command")" "$command" --
    expect "$(told "$command")" --log x "$command" --
    expect "$(told "$command")" --virtual = x "$command" --
done
expect $'1\n2\n3\n4' show mine.bank --scene ""
expect $'image\njson' convert --to ""
expect mine.bank read m
expect mine.bank send --backup m
expect "other one.bank" send o
expect mine.bank --virtual = m
expect mine.bank --log m
expect $'folder\nmine.bank\nother one.bank' --virtual =
expect folder --resources ""
expect "" devices ""
expect mine.bank get m
expect $'scene1.\nscene2.\nscene3.\nscene4.' get mine.bank ""
expect scene2.common. set mine.bank scene2.c
expect $'scene1.pad3.CB\nscene1.pad3.CCOrNoteNumber\nscene1.pad3.CG\nscene1.pad3.CR' \
    copy mine.bank scene2.pad1.CR scene1.pad3.C
exit "$((failures > 0))"
