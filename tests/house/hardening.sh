#!/usr/bin/env bash
# Reads from the executables themselves that an optimised build is hardened: a position of its own at each start, a
# stack that is guarded and cannot run, addresses that are resolved and locked before main, the C library's checked
# calls, and landing marks for indirect jumps where the processor has them. And that it neither runs another program, nor
# opens a connection, nor reads the environment by itself: the calls that would are not among its own.
set -euo pipefail
failed=0
fewest_marks=500 # of some thousand functions

# must PROGRAM WHAT WORDS...: the words, a pattern of grep, stand in what readelf tells.
must() {
    local program=$1 what=$2
    shift 2
    if ! grep -qE -- "$*" <<<"$told"; then
        echo "$program: $what"
        failed=1
    fi
}

# never PROGRAM WHAT WORDS...: they do not.
never() {
    local program=$1 what=$2
    shift 2
    if grep -qE -- "$*" <<<"$told"; then
        echo "$program: $what"
        failed=1
    fi
}

[ $# -gt 0 ] || { echo "no executable named"; exit 1; }
for program in "$@"; do
    told=$(readelf --wide --file-header --program-headers --dynamic --dyn-syms --notes "$program" 2>/dev/null)
    must "$program" 'no executable that readelf knows' 'Class: +ELF(32|64)'
    must "$program" 'stands at a fixed address (PIE)' 'Type: +DYN '
    must "$program" 'stands at a fixed address (PIE)' 'FLAGS_1\).*PIE'
    must "$program" 'its table of addresses stays writable (RELRO)' 'GNU_RELRO'
    must "$program" 'resolves addresses after its start (BIND_NOW)' 'FLAGS(_1)?\).*NOW'
    must "$program" 'the stack is not declared' 'GNU_STACK +.* RW +0x'
    never "$program" 'the stack can run' 'GNU_STACK +.* RWE '
    never "$program" 'a segment can be written and run' 'LOAD +.* RWE '
    never "$program" 'looks for libraries in folders of its own' '\((RPATH|RUNPATH)\)'
    must "$program" 'no stack is guarded (stack protector)' '__stack_chk_fail'
    must "$program" 'no call of the C library is checked (FORTIFY_SOURCE)' ' __[a-z]+_chk@'
    never "$program" 'runs another program' ' (v?fork|system|popen|exec[lv]p?e?|posix_spawnp?)@|QProcess|QDesktopServices'
    never "$program" 'opens a connection' ' (socket|connect|bind|listen|accept4?|getaddrinfo)@|Q(Tcp|Udp|Local)Socket|QNetwork'
    never "$program" 'reads the environment by itself' ' (secure_)?getenv@|qgetenv|qEnvironmentVariable'
    if grep -qE 'Machine: .*X86-64' <<<"$told"; then
        # By the marks themselves: the note of them is dropped where the system's own start files have none.
        marks=$(objdump --disassemble --no-show-raw-insn "$program" | grep -cw endbr64 || true)
        [ "$marks" -ge "$fewest_marks" ] || { echo "$program: indirect jumps land anywhere (cf-protection)"; failed=1; }
    fi
done
exit "$failed"
