#!/usr/bin/env bash
# Runs the benchmark tool once on a tiny generated repository: a check that it works, not a measurement.
set -euo pipefail
tool="$1"
work=$(mktemp -d)
trap 'rm -rf "$work"' EXIT
export HOME="$work/home" GIT_CONFIG_NOSYSTEM=1 GIT_CONFIG_GLOBAL=/dev/null
export GIT_AUTHOR_NAME=Bench GIT_AUTHOR_EMAIL=bench@orvel.invalid GIT_COMMITTER_NAME=Bench GIT_COMMITTER_EMAIL=bench@orvel.invalid
mkdir -p "$HOME"
line=$("$tool" --scenario status-100k --tiny --rounds 2 --repo "$work/repo")
echo "$line"
[[ "$line" =~ ^scenario=status-tiny\ ours_ms=[0-9.]+\ git_ms=[0-9.]+\ ratio=[0-9.]+\ paired_ratio=[0-9.]+\ files=40\  ]]
line=$("$tool" --scenario diff-parse --tiny --rounds 2 --repo "$work/diff-repo")
echo "$line"
[[ "$line" =~ ^scenario=diff-parse-tiny\ ours_ms=[0-9.]+\ git_ms=[0-9.]+\ ratio=[0-9.]+\ paired_ratio=[0-9.]+\ mb_per_s=[0-9]+\ .*files=20\ .*counts_agree=yes$ ]]
line=$("$tool" --scenario graph-2000 --tiny --rounds 2 --repo "$work/history")
echo "$line"
[[ "$line" =~ ^scenario=graph-tiny\ ours_ms=[0-9.]+\ git_ms=[0-9.]+\ ratio=[0-9.]+\ paired_ratio=[0-9.]+\ ours_cpu_ms=.*\ paired_cpu_ratio=[0-9.]+\ commits=300\ rows=300$ ]]
line=$("$tool" --scenario layout-200k --tiny --rounds 2 --repo "$work/history")
echo "$line"
[[ "$line" =~ ^scenario=layout-tiny\ ours_ms=[0-9.]+\ git_ms=[0-9.]+\ ratio=[0-9.]+\ paired_ratio=[0-9.]+\ commits=300\  ]]
line=$("$tool" --scenario branches-5000 --tiny --rounds 2 --repo "$work/branches" 2>/dev/null)
echo "$line"
[[ "$line" =~ ^scenario=branches-tiny\ ours_ms=[0-9.]+\ git_ms=[0-9.]+\ ratio=[0-9.]+\ paired_ratio=[0-9.]+\ branches=52\  ]]
line=$("$tool" --scenario blame-20k --tiny --rounds 2 --repo "$work/blame" 2>/dev/null)
echo "$line"
[[ "$line" =~ ^scenario=blame-tiny\ ours_ms=[0-9.]+\ git_ms=[0-9.]+\ ratio=[0-9.]+\ paired_ratio=[0-9.]+\ ours_cpu_ms=.*\ lines=300\ runs=[0-9]+\  ]]
line=$("$tool" --scenario graph-apply-2000 --tiny --rounds 2 --repo "$work/history" 2>/dev/null)
echo "$line"
[[ "$line" =~ ^scenario=graph-apply-tiny\ ours_ms=[0-9.]+\ git_ms=[0-9.]+\ ratio=[0-9.]+\ .*\ commits=300\ refs=150\ rows=301\  ]]
line=$("$tool" --scenario graph-paint --tiny --repo "$work/history" 2>/dev/null)
echo "$line"
[[ "$line" =~ ^scenario=graph-paint\ frame_ms=[0-9.]+\ first_paint_ms=[0-9.]+\ plain_ms=[0-9.]+\ ratio=[0-9.]+\ .*\ rows=50\ lanes=2[0-9]\  ]]
line=$("$tool" --scenario sidebar-5000 --tiny --rounds 2 --repo "$work/sidebar" 2>/dev/null)
echo "$line"
[[ "$line" =~ ^scenario=sidebar-tiny\ ours_ms=[0-9.]+\ git_ms=[0-9.]+\ ratio=[0-9.]+\ .*\ rows=62\ tags=10$ ]]
line=$("$tool" --scenario filter-budget --tiny --rounds 2 --repo "$work/unused")
echo "$line"
[[ "$line" =~ ^scenario=filter-budget-tiny\ ours_ms=[0-9.]+\ slowest_ms=[0-9.]+\ budget_ms=100\ ratio=[0-9.]+\ names=500\ timed_out=1\  ]]
line=$("$tool" --scenario highlight-10k --tiny --rounds 2 --repo "$work/none" 2>/dev/null)
echo "$line"
[[ "$line" =~ ^scenario=highlight-10k-tiny\ ours_ms=[0-9.]+\ mb=[0-9.]+\ mb_per_s=[0-9.]+\ tokens=[0-9]+$ ]]
line=$("$tool" --scenario diff-view-10k --tiny --rounds 2 --repo "$work/diff-view" 2>/dev/null)
echo "$line"
[[ "$line" =~ ^scenario=diff-view-10k-tiny\ ours_ms=[0-9.]+\ git_ms=[0-9.]+\ ratio=[0-9.]+\ .*\ rows=1001\ painted=yes$ ]]
line=$("$tool" --scenario status-10k-list --tiny --rounds 2 --repo "$work/status-list" 2>/dev/null)
echo "$line"
[[ "$line" =~ ^scenario=status-list-tiny\ ours_ms=[0-9.]+\ git_ms=[0-9.]+\ ratio=[0-9.]+\ paired_ratio=[0-9.]+\ rows=40$ ]]
line=$("$tool" --scenario history-full --tiny --rounds 2 --repo "$work/history" 2>/dev/null)
echo "$line"
[[ "$line" =~ ^scenario=history-full-tiny\ ours_ms=[0-9.]+\ git_ms=[0-9.]+\ ratio=[0-9.]+\ paired_ratio=[0-9.]+\ rows=300\ peak_rss_mb=[0-9.]+\ frame_ms=[0-9.]+$ ]]
line=$("$tool" --scenario rebase-preview-50 --tiny --rounds 2 --repo "$work/rebase" 2>/dev/null)
echo "$line"
[[ "$line" =~ ^scenario=rebase-preview-tiny\ ours_ms=[0-9.]+\ git_ms=[0-9.]+\ ratio=[0-9.]+\ .*\ steps=8\ conflicts=0\ merge_tree_only_ms=[0-9.]+\ reprediction_ms=[0-9.]+\ reprediction_end_ms=[0-9.]+\ reprediction_start_ms=[0-9.]+$ ]]
line=$("$tool" --scenario discard-journal --tiny --rounds 2 --repo "$work/discard" 2>/dev/null)
echo "$line"
[[ "$line" =~ ^scenario=discard-journal-tiny\ ours_ms=[0-9.]+\ git_ms=[0-9.]+\ ratio=[0-9.]+\ paired_ratio=[0-9.]+\ files=50\ failures=0$ ]]
