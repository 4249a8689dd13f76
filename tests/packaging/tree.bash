# Functions of the scripts that run programs in a bare tree: $tree, the tree, and $dir, a folder for what
# is written down, are theirs.
# shellcheck shell=bash
# shellcheck disable=SC2154  # $tree and $dir

display_server=
export DISPLAY=

fail() {
    echo "$1" >&2
    exit 1
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then "$@"; else sudo -n "$@"; fi
}

# Runs a command in the tree, with processes and mounts of its own that end with it.
in_tree() {
    as_root env -i HOME=/tmp PATH=/usr/sbin:/usr/bin:/sbin:/bin LC_ALL=C.UTF-8 \
        DEBIAN_FRONTEND=noninteractive DISPLAY="$DISPLAY" \
        unshare --mount --pid --fork --mount-proc="$tree/proc" chroot "$tree" "$@"
}

# Every path of the tree, with its kind and mode, but what dpkg itself keeps book in.
listing() {
    as_root find "$tree" -xdev \
        \( -path "$tree/proc" -o -path "$tree/tmp" -o -path "$tree/var/lib/dpkg" \
        -o -path "$tree/var/log" -o -path "$tree/var/cache" \) -prune \
        -o -printf '%y %m %P\n' | sort
}

# A display of this machine's, reached from the tree by its abstract socket: nothing is added to the
# tree, so that the package must bring along all that the window takes.
open_display() {
    rm -f "$dir/display"
    Xvfb -displayfd 5 -screen 0 1280x800x24 -nolisten tcp -ac 5>"$dir/display" 2>"$dir/xvfb.log" &
    display_server=$!
    wait_for "the display" test -s "$dir/display"
    DISPLAY=":$(cat "$dir/display")"
}

close_display() {
    if [ -n "$display_server" ]; then
        kill "$display_server"
        wait "$display_server" || true
        display_server=
    fi
}
trap close_display EXIT

# wait_for WHAT COMMAND...: until the command succeeds, at most 30 seconds.
wait_for() {
    local what="$1" attempt
    shift
    for ((attempt = 0; attempt < 300; attempt++)); do
        if "$@" >/dev/null 2>&1; then
            return
        fi
        sleep 0.1
    done
    fail "Waited for $what in vain."
}

# While it reads or sends, the window drops keys: press them in what is waited for.
keys() {
    xdotool windowfocus --sync "$(xdotool search --onlyvisible --name Scenewright)" key "$@"
}

# quit_editor PID: by its key; fails as it does.
quit_editor() {
    wait_for "the editor to end" ended_by_key "$1"
    wait "$1" || fail "The editor ended with $?."
}
ended_by_key() {
    keys ctrl+q
    ! kill -0 "$1"
}
