#!/usr/bin/env bash
# Proves that order.sh sees each break of the house's rules: every file below breaks one, and must be complained of.
set -euo pipefail
order=$(dirname "$(readlink -f "$0")")/order.sh
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
failed=0

# put PATH TEXT [FIRST]: a file of the small house.
put() {
    mkdir -p "$folder/$(dirname "$1")"
    printf '%b\n' "${3-// Its subject.}\n$2" >"$folder/$1"
}

# bites WORDS PATH TEXT [FIRST]: with this file in an orderly house, order.sh fails and says these words of it.
bites() {
    local said
    put "${@:2}"
    if said=$("$order" "$folder") || ! grep -qF -- "$1" <<<"$said"; then
        echo "not seen: $1 in $2 (said: $said)"
        failed=1
    fi
    rm "$folder/$2"
}

put src/core/Bytes.h '#include <string>'
put src/files/ArrLayout.cpp '#include "core/Bytes.h"\n#include <queue>'
put src/toolkit/ChildWindow.h '#include <QMdiSubWindow>\n#include "files/ArrLayout.h"'
put src/arrangements/frmArrU.cpp '#include "toolkit/ChildWindow.h"\n#include "styles/StyleSends.h"\n#include <QWidget>'
put src/app/main.cpp '#include "shell/frmMain.h"\n#include <QApplication>'
"$order" "$folder" || { echo "an orderly house is refused"; failed=1; }

bites 'core may not use files' src/core/Up.cpp '#include "files/ArrLayout.h"'
bites 'styles may not use programs' src/styles/Across.cpp '#include "programs/ProgramSends.h"'
bites 'midi may not use shell' src/midi/frmUp.cpp '#include "shell/frmMain.h"'
bites 'a logic file includes a Qt header' src/files/Logic.cpp '#include <QString>'
bites 'a logic file includes a Qt header' src/files/Logic.h '#  include <QtGlobal>'
bites 'a logic file uses a window' src/midi/Logic.cpp '#include "toolkit/Twips.h"'
bites 'a logic file uses a window' src/shell/Logic.cpp '#include "shell/frmMain.h"'
bites 'no room of the house' src/attic/Box.cpp '#include <string>'
bites 'no room of the house' src/core/Far.cpp '#include "attic/Box.h"'
bites 'must name its room' src/core/Near.cpp '#include "Bytes.h"'
bites 'no Q_OBJECT' src/shell/frmMoc.h '    Q_OBJECT'
bites '501 lines' src/core/Long.cpp "$(printf '// line\n%.0s' {1..500})"
bites '501 lines' src/core/Long.h "$(printf '// line\n%.0s' {1..500})"
bites '501 lines' tests/core/LongTest.cpp "$(printf '// line\n%.0s' {1..500})"
bites 'does not tell its subject' tests/core/NoSubjectTest.cpp '#include <string>' '#include <vector>'
bites 'a function of 61 lines' src/core/LongFunction.cpp "void f()\n{\n$(printf '    g();\n%.0s' {1..61})\n}"
bites 'a function of 61 lines' tests/core/LongFunctionTest.h "    void f()\n    {\n$(printf '        g();\n%.0s' {1..61})\n    }"
put src/core/JustLongEnough.cpp "void f()\n{\n$(printf '    g();\n%.0s' {1..60})\n}"
"$order" "$folder" || { echo "a function of 60 lines is refused"; failed=1; }
exit "$failed"
