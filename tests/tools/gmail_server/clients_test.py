"""What curl and Python's imaplib make of the simulated Gmail server."""
import email
import re
import unittest

from server import Server, address, password

all_mail = '"[Gmail]/All Mail"'


class Clients(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.server = Server()
        cls.rows = [row for row, in cls.server.query(
            "SELECT ROWID FROM messages WHERE mailbox = ? ORDER BY ROWID",
            cls.server.mailbox("%5BGmail%5D/All%20Mail"))]

    @classmethod
    def tearDownClass(cls):
        cls.server.end()

    def test_curl_reads_the_header_of_a_message_by_its_uid(self):
        checked = 0
        for uid in (1, 2, len(self.rows) // 2, len(self.rows)):
            header = self.server.header_of_file(self.rows[uid - 1])
            if header is None:
                continue
            checked += 1
            self.assertEqual(
                self.server.curl(f"%5BGmail%5D%2FAll%20Mail;UID={uid};SECTION=HEADER"), (0, header))
        self.assertGreater(checked, 1)

    def test_curl_reads_single_fields(self):
        status, field = self.server.curl("INBOX;UID=1;SECTION=HEADER.FIELDS%20(MESSAGE-ID)")
        self.assertEqual(status, 0)
        self.assertRegex(field, rb"(?i)^message-id:[^\n]*<[^>]+>\r\n\r\n$")

    def test_curl_lists_mailboxes(self):
        status, listing = self.server.curl("")
        self.assertEqual(status, 0)
        self.assertIn(b'* LIST (\\All) "/" "[Gmail]/All Mail"\r\n', listing)
        self.assertIn(b'"Travel/C&APQ-te d\'&AOk-t&AOk-"', listing)

    def test_curl_is_refused_with_a_wrong_password(self):
        self.assertEqual(self.server.curl("INBOX", "wrong")[0], 67)

    def test_curl_finds_no_mailbox_that_is_not_there(self):
        status, got = self.server.curl("Nowhere;UID=1;SECTION=HEADER")
        self.assertNotEqual(status, 0)
        self.assertEqual(got, b"")

    def test_imaplib_lists_selects_and_logs_out(self):
        client = self.server.imap()
        self.assertIn("X-GM-EXT-1", client.capabilities)
        self.assertEqual(client.login(address, password)[0], "OK")
        self.assertEqual(client.noop()[0], "OK")
        status, mailboxes = client.list()
        self.assertEqual((status, len(mailboxes)), ("OK", len(self.server.mailboxes())))
        for name in mailboxes:
            quoted = re.search(rb'"/" (".*")$', name)[1].decode()
            expected = "NO" if quoted == '"[Gmail]"' else "OK"
            self.assertEqual(client.select(quoted)[0], expected, quoted)
        self.assertEqual(client.select(all_mail), ("OK", [str(len(self.rows)).encode()]))
        self.assertEqual(client.response("UIDNEXT")[1], [str(len(self.rows) + 1).encode()])
        self.assertEqual(client.logout()[0], "BYE")

    def test_imaplib_is_refused_with_a_wrong_password(self):
        client = self.server.imap()
        with self.assertRaisesRegex(client.error, "AUTHENTICATIONFAILED"):
            client.login(address, "wrong")
        self.assertEqual(client.login(address, password.replace(" ", ""))[0], "OK")
        client.logout()

    def test_imaplib_fetches_the_message_ids_of_a_mailbox(self):
        with self.server.logged_in() as client:
            client.select(all_mail)
            status, answers = client.uid("FETCH", "1:*",
                                         "(UID BODY.PEEK[HEADER.FIELDS (MESSAGE-ID)])")
            self.assertEqual(status, "OK")
            found = [part for part in answers if isinstance(part, tuple)]
            self.assertEqual(len(found), len(self.rows))
            expected = dict(self.server.query(
                "SELECT m.ROWID, g.message_id_header FROM messages m "
                "JOIN message_global_data g ON g.ROWID = m.global_message_id"))
            for number, (told, header) in enumerate(found, 1):
                self.assertRegex(told, rf"^{number} \(UID {number} BODY".encode())
                # Whatever letter case and folding the header has.
                read = email.message_from_bytes(header)["Message-ID"]
                self.assertEqual(read and read.strip(), expected[self.rows[number - 1]])

    def test_imaplib_fetches_flags_sizes_and_labels_together(self):
        with self.server.logged_in() as client:
            client.select(all_mail, readonly=True)
            _, answers = client.uid("FETCH", "1:*", "(FLAGS RFC822.SIZE X-GM-LABELS)")
            self.assertEqual(len(answers), len(self.rows))
            for number, (answer, row) in enumerate(zip(answers, self.rows), 1):
                (read, flagged), = self.server.query(
                    "SELECT read, flagged FROM messages WHERE ROWID = ?", row)
                labels, = self.server.query(
                    "SELECT COUNT(*) FROM labels WHERE message_id = ?", row)[0]
                flags = " ".join(["\\Seen"] * read + ["\\Flagged"] * flagged)
                told = re.fullmatch(rb"(\d+) \(UID (\d+) FLAGS \((.*?)\) RFC822.SIZE (\d+) "
                                    rb"X-GM-LABELS \((.*)\)\)", answer)
                self.assertEqual((int(told[1]), int(told[2]), told[3].decode()),
                                 (number, number, flags))
                self.assertEqual(len(re.findall(rb'"(?:[^"\\]|\\.)*"', told[5])), labels)

    def test_imaplib_searches_all(self):
        with self.server.logged_in() as client:
            client.select(all_mail)
            _, (uids,) = client.uid("SEARCH", "ALL")
            self.assertEqual([int(uid) for uid in uids.split()],
                             list(range(1, len(self.rows) + 1)))


class Labels(unittest.TestCase):
    def setUp(self):
        self.server = Server(100)
        self.addCleanup(self.server.end)

    def labelled(self, path):
        return {row for row, in self.server.query(
            "SELECT message_id FROM labels WHERE mailbox_id = ?", self.server.mailbox(path))}

    def test_a_filed_message_leaves_the_inbox_of_the_sample_home(self):
        before = self.labelled("INBOX")
        with self.server.logged_in() as client:
            client.select(all_mail)
            _, answers = client.uid("FETCH", "1:*", "X-GM-LABELS")
            uids = [re.search(rb"UID (\d+)", answer)[1].decode() for answer in answers
                    if rb'"\\Inbox"' in answer]
            self.assertEqual(len(uids), len(before))
            filed = ",".join(uids[:2])
            status, answers = client.uid("STORE", filed, "+X-GM-LABELS",
                                         '("Brindlet Junk" "Gr&APYA3w-e")')
            self.assertEqual((status, len(answers)), ("OK", 2))
            self.assertEqual(client.uid("STORE", filed, "-X-GM-LABELS", r"(\Inbox)")[0], "OK")
            self.assertEqual(client.select("INBOX")[1], [str(len(before) - 2).encode()])
            self.assertEqual(client.select('"Brindlet Junk"')[1], [b"2"])
        left = before - self.labelled("INBOX")
        self.assertEqual(len(left), 2)
        self.assertEqual(self.labelled("Brindlet%20Junk"), left)
        self.assertEqual(self.labelled("Gr%C3%B6%C3%9Fe"), left)
        for path in ("INBOX", "Brindlet%20Junk"):
            (total,), = self.server.query("SELECT total_count FROM mailboxes WHERE ROWID = ?",
                                          self.server.mailbox(path))
            self.assertEqual(total, len(self.labelled(path)), path)

    def test_uids_hold_when_the_server_starts_again(self):
        def uids():
            with self.server.logged_in() as client:
                client.select("INBOX")
                return client.response("UIDVALIDITY"), client.uid("FETCH", "1:*", "BODY[HEADER]")
        before = uids()
        self.assertEqual(self.server.stop()[0], 0)
        self.server.start()
        self.assertEqual(uids(), before)


if __name__ == "__main__":
    unittest.main()
