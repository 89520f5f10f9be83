#!/usr/bin/env bash
# Lays the folder out that players get, moves it elsewhere and looks at it there: tests/packaging.sh BUILD_FOLDER
set -euo pipefail
place=$(mktemp -d)
trap 'rm -rf "$place"' EXIT
fail() { printf 'packaging: %s\n' "$*" >&2; exit 1; }

folder="$place/moved here"
DESTDIR='' cmake --install "$1" --prefix "$place/laid out" >/dev/null
mv "$place/laid out" "$folder"

for file in velmora velmora_print.so velmora_sound.so pictures-x{2,3,4}.bin mendel1.mid Thunder2.wav ZQT.hlp README.txt add-to-menu \
    velmora.desktop org.velmora.Velmora.metainfo.xml icons/velmora-16.png icons/velmora-256.png icons/velmora.svg \
    licences/fonts-kaushanscript.txt licences/fonts-liberation2.txt; do
    [ -s "$folder/$file" ] || fail "$file is missing"
done
for fonts in kaushanscript liberation2; do
    grep -q OFL "$folder/licences/fonts-$fonts.txt" || fail "the licence of $fonts isn't told"
done
for binary in velmora velmora_print.so velmora_sound.so; do
    ! ldd "$folder/$binary" | grep 'not found' || fail "$binary lacks a library"
    ! readelf -d "$folder/$binary" | grep -E 'RPATH|RUNPATH' || fail "$binary looks for libraries in a folder of its own"
done
[ "$("$folder/velmora" --version)" = "Velmora 1.0.0" ] || fail "the program doesn't start there"

# What the README has installed brings each library that is asked for, and nothing else.
needed=$(readelf -d "$folder"/velmora "$folder"/velmora_*.so | sed -n 's/.*(NEEDED).*\[\(.*\)\]/\1/p' | sort -u)
fonts=$(grep -aoE '/usr/share/sounds/[[:alnum:]/_.-]+' "$folder/velmora_sound.so")
read -ra named <<<"$(sed -n 's/.*apt install //p' "$folder/README.txt")"
read -ra brought <<<"$(apt-cache depends --recurse --installed --important "${named[@]}" | grep '^[^ <]' | paste -sd' ')"
missing=$(comm -23 <(echo "$needed") <(dpkg -L "${brought[@]}" 2>/dev/null | sed 's|.*/||' | sort -u))
[ -z "$missing" ] || fail "the README names no package with $missing"
dpkg -L "${named[@]}" | grep -xF "$fonts" >/dev/null || fail "the README names no package with a sound font"
for package in "${named[@]}"; do
    dpkg -L "$package" | grep -xE ".*/($(paste -sd'|' <<<"$needed"))|$(paste -sd'|' <<<"$fonts")" >/dev/null ||
        fail "the README names $package, which isn't needed"
done

desktop-file-validate "$folder/velmora.desktop"
appstreamcli validate --no-net "$folder/org.velmora.Velmora.metainfo.xml" >"$place/report" || fail "$(cat "$place/report")"

# Starts what the menu's entry tells, read as a desktop reads it, but where there is no display.
start() {
    local words
    eval "words=($(printf %b "$(sed -n 's/^Exec=//p' "$entry")"))"
    DISPLAY='' WAYLAND_DISPLAY='' QT_QPA_PLATFORM=xcb "${words[@]//%%/%}" 2>&1
}
entry="$place/home/applications/velmora.desktop"
export XDG_DATA_HOME="$place/home"
for name in 'plain name' $'all\n\t & | % \\ \\n " \' ` $(false) = é'; do
    mv "$folder" "$place/$name"
    folder="$place/$name"
    "$folder/add-to-menu" >/dev/null
    desktop-file-validate "$entry"
    [[ $(start) == "velmora: There is no display"* ]] || fail "the menu's entry doesn't start the program in '$name'"
    [ -s "$(printf %b "$(sed -n 's/^Icon=//p' "$entry")")" ] || fail "the menu's entry has no icon in '$name'"
    ! grep -q '^Terminal=true' "$entry" || fail "the menu's entry opens a terminal"
done
mv "$folder" "$place/caf"$'\xE9'
! "$place/caf"$'\xE9'/add-to-menu 2>/dev/null || fail "the menu's entry has a name that isn't UTF-8"
desktop-file-validate "$entry"
echo "The folder is whole, and runs where it lies."
