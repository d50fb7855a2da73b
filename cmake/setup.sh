# What ./demo, ./test and fuzz/run share; they source it. It enters the project's root folder, and gives the functions
# that install the packages and build. A relative path among the caller's arguments is one below $called_from.
# shellcheck shell=bash

set -euo pipefail
# shellcheck disable=SC2034 # read by the scripts that source this one
called_from=$PWD
script=$(realpath "$0")
cd "$(dirname "${BASH_SOURCE[0]}")/.."

package_list=cmake/debian-packages.txt

say() {
    printf '== %s\n' "$*"
}

fail() {
    printf '%s: %s\n' "${0##*/}" "$*" >&2
    exit 1
}

# Prints the comment that opens the calling script, if the argument asks for help, and ends.
help_if_asked() {
    case ${1-} in
    -h | --help) sed -n '2,/^$/s/^# \{0,1\}//p' "$script" && exit ;;
    esac
}

# Prints the packages of the list that are not installed.
missing_packages() {
    local package
    grep -Ev '^[[:space:]]*(#|$)' "$package_list" | while read -r package; do
        dpkg-query --show --showformat='${db:Status-Status}' "$package" 2>/dev/null | grep -qx installed ||
            printf '%s\n' "$package"
    done
}

# Installs what is missing. As root it calls apt-get, else through sudo; without either it names the packages and stops.
install_packages() {
    if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
        say "This is no Debian: going on with what is installed; $package_list tells what is needed."
        return
    fi
    local -a missing=() as_root=()
    mapfile -t missing < <(missing_packages)
    if [ ${#missing[@]} -eq 0 ]; then
        say "All packages of $package_list are installed."
        return
    fi
    if [ "$(id -u)" -ne 0 ]; then
        command -v sudo >/dev/null ||
            fail "these packages are missing; ask root to run: apt-get install ${missing[*]}"
        as_root=(sudo)
    fi
    say "Installing: ${missing[*]}"
    local -a apt=("${as_root[@]}" env DEBIAN_FRONTEND=noninteractive apt-get -q -o DPkg::Lock::Timeout=600)
    "${apt[@]}" update || fail "the package lists cannot be read; missing are: ${missing[*]}"
    "${apt[@]}" install -y --no-install-recommends "${missing[@]}" ||
        fail "apt-get could not install: ${missing[*]}"
}

# build PRESET [CMAKE BUILD OPTION...]: configures the preset and builds it.
build() {
    local preset=$1
    shift
    say "Configuring and building the preset '$preset' in build/$preset."
    cmake --preset "$preset"
    cmake --build --preset "$preset" "$@"
}
