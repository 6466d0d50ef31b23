"""A sample home with its mail, and a store of the program over it, read without their help."""
import collections
import json
import os
import pathlib
import re
import shutil
import sqlite3
import subprocess
import urllib.parse

from programs import Fault, Program

ACCOUNT = "robin@harbour.example"
SOURCE = "INBOX"
DESTINATION = "Brindlet Junk"
WANTED = 40

# The shop's mail goes, whatever the model thinks of it, and Ann's stays.
RULES = [
    {"sender": sender, "verdict": verdict, "scope": "always", "hits": 1, "created": 0,
     "example": "", "template": [], "legacy": False}
    for sender, verdict in (("shop.example", "junk"), ("baker.example", "keep"))
]


class Tools:
    """Where the programs lie."""

    def __init__(self, folder):
        self.move = str(folder / "move_messages")
        self.host = str(folder / "osascript")
        self.make_home = str(folder / "make_moving_home")


def make_world(tools, folder, kind):
    folder.mkdir()
    subprocess.run([tools.make_home, folder / "home", kind, str(WANTED)], check=True, timeout=60)
    for name in ("store", "tmp"):
        (folder / name).mkdir()
    (folder / "store/rules.json").write_text(json.dumps(RULES))
    return World(tools, folder)


class World:
    """One home with its store. The mail in `first` is what it held when it was made."""

    def __init__(self, tools, folder, first=None):
        self.tools = tools
        self.folder = folder
        self.home = folder / "home"
        self.store = folder / "store"
        self.settings = json.loads((self.home / "mail-program.json").read_text())
        self.account = self.settings["accounts"][0]
        self.first = first or self.mail()
        self.runs = 0

    def copy(self, folder):
        shutil.copytree(self.folder, folder)
        return World(self.tools, folder, self.first)

    def behave(self, **behaviour):
        """What is out of the ordinary with the mail program from its next script on."""
        settings = dict(self.settings, behaviour=behaviour)
        (self.home / "mail-program.json").write_text(json.dumps(settings))

    def start(self, *flags):
        """The program; it waits for the end of its input if it is told so."""
        self.runs += 1
        environment = dict(os.environ, TMPDIR=str(self.folder / "tmp"))
        return Program([self.tools.move, "--home", self.home, "--host", self.tools.host,
                        "--store", self.store, self.account["id"], SOURCE, *flags],
                       self.folder, f"run-{self.runs}", environment)

    def run(self, *flags):
        """Runs the program to its end. What it told of that, or None with its complaint."""
        with self.start(*flags) as program:
            program.close_input()
            program.wait()
            lines = [json.loads(line) for line in program.printed().splitlines()]
            if lines and "pending" in lines[-1]:
                return lines[-1], program.complained()
            return None, program.complained()

    def mail(self):
        """From each Message-ID to the places of its messages, as a sorted list of "account/path".
        A label counts as a place. Index and files must agree."""
        root = self.home / "Library/Mail/V10"
        database = sqlite3.connect(root / "MailData/Envelope Index", timeout=30)
        try:
            urls = dict(database.execute("SELECT ROWID, url FROM mailboxes"))
            rows = database.execute(
                "SELECT m.ROWID, m.mailbox, g.message_id_header FROM messages m"
                " JOIN message_global_data g ON g.ROWID = m.global_message_id").fetchall()
            labels = database.execute("SELECT message_id, mailbox_id FROM labels").fetchall()
        finally:
            database.close()
        paths = {row: urllib.parse.unquote(url.split("://")[1]) for row, url in urls.items()}
        files = self._files(root)
        ids = {}
        places = collections.defaultdict(list)
        for row, mailbox, header in rows:
            identifier = header.strip("<>")
            if files.pop((paths[mailbox], row), None) != identifier:
                raise Fault(f"row {row} of {paths[mailbox]} has no file of {identifier}")
            ids[row] = identifier
            places[identifier].append(paths[mailbox])
        if files:
            raise Fault(f"files without a row: {sorted(files)}")
        for row, mailbox in labels:
            places[ids[row]].append(paths[mailbox])
        return {identifier: sorted(found) for identifier, found in places.items()}

    @staticmethod
    def _files(root):
        found = {}
        for path in root.rglob("*.emlx"):
            account, *parts = path.relative_to(root).parts
            mailbox = "/".join(part.removesuffix(".mbox") for part in parts
                               if part.endswith(".mbox"))
            header = re.search(r"^Message-ID: <(.*)>$", path.read_text(), re.MULTILINE)
            found[f"{account}/{mailbox}", int(path.stem)] = header.group(1)
        return found

    # What the mail program holds.

    def place(self, mailbox):
        return f"{self.account['id']}/{mailbox}"

    def in_source(self, mail):
        return {identifier for identifier in self.wanted()
                if self.place(SOURCE) in mail[identifier]}

    def wanted(self):
        return {identifier for identifier in self.first if identifier.startswith("wanted-")}

    def moved_places(self, identifier):
        return sorted(self.place(DESTINATION) if place == self.place(SOURCE) else place
                      for place in self.first[identifier])

    # What the program has kept.

    def kept(self, name):
        """A file of the store: None when it is missing; fails like json when it is damaged."""
        path = self.store / name
        return json.loads(path.read_bytes()) if path.exists() else None

    def pending(self):
        try:
            return self.kept("pending-move.json")
        except ValueError:
            return None

    def booked(self):
        """Message-IDs that the latest record says were moved."""
        try:
            records = self.kept("history.json") or []
        except ValueError:
            return set()
        of_source = [record for record in records if record["folder"] == SOURCE]
        return {moved["messageID"] for moved in of_source[0]["moved"]} if of_source else set()

    def seen_in_destination(self):
        try:
            entries = self.kept("seen.json") or {}
        except ValueError:
            return set()
        return {identifier for identifier, entry in entries.items()
                if entry["junk"] and entry.get("folder") == DESTINATION}

    def damaged(self):
        """The bytes of each file of the store that cannot be decoded."""
        found = {}
        for path in pathlib.Path(self.store).rglob("*.json"):
            try:
                json.loads(path.read_bytes())
            except ValueError:
                found[str(path.relative_to(self.store))] = path.read_bytes()
        return found
