"""Programs that the suite starts: each wait is bounded, and nothing outlives the suite."""
import errno
import os
import pathlib
import signal
import subprocess
import threading
import time

# Far more than anything takes, so that a busy machine fails nothing.
PATIENCE = 60


class Fault(Exception):
    """What does not hold, as one sentence."""


class NeverReached(Fault):
    """The program has ended without coming to its kill point."""


_lock = threading.Lock()
_running = set()
_ending = False


def end_all():
    """Kills all that runs; from then on nothing can be started."""
    global _ending
    with _lock:
        _ending = True
        for program in _running:
            program.kill_all()


def await_that(condition, what):
    """Waits until the condition gives something true, and returns it."""
    deadline = time.monotonic() + PATIENCE
    while True:
        found = condition()
        if found:
            return found
        if _ending or time.monotonic() > deadline:
            raise Fault(f"waited in vain for {what}")
        time.sleep(0.002)


class Program:
    """A program in a session of its own, to which all that it starts belongs too. What it prints
    goes to files. Used as a context: at the end whoever is left of the session is killed."""

    def __init__(self, arguments, folder, name, environment=None):
        self.name = name
        self._printed = pathlib.Path(folder, name + ".out")
        self._complained = pathlib.Path(folder, name + ".err")
        with _lock, open(self._printed, "wb") as printed, open(self._complained, "wb") as errors:
            if _ending:
                raise Fault("the suite is ending")
            self._process = subprocess.Popen(arguments, stdin=subprocess.PIPE, stdout=printed,
                                             stderr=errors, env=environment,
                                             start_new_session=True)
            _running.add(self)

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.close()

    def close(self):
        self.kill_all()
        self._process.stdin.close()
        self._process.wait()
        with _lock:
            _running.discard(self)

    @property
    def id(self):
        return self._process.pid

    def printed(self):
        return self._printed.read_text()

    def complained(self):
        return self._complained.read_text()

    def close_input(self):
        self._process.stdin.close()

    def ended(self):
        return self._process.poll() is not None

    def wait(self):
        """The exit status; a negative one is the signal that ended it."""
        await_that(self.ended, f"the end of {self.name}")
        return self._process.returncode

    def kill(self):
        """Kills the program alone; its children go on."""
        self._process.kill()
        self._process.wait()

    def kill_all(self):
        try:
            os.killpg(self.id, signal.SIGKILL)
        except ProcessLookupError:
            pass

    def children(self):
        """Living members of the session but for the program itself."""
        found = []
        for entry in os.listdir("/proc"):
            if not entry.isdigit() or int(entry) == self.id:
                continue
            try:
                status = pathlib.Path("/proc", entry, "stat").read_text()
            except OSError:
                continue
            # Behind the name, which may hold anything: state, parent, group, session.
            state, _, _, session = status[status.rindex(")") + 2:].split()[:4]
            if int(session) == self.id and state not in "ZX":
                found.append(int(entry))
        return found

    def await_children(self):
        await_that(lambda: not self.children(), f"the children of {self.name}")


class Gate:
    """A FIFO at which the stand-in waits. As a context, the stand-in stands there throughout."""

    def __init__(self, path):
        self.path = str(path)
        os.mkfifo(self.path)
        self._descriptor = None

    def await_host(self, program):
        """Returns when somebody waits at the gate."""
        def opened():
            try:
                self._descriptor = os.open(self.path, os.O_WRONLY | os.O_NONBLOCK)
                return True
            except OSError as error:
                if error.errno != errno.ENXIO:
                    raise
            if program.ended():
                raise Fault("the program has ended before its script came to the gate")
            return False
        await_that(opened, "the script at the gate")

    def open(self):
        if self._descriptor is not None:
            os.close(self._descriptor)
            self._descriptor = None

    def __enter__(self):
        return self

    def __exit__(self, *_):
        self.open()
