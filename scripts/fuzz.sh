#!/usr/bin/env bash
# Long fuzzing of one parser with coverage instrumentation: scripts/fuzz.sh status [seconds]
set -euo pipefail
cd "$(dirname "$0")/.."
target="${1:?usage: scripts/fuzz.sh <parser> [seconds]}"
seconds="${2:-300}"
scripts/install-deps.sh
cmake --preset fuzz >/dev/null
cmake --build build/fuzz --target "fuzz_$target"
corpus="build/fuzz/corpus/$target"
mkdir -p "$corpus"
build/fuzz/fuzz/"fuzz_$target" -max_total_time="$seconds" "$corpus" "fuzz/seeds/$target"
