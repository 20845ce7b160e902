# Sourced by the scripts that run Windows programs: a Wine prefix of their own, since the tests write
# into its registry, and a desktop of Wine's on which the windows have their frames.
export LC_ALL=C.UTF-8  # in which file names of Windows are written
export WINEPREFIX=${CORVANE_WINEPREFIX:-$PWD/build/wine} WINEDEBUG=-all WINEDLLOVERRIDES="mscoree=;mshtml="
mkdir -p "$WINEPREFIX"
trap 'wineserver -k || true' EXIT
if [ ! -f "$WINEPREFIX/system.reg" ]; then
  wineboot --init >"$WINEPREFIX/boot.log" 2>&1
  wine reg add 'HKCU\Software\Wine\Explorer' /v Desktop /d Default /f >>"$WINEPREFIX/boot.log" 2>&1
  wine reg add 'HKCU\Software\Wine\Explorer\Desktops' /v Default /d 1024x768 /f \
    >>"$WINEPREFIX/boot.log" 2>&1
  # Wine draws with these where it has no others.
  cp -n /usr/share/wine/fonts/*.ttf "$WINEPREFIX"/drive_c/windows/Fonts/ 2>/dev/null || true
fi

# on_screen COMMAND...: runs it on a screen of its own.
on_screen() {
  xvfb-run -a -s "-screen 0 1024x768x24" "$@"
}
