#!/usr/bin/env bash
# Compares the Python module with the library and with lxml.
set -euo pipefail
cd "$(dirname "$0")/.."

cmake --preset release -DZELVOR_BENCH=ON -DZELVOR_PYTHON=ON >/dev/null
cmake --build --preset release --target zelvor_python python_bench -- -j2 >/dev/null
python=$(sed -n 's/^Python_EXECUTABLE:[^=]*=//p' build/release/CMakeCache.txt)
PYTHONPATH=build/release/python "${python:-/usr/bin/python3}" -B bench/python.py build/release/bench/python_bench
