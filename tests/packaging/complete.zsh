#!/bin/zsh
# complete.zsh USR: completes command lines in a zsh on a terminal of its own with the function that
# USR/share holds, and fails unless it offers what --help tells of.
setopt no_unset pipe_fail
zmodload zsh/zpty

# A path with a blank, as a prefix may have.
link=$(mktemp -d)
ln -s ${1:A} "$link/the prefix"
usr="$link/the prefix"
program=$usr/bin/scenewright-cli
help_words=${0:A:h}/help_words.py
words_told=$($help_words $program)
failures=0

folder=$(mktemp -d)
trap 'rm -rf $folder $link' EXIT
cd $folder
mkdir folder
touch mine.bank 'other one.bank' some.json letter.txt

# The shell on the terminal: instead of adding matches to its line, it writes each into a file.
cat > .zshrc <<SETUP
PS1=
fpath=(${(q)usr}/share/zsh/vendor-completions \$fpath)
autoload -U compinit
compinit -D -u
zstyle ':completion:*' list-grouped no
compadd() {
    if [[ -n \${@[(r)-[ADO]]} ]]; then
        builtin compadd "\$@"
        return
    fi
    local -a matches
    builtin compadd -O matches "\$@"
    [[ -z \$matches ]] || print -rl -- \$matches >> $folder/.offered
    builtin compadd "\$@"
}
write-end() { : > $folder/.end }
zle -N write-end
bindkey '^I' list-choices
bindkey '^E' write-end
: > $folder/.ready
SETUP

wait_for() {
    local dummy
    for _ in {1..300}; do
        # What the terminal shows is taken off it, so that it does not fill up.
        while zpty -r -t terminal dummy; do :; done
        [[ ! -e $1 ]] || return 0
        zselect -t 5 || true
    done
    print -u2 "The shell on the terminal does not answer."
    exit 1
}

zmodload zsh/zselect
zpty -b terminal ZDOTDIR=$folder TERM=dumb zsh -i
wait_for $folder/.ready

# What --help tells of, of the program (.) or a command of it.
told() {
    sed -n "s/^$1 //p" <<< $words_told
}

# What is offered for the last word of a line that begins with the program, one a line, in order.
offered() {
    rm -f .offered .end
    touch .offered
    zpty -w -n terminal "${(q)program} $1"$'\t\C-e\C-u'
    wait_for $folder/.end
    LC_ALL=C sort -u .offered
}

expect() {
    local got=$(offered "$2")
    if [[ $got != $1 ]]; then
        print -u2 -r -- "For \"$2\" is offered:"$'\n'"$got"$'\n'"and not:"$'\n'"$1"
        (( failures += 1 ))
    fi
}

known=($(told '[.]' | grep -v '^-'))
expect "$(told '[.]' | grep '^-')" "--"
expect "${(F)known}" ""
expect "${(F)known}" "--virtual=x --log y "
for command in $known; do
    expect "$(told $command)" "$command --"
done
expect $'1\n2\n3\n4' "show mine.bank --scene "
expect $'image\njson' "convert --to "
expect mine.bank "read m"
expect mine.bank "send --backup m"
expect 'other\ one.bank' "send o"
expect mine.bank "--virtual=m"
expect mine.bank "--log m"
expect folder "--resources "
expect $'folder\nmine.bank\nother\\ one.bank\nsome.json' "show "
expect device: "diff mine.bank d"
expect $'scene1\nscene2\nscene3\nscene4' "get mine.bank "
$program default mine.bank
expect $'Momentary\nRelease\nToggle\nTrigger' "set mine.bank scene1.pad3.PadBehavior="
expect $'CB\nCCOrNoteNumber\nCG\nCR' "copy mine.bank scene1.pad3.C"

for name in scenewright scenewright-virtual; do
    program=$usr/bin/$name
    words_told=$($help_words $program)
    expect "$(told '[.]' | grep '^-')" "--"
done
expect mine.bank "--bank m"
program=$usr/bin/scenewright
expect mine.bank "m"
zpty -d terminal
exit $(( failures > 0 ))
