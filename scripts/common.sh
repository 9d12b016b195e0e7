# shellcheck shell=bash
# Shared by run and test; to be sourced from the root of the tree.

say() { printf '%s\n' "$*" >&2; }

die() {
    say "$@"
    exit 1
}

# windows_cache: the folder for what the Windows program is built with and runs under, which is made once and lies outside the
# tree.
windows_cache() { printf '%s\n' "${OCUVA_WINDOWS_CACHE:-${XDG_CACHE_HOME:-$HOME/.cache}/ocuva-windows}"; }

# missing_packages GROUP...: names the packages of those groups that are not installed.
missing_packages() {
    local group name rest wanted=" $* " names=()
    while read -r group name rest; do
        [[ $wanted == *" $group "* ]] && names+=("$name")
    done < <(grep -v '^#' scripts/packages.txt)
    comm -23 <(printf '%s\n' "${names[@]}" | sort) \
        <(dpkg-query -W -f '${db:Status-Status} ${Package}\n' "${names[@]}" 2>/dev/null |
            sed -n 's/^installed //p' | sort)
}

# ensure_packages GROUP...: installs what is missing; nothing runs when all is there.
ensure_packages() {
    local missing as_root=()
    if ! command -v dpkg-query >/dev/null; then
        say "This is no Debian system: scripts/packages.txt lists what has to be there."
        return
    fi
    mapfile -t missing < <(missing_packages "$@")
    ((${#missing[@]})) || return 0

    if ((EUID != 0)); then
        command -v sudo >/dev/null ||
            die "These Debian packages are missing, and neither root rights nor sudo are at hand: ${missing[*]}." \
                "Have them installed with: apt-get install ${missing[*]}"
        as_root=(sudo)
        [[ -t 0 ]] || as_root+=(-n)
    fi
    say "Installing: ${missing[*]}"
    "${as_root[@]}" env DEBIAN_FRONTEND=noninteractive sh -ec \
        'apt-get update -qq && apt-get install -y -qq --no-install-recommends "$@" >/dev/null' \
        install "${missing[@]}" </dev/null >&2 ||
        die "Could not install ${missing[*]}: see the lines above; without them Ocuva cannot be built."
}

# configure PRESET: runs cmake only where it never ran; ninja repeats it itself when a CMakeLists.txt changed.
configure() {
    [[ -f build/$1/build.ninja && build/$1/build.ninja -nt CMakePresets.json ]] ||
        cmake --preset "$1" >&2
}
