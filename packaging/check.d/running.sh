# shellcheck shell=bash disable=SC2154,SC2034,SC2317
# Rows that start the installed commands, on a display of their own.

# A display, opened once.
need_desk() {
    needs Xvfb:xvfb openbox:openbox xdotool:xdotool xprop:x11-utils || return
    [ -n "${desk_server:-}" ] || desk_open "$work/desk"
}

# run_first COMMAND CLASS HOME [PREFIX...]: the first start with an empty home folder: a language is chosen, the main
# window shows. `process` is the program.
run_first() {
    local command=$1 class=$2 home=$3
    shift 3
    mkdir -p "$home" "$work/Müsica mia"
    install -d -m 700 "$work/run"
    (cd "$work/Müsica mia" && exec env -i HOME="$home" XDG_RUNTIME_DIR="$work/run" PATH=/usr/bin:/bin LANG=C.UTF-8 DISPLAY="$DISPLAY" "$@" \
        "$stage/usr/bin/$command") >"$work/$command.log" 2>&1 &
    process=$!
    desk_main_comes "$class" || { cat "$work/$command.log"; fault "$command shows no main window"; return 1; }
}

# Both commands, each with what rows 3 and 4 ask of it, in one start.
run_both() {
    local name class process
    [ -z "${run_both_said:-}" ] || return 0
    need_desk || return
    run_both_said=yes
    : >"$work/cwd"
    : >"$work/classes"
    for name in tarvolyne tarvolyne-virtual; do
        class=${name^}
        run_first "$name" "$class" "$work/home.$name" || { kill "$process"; continue; }
        echo "$name $(readlink "/proc/$process/cwd") $(readlink "/proc/$process/exe")" >>"$work/cwd"
        echo "$name $(xprop -id "$(desk_main "$class")" WM_CLASS)" >>"$work/classes"
        desk_exit "$class" "$process" || { fault "$name does not end"; kill "$process"; }
        wait "$process" || fault "$name ended with $?"
        [ ! -s "$work/$name.log" ] || { cat "$work/$name.log"; fault "$name complains"; }
    done
}

row_working_folder() {
    local name entry
    for entry in "${entries[@]}"; do
        [ "$(value "$stage/usr/share/applications/$entry.desktop" Path)" = /usr/share/tarvolyne ] || fault "$entry: Path"
    done
    for name in TvlArrA TvlArrB TvlSty TvlPrg Tarvolyne_GuidaUtente.txt Tarvolyne_UserGuide.txt; do
        [ -s "$stage/usr/share/tarvolyne/$name" ] || fault "no $name"
    done
    run_both || return
    for name in tarvolyne tarvolyne-virtual; do
        grep -qx "$name $stage/usr/share/tarvolyne $stage/usr/libexec/tarvolyne/$name" "$work/cwd" || fault "$(cat "$work/cwd")"
    done
}

row_window_class() {
    local entry file name wanted
    run_both || return
    for entry in "${entries[@]}"; do
        file=$stage/usr/share/applications/$entry.desktop
        name=$(value "$file" Exec)
        wanted=$(value "$file" StartupWMClass)
        grep -qx "$name WM_CLASS(STRING) = \"$name\", \"$wanted\"" "$work/classes" || fault "$(grep "^$name " "$work/classes")"
        # On Wayland the name of the entry is the window's.
        grep -qaF "$entry" "$stage/usr/libexec/tarvolyne/$name" || fault "$name does not name its entry"
    done
}

# What a first session of each command writes, by the calls that open for writing, make folders and rename; and what the
# home folder holds after it.
row_traces() {
    local name
    slow || return
    needs strace:strace || return
    need_desk || return
    for name in tarvolyne tarvolyne-virtual; do
        trace_of "$name" "$work/empty.$name"
    done
}

# trace_of COMMAND HOME
trace_of() {
    local command=$1 home=$2 process written
    local calls=openat,open,creat,mkdir,mkdirat,rename,renameat,renameat2,unlink,unlinkat,link,linkat,symlink
    run_first "$command" "${command^}" "$home" strace -f -qq -o "$work/trace" -e trace="$calls" || return
    xdotool windowactivate --sync "$(desk_main "${command^}")" key --clearmodifiers alt+F4
    desk_until 60 desk_gone "$process" || { fault "$command does not end"; return; }
    written=$(grep -E 'O_WRONLY|O_RDWR|O_CREAT|mkdir|rename|unlink|link\(' "$work/trace" | grep -v ' = -1 ' |
        grep -oE '"[^"]+"' | tr -d '"' | sort -u)
    grep -q "^$home/.local/share/tarvolyne/Tarvolyne.ini" <<<"$written" || fault "$command: the trace saw nothing"
    grep -vE "^$home/\.local(/share(/tarvolyne(/.*)?)?)?\$|^/dev/|^/proc/|^/memfd:|^/tmp/qipc" <<<"$written" >"$work/strange" || true
    [ ! -s "$work/strange" ] || fault "$command: written: $(cat "$work/strange")"
    [ "$(find "$home" -mindepth 1 -maxdepth 1 -printf '%f ')" = ".local " ] || fault "in the home folder: $(ls -A "$home")"
    [ "$(find "$home/.local" -mindepth 1 -maxdepth 2 -printf '%P ')" = "share share/tarvolyne " ] || fault "$(find "$home")"
}

# The machine's own kernel and ALSA's own tools, in a virtual machine.
row_alsa_names() {
    local result=0
    slow || return
    [ -x "$build/tests/vm_tests" ] || { not_here "vm_tests is not built"; return; }
    tests/vm/vm -s 3 -t 400 "$build/tests/vm_tests" \
        --gtest_filter='Sharing.patchBaysSeeOneOutputPortAndNoInput:Sharing.aPatchBayCanWireTheOutputElsewhereByItsNames' || result=$?
    [ "$result" -ne 77 ] || not_here "no virtual machine can be had"
    return "$result"
}
