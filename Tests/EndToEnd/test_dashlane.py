"""Hand-worked values for references.dashlane; test_characters.py has those of the window."""
import unittest

from references import dashlane
from testing import ERROR, UNREADABLE, imported, login, ok

G = "{01234567-89AB-CDEF-0123-456789ABCDEF}"


def run(data):
    return imported(dashlane.import_file, data)


class Import(unittest.TestCase):
    def test_failures(self):
        for data in (b"\xff", b"a,b,c,d,e\n\xc0\x80", b"a,b,c,d,e\n\xed\xa0\x80"):
            self.assertEqual(run(data), ERROR, data)
        for path in UNREADABLE:
            self.assertEqual(dashlane.import_file(path), ERROR)

    def test_nothing_to_import(self):
        for data in ("", "\ufeff", "\n\n", " \t\n", "a,b,c,d\n,,,\nx", "a;b;c;d;e", '"a,b,c,d,e"'):
            self.assertEqual(run(data), ok(), data)

    def test_positions(self):
        self.assertEqual(run("s,l,u,p,n"), ok([login("u", "p", "l", "s")]))
        self.assertEqual(run("s,l,u,x,p,n"), ok([login("u", "p", "l", "s")]))
        self.assertEqual(run("s,l,u,x,y,p,n"), ok([login("u", "p", "l", "s")]))
        self.assertEqual(run("1,2,3,4,5,6,7,8,9,10,11,12"), ok([login("3", "11", "2", "1")]))
        self.assertEqual(run(",,,,\n\n,,,\n"), ok([login(service="")]))
        self.assertEqual(run("\ufeff\"s \"\"t\"\"\",\" l\",\"u,\nv\",\"p\\\"\",\"\"\r\n"),
                         ok([login("u,\nv", 'p""', " l", 's ""t""')]))

    def test_header(self):
        self.assertEqual(run("name,url,user,password,note\ns,l,u,p,n\n"),
                         ok([login("user", "password", "url", "name"), login("u", "p", "l", "s")]))

    def test_identifier(self):
        kept = ok([login("u", "p", "l", "s")])
        for n in range(5):
            cells = ["s", "l", "u", "p", "n"]
            cells[n] = G
            self.assertEqual(run(",".join(cells)), ok(), n)
            cells[n] = "x" + G.lower() + "y"
            self.assertEqual(run(",".join(cells) + "\ns,l,u,p,n"), kept, n)
        self.assertEqual(run("s,l,u,p," + G.replace("-89AB", "")), kept)
        self.assertEqual(run("s,l,u,p," + G[1:]), kept)
        self.assertEqual(run("s,l,u,p,n" + G[:20] + " " + G[20:]), kept)
        self.assertEqual(run("s,l,u,p,n," + G), ok())
        self.assertEqual(run("s,l,u," + G), ok())
        self.assertEqual(run("s,l,%s,%s,n\n\"s\",l,u,\"%s\",%s" % (G[:7], G[7:], G[:1], G[1:])), ok())

    def test_window_of_the_joined_row(self):
        self.assertEqual(run("\U0001f600,,,," + G), ok([login("", "", "", "\U0001f600")]))
        self.assertEqual(run("\U0001f600,,,,%sx" % G), ok())
        # CR and LF of neighbouring cells are one character.
        self.assertEqual(run("\r,\"\n\",,,%s" % G), ok([login("", "", "\n", "\r")]))
        self.assertEqual(run("\r,\"\n\",,,%sx" % G), ok())
        self.assertEqual(run("\"\r\r\n\",,,,%s" % G), ok([login("", "", "", "\r\n")]))
        self.assertEqual(run("\"\r\n\",,,,%s" % G), ok())


if __name__ == "__main__":
    unittest.main()
