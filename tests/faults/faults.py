#!/usr/bin/env python3
"""faults.py PROGRAM SAMPLE: makes the system fail while whole sessions save, and judges the file
after each.

A save that failed has to leave the old file and say so. One that was killed may leave old and new
bytes where new ones belong, and nothing else. One that was asked to end finishes first, and one
that a signal interrupts saves all the same. What this machine does not permit is left out with a
word. PROGRAM is corvane_fault_program, SAMPLE corvane-sample.
"""

import os
import re
import resource
import shutil
import signal
import subprocess
import sys
import tempfile
from contextlib import contextmanager, nullcontext
from dataclasses import dataclass
from pathlib import Path

# The bytes of each kind of file that a save may change.
KNOWN = {
    '.EXE': [(1147264, 1148468), (1148480, 1150748), (1153780, 1161176), (1200968, 1201312)],
    '.crv': [(0, 11212)],
    '.btd': [(0, 8526)],
}
# Limits on a file's size: within the ranges, at their ends, and one byte to either side.
LIMITS = {
    '.EXE': [1147264, 1147265, 1148467, 1148480, 1149000, 1150747, 1153780, 1157000, 1161175,
             1200968, 1201311],
    '.crv': [0, 1, 5000, 11211],
    '.btd': [0, 1, 4000, 8525],
}
SAVED, FAILED, KILLED, ENDED = 'saved', 'failed', 'killed', 'ended'
OUTCOMES = {0: SAVED, 2: FAILED, -signal.SIGKILL: KILLED, -signal.SIGTERM: ENDED,
            -signal.SIGINT: ENDED, -signal.SIGHUP: ENDED}
NOBODY = 65534
PAGE = 4096


@dataclass
class Case:
    """A file in the state in which it is saved over."""
    name: str                    # in the game's folder
    start: bytes | None          # its contents as the session begins; None if it is not there
    length: int | None = None    # a CC4.EXE is cut to it after it was opened
    new: bytes = b''             # its contents after a save that nothing disturbs

    @property
    def old(self):
        if self.start is None or self.length is None:
            return self.start
        return self.start[:self.length]

    @property
    def kind(self):
        return self.name[-4:]

    def __str__(self):
        return f'{self.name}, ' + ('new' if self.old is None else f'{len(self.old)} bytes')


@dataclass
class Grip:
    """How the program is started so that a fault strikes it."""
    command: tuple = ()          # in front of the program
    prepare: object = None       # runs in the new process ahead of it
    around: object = nullcontext  # a state of the file or the disk that lasts for one session


def is_mixture(case, now):
    """True if only known bytes differ from the old file, and these are new ones."""
    if now is None:
        return case.old is None
    old, new = case.old or b'', case.new
    if not len(old) <= len(now) <= len(new):
        return False
    base = bytearray(old + new[len(old):len(now)])  # behind the old end only new bytes belong
    for start, end in KNOWN[case.kind]:
        for byte in range(start, min(end, len(now))):
            if now[byte] == new[byte]:
                base[byte] = new[byte]
    return now == base


def is_sound(case, outcome, now):
    if outcome == SAVED:
        return now == case.new
    if outcome == FAILED:
        return now == case.old
    if outcome == ENDED:
        return now in (case.old, case.new)
    return is_mixture(case, now)


class Harness:
    def __init__(self, program, sample, scratch):
        self.scratch = Path(scratch)
        self.game = self.scratch / 'game'
        self.sample = sample
        self.program = self.scratch / 'program'  # where an ordinary user, too, can start it
        shutil.copy(program, self.program)
        self.counts = dict.fromkeys(OUTCOMES.values(), 0)
        self.faults = self.mixed = self.struck = 0
        # A killed session leaves its folder behind, so it gets one here. Nothing of the user's own
        # home is read, and leaks cannot be looked for in a traced program.
        temporary = self.scratch / 'tmp'
        temporary.mkdir()
        temporary.chmod(0o1777)
        self.environment = dict(os.environ, TMPDIR=str(temporary), HOME=str(temporary),
                                ASAN_OPTIONS='detect_leaks=0')

    def complain(self, words):
        self.faults += 1
        print(f'FAILED: {words}', file=sys.stderr, flush=True)

    # Cases.

    def target(self, case):
        return self.game / case.name

    def place(self, case):
        """The file as it is when a session begins."""
        target = self.target(case)
        target.unlink(missing_ok=True)
        if case.start is not None:
            target.write_bytes(case.start)

    def now(self, case):
        target = self.target(case)
        return target.read_bytes() if target.exists() else None

    def make(self, name, start=None, length=None):
        """A case whose undisturbed save is known, in a fresh game."""
        case = Case(name, start, length)
        for entry in self.game.iterdir() if self.game.exists() else ():
            shutil.rmtree(entry) if entry.is_dir() else entry.unlink()
        subprocess.run([self.sample, self.game], check=True, stdout=subprocess.DEVNULL)
        self.place(case)
        code, words, _ = self.play(case, Grip())
        if code != 0:
            sys.exit(f'{case} cannot be saved at all: {words}')
        case.new = self.now(case)
        if case.new == case.old or not is_mixture(case, case.new):
            self.complain(f'{case}: a save changes nothing, or what is not known')
        return case

    def cases(self):
        """Each kind of file in each length that it may have."""
        sample = self.scratch / 'sample'
        if not sample.exists():
            subprocess.run([self.sample, sample], check=True, stdout=subprocess.DEVNULL)
        short, long = bytes(5000), os.urandom(20000)
        for length in (None, 1201312, 1150000):
            yield self.make('CC4.EXE', (sample / 'CC4.EXE').read_bytes(), length)
        for start in (None, short, long):
            yield self.make('p.crv', start)
        yield self.make('Maps/new.btd')
        for start in (short, (sample / 'Maps/Barvoise.btd').read_bytes()):
            yield self.make('Maps/Barvoise.btd', start)

    # Strikes.

    def play(self, case, grip):
        """Exit code, what the user was told, and the words of the grip."""
        length = '' if case.length is None else str(case.length)
        ran = subprocess.run([*grip.command, self.program, self.game, case.name, length],
                             env=self.environment, preexec_fn=grip.prepare, capture_output=True)
        return ran.returncode, ran.stdout.decode(), ran.stderr.decode(errors='replace')

    def strike(self, case, what, grip):
        """Plays the session in a grip, judges the file; its outcome and the grip's words."""
        self.place(case)
        with grip.around():
            code, told, words = self.play(case, grip)
        outcome = OUTCOMES.get(code)
        if outcome is None:
            self.complain(f'{case}: {what} ended with {code}: {told}{words}')
            return outcome, words
        self.counts[outcome] += 1
        now = self.now(case)
        if not is_sound(case, outcome, now):
            self.complain(f'{case}: {what} left a torn file, which was {outcome}. {told}')
        if outcome == KILLED and now not in (case.old, case.new):
            self.mixed += 1
        return outcome, words

    def each_call(self, case, fault, expected, prepare=None):
        """Strikes the 1st, 2nd, ... call of a kind until there are no more."""
        for call in range(1, 200):
            when = f'{fault}:when={call}'
            trace = ('strace', '-f', '-qq', '-e', f'trace={fault.split(":")[0]}', '-e',
                     'signal=!SIGXFSZ', '-e', f'inject={when}')
            grip = Grip(trace, prepare)
            outcome, words = self.strike(case, when, grip)
            if not re.search(r'\(INJECTED\)|--- SIG|\+\+\+ killed', words):
                break
            self.struck += 1
            if outcome not in (*expected, None):
                self.complain(f'{case}: {when}: {outcome} and not {" or ".join(expected)}')
        if call == 1:
            self.complain(f'{case}: {fault} never strikes')

    # Families of faults.

    def limits(self, case):
        for most in LIMITS[case.kind]:
            outcome, _ = self.strike(case, f'a limit of {most} bytes', Grip(prepare=limit(most)))
            self.struck += outcome == FAILED

    def errors(self, case):
        for call in ('pwrite64', 'fsync'):
            self.each_call(case, f'{call}:error=EIO', (FAILED,))

    def interrupts(self, case):
        """A call that a signal broke off is made again."""
        for call in ('getdents64', 'pwrite64'):
            self.each_call(case, f'{call}:error=EINTR', (SAVED,))

    def kills(self, case):
        for call in ('pwrite64', 'fsync'):
            self.each_call(case, f'{call}:signal=KILL', (KILLED,))
        # While old bytes are put back, too.
        self.each_call(case, 'pwrite64:signal=KILL', (KILLED,), limit(LIMITS[case.kind][-1]))

    def ends(self, case):
        """A request to end waits until the file is whole, or is as it was again."""
        for name in ('TERM', 'INT', 'HUP'):
            self.each_call(case, f'pwrite64:signal={name}', (ENDED,))
            self.each_call(case, f'fsync:signal={name}', (ENDED,))
        self.each_call(case, 'pwrite64:signal=TERM', (ENDED,), limit(LIMITS[case.kind][-1]))

    def without_permission(self, case):
        self.refuse(case, ('chmod', 'a-w'), ('chmod', 'u+w'), become_ordinary)

    def immutable(self, case):
        self.refuse(case, ('chattr', '+i'), ('chattr', '-i'))

    def refuse(self, case, close, reopen, prepare=None):
        """Nobody may write the file, or make a new one in its folder."""
        if case.length is not None:
            return  # nobody may cut it, either
        target = self.target(case)
        closed = target if case.start is not None else target.parent
        grip = Grip(prepare=prepare, around=lambda: closing(closed, close, reopen))
        outcome, _ = self.strike(case, ' '.join(close), grip)
        self.struck += outcome == FAILED
        if outcome != FAILED:
            self.complain(f'{case}: saved in spite of {" ".join(close)}')

    def full_disk(self):
        """The game lies on a small file system of its own, with no more than some pages free."""
        for name, start in (('new.crv', None), ('Maps/new.btd', None), ('p.crv', bytes(5000))):
            case = self.make(name, start)
            for pages in range(3):
                grip = Grip(around=lambda: crowd(self.game / 'filler', pages))
                outcome, _ = self.strike(case, f'{pages} pages free', grip)
                self.struck += outcome == FAILED

    # Reports.

    def family(self, what, strikes):
        """Runs one family over every case. One that never strikes proves nothing."""
        self.struck = 0
        for case in self.cases():
            strikes(case)
        self.report(what)

    def report(self, what):
        print(f'{what:<36} struck {self.struck} sessions', flush=True)
        if self.struck == 0:
            self.complain(f'{what}: never struck')

    def finish(self):
        counts = self.counts
        print(f'{sum(counts.values())} sessions: {counts[SAVED]} saved, {counts[FAILED]} failed '
              f'and said so, {counts[ENDED]} ended behind the save, {counts[KILLED]} were killed, '
              f'{self.mixed} of them with old and new bytes; {self.faults} faults')
        return 1 if self.faults else 0


def limit(most):
    """No file grows beyond `most` bytes."""
    return lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (most, most))


def become_ordinary():
    """A user who owns nothing here; an ordinary one is refused by the mode alone."""
    if os.geteuid() == 0:
        os.setgroups([])
        os.setgid(NOBODY)
        os.setuid(NOBODY)


@contextmanager
def closing(path, close, reopen):
    subprocess.run([*close, path], check=True)
    try:
        yield
    finally:
        subprocess.run([*reopen, path], check=True)


@contextmanager
def crowd(path, pages):
    """Fills a file system but for some pages."""
    with open(path, 'wb', buffering=0) as filler:
        try:
            while filler.write(bytes(PAGE)):
                pass
        except OSError:
            pass
        filler.truncate(max(0, filler.tell() - pages * PAGE))
    try:
        yield
    finally:
        path.unlink()


def left_out(what, why):
    print(f'{what:<36} LEFT OUT: {why}', flush=True)


def works(*command):
    try:
        return subprocess.run(command, capture_output=True).returncode == 0
    except FileNotFoundError:
        return False


def try_immutable(harness):
    probe = harness.scratch / 'probe'
    probe.touch()
    if works('chattr', '+i', probe):
        subprocess.run(['chattr', '-i', probe], check=True)
        harness.family('an immutable file', harness.immutable)
    else:
        left_out('an immutable file', 'takes root, and a file system that knows it')


def try_full_disk(harness, program, sample):
    own = ['unshare', '--mount'] + ([] if os.geteuid() == 0 else ['--map-root-user'])
    if works(*own, 'mount', '-t', 'tmpfs', 'none', harness.scratch / 'tmp'):
        again = [*own, sys.executable, __file__, program, sample, '--on-a-full-disk']
        harness.faults += subprocess.run(again).returncode
    else:
        left_out('a full disk', 'may not mount one here')


def try_traced(harness):
    families = {'a call that the system fails': harness.errors,
                'a call that a signal interrupts': harness.interrupts,
                'a request to end in a save': harness.ends,
                'a kill in the middle of a save': harness.kills}
    traces = works('strace', '-o', '/dev/null', 'true')
    for what, strikes in families.items():
        if traces:
            harness.family(what, strikes)
        else:
            left_out(what, 'strace is not installed, or may not trace')


def run(harness, program, sample, on_a_full_disk):
    if on_a_full_disk:
        harness.game.mkdir()
        subprocess.run(['mount', '-t', 'tmpfs', '-o', 'size=6m', 'none', harness.game], check=True)
        harness.full_disk()
        harness.report('a full disk')
        subprocess.run(['umount', harness.game], check=True)
        return harness.finish()
    harness.family('a limit on the size of files', harness.limits)
    harness.family('a file that may not be written', harness.without_permission)
    try_immutable(harness)
    try_full_disk(harness, program, sample)
    try_traced(harness)
    return harness.finish()


def main(program, sample, *mode):
    os.umask(0o022)
    resource.setrlimit(resource.RLIMIT_CORE, (0, 0))  # a killed save leaves no core
    with tempfile.TemporaryDirectory() as scratch:
        os.chmod(scratch, 0o755)
        return run(Harness(os.path.abspath(program), os.path.abspath(sample), scratch), program,
                   sample, mode == ('--on-a-full-disk',))


if __name__ == '__main__':
    sys.exit(main(*sys.argv[1:]))
