"""Hand-worked values for references.uri."""
import random
import re
import unittest

from references import uri


class Url(unittest.TestCase):
    def test_host_sn(self):
        for text in ("http://sn", "https://sn/x", "http://sn?q", "HTTP://sn", "http://sn:80/x",
                     "http://user@sn/", "//sn/path", "file://sn/x", "http://%73n/", "sn://sn",
                     "a+b.c-d://sn", "http://user@sn:80/x?y#z", "http://sn#", "http://@sn",
                     "http://a:b:c@sn", "http://s%6E", "//sn", "http://sn/a:@b", "http://sn?/?"):
            self.assertEqual(uri.url_host(text), b"sn", text)

    def test_other_host(self):
        for text, host in (("http://SN", b"SN"), ("http://sn.", b"sn."), ("http://www.sn", b"www.sn"),
                           ("http://snx", b"snx"), ("http:///sn", b""), ("http://", b""),
                           ("http://:80/", b""), ("http://[::1]/", b"[::1]"),
                           ("http://%2573n", b"%73n"), ("http://sn%00", b"sn\0"),
                           ("http://1.2.3.4", b"1.2.3.4"), ("http://sn;x", b"sn;x")):
            self.assertEqual(uri.url_host(text), host, text)

    def test_no_host(self):
        for text in ("", "sn", "/sn", "sn:", "mailto:sn", " http://sn", "http://sn ",
                     "http://sn/a b", "http://sn/\u00e9", "http://sn/%zz", "http://sn/%", "http://sn/%7",
                     "1a://sn", "http:sn", "http:/sn", "://sn", "http://sn\n", "http://sn\0",
                     "http://\uff53\uff4e", "http://sn/\\", "http://sn/^", "http://sn/`",
                     "http://sn/{", "http://sn/|", "http://sn/<", 'http://sn/"', "a_b://sn",
                     "http://[sn]/", "http://a@b@sn", "http://sn/[", "http://sn#a#b", "http://sn:x",
                     "http://%zz@sn", "a:b//sn", "x//sn", "?//sn", "#//sn"):
            self.assertIsNone(uri.url_host(text), text)

    def test_ip_literals(self):
        for text in ("::", "::1", "1::", "1:2:3:4:5:6:7:8", "1:2:3:4:5:6:7::", "::2:3:4:5:6:7:8",
                     "1:2:3:4:5:6:1.2.3.4", "::1.2.3.4", "::ffff:255.255.255.255"):
            self.assertTrue(uri.is_ipv6(text), text)
        for text in ("", ":", ":::", "1", "1:2:3:4:5:6:7", "1:2:3:4:5:6:7:8:9", "1:2:3:4::5:6:7:8",
                     "12345::", "::1::", "1.2.3.4::", "::1.2.3.256", "::01.2.3.4", ":1", "1:", "g::"):
            self.assertFalse(uri.is_ipv6(text), text)
        self.assertTrue(uri.is_ipvfuture("v1.sn"))
        self.assertFalse(uri.is_ipvfuture("v.sn"))
        self.assertFalse(uri.is_ipvfuture("v1."))


class Grammar(unittest.TestCase):
    """The hand-written parser against the collected ABNF of RFC 3986, appendix A, as one expression."""

    def test_against_abnf(self):
        pct = "%[0-9A-Fa-f]{2}"
        unreserved, sub = r"A-Za-z0-9\-._~", r"!$&'()*+,;="
        pchar = "(?:[%s%s:@]|%s)" % (unreserved, sub, pct)
        octet = "(?:25[0-5]|2[0-4][0-9]|1[0-9]{2}|[1-9][0-9]|[0-9])"
        ipv4 = r"%s(?:\.%s){3}" % (octet, octet)
        h16 = "[0-9A-Fa-f]{1,4}"
        ls32 = "(?:%s:%s|%s)" % (h16, h16, ipv4)
        ipv6 = "(?:" + "|".join(
            ["(?:{h}:){{6}}{l}", "::(?:{h}:){{5}}{l}", "(?:{h})?::(?:{h}:){{4}}{l}",
             "(?:(?:{h}:){{,1}}{h})?::(?:{h}:){{3}}{l}", "(?:(?:{h}:){{,2}}{h})?::(?:{h}:){{2}}{l}",
             "(?:(?:{h}:){{,3}}{h})?::{h}:{l}", "(?:(?:{h}:){{,4}}{h})?::{l}",
             "(?:(?:{h}:){{,5}}{h})?::{h}", "(?:(?:{h}:){{,6}}{h})?::"]).format(h=h16, l=ls32) + ")"
        future = r"[vV][0-9A-Fa-f]+\.[%s%s:]+" % (unreserved, sub)
        reg_name = "(?:[%s%s]|%s)*" % (unreserved, sub, pct)
        authority = r"(?:(?:[%s%s:]|%s)*@)?(?P<hN>\[(?:%s|%s)\]|%s)(?::[0-9]*)?" % (
            unreserved, sub, pct, ipv6, future, reg_name)
        abempty = "(?:/%s*)*" % pchar
        absolute = "/(?:%s+%s)?" % (pchar, abempty)
        rootless = "%s+%s" % (pchar, abempty)
        noscheme = "(?:[%s%s@]|%s)+%s" % (unreserved, sub, pct, abempty)
        tail = r"(?:\?(?:%s|[/?])*)?(?:#(?:%s|[/?])*)?" % (pchar, pchar)
        whole = re.compile(r"(?:[A-Za-z][A-Za-z0-9+\-.]*:(?://%s%s|%s|%s|)|(?://%s%s|%s|%s|))%s" % (
            authority.replace("hN", "h1"), abempty, absolute, rootless, authority.replace("hN", "h2"), abempty,
            absolute, noscheme, tail))
        r = random.Random(3)
        pieces = ["http:", "//", "/", ":", "@", "?", "#", "[", "]", "%73", "%", "%6", "sn", "s", "n", "1", "80", ".",
                  "1.2.3.4", "::", "f0:", "v1.", "+", "-", "~", "!", ",", " ", "\u00e9", "\n", "\\", "^", "256", "a"]
        parsed = 0
        for number in range(60000):
            text = "".join(r.choices(pieces, k=r.randint(1, 9)))
            if number % 3 == 0:
                text = "//[" + "".join(r.choices(["::", ":", "1", "f0:", "1:", "1.2.3.4", "v1."],
                                                 k=r.randint(1, 9))) + "]"
            match, mine = whole.fullmatch(text), uri.parse_uri_reference(text)
            self.assertEqual(match is None, mine is None, text)
            if match:
                parsed += 1
                host = match["h1"] if match["h1"] is not None else match["h2"]
                self.assertEqual(host, mine["authority"] and mine["authority"][1], text)
        self.assertGreater(parsed, 5000)


if __name__ == "__main__":
    unittest.main()
