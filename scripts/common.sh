# shellcheck shell=bash
# What run.sh, test.sh and .ci/run share. Sourced by them; they stand in the project's root folder after that.

project_root=$(cd "$(dirname "${BASH_SOURCE[0]}")/.." && pwd)
cd "$project_root" || exit 2

say() { printf '%s\n' "$*" >&2; }
fail() { say "$*"; exit 2; }

# packages_of GROUP...: the names in these groups of packages.txt.
packages_of() {
    local group
    for group in "$@"; do
        sed -n "/^\[$group\]/,/^\[/ { s/[[:space:]]*#.*//; /^[a-z0-9]/p }" packages.txt
    done
}

is_installed() { [ "$(dpkg-query -W -f '${db:Status-Status}' "$1" 2>/dev/null)" = installed ]; }

# missing_packages GROUP...: those that aren't installed.
missing_packages() {
    local name
    for name in $(packages_of "$@"); do
        is_installed "$name" || printf '%s\n' "$name"
    done
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    elif [ -t 0 ]; then
        sudo "$@"
    else
        sudo -n "$@"
    fi
}

# install_missing GROUP...: installs what is missing of these groups, naming it first. Asks nothing but a password.
install_missing() {
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        say "This isn't a Debian system: nothing is installed, and packages.txt tells what has to be there."
        return 0
    fi
    local missing
    mapfile -t missing < <(missing_packages "$@")
    [ "${#missing[@]}" -gt 0 ] || return 0
    say "Installing: ${missing[*]}"
    [ "$(id -u)" -eq 0 ] || command -v sudo >/dev/null ||
        fail "Neither root nor sudo: as root, run  apt-get install --no-install-recommends ${missing[*]}"
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -q update >&2 ||
        fail "The package lists couldn't be fetched; check the network and /etc/apt/sources.list."
    as_root env DEBIAN_FRONTEND=noninteractive apt-get -q -y --no-install-recommends install "${missing[@]}" >&2 ||
        fail "These packages couldn't be installed: ${missing[*]}"
}

# configure PRESET [CMAKE_ARGUMENT...]: with ccache where there is one.
configure() {
    local launcher=()
    if command -v ccache >/dev/null; then launcher=(-DCMAKE_CXX_COMPILER_LAUNCHER=ccache); fi
    cmake --preset "$@" "${launcher[@]}" >&2
}

# build PRESET [TARGET...]: everything without a target. Tells of its steps on standard error, like configure.
build() {
    local preset=$1
    shift
    cmake --build --preset "$preset" --parallel "$(nproc)" ${1+--target "$@"} >&2
}
