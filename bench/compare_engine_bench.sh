#!/bin/sh
# The engine benchmark of two builds run in turns in one session (the machine
# is shared and its speed drifts; figures of different sessions do not
# compare): N rounds of the annual run and of the simulation alone, then the
# medians of real and CPU time and the ratio after / before.
# Usage: bench/compare_engine_bench.sh BEFORE/solvane_bench AFTER/solvane_bench [N]
# The annual run of AFTER is taken on one thread and on two; BEFORE is taken
# as it runs (a build without the thread argument runs on one).
before=$1 after=$2 n=${3:-5}
[ -x "$before" ] && [ -x "$after" ] || { echo "usage: $0 BEFORE AFTER [N]" >&2; exit 2; }
work=$(mktemp -d) || exit 2
trap 'rm -rf "$work"' EXIT
run() {  # binary filter file: appends "real cpu" in ms
    "$1" --benchmark_filter="$2" 2>/dev/null | awk '/^BM_/ {print $2, $4}' >> "$work/$3"
}
i=0
while [ "$i" -lt "$n" ]; do
    cut -d' ' -f1 /proc/loadavg >> "$work/load"
    if "$before" --benchmark_list_tests 2>/dev/null | grep -q 'BM_EngineAnnualRun/1'; then
        run "$before" 'BM_EngineAnnualRun/1/' annual_before
    else
        run "$before" 'BM_EngineAnnualRun$' annual_before
    fi
    run "$after" 'BM_EngineAnnualRun/1/' annual_after1
    run "$after" 'BM_EngineAnnualRun/2/' annual_after2
    run "$before" 'BM_EngineSimulation/4' sim_before
    run "$after" 'BM_EngineSimulation/4' sim_after
    i=$((i + 1))
done
median() { sort -n | awk '{a[NR] = $1} END {print a[int((NR + 1) / 2)]}'; }
col() { cut -d' ' -f"$2" "$work/$1" | median; }
printf '%-34s %9s %9s\n' "median of $n, ms" real cpu
for f in annual_before annual_after1 annual_after2 sim_before sim_after; do
    printf '%-34s %9s %9s\n' "$f" "$(col $f 1)" "$(col $f 2)"
done
awk -v a="$(col annual_after1 2)" -v b="$(col annual_before 2)" \
    'BEGIN {printf "annual run, one thread, cpu after / before: %.3f\n", a / b}'
awk -v a="$(col annual_after2 1)" -v b="$(col annual_before 1)" \
    'BEGIN {printf "annual run, two threads, real after / before: %.3f\n", a / b}'
echo "load average (1 min) at each round: $(tr '\n' ' ' < "$work/load")"
