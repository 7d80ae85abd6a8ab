# The short commands; CMake, CTest and scripts/ do the work.
#   make run [INPUT=path [OUTPUT=file] [LEXICON=file]]
#   make fuzz [FUZZ_SECONDS=60]
#   make install [PREFIX=/usr/local] [DESTDIR=]
.PHONY: help setup build run check clang lint bench fuzz coverage install package docs clean
export INPUT OUTPUT LEXICON FUZZ_SECONDS

help:
	@echo "make run      install and build what the programs need, convert the examples (or INPUT=path LEXICON=file)"
	@echo "make check    install what is missing, build, run every test, then again under the sanitizers"
	@echo "make clang    build all of it with clang as well, and run every test"
	@echo "make lint     clang-format and clang-tidy over all sources"
	@echo "make bench    time the converter and the library beside their yardsticks"
	@echo "make fuzz     look for inputs that break the readers, FUZZ_SECONDS=60 for each of them (clang)"
	@echo "make coverage tell which lines of tools/, training/, utils/ and python/ no test runs (gcovr)"
	@echo "make install  build and install the programs, the library and its headers (PREFIX=/usr/local)"
	@echo "make package  make the Debian packages in build/package/packages"
	@echo "make docs     make the API documentation in build/docs/html"
	@echo "make clean    remove build/"

setup:
	@scripts/setup.sh

build: setup
	@cmake --preset release
	@cmake --build --preset release

run:
	@scripts/setup.sh scripts/packages/run.txt
	@[ -f build/release/build.ninja ] || cmake --preset programs
	@cmake --build --preset programs
	@scripts/run.sh

check:
	@scripts/setup.sh packages.txt scripts/packages/python.txt
	@cmake --preset release
	@cmake --build --preset release
	ctest --preset release
	cmake --preset sanitize
	cmake --build --preset sanitize
	ctest --preset sanitize
	cmake --preset threads
	cmake --build --preset threads
	ctest --preset threads

clang:
	@scripts/setup.sh packages.txt scripts/packages/clang.txt
	cmake --preset clang
	cmake --build --preset clang
	ctest --preset clang

lint:
	@scripts/setup.sh packages.txt scripts/packages/python.txt
	@cmake --preset release
	@scripts/lint.sh

bench:
	@scripts/setup.sh packages.txt scripts/packages/bench.txt scripts/packages/python.txt
	@bench/run.sh

fuzz: setup
	@scripts/setup.sh scripts/packages/fuzz.txt
	cmake --preset fuzz
	cmake --build --preset fuzz
	@fuzz/run.sh

coverage:
	@scripts/setup.sh packages.txt scripts/packages/coverage.txt scripts/packages/python.txt
	cmake --preset coverage
	cmake --build --preset coverage
	ctest --preset coverage
	gcovr --root . --filter tools/ --filter training/ --filter utils/ --filter python/ --exclude-unreachable-branches build/coverage

install: build
	cmake --install build/release $(if $(PREFIX),--prefix "$(PREFIX)")

package:
	@scripts/setup.sh packages.txt scripts/packages/package.txt scripts/packages/python.txt
	@cmake --preset package
	@cmake --build --preset package
	@cmake --build --preset package --target package

docs:
	@scripts/setup.sh scripts/packages/docs.txt
	@mkdir -p build
	doxygen docs/Doxyfile

clean:
	rm -rf build
