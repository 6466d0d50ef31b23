"""The simulated Gmail server over a sample home of its own, for clients from elsewhere."""
import contextlib
import imaplib
import json
import os
import pathlib
import shutil
import socket
import sqlite3
import ssl
import subprocess
import tempfile

tools = pathlib.Path(os.environ["BRINDLET_TOOLS"])
address = "robin.ashdown@gmail.example"
password = "good luck with this"
account = "imap://A94D20E6-17C8-4B5F-9D31-0C7E64B8A2F5/"
# No client waits for longer; it is never waited for when all is well.
patience = 60


class Server:
    """Runs until its end, and then removes its home."""

    def __init__(self, messages=300):
        self.home = pathlib.Path(tempfile.mkdtemp(prefix="brindlet-gmail-"))
        subprocess.run([tools / "make_mail_store", self.home, "--messages", str(messages)],
                       check=True, stdout=subprocess.DEVNULL)
        self.settings = self.home / "gmail-server.json"
        self.faults()
        self.process = None
        self.start()

    def start(self):
        self.process = subprocess.Popen([tools / "gmail_server", "--home", self.home],
                                        stdin=subprocess.PIPE, stdout=subprocess.PIPE,
                                        stderr=subprocess.PIPE)
        told = json.loads(self.process.stdout.readline())
        self.port = told["port"]
        self.authority = told["authority"]

    def stop(self):
        """By closing its standard input. Gives all that it has said since the start."""
        output, errors = self.process.communicate(timeout=patience)
        return self.process.returncode, output + errors

    def end(self):
        if not self.process.stdin.closed:
            self.stop()
        shutil.rmtree(self.home)

    def faults(self, **switches):
        """Those alone, for connections from now on."""
        self.settings.write_text(json.dumps({"passwords": {address: password},
                                             "faults": switches}))

    def tls(self):
        return ssl.create_default_context(cafile=self.authority)

    @contextlib.contextmanager
    def raw(self):
        """A bare TLS connection."""
        with socket.create_connection(("127.0.0.1", self.port), timeout=patience) as plain:
            with self.tls().wrap_socket(plain, server_hostname="localhost",
                                        suppress_ragged_eofs=False) as stream:
                yield stream

    def imap(self):
        return imaplib.IMAP4_SSL("localhost", self.port, ssl_context=self.tls(),
                                 timeout=patience)

    @contextlib.contextmanager
    def logged_in(self):
        client = self.imap()
        client.login(address, password)
        try:
            yield client
        finally:
            client.logout()

    def curl(self, path, secret=password):
        """Its exit status and what it has got."""
        done = subprocess.run(
            ["curl", "--disable", "--silent", "--noproxy", "*", "--cacert", self.authority,
             "--user", f"{address}:{secret}", f"imaps://localhost:{self.port}/{path}"],
            capture_output=True, timeout=patience)
        return done.returncode, done.stdout

    def query(self, text, *values):
        """What stands in the mail program's index."""
        index = self.home / "Library/Mail/V10/MailData/Envelope Index"
        with contextlib.closing(sqlite3.connect(index)) as database:
            return database.execute(text, values).fetchall()

    def mailbox(self, path):
        """The row of one of the account's mailboxes; the path as it stands in URLs."""
        return self.query("SELECT ROWID FROM mailboxes WHERE url = ? || ?", account, path)[0][0]

    def mailboxes(self):
        """The paths of the account's mailboxes, as they stand in URLs."""
        return [url.removeprefix(account) for url, in self.query("SELECT url FROM mailboxes")
                if url.startswith(account)]

    def header_of_file(self, row):
        """The header in a message's file, read by nothing of ours; none where there is no file."""
        found = [*self.home.glob(f"Library/**/{row}.emlx"),
                 *self.home.glob(f"Library/**/{row}.partial.emlx")]
        if not found:
            return None
        count, _, rest = found[0].read_bytes().partition(b"\n")
        message = rest[:int(count)]
        assert b"\r" not in message
        header, empty, _ = message.partition(b"\n\n")
        return (header + empty).replace(b"\n", b"\r\n")


def everything(stream):
    """All that comes until the end, and how it ends."""
    received = b""
    try:
        while block := stream.recv(65536):
            received += block
        return received, "farewell"
    except (ssl.SSLEOFError, ConnectionResetError):
        return received, "abrupt"


def line_of(stream):
    """One line, byte by byte, so that nothing behind it is read."""
    received = b""
    while not received.endswith(b"\n"):
        byte = stream.recv(1)
        if not byte:
            break
        received += byte
    return received
