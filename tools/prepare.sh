# What ./run, ./check and the other commands share. They source it from the top folder.

say() { printf '==> %s\n' "$*"; }
fail() { printf '%s: %s\n' "$(basename "$0")" "$*" >&2; exit 1; }

# install_packages PURPOSE... : installs what packages.txt lists for these purposes and the machine doesn't have.
install_packages() {
    local purpose name missing=()
    while read -r purpose name; do
        case " $* " in *" $purpose "*) ;; *) continue ;; esac
        dpkg-query -W -f='${Status}' "$name" 2>/dev/null | grep -q 'ok installed' || missing+=("$name")
    done < <(sed 's/#.*//' packages.txt)
    [ ${#missing[@]} -gt 0 ] || return 0
    say "Installing: ${missing[*]}"
    local root=()
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null || fail "these packages are missing, and installing them needs root or sudo"
        root=(sudo)
    fi
    "${root[@]}" apt-get update -qq || fail "apt-get update failed"
    "${root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get install -y -qq --no-install-recommends "${missing[@]}" \
        >/dev/null || fail "apt-get install failed"
}

# build PRESET TARGET... : configures, anew if the folder was moved, and builds.
build() {
    local preset=$1
    shift
    say "Building $preset"
    cmake --preset "$preset" >/dev/null 2>&1 || cmake --fresh --preset "$preset" >/dev/null ||
        fail "configuring $preset failed"
    cmake --build --preset "$preset" --target "$@" || fail "building $preset failed"
}
