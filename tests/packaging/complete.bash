#!/bin/bash
# complete.bash USR: completes command lines with the functions that USR/share holds, and fails unless
# they offer what --help tells of.
set -uo pipefail

usr="$1"
program="$usr/bin/scenewright-cli"
help_words="$(dirname "$(readlink -f "$0")")/help_words.py"
words="$("$help_words" "$program")"
failures=0

for name in scenewright scenewright-cli scenewright-virtual; do
    # shellcheck source=/dev/null
    source "$usr/share/bash-completion/completions/$name"
done
complete=_scenewright_cli

# What --help tells of, of the program (.) or a command of it.
told() {
    sed -n "s/^$1 //p" <<<"$words"
}

# What is offered for the last of the words after the program's, one a line, in order.
offered() {
    COMP_WORDS=("$program" "$@") COMP_CWORD=$# COMPREPLY=()
    "$complete"
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
touch mine.bank "other one.bank" some.json letter.txt

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
expect $'folder\nmine.bank\nother one.bank\nsome.json' show ""
expect letter.txt show l
expect $'device:\nfolder\nmine.bank\nother one.bank\nsome.json' diff ""
expect device: diff mine.bank d
expect mine.bank --virtual = m
expect mine.bank --log m
expect $'folder\nletter.txt\nmine.bank\nother one.bank\nsome.json' --virtual =
expect folder --resources ""
expect "" devices ""
expect mine.bank get m
expect $'scene1.\nscene2.\nscene3.\nscene4.' get mine.bank ""
expect scene2.common. set mine.bank scene2.c
"$program" default mine.bank
expect $'Momentary\nRelease\nToggle\nTrigger' set mine.bank scene1.pad3.PadBehavior =
expect Toggle set mine.bank scene1.pad1.CR = 3 scene1.pad3.PadBehavior = To
expect $'scene1.pad3.CB\nscene1.pad3.CCOrNoteNumber\nscene1.pad3.CG\nscene1.pad3.CR' \
    copy mine.bank scene2.pad1.CR scene1.pad3.C

expect "" earlier show ""
# What is typed where nothing is known of it stays a word, and is not run.
printf '#!/bin/sh\ntouch it-ran\n' >typed
chmod 755 typed
expect "" rename mine.bank scene1 ./typed
expect "" transpose mine.bank scene1 ./typed
expect "" fill mine.bank scene1 --intervals ./typed
if [ -e it-ran ]; then
    echo "Completing ran what was typed." >&2
    failures=$((failures + 1))
fi
rm typed

for name in scenewright scenewright-virtual; do
    program="$usr/bin/$name" complete="_${name//-/_}"
    words="$("$help_words" "$program")"
    expect "$(told '[.]' | grep '^-')" --
done
expect $'1\n2' --interfaces ""
expect mine.bank --bank m
program="$usr/bin/scenewright" complete=_scenewright
expect $'folder\nmine.bank\nother one.bank\nsome.json' ""
expect mine.bank --virtual = x m
exit "$((failures > 0))"
