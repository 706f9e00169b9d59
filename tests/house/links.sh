#!/usr/bin/env bash
# Holds the executables to their few libraries: Qt's widgets, ALSA and what the language needs.
set -euo pipefail
allowed='^(libQt6(Widgets|Gui|Core)\.so\.6|libasound\.so\.2|libstdc\+\+\.so\.6|libgcc_s\.so\.1|libm\.so\.6|libc\.so\.6|ld-linux.*)$'
for program in "$@"; do
    libraries=$(readelf -d "$program" | sed -n 's/.*(NEEDED).*\[\(.*\)\]$/\1/p')
    grep -q '^libQt6Widgets' <<<"$libraries" || { echo "$program: no libraries read"; exit 1; }
    if grep -vE "$allowed" <<<"$libraries"; then
        echo "$program links the libraries above besides"
        exit 1
    fi
done
