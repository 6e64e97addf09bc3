#!/bin/sh
# The engine on one thread and on three: the same simulation report, comfort
# report and printed summary (but the run's time), byte for byte.
# Usage: threads_same_figures.sh SOLVANE-CLI PROGRAM-DIR SAMPLE-PROJECT
cli=$1 home=$2 sample=$3
scratch=$(mktemp -d) || exit 2
trap 'rm -rf "$scratch"' EXIT
for n in 1 3; do
    "$cli" --home "$home" run "$sample" --repeat-weather --threads $n |
        grep -v '^Simulation completed in' > "$scratch/summary$n" || exit 1
    cp "$home/temp/sim\$.out" "$scratch/sim$n" && cp "$home/temp/ecalc\$.flt" "$scratch/flt$n" ||
        exit 1
done
cmp "$scratch/sim1" "$scratch/sim3" || { echo "sim\$.out differs"; exit 1; }
cmp "$scratch/flt1" "$scratch/flt3" || { echo "ecalc\$.flt differs"; exit 1; }
cmp "$scratch/summary1" "$scratch/summary3" || { echo "the summary differs"; exit 1; }
grep -q 'Site EUI' "$scratch/summary1" || { echo "no summary"; exit 1; }
echo "one thread and three: the same figures"
