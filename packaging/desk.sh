# shellcheck shell=bash
# A desk to try an installed Tarvolyne on: a display of its own with a window manager, and what a user's hands do there.
# For bash with pipefail. Needs the packages xvfb, openbox, xdotool and x11-utils.

# What the main and the language window are called.
main_title='Tarvolyne - Tarvolyne Console'

# desk_open FOLDER: a display; FOLDER is for what server and window manager write.
desk_open() {
    local number
    desk_folder=$1
    mkdir -p "$desk_folder/home"
    mkfifo "$desk_folder/number"
    Xvfb -displayfd 3 -screen 0 1280x1024x24 -nolisten tcp -noreset 3>"$desk_folder/number" 2>"$desk_folder/xvfb.log" &
    desk_server=$!
    read -r -t 20 number <"$desk_folder/number"
    export DISPLAY=:$number
    HOME=$desk_folder/home XDG_CACHE_HOME='' openbox --sm-disable >"$desk_folder/openbox.log" 2>&1 &
    desk_manager=$!
    desk_until 20 desk_managed
}
desk_managed() { xprop -root _NET_SUPPORTING_WM_CHECK | grep 'window id'; }

desk_close() {
    kill "$desk_manager" "$desk_server" 2>/dev/null || true
    wait "$desk_manager" "$desk_server" 2>/dev/null || true
}

# desk_until SECONDS COMMAND...: until the command succeeds; a failure after so long.
desk_until() {
    local end=$((SECONDS + $1))
    shift
    until "$@" >/dev/null 2>&1; do
        [ "$SECONDS" -lt "$end" ] || return 1
        sleep 0.1
    done
}

# desk_window CLASS: the visible windows of a class, a number each.
desk_window() { xdotool search --onlyvisible --class "^$1\$"; }

# desk_main CLASS: the main window, which has the program's title and is larger than the language window.
desk_main() {
    local window width
    for window in $(desk_window "$1"); do
        case $(xdotool getwindowname "$window") in
        "$main_title"*) ;;
        *) continue ;;
        esac
        width=$(xdotool getwindowgeometry --shell "$window" | sed -n 's/^WIDTH=//p')
        [ "${width:-0}" -lt 600 ] || { echo "$window"; return 0; }
    done
    return 1
}

# desk_main_comes CLASS: answers what stands before the main window until that is there: the question of the first start,
# with the language where the focus stands, and the box that a machine without sound shows.
desk_main_comes() { desk_until 120 desk_answer "$1"; }
desk_answer() {
    local window
    desk_main "$1" && return 0
    window=$(desk_window "$1" | tail -n 1)
    [ -z "$window" ] || timeout 2 xdotool windowactivate --sync "$window" key space key Return
    sleep 0.3
    return 1
}

# desk_exit CLASS PROCESS: closes the main window as a user does, and waits for the program's end.
desk_exit() {
    xdotool windowactivate --sync "$(desk_main "$1")" key --clearmodifiers alt+F4
    desk_until 30 desk_gone "$2"
}
desk_gone() { ! kill -0 "$1" 2>/dev/null; }
