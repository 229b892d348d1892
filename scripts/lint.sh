#!/usr/bin/env bash
# Checks formatting and static analysis.
#   scripts/lint.sh                      everything: src/ tests/ tools/ bench/ fuzz/
#   scripts/lint.sh src/automation ...   only these folders or files
# clang-format --dry-run -Werror runs over every *.h and *.cpp below the paths;
# clang-tidy (.clang-tidy in the repository root) over the translation units
# below them that lie in src/, as the native compile database lists them
# (build/native/compile_commands.json; configured here when it is missing).
# VD_LINT_JOBS sets clang-tidy's parallel runs (default 2). Exit status 0 when
# both are clean, 1 otherwise.
set -uo pipefail
cd "$(dirname "$0")/.."

paths=("$@")
((${#paths[@]})) || paths=(src tests tools bench fuzz)
for p in "${paths[@]}"; do
  [[ -e $p ]] || { echo "lint: no such path: $p" >&2; exit 2; }
done

status=0

# --- clang-format -----------------------------------------------------------
mapfile -t sources < <(find "${paths[@]}" -type f \( -name '*.h' -o -name '*.cpp' \) | sort -u)
if ((${#sources[@]})); then
  if clang-format --dry-run -Werror "${sources[@]}"; then
    echo "lint: clang-format: ${#sources[@]} files clean"
  else
    echo "lint: clang-format: differences above (fix with clang-format -i)" >&2
    status=1
  fi
fi

# --- clang-tidy -------------------------------------------------------------
database=build/native/compile_commands.json
if [[ ! -f $database ]]; then
  cmake --preset native >/dev/null || { echo "lint: cannot configure the native preset" >&2; exit 2; }
fi

# Translation units of the database that lie in src/ and below one of the paths.
root=$(pwd -P)
mapfile -t units < <(
  grep -o '"file": *"[^"]*"' "$database" | sed 's/^"file": *"//; s/"$//' | sort -u |
    while read -r file; do
      relative=${file#"$root"/}
      [[ $relative == src/* ]] || continue
      for p in "${paths[@]}"; do
        p=${p%/}
        if [[ $relative == "$p" || $relative == "$p"/* ]]; then
          echo "$file"
          break
        fi
      done
    done
)

if ((${#units[@]})); then
  log=$(mktemp -d "${TMPDIR:-/tmp}/vd-lint.XXXXXX")
  trap 'rm -rf "$log"' EXIT
  start=$(date +%s%N)
  # One clang-tidy per unit; its report is kept only when it finds something.
  printf '%s\0' "${units[@]}" |
    xargs -0 -P "${VD_LINT_JOBS:-2}" -I{} sh -c \
      'out=$(clang-tidy -p build/native --quiet "$1" 2>&1) || printf "%s\n" "$out" >"$2/$(echo "$1" | tr / _).log"' \
      sh {} "$log"
  elapsed_ms=$((($(date +%s%N) - start) / 1000000))
  elapsed=$((elapsed_ms / 1000)).$(printf '%03d' $((elapsed_ms % 1000)))
  if compgen -G "$log/*.log" >/dev/null; then
    cat "$log"/*.log | grep -v ' warnings\? generated\.$\| warnings\? and [0-9]* errors\? generated\.$' >&2
    echo "lint: clang-tidy: findings above in $(ls "$log" | wc -l) of ${#units[@]} files (${elapsed}s)" >&2
    status=1
  else
    echo "lint: clang-tidy: ${#units[@]} files clean (${elapsed}s)"
  fi
else
  echo "lint: clang-tidy: no translation units of src/ below ${paths[*]}"
fi

exit $status
