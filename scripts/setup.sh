#!/usr/bin/env bash
# Installs every Debian package the project needs that is missing. Idempotent and
# quiet when everything is present; names the package when one cannot be had.
set -euo pipefail

packages=(
  cmake ninja-build g++ clang clang-format clang-tidy libclang-rt-14-dev
  googletest libgtest-dev libgmock-dev libbenchmark-dev nlohmann-json3-dev
  g++-mingw-w64-x86-64 g++-mingw-w64-i686 mingw-w64-tools binutils-mingw-w64-x86-64 binutils-mingw-w64-i686
  libwine-dev wine wine64 fonts-wine xvfb x11-utils xauth imagemagick locales
)

missing=()
for p in "${packages[@]}"; do
  status=$(dpkg-query -W -f='${Status}' "$p" 2>/dev/null || true)
  [[ "$status" == "install ok installed" ]] || missing+=("$p")
done

if ((${#missing[@]})); then
  echo "setup: installing ${missing[*]}"
  sudo_cmd=()
  [[ $(id -u) -eq 0 ]] || sudo_cmd=(sudo)
  export DEBIAN_FRONTEND=noninteractive
  "${sudo_cmd[@]}" apt-get update -qq >/dev/null
  if ! "${sudo_cmd[@]}" apt-get install -y -qq --no-install-recommends "${missing[@]}" >/tmp/vd-setup-apt.log 2>&1; then
    for p in "${missing[@]}"; do
      if ! apt-cache show "$p" >/dev/null 2>&1; then
        echo "setup: package '$p' cannot be had from the configured Debian archive" >&2
      fi
    done
    echo "setup: apt-get install failed; see /tmp/vd-setup-apt.log" >&2
    exit 1
  fi
fi

# A locale whose decimal separator is "," for the Wine runs that read numbers
# the user's way (tests/wine/robot/robust_comma_locale.robot).
if ! locale -a 2>/dev/null | grep -qix 'de_DE.utf8'; then
  sudo_cmd=()
  [[ $(id -u) -eq 0 ]] || sudo_cmd=(sudo)
  "${sudo_cmd[@]}" localedef -i de_DE -f UTF-8 de_DE.UTF-8 >/dev/null 2>&1 ||
    echo "setup: the locale de_DE.UTF-8 cannot be generated; the comma-locale Wine run will fail" >&2
fi

# 32-bit Wine is optional: try once per machine, remember the outcome.
marker=/var/tmp/vd-wine32-tried
if [[ ! -e $marker ]] && ! dpkg-query -W -f='${Status}' wine32:i386 2>/dev/null | grep -q 'ok installed'; then
  if [[ $(id -u) -eq 0 ]]; then
    (dpkg --add-architecture i386 && apt-get update -qq &&
      DEBIAN_FRONTEND=noninteractive apt-get install -y -qq wine32:i386) >/tmp/vd-wine32.log 2>&1 || {
      # Leave no half-configured foreign architecture behind: its broken index
      # would make every later 'apt-get update' fail.
      dpkg --remove-architecture i386 >/dev/null 2>&1 || true
      echo "setup: 32-bit Wine (wine32:i386) does not install here; the 32-bit DLL is built and checked, not run" >&2
    }
  fi
  touch "$marker" 2>/dev/null || true
fi
exit 0
