# shellcheck shell=bash disable=SC2154,SC2034,SC2317
# Rows on the package: what lintian says, installing and removing, hardening, the same bytes again.

# The package of the build folder, made once.
make_package() {
    needs dpkg-shlibdeps:dpkg-dev || return
    [ -n "${package:-}" ] && return
    if ! packaging/deb "$build" >"$work/deb" 2>&1; then
        cat "$work/deb"
        return 1
    fi
    package=$(tail -n 1 "$work/deb")
}

row_lintian() {
    needs lintian:lintian || return
    make_package || return
    lintian --tag-display-limit 0 --allow-root --fail-on error,warning "$package"
}

# In a view of this machine that is thrown away: what is written there goes to memory.
row_installs() {
    slow || return
    [ "$(id -u)" -eq 0 ] || { not_here "only root can install"; return; }
    needs xdotool:xdotool Xvfb:xvfb openbox:openbox || return
    make_package || return
    mkdir "$work/view" "$work/older"
    dpkg-deb -R "$package" "$work/older/tree"
    sed -i 's/^Version: .*/Version: 0.1.0/' "$work/older/tree/DEBIAN/control"
    dpkg-deb --root-owner-group -b "$work/older/tree" "$work/older/tarvolyne_0.1.0_amd64.deb" >/dev/null
    # shellcheck disable=SC2016 # expanded inside
    unshare --mount --pid --fork --kill-child bash -c '
        set -e
        mount -t tmpfs view "$1"
        mkdir "$1"/{above,work,root}
        mount -t overlay -o "lowerdir=/,upperdir=$1/above,workdir=$1/work" overlay "$1/root" || exit 77
        mount -t proc proc "$1/root/proc"
        mount --rbind /dev "$1/root/dev"
        mount -t tmpfs -o mode=1777 tmp "$1/root/tmp"
        cp "$2" "$3" "$1/root/tmp/"
        cp -r packaging "$1/root/tmp/"
        exec chroot "$1/root" /tmp/packaging/try-installed "/tmp/$(basename "$2")" "/tmp/$(basename "$3")"
    ' bash "$work/view" "$package" "$work/older/tarvolyne_0.1.0_amd64.deb"
    case $? in
    0) ;;
    77) not_here "no overlay of this machine can be had" ;;
    *) return 1 ;;
    esac
}

row_hardened() {
    local name said want
    needs hardening-check:devscripts || return
    for name in tarvolyne tarvolyne-virtual; do
        # Its last word, on landing marks, goes by a note that the linker drops where the system's own start files lack it;
        # tests/house/hardening.sh counts the marks themselves.
        said=$(hardening-check --nocfprotection "$stage/usr/libexec/tarvolyne/$name") || fault "$name: $said"
        for want in 'Position Independent Executable' 'Stack protected' 'Fortify Source functions' 'Read-only relocations' \
            'Immediate binding'; do
            grep -q "^ $want: yes" <<<"$said" || fault "$name: $(grep "^ $want" <<<"$said")"
        done
    done
    tests/house/hardening.sh "$stage"/usr/libexec/tarvolyne/* || fault "hardening.sh"
}

# The package of the build folder, and that of the same source in another folder, compiled anew.
row_reproducible() {
    local other=$work/"an öther folder"
    slow || return
    need_git || return
    make_package || return
    mkdir -p "$other/source"
    git ls-files -z --cached --others --exclude-standard | xargs -0 cp --parents -t "$other/source"
    (cd "$other/source" && CCACHE_DISABLE=1 packaging/deb build/again) >"$work/again" 2>&1 || { tail -n 20 "$work/again"; return 1; }
    cmp "$package" "$(tail -n 1 "$work/again")" && return
    if command -v diffoscope >/dev/null; then diffoscope "$package" "$(tail -n 1 "$work/again")"; fi
    return 1
}

# What is committed, from nothing.
row_clean_machine() {
    local result=0
    [ -n "${clean:-}" ] || { not_here "scripts/chroot-test shows it, or --clean"; return; }
    make_package || return
    scripts/chroot-test -p "$package" run deb test >"$work/clean" 2>&1 || result=$?
    case $result in
    0) ;;
    77) not_here "$(tail -n 1 "$work/clean")" ;;
    *)
        tail -n 60 "$work/clean"
        return 1
        ;;
    esac
}
