#!/usr/bin/env bash
# Installs what is missing, builds Orvel optimised and starts it. Arguments go to the program.
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake --preset release >/dev/null
cmake --build build/release --target orvel
exec build/release/src/orvel "$@"
