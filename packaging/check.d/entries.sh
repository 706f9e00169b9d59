# shellcheck shell=bash disable=SC2154,SC2034,SC2317
# Rows on what the desktop reads: entries, AppStream, MIME types, icons, man pages.

# value FILE KEY: of a desktop entry.
value() { sed -n "s/^$2=//p" "$1" | head -n 1; }

row_entries() {
    local entry key file
    needs desktop-file-validate:desktop-file-utils || return
    for entry in "${entries[@]}"; do
        file=$stage/usr/share/applications/$entry.desktop
        desktop-file-validate "$file" || fault "$entry is no good entry"
        for key in Name GenericName 'GenericName\[it]' Comment 'Comment\[it]' Keywords 'Keywords\[it]' Icon Exec; do
            [ -n "$(value "$file" "$key")" ] || fault "$entry: no $key"
        done
    done
}

row_promises() {
    local entry
    for entry in "${entries[@]}"; do
        if grep -nE '%[a-zA-Z]|^MimeType=|^DBusActivatable=' "$stage/usr/share/applications/$entry.desktop"; then
            fault "$entry promises to open files"
        fi
    done
}

row_window_system() {
    if grep -rnI --exclude-dir=check.d QT_QPA_PLATFORM src packaging; then
        fault "a window system is forced"
    fi
}

row_appstream() {
    local file=$stage/usr/share/metainfo/$id.metainfo.xml summary picture want
    needs appstreamcli:appstream xmllint:libxml2-utils || return
    appstreamcli validate --no-net --pedantic "$file" || fault "not valid"
    for want in id developer_name developer/name 'launchable[@type="desktop-id"]' 'screenshots/screenshot/caption' \
        'releases/release/description/p' 'summary[@*[name()="xml:lang"]="it"]'; do
        xmllint --xpath "/component/$want" "$file" >/dev/null || fault "no $want"
    done
    while read -r picture; do
        [ -s "docs/pictures/$picture" ] || fault "a screenshot that is not there: docs/pictures/$picture"
    done < <(sed -n 's|.*/docs/pictures/\(.*\)</image>|\1|p' "$file")
    summary=$(xmllint --xpath 'string(/component/summary[1])' "$file")
    [ ${#summary} -le 35 ] || fault "the summary is longer than 35 characters: $summary"
    [ "${summary%.}" = "$summary" ] || fault "the summary ends in a dot"
    # The entry that a software centre starts is there, under the icon's name.
    [ "$(xmllint --xpath 'string(/component/launchable)' "$file")" = "$id.desktop" ] || fault "launches another entry"
    [ "$(value "$stage/usr/share/applications/$id.desktop" Icon)" = "$id" ] || fault "the entry has another icon"
}

# type_is FILE TYPE: what the desktop takes it for.
type_is() {
    local type
    type=$(HOME=$work XDG_DATA_HOME=$work/none XDG_DATA_DIRS=$work/data gio info -a standard::content-type "$1" |
        sed -n 's/^ *standard::content-type: //p')
    [ "$type" = "$2" ] || fault "$(basename "$1") is taken for $type, not $2"
}

# The samples by name, the banks and renamed samples by their heads; and what has our extensions but is another's.
row_mime() {
    local samples=$stage/usr/share/tarvolyne/samples mine=application/x-tarvolyne files=$work/mime
    needs gio:libglib2.0-bin update-mime-database:shared-mime-info || return
    mkdir -p "$work/data/mime/packages" "$files"
    cp /usr/share/mime/packages/freedesktop.org.xml "$stage/usr/share/mime/packages/$id.xml" "$work/data/mime/packages/"
    update-mime-database "$work/data/mime" || fault "update-mime-database refuses it"
    type_is "$samples/song.arr" $mine-arrangements
    type_is "$samples/song.sty" $mine-styles
    type_is "$samples/song.prg" $mine-programs
    type_is "$samples/encore.pgg" $mine-program-references
    type_is "$samples/studio.gbl" $mine-global
    type_is "$stage/usr/share/tarvolyne/TvlArrA" $mine-arrangements
    type_is "$stage/usr/share/tarvolyne/TvlSty" $mine-styles
    type_is "$stage/usr/share/tarvolyne/TvlPrg" $mine-programs
    cp "$samples/song.sty" "$files/SONG.STY"
    type_is "$files/SONG.STY" $mine-styles
    # LaTeX was here first.
    printf '\\NeedsTeXFormat{LaTeX2e}\n\\ProvidesPackage{song}[2026/01/01]\n\\newcommand{\\chord}[1]{#1}\n' >"$files/song.sty"
    printf '%% Chords above the words.\n%%\n\\ProvidesPackage{chords}\n' >"$files/chords.sty"
    printf '\\def\\bar{|}\n' >"$files/plain.sty"
    type_is "$files/song.sty" text/x-tex
    type_is "$files/chords.sty" text/x-tex
    type_is "$files/plain.sty" text/x-tex
    printf 'PNG of another name' >"$files/note.txt"
    type_is "$files/note.txt" text/plain
}

# png_side FILE: width and height from its head.
png_side() { od -An -tu1 -j16 -N8 "$1" | awk '{ print $3 * 256 + $4 "x" $7 * 256 + $8 }'; }

row_icons() {
    local side file
    needs xmllint:libxml2-utils || return
    for side in 16 24 32 48 64 128 256; do
        file=$stage/usr/share/icons/hicolor/${side}x$side/apps/$id.png
        [ "$(png_side "$file")" = "${side}x$side" ] || fault "$file is missing or of another size"
    done
    file=$stage/usr/share/icons/hicolor/scalable/apps/$id.svg
    xmllint --noout "$file" || fault "the scalable icon is no XML"
    [ "$(grep -c '<rect ' "$file")" -ge 12 ] || fault "the scalable icon is empty"
}

row_man_pages() {
    local folder name page words
    needs mandoc:mandoc || return
    for name in tarvolyne tarvolyne-virtual; do
        for folder in man1 it/man1; do
            page=$work/$name.1
            gzip -dc "$stage/usr/share/man/$folder/$name.1.gz" >"$page" || { fault "no $folder/$name"; continue; }
            mandoc -T lint -W warning "$page" || fault "$folder/$name"
            words=$(mandoc -T utf8 "$page" | sed 's/.\x08//g' | tr -s ' \n' ' ')
            grep -qE 'There are no options|Non ci sono opzioni' <<<"$words" || fault "$folder/$name: not a word on options"
            grep -qE 'no variable of its own|variabili proprie' <<<"$words" || fault "$folder/$name: nor on variables"
            grep -qF '/.local/share/tarvolyne' <<<"$words" || fault "$folder/$name: where the state is, it does not say"
        done
    done
}
