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

fail() { echo "$*" >&2; exit 1; }

expect() { # TEXT COMMAND...
    local actual
    actual=$("${@:2}")
    [ "$actual" = "$1" ] || fail "${*:2}: '$actual' instead of '$1'"
}

# what cmake --install runs, but with its list of files here and not in the build folder
sed "s|^file(WRITE \"[^\"]*/|file(WRITE \"$folder/|" "$build/cmake_install.cmake" >install.cmake
cmake -DCMAKE_INSTALL_PREFIX="$folder/first" -P install.cmake >install.log
mv first installed # nothing may remember where it was installed
prefix=$folder/installed

for linkage in shared static; do
    cmake -S "$source" -B "$linkage" -DCMAKE_PREFIX_PATH="$prefix" -DLINKAGE="$linkage" >cmake.log
    cmake --build "$linkage" -j 1 >build.log || { cat build.log; exit 1; }
    expect 10110 "$linkage/library_user"
    "$linkage/memory_user" # what is reachable is no leak
    for fault in leaks heap-use-after-free; do
        ! "$linkage/memory_user" $fault 2>report || fail "memory_user, $linkage: no report of $fault"
        grep -q "Sanitizer: .*$fault" report || { cat report; exit 1; }
    done
done
export PKG_CONFIG_PATH=$prefix/$libdir/pkgconfig
read -ra flags < <(pkg-config --cflags --libs 'zelvor >= 0.1')
read -ra words <<<"$CXXFLAGS"
"$CXX" -std=c++20 "${words[@]}" "$source/library_user.cpp" -o pkg_user "${flags[@]}"
expect 10110 env LD_LIBRARY_PATH="$prefix/$libdir" ./pkg_user
[[ $(pkg-config --libs zelvor-converter) == *'-lzelvor_converter '*'-lzelvor '* ]]

printf '<s><c>.</c></s>' >corpus.xml
expect '. $.' sed -n '$p' <(shared/converter_user corpus.xml)
expect 'tei2crf (zelvor)' sed 's/ [0-9.]*$//' <("$prefix/bin/tei2crf" --version)

# Each library that is loaded has its licence in the documents.
libraries=$(find "$prefix" -type f \( -path '*/bin/*' -o -name '*.so*' \) -exec ldd {} + | sed -nE 's/^\t(lib[^ ]*)\.so\..*/\1/p' | sort -u)
for library in $(grep -vE 'zelvor|san$' <<<"$libraries"); do
    grep -qF "\`$library\`" "$prefix/share/doc/zelvor/docs/faq.md" || fail "no licence of $library in docs/faq.md"
done
[ "$(wc -w <<<"$libraries")" -gt 15 ]

rm "$prefix/$libdir"/libzelvor.so*
expect 10110 static/library_user
read -ra flags < <(pkg-config --static --cflags --libs zelvor)
"$CXX" -std=c++20 "${words[@]}" "$source/library_user.cpp" -o static_user "${flags[@]}"
expect 10110 ./static_user
! ./pkg_user 2>/dev/null || fail "the program of pkg-config does not use the shared library"

"$source/../examples/links.sh" "$prefix"/{share/doc/zelvor,share/man/man1,include/zelvor}

# What the programs offer is in their manual pages and completions.
for program in tei2crf TaggerFormatConverter; do
    completion=$prefix/share/bash-completion/completions/$program
    bash -O extglob -n "$completion" # as bash-completion reads it
    options=$("$prefix/bin/$program" --help | grep -oE -e '--[a-z_-]+')
    for option in $options; do
        for file in <(tr -d '\\' <"$prefix/share/man/man1/$program.1") "$completion"; do
            grep -q -e "[ ']$option\\b" "$file" || fail "$option of $program is not in its manual page or completion"
        done
    done
done
