# Sourced by the scripts that run Windows programs: sets up a separate Wine prefix, because the tests
# write to its registry, with a virtual desktop on which windows have frames.
export LC_ALL=C.UTF-8  # the encoding of Windows file names
export WINEPREFIX=${CORVANE_WINEPREFIX:-$PWD/build/wine} WINEDEBUG=-all WINEDLLOVERRIDES="mscoree=;mshtml="
mkdir -p "$WINEPREFIX"
trap 'wineserver -k || true' EXIT
if [ ! -f "$WINEPREFIX/system.reg" ]; then
  wineboot --init >"$WINEPREFIX/boot.log" 2>&1
  wine reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d Default /f >>"$WINEPREFIX/boot.log" 2>&1
  wine reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Default /d 1024x768 /f \
    >>"$WINEPREFIX/boot.log" 2>&1
  # Wine's fallback fonts.
  cp -n /usr/share/wine/fonts/*.ttf "$WINEPREFIX"/drive_c/windows/Fonts/ 2>/dev/null || true
  # These commands had no screen. A program on the desktop that they started would never show a window.
  wineserver -k && wineserver -w || true
fi

# on_screen COMMAND...: runs the command on its own virtual screen.
on_screen() {
  xvfb-run -a -w 30 -s "-screen 0 1024x768x24" "$@"
}
