#!/bin/sh
# Process start to printed summary of `solvane-cli run` on a bundled sample,
# timed N times; prints every time and the median in milliseconds. The engine
# alone is timed too (Solv2020 again in the temp folder the run left), so the
# part that is not the simulation shows as the difference.
# Usage: bench/cli_run_timing.sh [PROGRAM-DIR] [SAMPLE] [N] [solvane-cli options...]
home=${1:-build/release/solvane}
sample=${2:-Small Office [two levels, I-P].inp}
n=${3:-9}
[ $# -ge 3 ] && shift 3 || shift $#
now() { date +%s%N; }
median() { sort -n | awk '{a[NR] = $1} END {print a[int((NR + 1) / 2)]}'; }
cli_times="" engine_times=""
i=0
while [ "$i" -lt "$n" ]; do
    a=$(now)
    "$home/solvane-cli" --home "$home" run --repeat-weather "$home/sample/$sample" "$@" \
        >/dev/null 2>&1 || { echo "solvane-cli run failed" >&2; exit 1; }
    b=$(now)
    (cd "$home/temp" && "$home/Solv2020") || { echo "Solv2020 failed" >&2; exit 1; }
    c=$(now)
    cli_times="$cli_times $(( (b - a) / 1000000 ))"
    engine_times="$engine_times $(( (c - b) / 1000000 ))"
    i=$((i + 1))
done
echo "solvane-cli run, ms:$cli_times"
echo "  median $(echo $cli_times | tr ' ' '\n' | median)"
echo "Solv2020 alone, ms:$engine_times"
echo "  median $(echo $engine_times | tr ' ' '\n' | median)"
echo "load: $(cut -d' ' -f1-3 /proc/loadavg)"
