#!/usr/bin/env python3
"""faults.py PROGRAM SAMPLE: makes the system fail while complete sessions save, and checks the file
after each.

A failed save must leave the old file and report the failure. A killed save may leave a mixture of
old and new bytes in the ranges that it writes, and nothing else. A request to end waits for the
save, and an interrupted call does not prevent it. Faults that this machine does not permit are
skipped with a message. PROGRAM is corvane_fault_program, SAMPLE is corvane-sample.
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
# Limits on a file's size: at the starts of the ranges, within them, and one byte before their ends.
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
    """A file that a session saves."""
    name: str                    # in the game's folder
    start: bytes | None          # its contents when the session begins; None if it does not exist
    length: int | None = None    # a CC4.EXE is truncated to this after it is opened
    new: bytes = b''             # its contents after an undisturbed save

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
class Setup:
    """How the program is started so that a fault occurs."""
    command: tuple = ()          # before the program
    prepare: object = None       # runs in the new process before the program
    around: object = nullcontext  # a state of the file or the disk during one session


def is_mixture(case, now):
    """True if only bytes in the known ranges differ from the old file, and have their new values."""
    if now is None:
        return case.old is None
    old, new = case.old or b'', case.new
    if not len(old) <= len(now) <= len(new):
        return False
    base = bytearray(old + new[len(old):len(now)])  # past the old end, all bytes are new
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
        self.program = self.scratch / 'program'  # where an ordinary user can start it
        shutil.copy(program, self.program)
        self.counts = dict.fromkeys(OUTCOMES.values(), 0)
        self.faults = self.mixed = self.injected = 0
        # A killed session leaves its temporary folder behind, so that is created here. The tests
        # do not read the user's home folder, and a traced program cannot be checked for leaks.
        temporary = self.scratch / 'tmp'
        temporary.mkdir()
        temporary.chmod(0o1777)
        self.environment = dict(os.environ, TMPDIR=str(temporary), HOME=str(temporary),
                                ASAN_OPTIONS='detect_leaks=0')

    def fail(self, message):
        self.faults += 1
        print(f'FAILED: {message}', file=sys.stderr, flush=True)

    # Cases.

    def target(self, case):
        return self.game / case.name

    def place(self, case):
        """Puts the file in its state before a session."""
        target = self.target(case)
        target.unlink(missing_ok=True)
        if case.start is not None:
            target.write_bytes(case.start)

    def now(self, case):
        target = self.target(case)
        return target.read_bytes() if target.exists() else None

    def make(self, name, start=None, length=None):
        """Makes a case in a fresh game, and records the result of an undisturbed save."""
        case = Case(name, start, length)
        for entry in self.game.iterdir() if self.game.exists() else ():
            shutil.rmtree(entry) if entry.is_dir() else entry.unlink()
        subprocess.run([self.sample, self.game], check=True, stdout=subprocess.DEVNULL)
        self.place(case)
        code, output, _ = self.play(case, Setup())
        if code != 0:
            sys.exit(f'{case} cannot be saved at all: {output}')
        case.new = self.now(case)
        if case.new == case.old or not is_mixture(case, case.new):
            self.fail(f'{case}: a save changes nothing, or bytes outside the known ranges')
        return case

    def cases(self):
        """Yields each kind of file at each length."""
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

    # Sessions.

    def play(self, case, setup):
        """Returns the exit code, the message to the user, and the errors."""
        length = '' if case.length is None else str(case.length)
        ran = subprocess.run([*setup.command, self.program, self.game, case.name, length],
                             env=self.environment, preexec_fn=setup.prepare, capture_output=True)
        return ran.returncode, ran.stdout.decode(), ran.stderr.decode(errors='replace')

    def try_fault(self, case, what, setup):
        """Plays a session and checks the file. Returns the outcome and the errors."""
        self.place(case)
        with setup.around():
            code, message, errors = self.play(case, setup)
        outcome = OUTCOMES.get(code)
        if outcome is None:
            self.fail(f'{case}: {what} ended with {code}: {message}{errors}')
            return outcome, errors
        self.counts[outcome] += 1
        now = self.now(case)
        if not is_sound(case, outcome, now):
            self.fail(f'{case}: {what}: {outcome}, but the contents are wrong. {message}')
        if outcome == KILLED and now not in (case.old, case.new):
            self.mixed += 1
        return outcome, errors

    def each_call(self, case, fault, expected, prepare=None):
        """Injects the fault into the 1st, 2nd, ... call until there are no more."""
        for call in range(1, 200):
            when = f'{fault}:when={call}'
            trace = ('strace', '-f', '-qq', '-e', f'trace={fault.split(":")[0]}', '-e',
                     'signal=!SIGXFSZ', '-e', f'inject={when}')
            outcome, errors = self.try_fault(case, when, Setup(trace, prepare))
            if not re.search(r'\(INJECTED\)|--- SIG|\+\+\+ killed', errors):
                break
            self.injected += 1
            if outcome not in (*expected, None):
                self.fail(f'{case}: {when}: {outcome} and not {" or ".join(expected)}')
        if call == 1:
            self.fail(f'{case}: {fault} never occurs')

    # Families of faults.

    def limits(self, case):
        for size in LIMITS[case.kind]:
            outcome, _ = self.try_fault(case, f'a limit of {size} bytes',
                                        Setup(prepare=limit(size)))
            self.injected += outcome == FAILED

    def errors(self, case):
        for call in ('pwrite64', 'fsync'):
            self.each_call(case, f'{call}:error=EIO', (FAILED,))

    def interrupts(self, case):
        """An interrupted call is repeated."""
        for call in ('getdents64', 'pwrite64'):
            self.each_call(case, f'{call}:error=EINTR', (SAVED,))

    def kills(self, case):
        for call in ('pwrite64', 'fsync'):
            self.each_call(case, f'{call}:signal=KILL', (KILLED,))
        # Also while the old bytes are restored.
        self.each_call(case, 'pwrite64:signal=KILL', (KILLED,), limit(LIMITS[case.kind][-1]))

    def ends(self, case):
        """A request to end waits until the file is saved or restored."""
        for name in ('TERM', 'INT', 'HUP'):
            self.each_call(case, f'pwrite64:signal={name}', (ENDED,))
            self.each_call(case, f'fsync:signal={name}', (ENDED,))
        self.each_call(case, 'pwrite64:signal=TERM', (ENDED,), limit(LIMITS[case.kind][-1]))

    def without_permission(self, case):
        self.refuse(case, ('chmod', 'a-w'), ('chmod', 'u+w'), become_ordinary)

    def immutable(self, case):
        self.refuse(case, ('chattr', '+i'), ('chattr', '-i'))

    def refuse(self, case, close, reopen, prepare=None):
        """Makes the file, or for a new file its folder, read-only."""
        if case.length is not None:
            return  # such a file cannot be truncated
        target = self.target(case)
        closed = target if case.start is not None else target.parent
        setup = Setup(prepare=prepare, around=lambda: closing(closed, close, reopen))
        outcome, _ = self.try_fault(case, ' '.join(close), setup)
        self.injected += outcome == FAILED
        if outcome != FAILED:
            self.fail(f'{case}: saved in spite of {" ".join(close)}')

    def full_disk(self):
        """Saves on a small file system with only a few free pages."""
        for name, start in (('new.crv', None), ('Maps/new.btd', None), ('p.crv', bytes(5000))):
            case = self.make(name, start)
            for pages in range(3):
                setup = Setup(around=lambda: fill_disk(self.game / 'filler', pages))
                outcome, _ = self.try_fault(case, f'{pages} pages free', setup)
                self.injected += outcome == FAILED

    # Reports.

    def family(self, what, inject):
        """Runs one family of faults over every case. A fault that never occurs proves nothing."""
        self.injected = 0
        for case in self.cases():
            inject(case)
        self.report(what)

    def report(self, what):
        print(f'{what:<36} in {self.injected} sessions', flush=True)
        if self.injected == 0:
            self.fail(f'{what}: never occurred')

    def finish(self):
        counts = self.counts
        print(f'{sum(counts.values())} sessions: {counts[SAVED]} saved, {counts[FAILED]} reported '
              f'a failure, {counts[ENDED]} ended after the save, {counts[KILLED]} were killed, '
              f'{self.mixed} of them with old and new bytes; {self.faults} errors')
        return 1 if self.faults else 0


def limit(size):
    """Limits the size of files, in bytes."""
    return lambda: resource.setrlimit(resource.RLIMIT_FSIZE, (size, size))


def become_ordinary():
    """Drops the privileges of root, who could write to a read-only file."""
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
def fill_disk(path, pages):
    """Fills a file system except for some pages."""
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


def skip(what, why):
    print(f'{what:<36} SKIPPED: {why}', flush=True)


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
        skip('an immutable file', 'needs root, and a file system that supports it')


def try_full_disk(harness, program, sample):
    own = ['unshare', '--mount'] + ([] if os.geteuid() == 0 else ['--map-root-user'])
    if works(*own, 'mount', '-t', 'tmpfs', 'none', harness.scratch / 'tmp'):
        again = [*own, sys.executable, __file__, program, sample, '--on-a-full-disk']
        harness.faults += subprocess.run(again).returncode
    else:
        skip('a full disk', 'mounting is not permitted')


def try_traced(harness):
    families = {'a failed call': harness.errors,
                'an interrupted call': harness.interrupts,
                'a request to end during a save': harness.ends,
                'a kill during a save': harness.kills}
    traces = works('strace', '-o', '/dev/null', 'true')
    for what, inject in families.items():
        if traces:
            harness.family(what, inject)
        else:
            skip(what, 'strace is not installed or not permitted')


def run(harness, program, sample, on_a_full_disk):
    if on_a_full_disk:
        harness.game.mkdir()
        subprocess.run(['mount', '-t', 'tmpfs', '-o', 'size=6m', 'none', harness.game], check=True)
        harness.full_disk()
        harness.report('a full disk')
        subprocess.run(['umount', harness.game], check=True)
        return harness.finish()
    harness.family('a limit on the size of files', harness.limits)
    harness.family('a read-only file', harness.without_permission)
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
