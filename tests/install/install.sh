#!/usr/bin/env bash
# usage: install.sh BUILD_FOLDER LIBDIR
# Installs the build into a temporary folder, moves it, and builds and runs programs against it: found by CMake (shared
# and static) and by pkg-config. The compiler and its flags come from CXX and CXXFLAGS.
set -euo pipefail
build=$1 libdir=$2
source=$(cd "$(dirname "$0")" && pwd)
folder=$(mktemp -d)
trap 'rm -rf "$folder"' EXIT
cd "$folder"

expect() { # TEXT COMMAND...
    local expected=$1 actual
    shift
    actual=$("$@")
    [ "$actual" = "$expected" ] || { echo "$*: '$actual' instead of '$expected'" >&2; exit 1; }
}

cmake --install "$build" --prefix "$folder/first" >install.log
mv first installed # nothing may remember where it was installed
prefix=$folder/installed

for linkage in shared static; do
    cmake -S "$source" -B "$linkage" -DCMAKE_PREFIX_PATH="$prefix" -DLINKAGE="$linkage" >cmake.log
    cmake --build "$linkage" -j 1 >build.log || { cat build.log; exit 1; }
    expect 10110 "$linkage/library_user"
done
export PKG_CONFIG_PATH=$prefix/$libdir/pkgconfig
read -ra flags < <(pkg-config --cflags --libs 'zelvor >= 0.1')
read -ra words <<<"$CXXFLAGS"
"$CXX" -std=c++20 "${words[@]}" "$source/library_user.cpp" -o pkg_user "${flags[@]}"
expect 10110 env LD_LIBRARY_PATH="$prefix/$libdir" ./pkg_user
pkg-config --libs zelvor-converter | grep -q -- '-lzelvor_converter .*-lzelvor\b'

printf '<s><c>.</c></s>' >corpus.xml
expect '. $.' sed -n '$p' <(shared/converter_user corpus.xml)
expect 'tei2crf (zelvor)' sed 's/ [0-9.]*$//' <("$prefix/bin/tei2crf" --version)

rm "$prefix/$libdir"/libzelvor.so*
expect 10110 static/library_user
if ./pkg_user 2>/dev/null; then
    echo "the program of pkg-config does not use the shared library" >&2
    exit 1
fi

# What the programs offer is in their manual pages and completions.
for program in tei2crf TaggerFormatConverter; do
    completion=$prefix/share/bash-completion/completions/$program
    bash -O extglob -n "$completion" # as bash-completion reads it
    options=$("$prefix/bin/$program" --help | grep -oE -e '--[a-z_-]+')
    for option in $options; do
        tr -d '\\' <"$prefix/share/man/man1/$program.1" | grep -q -e " $option\\b" &&
            grep -q -e "[ ']$option\\b" "$completion" ||
            { echo "$option of $program lacks in its manual page or completion" >&2; exit 1; }
    done
done
