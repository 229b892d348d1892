# Sourced by the scripts that run the Windows programs under Wine with a
# screen (demo, Wine tests, dialog benchmark).
#   wine_session_screen [own]   $DISPLAY when it answers (and "own" is not
#                               asked), else a virtual screen (Xvfb) on a free
#                               display number; sets DISPLAY and
#                               WINE_SESSION_OWN_SCREEN (yes / empty).
#   wine_session_prefix DIR [fresh]
#                               WINEPREFIX=DIR, made when missing (always with
#                               "fresh"), one wineserver kept for the session;
#                               on a virtual screen Wine draws frames and
#                               captions itself (X11 Managed=N: no window manager).
#   wine_session_end            ends the wineserver and the virtual screen.
# WINE is the 64-bit loader; wine_winpath PATH gives PATH as Wine sees it.

if [[ -x /usr/lib/wine/wine64 ]]; then
  WINE=/usr/lib/wine/wine64  # Debian's 'wine' script wants wine32 to choose by itself
else
  WINE=$(command -v wine64 || command -v wine)
fi
export WINEARCH=win64 WINEDEBUG=-all WINELOADER=$WINE
WINE_SESSION_OWN_SCREEN=
_wine_session_xvfb=

wine_winpath() { local p=${1//\//\\}; printf 'Z:%s' "$p"; }  # Wine maps Z: to /

wine_session_screen() {
  if [[ ${1:-} != own && -n ${DISPLAY:-} ]] && xdpyinfo >/dev/null 2>&1; then
    WINE_SESSION_OWN_SCREEN=
    return 0
  fi
  local n
  for n in $(seq 90 190); do
    [[ -e /tmp/.X$n-lock || -e /tmp/.X11-unix/X$n ]] || break
  done
  Xvfb ":$n" -screen 0 1024x768x24 -nolisten tcp >/dev/null 2>&1 &
  _wine_session_xvfb=$!
  export DISPLAY=:$n
  WINE_SESSION_OWN_SCREEN=yes
  for _ in $(seq 1 200); do  # the server answers within a few seconds
    xdpyinfo >/dev/null 2>&1 && return 0
    kill -0 "$_wine_session_xvfb" 2>/dev/null || break
    sleep 0.1
  done
  echo "no virtual screen: Xvfb does not answer on $DISPLAY" >&2
  unset DISPLAY
  return 1
}

wine_session_prefix() {
  export WINEPREFIX=$1
  wineserver -k >/dev/null 2>&1 || true
  if [[ ${2:-} == fresh ]]; then rm -rf "$WINEPREFIX"; fi
  if [[ ! -d $WINEPREFIX/drive_c/windows/system32 ]]; then
    "$WINE" wineboot -i >/dev/null 2>&1 || true  # its status says nothing; the folder does
  fi
  # Wine's own fonts (Debian's fonts-wine: Tahoma, and Marlett for the glyphs of
  # the caption buttons): this Wine looks for them beside its data folder, not
  # where Debian puts them, so the prefix gets them in its Fonts folder.
  local font
  for font in /usr/share/wine/fonts/*.ttf; do
    [[ -e $font ]] && cp -n "$font" "$WINEPREFIX/drive_c/windows/Fonts/" 2>/dev/null
  done
  wineserver -p 2>/dev/null || true  # one server for the session, unless one runs already
  local managed=Y reg=$WINEPREFIX/x11-managed.reg
  [[ -n $WINE_SESSION_OWN_SCREEN ]] && managed=N
  # A crash prints its backtrace and ends the program rather than wait in a dialog for a click.
  printf 'REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\Software\\Wine\\X11 Driver]\r\n"Managed"="%s"\r\n\r\n%s\r\n%s\r\n' \
    "$managed" '[HKEY_CURRENT_USER\Software\Wine\WineDbg]' '"ShowCrashDialog"=dword:00000000' >"$reg"
  "$WINE" regedit /S "$(wine_winpath "$reg")" >/dev/null 2>&1 || true
  [[ -d $WINEPREFIX/drive_c/windows/system32 ]]
}

wine_session_end() {
  wineserver -k >/dev/null 2>&1 || true
  if [[ -n $_wine_session_xvfb ]]; then
    kill "$_wine_session_xvfb" 2>/dev/null || true
    wait "$_wine_session_xvfb" 2>/dev/null || true
    _wine_session_xvfb=
  fi
  return 0
}
