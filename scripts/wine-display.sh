# Sourced: a fresh Wine prefix and a virtual X screen for Windows programs that
# show windows. wine_display_start PREFIX sets WINEPREFIX, WINE_LOADER and
# DISPLAY; wine_display_stop ends what it started.

_wine_display_xvfb_pid=

_wine_display_free() {
  local n
  for n in $(seq 90 190); do
    [[ -e /tmp/.X$n-lock || -e /tmp/.X11-unix/X$n ]] || { echo "$n"; return 0; }
  done
  return 1
}

wine_display_start() {
  local prefix=$1 display n
  # The 64-bit loader: Debian's 'wine' script wants wine32 to choose by itself.
  if [[ -x /usr/lib/wine/wine64 ]]; then
    WINE_LOADER=/usr/lib/wine/wine64
  else
    WINE_LOADER=$(command -v wine64 || command -v wine)
  fi
  export WINE_LOADER WINEPREFIX=$prefix WINEARCH=win64 WINEDEBUG=-all

  display=$(_wine_display_free) || { echo "no free X display" >&2; return 1; }
  Xvfb ":$display" -screen 0 1024x768x24 -nolisten tcp >/dev/null 2>&1 &
  _wine_display_xvfb_pid=$!
  export DISPLAY=:$display
  for n in $(seq 1 200); do  # up to 20 s for the server to answer
    xdpyinfo >/dev/null 2>&1 && break
    kill -0 "$_wine_display_xvfb_pid" 2>/dev/null || { echo "Xvfb did not start" >&2; return 1; }
    sleep 0.1
  done
  xdpyinfo >/dev/null 2>&1 || { echo "Xvfb does not answer on $DISPLAY" >&2; return 1; }

  wineserver -k >/dev/null 2>&1
  rm -rf "$WINEPREFIX"
  "$WINE_LOADER" wineboot -i >/dev/null 2>&1
  wineserver -p  # one server for the whole run
  local reg=$WINEPREFIX/unmanaged.reg
  printf 'REGEDIT4\r\n\r\n[HKEY_CURRENT_USER\\Software\\Wine\\X11 Driver]\r\n"Managed"="N"\r\n' >"$reg"
  "$WINE_LOADER" regedit /S "Z:${reg//\//\\}" >/dev/null 2>&1
  [[ -d $WINEPREFIX/drive_c/windows/system32 ]] || { echo "the Wine prefix was not created" >&2; return 1; }
}

wine_display_stop() {
  wineserver -k >/dev/null 2>&1
  if [[ -n $_wine_display_xvfb_pid ]]; then
    kill "$_wine_display_xvfb_pid" 2>/dev/null
    wait "$_wine_display_xvfb_pid" 2>/dev/null
    _wine_display_xvfb_pid=
  fi
}
