"""Where a move can be killed: at the gate of the mail program's stand-in, and at the program's own
system calls."""
import collections
import dataclasses
import itertools
import pathlib
import re

from programs import Fault, Program, await_that
from sample_world import WANTED

CALLS = "write,openat,rename,renameat,renameat2,unlink,unlinkat"


@dataclasses.dataclass(frozen=True)
class Stage:
    """What is under way when the kill comes."""
    name: str
    # The world that it starts from, and what it is started with.
    base: str
    flags: tuple
    # What the mail program is like all the while.
    behaviour: dict = dataclasses.field(default_factory=dict, hash=False)

    @property
    def menu(self):
        return "--ui-move" in self.flags


MOVE = Stage("move", "plain", ())
RESUME = Stage("resume", "interrupted", ("--resume",))
PUT_BACK = Stage("put-back", "moved", ("--put-back",))
# A click in the menu moves a quarter, so that there are batches to come between.
MENU = Stage("menu", "gmail", ("--ui-move",), {"menuMovesAtMost": WANTED // 4})
STAGES = (MOVE, RESUME, PUT_BACK, MENU)

# What dies at the gate, and what becomes of the other.
CHILD_GOES_ON = "child-goes-on"
CHILD_WAITS = "child-waits"
BOTH_DIE = "both-die"
HOST_DIES = "host-dies"
DEATHS = (CHILD_GOES_ON, CHILD_WAITS, BOTH_DIE, HOST_DIES)


@dataclasses.dataclass(frozen=True)
class AtGate:
    """Before the n-th move command, or request, of the script that runs."""
    stage: Stage
    death: str
    event: str
    number: int

    @property
    def kind(self):
        return f"{self.stage.name}/{self.event}/{self.death}"

    @property
    def name(self):
        return f"{self.kind}/{self.number}"


@dataclasses.dataclass(frozen=True)
class AtCall:
    """Before the n-th such system call that a thread makes, or on a file of the store."""
    stage: Stage
    call: str
    number: int
    # Below the store; empty where the thread's calls are counted whatever they are for.
    path: str = ""

    @property
    def kind(self):
        return f"{self.stage.name}/calls"

    @property
    def name(self):
        # Scans lie under the moment of their beginning, which is another one each time.
        path = re.sub(r"\d+", "N", self.path) or "any"
        return f"{self.stage.name}/{self.call}/{path}/{self.number}"


def trace(world, program, options, log):
    """Attaches strace to a program that waits. Its children are left alone."""
    tracer = Program(["strace", "-f", "-b", "execve", "-y", "-o", log, "-e", f"trace={CALLS}",
                      *options, "-p", str(program.id)], world.folder, "strace")

    def attached():
        if tracer.ended():
            raise Fault(f"strace: {tracer.complained().strip()}")
        return "attached" in tracer.complained()
    try:
        await_that(attached, "strace")
    except BaseException:
        tracer.close()
        raise
    return tracer


@dataclasses.dataclass
class Calls:
    """The calls that one undisturbed run makes once it begins to move, as far as each can be told
    from the others again."""
    points: list
    made: int
    reached: int


def calls_of(stage, world):
    """Runs the stage under strace and lists its calls. A file of the store is told by its path.
    Other files have fresh names each time, so there a thread's calls of one name are counted, and a
    point is whatever thread comes to that number first."""
    log = world.folder / "calls.log"
    world.behave(**stage.behaviour)
    with world.start("--wait", *stage.flags) as program:
        await_that(lambda: "ready" in program.printed(), "the program to be ready")
        with trace(world, program, [], log) as tracer:
            program.close_input()
            if program.wait() != 0:
                raise Fault(f"an undisturbed run fails: {program.complained()}")
            tracer.wait()
    return _points(stage, world, log.read_text())


def _points(stage, world, log):
    store = f"{world.store}/"
    of_path, of_thread = collections.Counter(), collections.Counter()
    first, told, made = {}, {}, 0
    for line in log.splitlines():
        match = re.match(r"(\d+) +(\w+)\((.*)", line)
        if not match:
            continue
        thread, call, rest = match.groups()
        made += 1
        of_thread[thread, call] += 1
        first.setdefault((call, of_thread[thread, call]), made)
        if store in rest:
            path = re.split(r'[">]', rest[rest.index(store) + len(store):])[0]
            of_path[call, path] += 1
            told[made] = AtCall(stage, call, of_path[call, path], path)
        elif call == "write" and rest.startswith("1<"):
            told[made] = None  # a line of the tool's own; how many there are depends on the polls
    for (call, number), position in first.items():
        told.setdefault(position, AtCall(stage, call, number))
    points = [point for _, point in sorted(told.items()) if point]
    return Calls(points, made - sum(point is None for point in told.values()), len(points))


# How many messages have moved in the world "interrupted".
INTERRUPTED_AFTER = 10
# Five requests find the account and the folders, three are made for each message, and one more
# looks whether the first has left.
MOVE_EVENTS = 5 + 3 * WANTED + 1
# What a batch of the menu's script takes at least.
MENU_EVENTS = 50


def at_gates():
    """All points at the gate."""
    points = []
    for stage, moves in ((MOVE, WANTED), (RESUME, WANTED - INTERRUPTED_AFTER), (PUT_BACK, WANTED)):
        for death in DEATHS:
            points += [AtGate(stage, death, "move", n) for n in range(1, moves + 1)]
    for death in DEATHS:
        points += [AtGate(MOVE, death, "event", n) for n in range(1, MOVE_EVENTS + 1)]
        points += [AtGate(MENU, death, "event", n) for n in range(1, MENU_EVENTS + 1)]
    return points


def spread(points, count):
    """So many of them, always the same. Each kind has its share, which lies evenly over the kind's
    points; each kind's first one lies elsewhere, so that together few kinds come to many places."""
    kinds = collections.defaultdict(list)
    for point in points:
        kinds[point.kind].append(point)
    # A kind of calls is several in one.
    weights = {kind: 3 if kind.endswith("/calls") else 1 for kind in kinds}
    turns = itertools.cycle([kind for kind in sorted(kinds) for _ in range(weights[kind])])
    shares = collections.Counter()
    while shares.total() < min(count, len(points)):
        kind = next(turns)
        shares[kind] += shares[kind] < len(kinds[kind])
    chosen = []
    for place, kind in enumerate(sorted(kinds)):
        step = len(kinds[kind]) / max(1, shares[kind])
        first = (place + 0.5) / len(kinds)
        chosen += [kinds[kind][int((i + first) * step)] for i in range(shares[kind])]
    return chosen
