#!/usr/bin/env bash
# Installs the Debian packages that are missing and makes the log directory. With nothing missing it asks for no
# rights and no network.
# usage: scripts/setup.sh [LIST...]    package lists, one package a line (default: packages.txt)
set -euo pipefail
cd "$(dirname "$0")/.."

libraries="log4cpp, glibmm 2.4, libxml++ 2.6, jsoncpp, Boost (with Boost.Regex), WordNet 3.0 (with its database), GoogleTest"

stop() {
    echo "setup: $*" >&2
    exit 1
}

as_root() {
    if [ "$(id -u)" -eq 0 ]; then
        "$@"
    else
        sudo "$@"
    fi
}

install_missing() {
    local installed missing
    installed=$(dpkg-query --show --showformat '${Package} ${db:Status-Status}\n' "$@" 2>/dev/null |
        sed -n 's/ installed$//p') || true
    missing=$(printf '%s\n' "$@" | grep -Fxv -e "$installed") || true
    [ -n "$missing" ] || return 0
    # shellcheck disable=SC2086 # a list of words is meant
    set -- $missing
    echo "setup: missing: $*"
    if [ "$(id -u)" -ne 0 ] && ! command -v sudo >/dev/null; then
        stop "not root and no sudo; as root: apt-get install $*"
    fi
    as_root apt-get update -q || stop "apt-get update failed; still missing: $*"
    as_root env DEBIAN_FRONTEND=noninteractive apt-get install -q -y --no-install-recommends "$@" ||
        stop "apt-get could not install $*"
}

# The tool truncates its log at every start, so the directory belongs to whoever builds and runs it.
make_log_directory() {
    local directory=/var/log/zelvor/logs
    [ ! -w "$directory" ] || return 0
    if [ ! -e "$directory" ]; then
        if [ "$(id -u)" -eq 0 ]; then
            install -d -m 0755 -o "${SUDO_UID:-0}" -g "${SUDO_GID:-0}" "$directory" 2>/dev/null && return
        elif command -v sudo >/dev/null; then
            sudo -n install -d -m 0755 -o "$(id -u)" -g "$(id -g)" "$directory" 2>/dev/null && return
        fi
    fi
    echo "setup: $directory is not writable; the converter runs all the same, its log is lost"
}

if ! command -v dpkg-query >/dev/null || ! command -v apt-get >/dev/null; then
    stop "this is not Debian; install a C++20 compiler, CMake, Ninja, pkg-config, clang-format, clang-tidy and these libraries, then use cmake itself: $libraries"
fi
[ $# -gt 0 ] || set -- packages.txt
# shellcheck disable=SC2046 # a list of words is meant
install_missing $(cat "$@")
make_log_directory
