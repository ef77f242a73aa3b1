#!/usr/bin/env bash
# Builds the tests under ThreadSanitizer and runs the concurrency tests (queue, executor, and the
# merge editor's model, whose reads come back from other threads).
set -euo pipefail
cd "$(dirname "$0")/.."
scripts/install-deps.sh
cmake --preset tsan >/dev/null
cmake --build build/tsan --target orvel_core_tests orvel_merge_tests
export TSAN_OPTIONS="halt_on_error=1:second_deadlock_stack=1:suppressions=$PWD/tests/tsan.supp"
export QT_QPA_PLATFORM=offscreen
build/tsan/tests/orvel_core_tests --gtest_filter='GitOpRunner*:ChildProcess*:SubprocessExecutor*'
build/tsan/tests/orvel_merge_tests --gtest_filter='ConflictResolutionViewModel*'
