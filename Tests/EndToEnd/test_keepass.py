"""Hand-worked values for references.keepass."""
import unittest

from references import keepass
from testing import ERROR, UNREADABLE, imported, login, ok

CLASSIC = '"Account","Login Name","Password","Web Site","Comments"\n'
XC = '"Group","Title","Username","Password","URL","Notes"\n'


def run(data):
    return imported(keepass.import_file, data)


class Import(unittest.TestCase):
    def test_failures(self):
        for data in ("", "\ufeff", " \n\t\n", "\n\n", "a,b,c,d", "a,b,c,d,e,f,g", CLASSIC.replace("\n", ",x,y\n"),
                     "Web Site,Login Name,Password\n1,2,3", CLASSIC.encode() + b"\xff", CLASSIC.replace(",", ";")):
            self.assertEqual(run(data), ERROR, data)
        for path in UNREADABLE:
            self.assertEqual(keepass.import_file(path), ERROR)

    def test_headers_alone(self):
        for data in (CLASSIC, XC, "\ufeff" + CLASSIC, "\n \n" + XC.replace("\n", "\r\n")):
            self.assertEqual(run(data), ok(), data)

    def test_classic(self):
        self.assertEqual(run(CLASSIC + '"a","l","p","w","c"\n"","","","",""\n'),
                         ok([login("l", "p", "w", "a"), login(service="")]))
        self.assertEqual(run(CLASSIC + "a,,,w,c\nb"), ok([login("", "", "w", "a"), login(service="b")]))
        self.assertEqual(run("Comments,Web Site,Password,Login Name,Account\nc,w,p,l,a,x"),
                         ok([login("l", "p", "w", "a")]))
        self.assertEqual(run(CLASSIC + '"a ""b""","l\\"","p,\nq"," w ",'),
                         ok([login('l""', "p,\nq", " w ", 'a ""b""')]))

    def test_xc(self):
        self.assertEqual(run(XC + '"g","t","u","p","l","n"\n'), ok([login("u", "p", "l", "t")]))
        self.assertEqual(run(XC + "g,,,,,\ng\n"), ok([login(service="")] * 2))
        self.assertEqual(run("Notes,URL,Password,Username,Title,Group\nn,l,p,u,t,g"), ok([login("u", "p", "l", "t")]))

    def test_classic_by_position(self):
        # The first five columns of the other product are a first record.
        self.assertEqual(run('"Group","Title","Username","Password","URL"\n"g","t","u","p","l"\n'),
                         ok([login("Title", "Username", "Password", "Group"), login("t", "u", "p", "g")]))
        # Rows that end before a required column are skipped, the fifth cell is not missed, more are dropped.
        self.assertEqual(run("a,l,p,w,c\nb,m,q\nd,n,r,x\n\"\"\n,,,\ne,o,s,y,c,z"),
                         ok([login("l", "p", "w", "a"), login("n", "r", "x", "d"), login("", "", "", ""),
                             login("o", "s", "y", "e")]))
        self.assertEqual(run("Web Site,Login Name,Password,x,y"),
                         ok([login("Login Name", "Password", "x", "Web Site")]))
        self.assertEqual(run(CLASSIC.replace("Account", "account")),
                         ok([login("Login Name", "Password", "Web Site", "account")]))

    def test_xc_by_position(self):
        self.assertEqual(run("g,t,u,p,l,n\ng,t,u,p\ng,t,u,p,l"), ok([login("u", "p", "l", "t")] * 2))
        # Six columns with all classic names are no classic file.
        self.assertEqual(run(CLASSIC.replace("\n", ",x\n")),
                         ok([login("Password", "Web Site", "Comments", "Login Name")]))

    def test_short_rows_are_skipped(self):
        # The first row has five cells, so at least that one builds a record.
        self.assertEqual(run(",,,,\na\nb,c\n"), ok([login(service="")]))


class Builders(unittest.TestCase):
    def test_missing_columns(self):
        record = {"Web Site": "w", "Login Name": "l", "Password": "p"}
        self.assertEqual(keepass.build_keepass_original(record), login("l", "p", "w"))
        for key in record:
            self.assertRaises(keepass.TextError, keepass.build_keepass_original,
                              {k: v for k, v in record.items() if k != key})
        record = {"URL": "l", "Username": "u", "Password": "p"}
        self.assertEqual(keepass.build_keepass_xc(record), login("u", "p", "l"))
        for key in record:
            self.assertRaises(keepass.TextError, keepass.build_keepass_xc,
                              {k: v for k, v in record.items() if k != key})


if __name__ == "__main__":
    unittest.main()
