#!/usr/bin/env bash
# scripts/faults.sh [PROGRAM SAMPLE]: makes the system fail while whole sessions save, and judges the
# file after each: a save that failed has to leave the old file and say so; one that was killed, old
# and new bytes where new ones belong, and nothing else. What this machine does not permit is left
# out with a word. Builds the programs (corvane_fault_program, corvane-sample) unless they are given.
set -euo pipefail
cd "$(dirname "$0")/.."

if [ $# -eq 2 ]; then
  built=$1 sample=$2
else
  . scripts/dependencies.sh
  need outside
  build release --target corvane_fault_program corvane-sample
  built=build/release/tests/corvane_fault_program sample=build/release/samples/corvane-sample
fi

umask 022
ulimit -c 0                         # a killed save leaves no core
export ASAN_OPTIONS=detect_leaks=0  # which cannot be looked for in a traced program
scratch=$(mktemp -d)
trap 'rm -rf "$scratch"' EXIT
chmod 755 "$scratch"
mkdir -m 1777 "$scratch/tmp"
export TMPDIR=$scratch/tmp
program=$scratch/program game=$scratch/game
cp "$built" "$program"  # where an ordinary user, too, can start it
mkdir "$game"
passed=0 failed=0 told=0 killed=0 mixed=0 torn=0

complain() {
  echo "FAILED: $*" >&2
  failed=$((failed + 1))
}

# The file as it is when a session begins.
place() {
  rm -f "$target"
  [ ! -e "$scratch/start" ] || cp "$scratch/start" "$target"
}

# From now on FILE is saved. At first it has the contents of START, or is not there. A CC4.EXE is cut
# to LENGTH after it was opened.
over() { # FILE [START [LENGTH]]
  file=$1 cut=${3:-} target=$game/$1
  rm -rf "$scratch/start" "$scratch/old" "${game:?}"/*
  "$sample" "$game" >/dev/null
  if [ -n "${2:-}" ]; then
    cp "$2" "$scratch/start"
    cp "$2" "$scratch/old"
  fi
  [ -z "$cut" ] || truncate -s "$cut" "$scratch/old"
  name="$file, $(stat -c '%s bytes' "$scratch/old" 2>/dev/null || echo new)"
  place
  "$program" play "$game" "$file" "$cut" >&2 || { complain "$name: cannot be saved at all"; exit 1; }
  cp "$target" "$scratch/new"
  "$program" judge "$scratch/old" "$scratch/new" "$target" killed ||
    complain "$name: a save changes what is not known"
}

is_sound() { # OUTCOME
  if [ "$1" != saved ] && [ ! -e "$target" ]; then
    [ ! -e "$scratch/old" ]
  elif [ "$1" = failed ] && [ ! -e "$scratch/old" ]; then
    false
  else
    "$program" judge "$scratch/old" "$scratch/new" "$target" "$1"
  fi
}

# Plays the session in the grip of COMMAND, and judges the file.
strike() { # COMMAND...
  local words outcome
  place
  code=0
  words=$(exec 2>&1; "$@" "$program" play "$game" "$file" "$cut") || code=$?
  case $code in
    0) outcome=saved ;;
    2) outcome=failed told=$((told + 1)) ;;
    137 | 153) outcome=killed killed=$((killed + 1)) ;;
    *) complain "$name: $* ended with $code, $words" && return ;;
  esac
  if ! is_sound $outcome; then
    torn=$((torn + 1))
    complain "$name: $* left a torn file, $words"
    return
  fi
  passed=$((passed + 1))
  [ ! -e "$target" ] || cmp -s "$target" "$scratch/new" || cmp -s "$target" "$scratch/old" ||
    mixed=$((mixed + 1))
}

# Faults, each of which starts the program in its grip.

limited() { # BYTES: writes behind them fail
  trap '' XFSZ
  cut_off "$@"
}

cut_off() { # BYTES: a write behind them kills
  prlimit --pid "$BASHPID" --fsize="$1"
  shift
  "$@"
}

injected() { # FAULT, as strace spells it
  local fault=$1
  shift
  strace -f -o /dev/null -e "trace=${fault%%:*}" -e "inject=$fault" "$@"
}

ordinary() { # a user who owns nothing here
  if [ "$(id -u)" -eq 0 ]; then
    setpriv --reuid=65534 --regid=65534 --clear-groups "$@"
  else
    "$@"
  fi
}

crowded() { # PAGES: no more are free
  local pages=$1 code=0
  shift
  head -c 64M /dev/zero >"$game/filler" 2>/dev/null || true
  truncate -s "-$((pages * 4096))" "$game/filler"
  "$@" || code=$?
  rm "$game/filler"
  return $code
}

# Tells how often a kind of fault struck since the last report. One that never does proves nothing.
before=0
report() { # WHAT
  local struck=$((told + killed - before))
  before=$((told + killed))
  printf '%-36s struck %d sessions\n' "$1" "$struck"
  [ "$struck" -gt 0 ] || complain "$1: never struck"
}

left_out() { # WHAT WHY
  printf '%-36s LEFT OUT: %s\n' "$1" "$2"
}

# Strikes the 1st, 2nd, ... call until there are no more.
each_call() { # FAULT [COMMAND...]
  local fault=$1 call unharmed
  shift
  strike "$@"
  unharmed=$code
  for call in $(seq 40); do
    strike "$@" injected "$fault:when=$call"
    [ "$code" -eq "$unharmed" ] || continue
    [ "$call" -gt 1 ] || complain "$name: $fault never strikes"
    return 0
  done
  complain "$name: $fault strikes for ever"
}

limits() { # BYTES...
  local bytes
  for bytes in "$@"; do
    strike limited "$bytes"
    strike cut_off "$bytes"
  done
}

kills() { # BYTES...
  each_call pwrite64:signal=KILL
  each_call fsync:signal=KILL
  each_call pwrite64:signal=KILL limited "${!#}"  # while old bytes are put back, too
}

errors() { # BYTES...
  each_call pwrite64:error=EIO
  each_call fsync:error=EIO
}

# Starts the program with a file, or the folder of a new one, that nobody may write.
without_permission() { # FILE COMMAND...
  local closed=$1 code=0
  shift
  chmod a-w "$closed"
  ordinary "$@" || code=$?
  chmod u+w "$closed"
  return $code
}

immutable() { # FILE COMMAND...
  local closed=$1 code=0
  shift
  chattr +i "$closed"
  "$@" || code=$?
  chattr -i "$closed"
  return $code
}

read_only() {
  local closed=$target
  case $cut in
    '' | 1250000) cut= ;;
    *) return 0 ;;  # nobody else can cut it, either
  esac
  [ -e "$scratch/start" ] || closed=$(dirname "$target")
  strike "$refusal" "$closed"
  [ "$code" -eq 2 ] || complain "$name: could be saved in spite of $refusal"
}

# Saves each kind of file in each length that it may have, in the grip of FUNCTION, which is given
# lengths inside of what is written, the last one at its end.
for_each_file() { # FUNCTION
  local length start
  for length in 1250000 1201312 1150000; do
    over CC4.EXE "$scratch/sample/CC4.EXE" $length
    "$1" 1147264 1147265 1148467 1148480 1149000 1150747 1153780 1157000 1161175 1200968 1201311
  done
  for start in '' "$scratch/short" "$scratch/long"; do
    over p.crv "$start"
    "$1" 0 1 5000 11211
  done
  over Maps/new.btd
  "$1" 0 1 4000 8525
  for start in "$scratch/short" "$scratch/sample/Maps/Barvoise.btd"; do
    over Maps/Barvoise.btd "$start"
    "$1" 0 1 4000 8525
  done
}

full_disk() {
  local pages
  for pages in 0 1 2; do
    for file in new.crv Maps/new.btd; do
      over $file
      strike crowded $pages
    done
    over p.crv "$scratch/short"
    strike crowded $pages
  done
}

head -c 5000 /dev/zero >"$scratch/short"
if [ -n "${CORVANE_SMALL_DISK:-}" ]; then  # started anew below
  mount -t tmpfs -o size=6m none "$game"
  full_disk
  umount "$game"
  echo "$passed $failed $told $torn" >"$CORVANE_SMALL_DISK"
  exit 0
fi

"$sample" "$scratch/sample" >/dev/null
head -c 20000 /dev/urandom >"$scratch/long"

for_each_file limits
report "a limit on the size of files"

if ordinary true 2>/dev/null; then
  refusal=without_permission
  for_each_file read_only
  report "a file that may not be written"
else
  left_out "a file that may not be written" "cannot become an ordinary user here"
fi

touch "$scratch/probe"
if chattr +i "$scratch/probe" 2>/dev/null; then
  chattr -i "$scratch/probe"
  refusal=immutable
  for_each_file read_only
  report "an immutable file"
else
  left_out "an immutable file" "takes root, and a file system that knows it"
fi

own=(unshare --mount)
[ "$(id -u)" -eq 0 ] || own+=(--map-root-user)
if "${own[@]}" mount -t tmpfs none "$scratch/tmp" 2>/dev/null; then
  CORVANE_SMALL_DISK=$scratch/counts "${own[@]}" scripts/faults.sh "$built" "$sample"
  read -r more_passed more_failed more_told more_torn <"$scratch/counts"
  passed=$((passed + more_passed)) failed=$((failed + more_failed))
  told=$((told + more_told)) torn=$((torn + more_torn))
  report "a full disk"
else
  left_out "a full disk" "may not mount one here"
fi

if strace -o /dev/null true 2>/dev/null; then
  for_each_file errors
  report "a call that the system fails"
  for_each_file kills
  report "a kill in the middle of a save"
else
  left_out "failing calls, kills" "strace is not installed, or may not trace"
fi

echo "$((passed + torn)) sessions: $told saves failed and said so; $killed were killed, and $mixed of" \
  "these left old and new bytes within what is known of the file; $torn files torn."
echo "$passed passed, $failed failed"
[ "$failed" -eq 0 ]
