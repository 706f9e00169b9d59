#!/usr/bin/env bash
# Holds the house to its plan: which room may include which, no Qt header in a logic file, no file over 500 lines, no
# function over 60, a subject at the top of each, no Q_OBJECT in the program. Takes the project's folder; prints each
# break of a rule and fails if there is one.
set -euo pipefail
cd "$1"
mapfile -t files < <(find src tests tools bench fuzz \( -name '*.cpp' -o -name '*.h' \) 2>/dev/null | sort)

# The rooms from bottom to top; rooms on one line stand beside each other and don't know each other.
awk -v floors='core
files
toolkit
midi
database
instrument
styles programs global
arrangements
keyboard
clipboard
shell
app' '
function complain(text) { print FILENAME ":" FNR ": " text; bad = 1 }

# A file of windows by its name: the same rule by which the build sorts sources into libraries.
function isWindow(path,    name) {
    name = path
    sub(/^.*\//, "", name)
    return path ~ /^src\/(toolkit|app)\// || name ~ /^(frm.*|Qt.*|.*Widget|.*Strip|.*View)\.(h|cpp)$/
}

function endFile() {
    if (lastLine > 500) { print lastFile ": " lastLine " lines, the limit is 500"; bad = 1 }
    delete bodyFrom
}

BEGIN {
    count = split(floors, lines, "\n")
    for (i = 1; i <= count; i++) {
        rooms = split(lines[i], names, " ")
        for (k = 1; k <= rooms; k++) floor[names[k]] = i
    }
}

FNR == 1 {
    if (lastFile != "") endFile()
    lastFile = FILENAME
    if ($0 !~ /^\/\/ ?[^ ]/) complain("its first line does not tell its subject")
    room = FILENAME
    sub(/^src\//, "", room)
    sub(/\/.*$/, "", room)
    program = FILENAME ~ /^src\//
    if (program && !(room in floor)) complain("no room of the house: " room)
}

{ lastLine = FNR }

# The body of a function is opened by a brace of its own line behind the end of its head, and closed at the same margin.
/^ *[{]$/ && before ~ /([)}]| const| noexcept| override| final|-> [^ ]+)$/ { bodyFrom[index($0, "{")] = FNR }
/^ *[}]/ {
    margin = index($0, "}")
    if (margin in bodyFrom && FNR - bodyFrom[margin] - 1 > 60)
        complain("a function of " FNR - bodyFrom[margin] - 1 " lines, the limit is 60")
    delete bodyFrom[margin]
}
{ before = $0 }
!program { next }

/^[ \t]*#[ \t]*include[ \t]*</ && !isWindow(FILENAME) {
    if ($0 ~ /<Q[A-Za-z]/ || $0 ~ /<q[a-z]+\.h>/ || $0 ~ /<Qt/) complain("a logic file includes a Qt header: " $0)
}

/^[ \t]*#[ \t]*include[ \t]*"/ {
    split($0, quoted, "\"")
    target = quoted[2]
    if (target !~ /\//) { complain("an include must name its room: " target); next }
    other = target
    sub(/\/.*$/, "", other)
    if (!(other in floor)) { complain("no room of the house: " target); next }
    if (other != room && floor[other] >= floor[room]) complain(room " may not use " other ": " target)
    if (other != room && isWindow("src/" target) && !isWindow(FILENAME)) complain("a logic file uses a window: " target)
    if (other == room && isWindow("src/" target) && !isWindow(FILENAME)) complain("a logic file uses a window: " target)
}

/^[ \t]*Q_OBJECT/ { complain("no Q_OBJECT: connect to lambdas, use callbacks") }

END {
    endFile()
    exit bad
}' "${files[@]}"
