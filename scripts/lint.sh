#!/usr/bin/env bash
# Checks formatting and static analysis.
#   scripts/lint.sh                      everything: src/ tests/ tools/ bench/ fuzz/
#   scripts/lint.sh src/automation ...   only these folders or files
# clang-format --dry-run -Werror runs over every *.h and *.cpp below the paths;
# clang-tidy (.clang-tidy in the repository root) over the translation units
# below them that lie in src/: the portable ones as the native compile database
# lists them (build/native), those of src/win32 as the win64 preset's does
# (build/win64, MinGW-w64); each is configured here when it is missing.
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
root=$(pwd -P)

# units DATABASE PREFIX: the translation units of a compile database that lie
# below PREFIX (a folder of the repository) and below one of the paths.
units() {
  grep -o '"file": *"[^"]*"' "$1" | sed 's/^"file": *"//; s/"$//' | sort -u |
    while read -r file; do
      relative=${file#"$root"/}
      [[ $relative == "$2"/* && $relative == *.cpp ]] || continue
      for p in "${paths[@]}"; do
        p=${p%/}
        if [[ $relative == "$p" || $relative == "$p"/* ]]; then
          echo "$file"
          break
        fi
      done
    done
}

# wants PREFIX: true when a path asks for units below PREFIX.
wants() {
  local p
  for p in "${paths[@]}"; do
    p=${p%/}
    [[ $p == "$1" || $p == "$1"/* || $1 == "$p"/* ]] && return 0
  done
  return 1
}

# The portable code through the native database; the Windows layer (src/win32)
# through the win64 preset's, whose MinGW-w64 compiler clang-tidy's own driver
# recognises by name but whose C++ library it must be shown.
native_units=()
win_units=()
if wants src; then
  if [[ ! -f build/native/compile_commands.json ]]; then
    cmake --preset native >/dev/null || { echo "lint: cannot configure the native preset" >&2; exit 2; }
  fi
  mapfile -t native_units < <(units build/native/compile_commands.json src | grep -v "^$root/src/win32/")
fi
win_args=()
if wants src/win32; then
  if [[ ! -f build/win64/compile_commands.json ]]; then
    cmake --preset win64 >/dev/null || { echo "lint: cannot configure the win64 preset" >&2; exit 2; }
  fi
  # The component's header comes from widl.
  cmake --build build/win64 --target vd_win32_idl >/dev/null || { echo "lint: widl failed" >&2; exit 2; }
  mapfile -t win_units < <(units build/win64/compile_commands.json src/win32)
  compiler=$(grep -m1 -o '"command": *"[^ "]*' build/win64/compile_commands.json | sed 's/^"command": *"//')
  while read -r dir; do
    [[ $dir == */c++* ]] && win_args+=("--extra-arg=-isystem$dir")
  done < <("$compiler" -E -x c++ - -v </dev/null 2>&1 | sed -n '/<\.\.\.> search starts/,/End of search/p' |
    sed -n 's/^ //p')
  # Options only GCC knows (a test program's -Wno-restrict) are no finding.
  win_args+=("--extra-arg=-Wno-unknown-warning-option")
fi

log=$(mktemp -d "${TMPDIR:-/tmp}/vd-lint.XXXXXX")
trap 'rm -rf "$log"' EXIT
# tidy BUILD-DIR [EXTRA-ARGS...] < units: one clang-tidy per unit; its report
# is kept only when it finds something.
tidy() {
  local build=$1
  shift
  tr '\n' '\0' | xargs -0 -r -P "${VD_LINT_JOBS:-2}" -I{} sh -c \
    'b=$1; l=$2; f=$3; shift 3; out=$(clang-tidy -p "$b" --quiet "$@" "$f" 2>&1) || printf "%s\n" "$out" >"$l/$(echo "$f" | tr / _).log"' \
    sh "$build" "$log" {} "$@"
}

count=$((${#native_units[@]} + ${#win_units[@]}))
if ((count)); then
  start=$(date +%s%N)
  ((${#native_units[@]})) && printf '%s\n' "${native_units[@]}" | tidy build/native
  ((${#win_units[@]})) && printf '%s\n' "${win_units[@]}" | tidy build/win64 "${win_args[@]}"
  elapsed_ms=$((($(date +%s%N) - start) / 1000000))
  elapsed=$((elapsed_ms / 1000)).$(printf '%03d' $((elapsed_ms % 1000)))
  summary="${#native_units[@]} native + ${#win_units[@]} win64 files"
  if compgen -G "$log/*.log" >/dev/null; then
    cat "$log"/*.log | grep -v ' warnings\? generated\.$\| warnings\? and [0-9]* errors\? generated\.$' >&2
    echo "lint: clang-tidy: findings above in $(ls "$log" | wc -l) of $summary (${elapsed}s)" >&2
    status=1
  else
    echo "lint: clang-tidy: $summary clean (${elapsed}s)"
  fi
else
  echo "lint: clang-tidy: no translation units of src/ below ${paths[*]}"
fi

exit $status
