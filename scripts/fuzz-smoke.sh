#!/usr/bin/env bash
# A short run of every libFuzzer target (ASan + UBSan, preset "fuzz"): first
# every kept input under fuzz/corpus (the regression inputs), then
# VD_FUZZ_SECONDS (15) seconds of fuzzing from them in a scratch corpus, or
# VD_FUZZ_RUNS runs when that is set (a long campaign: VD_FUZZ_RUNS=1000000).
# Each target's line tells its runs, edges (libFuzzer's "cov") and seconds.
# An input that breaks a target is kept as fuzz/corpus/<corpus>/crash-<sha1>
# to be committed as a regression input, and the script fails.
#   scripts/fuzz-smoke.sh [TARGET...]     default: every target built
set -uo pipefail
cd "$(dirname "$0")/.."
root=$PWD
seconds=${VD_FUZZ_SECONDS:-15}
limit=(-max_total_time="$seconds")
[[ -n ${VD_FUZZ_RUNS:-} ]] && limit=(-runs="$VD_FUZZ_RUNS")

# The corpus folder of a target (under fuzz/corpus).
corpus_of() {
  case $1 in
    fuzz_kinds_file) echo kinds ;;
    fuzz_val | fuzz_is_numeric | fuzz_conversions) echo number_text ;;
    fuzz_sample_json) echo sample_json ;;
    *) echo "${1#fuzz_}" ;;
  esac
}

cmake --preset fuzz >/dev/null || exit 1
targets=("$@")
if ((${#targets[@]} == 0)); then
  mapfile -t targets < <(sed -n 's/^vd_add_fuzzer(\(fuzz_[a-z_0-9]*\).*/\1/p' fuzz/CMakeLists.txt)
fi
cmake --build --preset fuzz -j "$(nproc)" --target "${targets[@]}" >/dev/null || {
  echo "fuzz: the targets do not build" >&2
  exit 1
}

scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
failed=0
for target in "${targets[@]}"; do
  binary=$root/build/fuzz/fuzz/$target
  corpus=$root/fuzz/corpus/$(corpus_of "$target")
  mkdir -p "$corpus" "$scratch/$target"
  log=$scratch/$target.log
  # The kept inputs, each once.
  if compgen -G "$corpus/*" >/dev/null && ! "$binary" "$corpus"/* >"$log" 2>&1; then
    echo "FAIL - fuzz: $target breaks on a kept input of $corpus"
    grep -m 3 -E 'ERROR|SUMMARY|Running:' "$log"
    failed=1
    continue
  fi
  started=$(date +%s.%N)
  (cd "$scratch" && "$binary" "${limit[@]}" -max_len=4096 -print_final_stats=1 \
    -artifact_prefix="$scratch/$target-" "$scratch/$target" "$corpus" >"$log" 2>&1)
  status=$?
  took=$(awk -v a="$started" -v b="$(date +%s.%N)" 'BEGIN { printf "%.1f", b - a }')
  runs=$(sed -n 's/^stat::number_of_executed_units: *//p' "$log")
  edges=$(grep -oE 'cov: [0-9]+' "$log" | tail -n 1 | cut -d' ' -f2)
  if ((status == 0)); then
    echo "ok - fuzz: $target, ${runs:-?} runs, ${edges:-?} edges, $took s"
  else
    failed=1
    for crash in "$scratch/$target"-*; do
      [[ -e $crash ]] || continue
      kept=$corpus/crash-$(sha1sum "$crash" | cut -c1-40)
      cp "$crash" "$kept"
      echo "FAIL - fuzz: $target breaks on an input, kept as ${kept#"$root"/}"
    done
    grep -m 5 -E 'ERROR|SUMMARY|what\(\)' "$log"
  fi
done
exit "$failed"
