#!/bin/sh
# A run whose engine refuses the project: the CLI shows the engine's record
# with the refusal, nothing of an earlier run, and never says completed.
# Usage: failed_run.sh SOLVANE-CLI PROGRAM-DIR SAMPLE-PROJECT
cli=$1 home=$2 sample=$3
scratch=$(mktemp -d) || exit 2
trap 'rm -rf "$scratch"' EXIT
sed 's/^HVAC Type .*/HVAC Type 99\r/' "$sample" > "$scratch/bad.inp"
printf 'MONTHLY HEATING AND COOLING of an earlier run\r\n' > "$home/temp/sim\$.out"
out=$("$cli" --home "$home" run "$scratch/bad.inp" 2>&1)
code=$?
printf '%s\n' "$out"
[ "$code" = 1 ] || { echo "exit status $code, 1 expected"; exit 1; }
printf '%s\n' "$out" | grep -q 'HVAC Type 99 is out of range' || { echo "refusal not shown"; exit 1; }
printf '%s\n' "$out" | grep -q 'simulation not completed' || { echo "no failure line"; exit 1; }
if printf '%s\n' "$out" | grep -q -e 'Simulation completed' -e 'MONTHLY HEATING'; then
    echo "a failed run was shown as completed"
    exit 1
fi
[ ! -e "$home/temp/sim\$.out" ] || { echo "an earlier run's sim\$.out is still there"; exit 1; }
echo "failed run told truly"
