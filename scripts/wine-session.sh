#!/usr/bin/env bash
# The Wine session the Windows programs run in: a Wine prefix with the crash
# dialog off (a crash prints its backtrace and ends), one wineserver, and a
# screen: a virtual one (Xvfb), or the user's $DISPLAY where asked for.
# A session lives in a folder: prefix/, and "display" while it runs.
#
# Run:    wine-session.sh start DIR [fresh] [user-screen]    (CTest's fixture)
#         wine-session.sh stop DIR
# Source: wine_session_start / wine_session_stop DIR as above;
#         wine_session_attach DIR   uses a running session (false when none);
#         wine_session_use DIR      attaches, or starts one that ends on exit.
# WINE is the 64-bit loader; wine_winpath PATH gives PATH as Wine sees it.

if [[ -x /usr/lib/wine/wine64 ]]; then
  WINE=/usr/lib/wine/wine64  # Debian's 'wine' script wants wine32 to choose by itself
else
  WINE=$(command -v wine64 || command -v wine)
fi
export WINEARCH=win64 WINEDEBUG=-all WINELOADER=$WINE

wine_winpath() { local p=${1//\//\\}; printf 'Z:%s' "$p"; }  # Wine maps Z: to /

wine_session_attach() {
  local dir=$1
  [[ -s $dir/display ]] || return 1
  export DISPLAY WINEPREFIX=$dir/prefix
  DISPLAY=$(<"$dir/display")
  xdpyinfo >/dev/null 2>&1
}

# Nothing the session starts keeps the caller's output open: CTest waits for it to close.
_wine_session_quiet() { "$@" </dev/null >/dev/null 2>&1 || true; }

wine_session_start() {
  local dir=$1 fresh= user= n= word
  for word in "${@:2}"; do
    case $word in fresh) fresh=yes ;; user-screen) user=yes ;; esac
  done
  mkdir -p "$dir"
  dir=$(cd "$dir" && pwd)
  wine_session_stop "$dir"
  if [[ -n $user && -n ${DISPLAY:-} ]] && xdpyinfo >/dev/null 2>&1; then
    : >"$dir/xvfb.pid"
  else
    # Xvfb picks a free display itself and names it once it answers.
    rm -f "$dir/displayfd"
    mkfifo "$dir/displayfd"
    setsid Xvfb -displayfd 3 -screen 0 1024x768x24 -nolisten tcp 3>"$dir/displayfd" </dev/null >/dev/null 2>&1 &
    echo $! >"$dir/xvfb.pid"
    read -r -t 30 n <"$dir/displayfd"
    rm -f "$dir/displayfd"
    [[ -n $n ]] || { echo "no virtual screen: Xvfb did not start" >&2; return 1; }
    export DISPLAY=:$n
  fi
  export WINEPREFIX=$dir/prefix
  [[ -n $fresh ]] && rm -rf "$WINEPREFIX"
  if [[ ! -d $WINEPREFIX/drive_c/windows/system32 ]]; then
    _wine_session_quiet "$WINE" wineboot -i  # its status says nothing; the folder does
  fi
  # Wine's own fonts (Debian's fonts-wine: Tahoma, and Marlett for the glyphs of
  # the caption buttons): this Wine looks for them beside its data folder, not
  # where Debian puts them, so the prefix gets them in its Fonts folder.
  local font
  for font in /usr/share/wine/fonts/*.ttf; do
    [[ -e $font ]] && _wine_session_quiet cp -n "$font" "$WINEPREFIX/drive_c/windows/Fonts/"
  done
  _wine_session_quiet wineserver -p  # one server for the session
  # Without a window manager on the virtual screen Wine draws frames and captions itself.
  local managed=N reg=$WINEPREFIX/session.reg
  [[ -s $dir/xvfb.pid ]] || managed=Y
  printf 'REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\Software\\Wine\\X11 Driver]\r\n"Managed"="%s"\r\n\r\n%s\r\n%s\r\n' \
    "$managed" '[HKEY_CURRENT_USER\Software\Wine\WineDbg]' '"ShowCrashDialog"=dword:00000000' >"$reg"
  _wine_session_quiet "$WINE" regedit /S "$(wine_winpath "$reg")"
  [[ -d $WINEPREFIX/drive_c/windows/system32 ]] || { echo "the Wine prefix was not made" >&2; return 1; }
  echo "$DISPLAY" >"$dir/display"
}

wine_session_stop() {
  local dir=$1 pid=
  [[ -d $dir/prefix ]] && { WINEPREFIX=$dir/prefix wineserver -k >/dev/null 2>&1 || true; }
  [[ -s $dir/xvfb.pid ]] && pid=$(<"$dir/xvfb.pid")
  if [[ -n $pid ]] && kill "$pid" 2>/dev/null; then
    for _ in $(seq 1 50); do kill -0 "$pid" 2>/dev/null || break; sleep 0.1; done
  fi
  rm -f "$dir/display" "$dir/xvfb.pid"
  return 0
}

wine_session_use() {
  wine_session_attach "$1" && return 0
  wine_session_start "$1" || return 1
  _wine_session_own=$1
  trap 'wine_session_stop "$_wine_session_own"' EXIT
}

if [[ ${BASH_SOURCE[0]} == "$0" ]]; then
  case ${1:-} in
    start) wine_session_start "${@:2}" ;;
    stop) wine_session_stop "${2:?usage: wine-session.sh stop DIR}" ;;
    *) echo "usage: wine-session.sh start DIR [fresh] [user-screen] | stop DIR" >&2; exit 2 ;;
  esac
fi
