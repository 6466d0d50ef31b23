"""Each switch of the simulated Gmail server lets go wrong what it says, and nothing else."""
import signal
import socket
import ssl
import subprocess
import tempfile
import time
import unittest

from server import Server, address, everything, line_of, password, patience, tools

greeting = b"* OK Ready\r\n"


class Faults(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.server = Server(50)

    @classmethod
    def tearDownClass(cls):
        cls.server.end()

    def setUp(self):
        self.server.faults()

    def refusal(self):
        """What the client finds wrong with the certificate."""
        with self.assertRaises(ssl.SSLCertVerificationError) as caught:
            with self.server.raw():
                pass
        return caught.exception.verify_message

    def test_without_any_all_is_well(self):
        with self.server.raw() as stream:
            self.assertEqual(line_of(stream), greeting)
            stream.sendall(b"a NOOP\r\nb LOGOUT\r\n")
            self.assertEqual(everything(stream), (
                b"a OK Nothing done\r\n* BYE Until next time\r\nb OK Farewell\r\n", "farewell"))

    def test_certificates_are_refused_for_what_is_wrong_with_them(self):
        for kind, words in (("expired", "has expired"), ("notYetValid", "not yet valid"),
                            ("foreign", "unable to get local issuer"),
                            ("selfSigned", "self.signed"), ("wrongHost", "Hostname mismatch")):
            with self.subTest(kind):
                self.server.faults(certificate=kind)
                self.assertRegex(self.refusal(), words)
                # curl's own word for it: the peer could not be verified.
                self.assertEqual(self.server.curl("INBOX")[0], 60)
        self.server.faults(certificate="good")
        with self.server.raw() as stream:
            self.assertEqual(line_of(stream), greeting)

    def test_no_tls_at_all(self):
        self.server.faults(certificate="plainText")
        with self.assertRaises(ssl.SSLError):
            with self.server.raw():
                pass
        with socket.create_connection(("127.0.0.1", self.server.port), patience) as plain:
            plain.sendall(b"a LOGOUT\r\n")
            self.assertTrue(everything(plain)[0].startswith(greeting))

    def test_a_slow_server_waits_before_each_answer(self):
        self.server.faults(delay=0.2)
        started = time.monotonic()
        with self.server.raw() as stream:
            line_of(stream)
            stream.sendall(b"a NOOP\r\n")
            self.assertEqual(line_of(stream), b"a OK Nothing done\r\n")
        self.assertGreaterEqual(time.monotonic() - started, 0.4)

    def test_every_byte_by_itself(self):
        self.server.faults(splitsEveryByte=True)
        with self.server.raw() as stream:
            self.assertEqual(stream.recv(100), b"*")
            self.assertEqual(b"*" + line_of(stream), greeting)
            stream.sendall(b"a LOGIN " + f'"{address}" "{password}"\r\n'.encode())
            self.assertEqual(stream.recv(100), b"a")
            self.assertEqual(line_of(stream), b" OK Come in\r\n")
            stream.sendall(b"b SELECT INBOX\r\nc UID FETCH 1:* BODY[HEADER]\r\nd LOGOUT\r\n")
            self.assertTrue(everything(stream)[0].endswith(b"d OK Farewell\r\n"))

    def test_hangs_up_after_any_number_of_bytes_sent(self):
        talk = b"a NOOP\r\nb LOGOUT\r\n"
        whole = (greeting + b"a OK Nothing done\r\n* BYE Until next time\r\n"
                 b"b OK Farewell\r\n")
        for sent in (0, 1, len(greeting) - 1, len(greeting), len(greeting) + 1, len(whole) - 1):
            for abruptly, how in ((False, "farewell"), (True, "abrupt")):
                with self.subTest(sent=sent, how=how):
                    self.server.faults(closesAfterSent=sent, closesAbruptly=abruptly)
                    with self.server.raw() as stream:
                        if sent > len(greeting):
                            stream.sendall(talk)
                        received, ended = everything(stream)
                        self.assertEqual(received, whole[:sent])
                        # What was sent in vain may end the connection on its own.
                        if sent <= len(greeting):
                            self.assertEqual(ended, how)

    def test_hangs_up_after_any_number_of_bytes_received(self):
        first = b"a NOOP\r\n"
        for count, answer in ((0, b""), (1, b""), (len(first) - 1, b""),
                              (len(first), b"a OK Nothing done\r\n"),
                              (len(first) + 3, b"a OK Nothing done\r\n")):
            with self.subTest(count):
                self.server.faults(closesAfterReceived=count)
                with self.server.raw() as stream:
                    stream.sendall((first + b"b NOOP\r\n")[:max(count, 1)])
                    self.assertEqual(everything(stream)[0], greeting + answer)

    def test_no_bad_and_bye_to_the_nth_command(self):
        for switch, answer in (("no", b"b NO That cannot be done now\r\n"),
                               ("bad", b"b BAD That is not understood\r\n"),
                               ("bye", b"* BYE Enough for now\r\n")):
            with self.subTest(switch):
                self.server.faults(**{switch: 2})
                with self.server.raw() as stream:
                    line_of(stream)
                    stream.sendall(b"a NOOP\r\n")
                    self.assertEqual(line_of(stream), b"a OK Nothing done\r\n")
                    stream.sendall(b"b NOOP\r\n")
                    self.assertEqual(line_of(stream), answer)

    def test_a_farewell_for_a_greeting(self):
        self.server.faults(bye=0)
        with self.server.raw() as stream:
            self.assertEqual(everything(stream), (b"* BYE Not today\r\n", "farewell"))

    def test_huge_lines(self):
        self.server.faults(hugeLine=3_000_000)
        with self.server.raw() as stream:
            line_of(stream)
            stream.sendall(b"a LOGOUT\r\n")
            self.assertEqual(everything(stream)[0],
                             b"* BYE Until next time\r\n* OK " + b"x" * 3_000_000 +
                             b"\r\na OK Farewell\r\n")

    def test_bytes_that_are_no_utf_8(self):
        self.server.faults(invalidUtf8=True)
        with self.server.raw() as stream:
            line_of(stream)
            stream.sendall(b"a NOOP\r\n")
            self.assertEqual(line_of(stream), b"a OK Nothing done \xC3(\xFF\r\n")

    def test_a_client_that_goes_away_harms_nobody(self):
        with self.server.logged_in() as client:
            for _ in range(20):
                with socket.create_connection(("127.0.0.1", self.server.port), patience) as plain:
                    plain.sendall(b"no TLS\r\n")
                with self.server.raw() as stream:
                    stream.sendall(f'a LOGIN "{address}" "{password}"\r\nb SELECT INBOX\r\n'
                                   'c UID FETCH 1:* BODY[HEADER]\r\n'.encode())
            self.assertEqual(client.noop()[0], "OK")


class TheTool(unittest.TestCase):
    def test_nothing_that_it_says_holds_a_password(self):
        server = Server(50)
        self.addCleanup(server.end)
        with server.logged_in() as client:
            client.select("INBOX")
        stranger = server.imap()
        with self.assertRaises(stranger.error):
            stranger.login(address, "another secret")
        stranger.logout()
        status, said = server.stop()
        self.assertEqual((status, said), (0, b""))

    def test_ends_when_it_is_asked_to_whoever_is_connected(self):
        for ask in (signal.SIGTERM, signal.SIGINT, None):
            with self.subTest(ask):
                server = Server(50)
                self.addCleanup(server.end)
                server.faults(delay=3600)
                with server.raw():
                    with socket.create_connection(("127.0.0.1", server.port), patience):
                        if ask:
                            server.process.send_signal(ask)
                            self.assertEqual(server.process.wait(patience), 0)
                        else:
                            self.assertEqual(server.stop()[0], 0)

    def test_makes_an_app_password_where_there_is_none(self):
        server = Server(50)
        self.addCleanup(server.end)
        server.stop()
        server.settings.unlink()
        server.start()
        self.assertRegex(server.settings.read_text(),
                         r'"robin.ashdown@gmail.example":"([a-z]{4} ){3}[a-z]{4}"')
        self.assertEqual(server.settings.stat().st_mode & 0o777, 0o600)

    def test_names_what_is_in_its_way(self):
        def run(*arguments):
            done = subprocess.run([tools / "gmail_server", *arguments], stdin=subprocess.DEVNULL,
                                  capture_output=True, text=True, timeout=patience)
            self.assertEqual(done.stdout, "")
            return done.returncode, done.stderr
        with tempfile.TemporaryDirectory() as empty:
            status, words = run("--home", empty)
            self.assertEqual((status, "no simulated mail program" in words), (1, True))
        server = Server(50)
        self.addCleanup(server.end)
        status, words = run("--home", server.home, "--port", str(server.port))
        self.assertEqual((status, "cannot be listened on" in words), (1, True))
        server.settings.write_text("{}x")
        status, words = run("--home", server.home)
        self.assertEqual((status, "cannot be understood" in words), (1, True))
        for wrong in ([], ["--home"], ["--home", "a", "b"], ["--home", "a", "--port", "65536"]):
            self.assertEqual(run(*wrong)[0], 2, wrong)


if __name__ == "__main__":
    unittest.main()
