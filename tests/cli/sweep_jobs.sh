#!/bin/sh
# A sweep written as a job list, its jobs run as GNU parallel or a Slurm array
# would run them (one line each, in any order), and the parts merged: the
# result is the one-machine sweep byte for byte, CSV and JSON.
# Usage: sweep_jobs.sh SOLVANE-CLI PROGRAM-DIR SAMPLE-PROJECT
cli=$1 home=$2 sample=$3
scratch=$(mktemp -d) || exit 2
trap 'rm -rf "$scratch"' EXIT
set -e
common="--region 6 --stations 1-5 --period 1-Jan 31-Jan"
"$cli" --home "$home" sweep "$sample" $common --jobs 2 --out "$scratch/one.csv"
"$cli" --home "$home" sweep "$sample" $common --job-list 3 --out "$scratch/jobs" > "$scratch/list.out"
grep -q 'parallel <' "$scratch/list.out"
[ "$(wc -l < "$scratch/jobs/jobs.txt")" = 3 ] || { echo "3 jobs expected"; exit 1; }
grep -q 'SBATCH --array=1-3' "$scratch/jobs/slurm-array.sh"
# The last job first, then the others as array tasks would run them.
sed -n 3p "$scratch/jobs/jobs.txt" | sh
for task in 1 2; do SLURM_ARRAY_TASK_ID=$task sh "$scratch/jobs/slurm-array.sh"; done
"$cli" merge "$scratch"/jobs/part-*.csv --out "$scratch/merged.csv"
cmp "$scratch/one.csv" "$scratch/merged.csv"
"$cli" merge "$scratch"/jobs/part-*.csv --out "$scratch/merged.json"
python3 -c "import json,sys; d=json.load(open(sys.argv[1])); assert d['schema']=='solvane-sweep/1' and len(d['stations'])==5" "$scratch/merged.json"
[ "$(grep -c '^6,' "$scratch/one.csv")" = 5 ] || { echo "5 stations expected"; exit 1; }
echo "merged parts equal the one-machine sweep"
