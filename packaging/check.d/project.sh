# shellcheck shell=bash disable=SC2154,SC2034,SC2317
# Rows on the project's papers: licence, README, versions, spelling. And those that are tests of their own.

row_licence() {
    local spdx=GPL-3.0-or-later file=$stage/usr/share/metainfo/$id.metainfo.xml
    needs reuse:reuse xmllint:libxml2-utils || return
    need_git || return
    grep -q 'GNU GENERAL PUBLIC LICENSE' LICENSE || fault "LICENSE is another"
    cmp LICENSE "LICENSES/$spdx.txt" || fault "two texts of the licence"
    [ "$(xmllint --xpath 'string(/component/project_license)' "$file")" = "$spdx" ] || fault "metainfo: another licence"
    grep -qx "License: $spdx" "$stage/usr/share/doc/tarvolyne/copyright" || fault "copyright: another licence"
    reuse lint >"$work/reuse" 2>&1 || { cat "$work/reuse"; fault "reuse lint"; }
}

row_readme() {
    local picture pictures
    for words in ./run ./test 'What it does not do'; do
        grep -qF -- "$words" README.md || fault "README: nothing on $words"
    done
    mapfile -t pictures < <(grep -oE '\]\([^)]*\.png\)|src="[^"]*\.png"' README.md | sed -E 's/^\]\(|\)$|src="|"$//g' | sort -u)
    for picture in "${pictures[@]}"; do
        [ -s "$picture" ] || fault "README: no picture $picture"
    done
    for language in en it; do
        printf '%s\n' "${pictures[@]}" | grep -qE "(/|-|_)$language(/|-|_|\.)" || fault "README: no picture of a window in language $language"
    done
}

# The version of CMake's project is the one of truth. An unreleased chapter may stand before it in the changelog.
row_versions() {
    local version said date_of metainfo=packaging/$id.metainfo.xml
    version=$(sed -n 's/^project(Tarvolyne VERSION \([0-9.]*\).*/\1/p' CMakeLists.txt)
    [ -n "$version" ] || { fault "no version in CMakeLists.txt"; return; }
    agrees() { [ "$2" = "$version" ] || fault "$1 says $2, the project $version"; }
    agrees "the newest release of the metainfo" \
        "$(sed -n 's/.*<release version="\([^"]*\)".*/\1/p' "$metainfo" | head -n 1)"
    agrees "the date of the newest release" "$(sed -n 's/.*<release version="\([^"]*\)" date="[0-9-]*">.*/\1/p' "$metainfo" | head -n 1)"
    agrees "Debian's changelog" "$(sed -n '1s/^tarvolyne (\([^)]*\)).*/\1/p' packaging/debian/changelog)"
    agrees "CHANGELOG.md" "$(sed -n 's/^## \[\([0-9][^]]*\)\].*/\1/p' CHANGELOG.md | head -n 1)"
    said=$(sed -n "s/^set(CPACK_PACKAGE_VERSION \"\(.*\)\")/\1/p" "$build/CPackConfig.cmake")
    agrees "the package" "$said"
    # The about box gets it from the build: its text stands in the executable, followed by the end of a string.
    grep -qaP "(?<![0-9.])${version//./\\.}\x00" "$build/bin/tarvolyne" || fault "the about box's version is another"
    date_of=$(sed -n 's/^## \[[0-9][^]]*\] - \([0-9-]*\)$/\1/p' CHANGELOG.md | head -n 1)
    grep -q "<release version=\"$version\" date=\"$date_of\">" "$metainfo" || fault "two dates of $version"
}

row_spelling() {
    local scripts
    needs codespell:codespell shellcheck:shellcheck || return
    need_git || return
    # Italian is not codespell's, nor are the macros of manual pages; names in camelCase are no words.
    git ls-files -z -- ':!LICENSE' ':!LICENSES' ':!data/Tarvolyne_GuidaUtente.txt' ':!packaging/man' ':!tests/corpus' ':!*.png' |
        xargs -0 codespell -I .codespell-ignore --ignore-regex '\b[a-z]+[A-Z]\w*' || fault "misspelt"
    mapfile -t scripts < <(git grep -lE '^#!.*(ba)?sh|# shellcheck shell=' -- ':!*.md' ':!*.in')
    shellcheck -x "${scripts[@]}" || fault "shellcheck"
}

# The rows below are proved by tests; these are their names, each a pattern that a test must have.
words_tests='EveryWord\.ofTheSmallWindowsAndDialogsStandsInTheTables|MessageBoxes\.speakTheLanguageOfTheRun'
scale_tests='pictures\.ofEveryWindow|EveryWord\.fitsIntoItsWindow|TypeOf\.hundredPercent|TypeOf\.hundredAndFifty|TypeOf\.twoHundred|TypeOf\.twelvePointsFitsASmallScreen'
dark_tests='Contrast\.|TextIn\.aDarkTheme|TextIn\.aLightTheme|Off\.isSeenOnEachControlOfADarkTheme|Accent\.|Focus\.isSeenOnEachControlOfADarkDesktop'
key_tests='KeysEverywhere\.noLetterStandsTwiceInAMenu|KeysEverywhere\.noLetterStandsTwiceInAWindow|KeysEverywhere\.theLettersOfButtons|MainWindow\.standardActsHaveTheDesktopsKeys|EditMenu\.rowsChosenByControlTravelByTheStandardKeys|KeysOnly\.'
accessibility_tests='SpokenWindows\.everyControl|SpokenWindows\.theDialogs|SpokenWindows\.theDrawnKeyboard|InstrumentWindow\.isSpokenWhole|Editor\.speaksOfEachControlToAScreenReader'
silent_tests='NoDevice\.isSaidAndTheProgramEditsFiles|NoDevice\.isSaidInItalian|AlsaService\.countsNoDeviceWithoutASequencerOrWithoutTheRightToIt'
visible_tests='MainWindow\.aPlaceOffEveryScreenIsShownInViewAndKeptAsItWas|Children\.areMovedIntoViewWhileTheStoredPlaceStays'
progress_tests='SendProgress\.showsABarOnly|SendProgress\.tellsTheSeconds|SendProgress\.aSendThatBrokeOff|StatusPanel\.standsInItsOrder|Update\.addAll'
all_tests="$words_tests|$scale_tests|$dark_tests|$key_tests|$accessibility_tests|$silent_tests|$visible_tests|$progress_tests"
row_toolkit_words() { tests "$words_tests"; }
row_looks_scale() { tests "$scale_tests"; }
row_looks_dark() { tests "$dark_tests"; }
row_keys() { tests "$key_tests"; }
row_accessibility() { tests "$accessibility_tests"; }
row_no_sound() { tests "$silent_tests"; }
row_visible() { tests "$visible_tests"; }
row_progress() { tests "$progress_tests"; }
