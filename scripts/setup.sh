# shellcheck shell=bash
# What ./run and ./test share: the Debian packages they need, and the build folder they work in. For bash with pipefail.

# say TEXT: one line on what happens now.
say() { printf '== %s\n' "$*"; }

# need_packages PACKAGE...: installs what is missing; asks for sudo where not root.
need_packages() {
    if ! command -v dpkg-query >/dev/null; then
        say "Packages: no dpkg here; on another system these must be there: $*"
        return 0
    fi
    local installed missing=() package
    installed=$(dpkg-query -W -f '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null |
        sed -n 's/ installed$//p' || true)
    for package in "$@"; do
        grep -qxF -- "$package" <<<"$installed" || missing+=("$package")
    done
    if [ ${#missing[@]} -eq 0 ]; then
        say "Packages: all there"
        return 0
    fi
    local root=()
    if [ "$(id -u)" -ne 0 ]; then
        if ! command -v sudo >/dev/null; then
            say "Packages: as root, please run: apt-get install ${missing[*]}"
            return 1
        fi
        root=(sudo)
    fi
    say "Packages: installing ${missing[*]}"
    "${root[@]}" apt-get update -qq
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -qq -y --no-install-recommends \
        "${missing[@]}" >/dev/null
}

# configure PRESET [OPTION...]: makes build/PRESET unless it stands with these options; later changes of a CMakeLists
# are ninja's own affair.
configure() {
    local preset=$1 option
    shift
    if [ -f "build/$preset/build.ninja" ]; then
        for option in "$@"; do
            option=${option#-D}
            if ! grep -qE "^${option%%=*}(:[A-Z]+)?=${option#*=}\$" "build/$preset/CMakeCache.txt"; then
                cmake --preset "$preset" "$@" >/dev/null
                return
            fi
        done
        return 0
    fi
    cmake --preset "$preset" "$@" >/dev/null
}

# for_usr FOLDER: what a build folder installs goes to /usr, as a package's files do.
for_usr() {
    grep -qx 'CMAKE_INSTALL_PREFIX:PATH=/usr' "$1/CMakeCache.txt" || cmake -DCMAKE_INSTALL_PREFIX=/usr "$1" >/dev/null
}

# build PRESET [TARGET...]: builds and says only what goes wrong.
build() {
    local preset=$1 targets=() target
    shift
    for target in "$@"; do
        targets+=(--target "$target")
    done
    # What CMake says of itself when it looks again is of no interest here.
    cmake --build "build/$preset" "${targets[@]}" -- --quiet | { grep -v '^-- ' || true; }
}

# What a build of the program needs, and what its windows need to be seen.
program_packages=(g++ cmake ninja-build ccache qt6-base-dev libasound2-dev qt6-translations-l10n fonts-dejavu-core)
# What drives the real program on a display of its own: the tour and the end-to-end tests.
display_packages=(xvfb openbox libx11-dev libxtst-dev)
# What boots a kernel with sound for the tests, and asks it.
vm_packages=(qemu-system-x86 busybox-static cpio kmod alsa-utils)
# What the desktop's checklist is seen with.
# shellcheck disable=SC2034 # used by ./test
check_packages=(desktop-file-utils appstream lintian mandoc devscripts xdotool x11-utils libxml2-utils codespell reuse
    libglib2.0-bin shared-mime-info strace dpkg-dev git)
# What the proof needs besides.
# shellcheck disable=SC2034 # used by ./test
test_packages=("${program_packages[@]}" "${display_packages[@]}" "${vm_packages[@]}" libgtest-dev
    libbenchmark-dev clang-14 lld libclang-rt-14-dev clang-format-14 clang-tidy-14 valgrind shellcheck)
