#!/usr/bin/env bash
# Full benchmarks on generated repositories, kept between runs in build/bench-repos:
# scripts/bench.sh [scenario ...]   (default: every scenario)
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake --preset release >/dev/null
cmake --build build/release --target orvel-bench orvel
repos="$PWD/build/bench-repos"
mkdir -p "$repos"
scenarios=("$@")
[ ${#scenarios[@]} -gt 0 ] || mapfile -t scenarios < <(build/release/bench/orvel-bench --list)
for scenario in "${scenarios[@]}"; do
  build/release/bench/orvel-bench --scenario "$scenario" --repo "$repos/$scenario"
done
