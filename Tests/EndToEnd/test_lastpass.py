"""Hand-worked values for references.lastpass."""
import unittest

from references import lastpass
from testing import ERROR, UNREADABLE, imported, note, ok
import testing

HEAD = "url,username,password,extra,name,grouping,fav\n"


def run(data):
    return imported(lastpass.import_file, data)


def login(url="", username="", password="", service=""):
    return testing.login(username, password, url, service)


class Import(unittest.TestCase):
    def test_failures(self):
        for data in ("", "\ufeff", " \n\t\n", "a,b,c,d,e,f", "a,b,c,d,e,f,g,h",
                     HEAD.replace("\n", ",more\n") + "1,2,3,4,5,6,7,8", b"\xff" + HEAD.encode(),
                     (HEAD + "a,b,c,d,e,f,g\n").replace("\n", "\r"), "\x0b\n" + HEAD):
            self.assertEqual(run(data), ERROR, data)
        for path in UNREADABLE:
            self.assertEqual(lastpass.import_file(path), ERROR)

    def test_header(self):
        self.assertEqual(run(HEAD), ok())
        self.assertEqual(run("\n \n" + HEAD.strip()), ok())
        self.assertEqual(run("\ufeff" + HEAD + "u,n,p,e,t,g,1"), ok([login("u", "n", "p", "t")]))
        self.assertEqual(run(HEAD.replace("\n", "\r\n") + "u,n,p,e,t,g,1\r\n"),
                         ok([login("u", "n", "p", "t")]))
        self.assertEqual(run('"fav","grouping","name","extra","password","username","url"\n1,g,t,e,p,n,u,x'),
                         ok([login("u", "n", "p", "t")]))

    def test_header_rows(self):
        self.assertEqual(run(HEAD + ",,,e,,g,1\n"), ok())              # nothing tested is filled
        self.assertEqual(run(HEAD + ",,p"), ok([login(password="p")]))
        self.assertEqual(run(HEAD + '""\n'), ok())
        self.assertEqual(run(HEAD + ' ,,\n'), ok([login(" ")]))
        self.assertEqual(run(HEAD + "http://sn,u,p,,,g,1"), ok())
        self.assertEqual(run(HEAD + "http://sn"), ok())
        self.assertEqual(run(HEAD + 'http://sn,,,"a\nb,c"'), ok(notes=[note("", "a\nb,c")]))
        self.assertEqual(run(HEAD + "http://sn,,,x,t\nsn,,,x,t\nhttp://snx,,,x,t"),
                         ok([login("sn", service="t"), login("http://snx", service="t")], [note("t", "x")]))

    def test_no_header(self):
        self.assertEqual(run("u,n,p,e,t,g,1\nhttp://sn\nhttp://sn,,,x\n\"\"\na,b,c,d,e,f,g,h"),
                         ok([login("u", "n", "p", "t"), login(service=None), login("a", "b", "c", "e")],
                            [note("", ""), note("", "x")]))
        self.assertEqual(run(HEAD.replace("fav", "Fav") + ",,,,,,"),
                         ok([login("url", "username", "password", "name")]))


if __name__ == "__main__":
    unittest.main()
