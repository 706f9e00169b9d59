#!/usr/bin/env bash
# Runs clang-tidy on the program's sources with the compile commands of a clang build folder. A source that passed is
# not looked at again until it, a header of the project that it uses, or the rules change.
set -euo pipefail
cd "$(dirname "$(readlink -f "$0")")/.."
folder=$(readlink -f "$1")
cache=$PWD/build/tidy
mkdir -p "$cache"
root=$PWD/

# One line for each object: its source, then the project's headers that went into it. Ninja knows them from the build.
sources() {
    ninja -C "$folder" -t deps | awk -v root="$root" -v folder="$folder" '
        function out() { if (source != "") print source headers; source = ""; headers = "" }
        /^[^ ].*: #deps/ { out(); next }
        /^    / {
            file = $0; sub(/^ +/, "", file)
            base = folder
            while (sub(/^\.\.\//, "", file)) sub(/\/[^\/]*$/, "", base)
            if (file !~ /^\//) file = base "/" file
            if (index(file, root) != 1) next
            file = substr(file, length(root) + 1)
            if (file ~ /^build/) next
            if (file ~ /^(src|tools)\/.*\.cpp$/) source = file
            else headers = headers " " file
        }
        END { out() }' | grep -E '^(src|tools)/' | sort -u
}

# check KEY SOURCE: keeps the key of a source without a finding.
check() {
    local report
    if report=$(clang-tidy-14 -p "$folder" --quiet "$2" 2>/dev/null) && ! grep -q 'error:' <<<"$report"; then
        touch "$cache/$1"
    else
        printf '%s\n' "$report"
        return 1
    fi
}
export -f check
export folder cache

rules=$({ clang-tidy-14 --version; cat .clang-tidy; } | sha256sum)
sources | while read -r -a files; do
    key=$({ echo "$rules"; sha256sum "${files[@]}"; } | sha256sum)
    key=${key%% *}
    [ -f "$cache/$key" ] || printf '%s %s\n' "$key" "${files[0]}"
done | xargs -r -P "$(nproc)" -L 1 bash -c 'check "$@"' check
