#!/usr/bin/env bash
# Compares the Linux program with the Windows program under Wine: a game folder edited by either
# program, or by one after the other, must end up byte-identical, and both must find the same maps
# for a patch file through the registry of one prefix. For Debian and Ubuntu.
set -euo pipefail
cd "$(dirname "$0")/.."
. scripts/dependencies.sh

need build
need windows
build release --target corvane_tour corvane-tool
build windows --target corvane_tour corvane-tool
. scripts/wine.sh

folder=build/compare-platforms
rm -rf "$folder"
mkdir -p "$folder/home"
ln -s "$WINEPREFIX" "$folder/home/.wine"

# play SYSTEM TOUR [PART]: plays the tour, or a part of it, in $folder/TOUR.
play() {
  local tour=$folder/$2 log=$folder/$2-${3:-whole}-$1.log
  case $1 in
    linux) HOME=$PWD/$folder/home QT_QPA_PLATFORM=offscreen QT_LOGGING_RULES='*.warning=false' \
      timeout 120 build/release/tests/tour/corvane_tour "$tour" ${3+"$3"} ;;
    windows) on_screen timeout 120 wine build/windows/tests/tour/corvane_tour.exe "${tour//\//\\}" ${3+"$3"} ;;
  esac >"$log" 2>&1 || { cat "$log"; exit 1; }
}

play linux linux-alone
play windows windows-alone
play linux linux-first first
play windows linux-first second
play windows windows-first first
play linux windows-first second
for tour in windows-alone linux-first windows-first; do
  diff -r "$folder/linux-alone/game" "$folder/$tour/game"
  echo "$tour: $(find "$folder/$tour/game" -type f | wc -l) files, identical to linux-alone"
done

# Pictures and pages.
old=$folder/linux-alone/game
new=$folder/moved
cp -r "$old" "$new"
build/release/tool/corvane-tool show --json "$old/CC4.EXE" |
  sed '5s/"Left": [0-9]*/"Left": 321/' >"$folder/moved.json"
build/release/tool/corvane-tool copy --unchecked "$folder/moved.json" "$new/CC4.EXE" >"$folder/copy.log"
for system in linux windows; do
  case $system in
    linux) tool=(build/release/tool/corvane-tool) ;;
    windows) tool=(wine build/windows/tool/corvane-tool.exe) ;;
  esac
  "${tool[@]}" draw "$new/CC4.EXE" --against "$old/CC4.EXE" "$folder/$system.svg"
  "${tool[@]}" draw "$new/CC4.EXE" "$folder/$system.html"
done
for output in svg html; do
  cmp "$folder/linux.$output" "$folder/windows.$output"
  echo "corvane-tool, $output: $(wc -c <"$folder/linux.$output") bytes, identical on both"
done

# The key that the game's installer writes, in the view of 32-bit programs.
key='HKLM\Software\Strategic Simulations Inc.\Close Combat\4.00'
game=$PWD/$folder/linux-alone/game
trap 'wine reg delete "$key" /f /reg:32 >>"$folder/reg.log" 2>&1; wineserver -k || true' EXIT
wine reg add "$key" /v InstalledTo /d "Z:${game//\//\\}" /f /reg:32 >"$folder/reg.log" 2>&1
wineserver -k -w  # flushes the registry to disk
for system in linux windows; do
  play "$system" linux-alone patch
  grep '^   [0-9]' "$folder/linux-alone-patch-$system.log" | tr -d '\r' >"$folder/$system.maps"
done
diff "$folder/linux.maps" "$folder/windows.maps"
echo "patch file: $(wc -l <"$folder/linux.maps") maps, identical on both"

# tool SYSTEM OUTPUT ARGUMENT...: runs corvane-tool and stores its output and its exit status.
tool() {
  local program=(build/release/tool/corvane-tool) output=$folder/$2-$1.txt status
  [ "$1" = linux ] || program=(wine build/windows/tool/corvane-tool.exe)
  for _ in 1 2; do
    status=0
    "${program[@]}" "${@:3}" >"$output" 2>&1 || status=$?
    grep -q '^wine client error' "$output" || break  # a client of a Wine server that is just ending
  done
  echo "exit status $status" >>"$output"
}

# A map file that causes warnings and escapes and contains every byte of the code page.
maps=$folder/linux-alone/game/Maps
for byte in {0..255}; do printf '%b' "\\0$(printf %o "$byte")"; done |
  dd of="$maps/Merlaut.btd" bs=1 seek=200 conv=notrunc status=none
printed=0
for call in "check $maps/../CC4.EXE" "show $maps/../CC4.EXE" "show --json $maps/../CC4.EXE" \
  "show --json $maps/Merlaut.btd" "diff $maps/Merlaut.btd $maps/DORNESCH.BTD" "check" "--help" \
  "check --strict $maps/Merlaut.btd" "copy --dry-run --unchecked $maps/../CC4.EXE $folder/new.crv"; do
  for system in linux windows; do
    # shellcheck disable=SC2086 # each word is an argument
    tool $system call $call
  done
  cmp "$folder/call-linux.txt" "$folder/call-windows.txt" || { echo "corvane-tool $call"; exit 1; }
  printed=$((printed + $(wc -c <"$folder/call-linux.txt")))
done
echo "corvane-tool: $printed bytes printed, identical on both"
