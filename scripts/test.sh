#!/usr/bin/env bash
# Installs what is missing, builds the tests under AddressSanitizer and UndefinedBehaviorSanitizer,
# and runs them all: unit and integration tests, every fuzz target over its seeds, and a smoke run
# of the benchmark tool.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake --preset test >/dev/null
cmake --build build/test
export ASAN_OPTIONS="detect_leaks=1:abort_on_error=1"
export UBSAN_OPTIONS="print_stacktrace=1:halt_on_error=1"
export QT_QPA_PLATFORM=offscreen
ctest --test-dir build/test --output-on-failure -j "$(nproc)"
