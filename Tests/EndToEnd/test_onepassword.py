"""Hand-worked values for references.pif and references.onepassword."""
import json
import unittest

from references import onepassword, pif
from references.errors import InvalidValueCast, ValueNotFound
from testing import UNREADABLE, imported, login, note, ok

SEPARATOR = "***5642bee8-a5ff-11dc-8314-0800200c9a66***"
PARSING_ERROR = {"error": {"domain": "Rellinor.PIFParsingError", "code": 1}}
CAST_ERROR = {"error": {"domain": "Rellinor.JSONError", "code": 1}}


def run(data):
    return imported(onepassword.import_file, data)


def field(designation, value):
    return {"designation": designation, "value": value}


FIELDS = [field("username", "u"), field("password", "p")]


def form(fields=FIELDS, urls=({"url": "l"},), **record):
    contents = {"fields": fields, "URLs": urls}
    contents = {key: value for key, value in contents.items() if value != "missing"}
    return json.dumps(dict({"typeName": "webforms.WebForm", "secureContents": contents}, **record))


def secure_note(text="c", **record):
    return json.dumps(dict({"typeName": "securenotes.SecureNote", "title": "t", "secureContents": {"notesPlain": text}},
                           **record))


class Wrap(unittest.TestCase):
    def test_wrap(self):
        self.assertEqual(pif.wrap("", "records"), '{ "records": [] }')
        self.assertEqual(pif.wrap("{A}\n%s\n{B}\n" % SEPARATOR, "records"), '{ "records": [{A},{B}] }')
        self.assertEqual(pif.wrap(" {A}\n\t{A}\n\r{A}\n[{}]\n{B}\r\n", "k"), '{ "k": [{B}\r] }')
        self.assertEqual(pif.wrap("{a\n{b\n\n}", 'k"'), '{ "k"": [{a,{b] }')
        self.assertEqual(pif.wrap("{A}\r{B}\u2028{C}\n", "k"), '{ "k": [{A}\r{B}\u2028{C}] }')

    def test_look_up(self):
        self.assertEqual(pif.value_for_key({"a": []}, "a"), [])
        self.assertEqual(pif.value_for_key({"a": [{}, {"b": 1}]}, "a"), [{}, {"b": 1}])
        self.assertRaises(ValueNotFound, pif.value_for_key, {"a": []}, "A")
        for value in (None, 5, "x", {}, [[]], [{}, None], [1]):
            self.assertRaises(InvalidValueCast, pif.value_for_key, {"a": value}, "a")


class Lines(unittest.TestCase):
    def test_without_records(self):
        for text in ("", "\n", SEPARATOR, "[]\nx\n", "\ufeff", " {}\n\t{", "\0", "}\r\n", "{}", "\ufeff\ufeff{",
                     "\u0301{"):
            self.assertEqual(run(text), ok(), ascii(text))

    def test_line_ends(self):
        two = ok([login("u", "p", "l")], [note("t", "c")])
        for text in ("%s\n%s", "%s\n%s\n", "%s\r\n%s\r\n", "\n\n%s\n\n%s", "%s\n" + SEPARATOR + "\n%s\n" + SEPARATOR,
                     "\ufeff%s\n%s", "%s \t\r\n%s \n", "%s\n {}\n%s", "%s,%s", "%s , %s\n"):
            self.assertEqual(run(text % (form(), secure_note())), two, text)
        self.assertEqual(run(form() + "\r" + secure_note()), PARSING_ERROR)
        self.assertEqual(run(form() + "\u2028\n"), PARSING_ERROR)

    def test_strange_lines_take_part_in_the_whole(self):
        self.assertEqual(run(secure_note() + "\n{}],\"x\":[5,{}"), ok(notes=[note("t", "c")]))
        self.assertEqual(run("{}],\"records\":[5,{}\n" + secure_note()), ok())          # the first of equal keys counts
        self.assertEqual(run(secure_note("", title="@").replace("@", "x\n{y")),
                         ok(notes=[note("x,{y", "")]))
        broken_up = form([field("username", "u"), field("password", "p")]).replace(", {", ",{").replace(",{", "\n{")
        self.assertIn("\n", broken_up)
        self.assertEqual(run(broken_up), ok([login("u", "p", "l")]))

    def test_bad_lines(self):
        for line in ("{} {}", "{}{}", "{},", "{", '{"a":', "{}]", "{}}", "{} x", "{a}", "{'a':1}",
                     '{"a":"\ud7ff\\ud800"}', '{"a":01}',
                     '{"a":1,}', "{}\0", "{}\x0c", "{\u00a0}"):
            self.assertEqual(run(form() + "\n" + line + "\n"), PARSING_ERROR, line)
            self.assertEqual(run(line + "\n" + form()), PARSING_ERROR, line)
        self.assertEqual(run(form() + "\n {} {}\n"), ok([login("u", "p", "l")]))

    def test_records_that_are_no_objects(self):
        for line in ("{},5", "{},null", '{},"a"', "{},[]", "{},true", "{}, [{}]"):
            self.assertEqual(run(form() + "\n" + line), CAST_ERROR, line)

    def test_bytes(self):
        self.assertEqual(run(form().encode() + b"\nx\xff"), PARSING_ERROR)
        self.assertEqual(run(form().encode() + b"\nx\xed\xa0\x80\n"), PARSING_ERROR)
        self.assertEqual(run(form().encode() + b"\nx\xef\xbf\xbf\x00\n"), ok([login("u", "p", "l")]))
        for path in UNREADABLE:
            self.assertEqual(onepassword.import_file(path), PARSING_ERROR)

    def test_depth(self):
        # The wrapper and the record are three containers.
        self.assertEqual(run('{"a":%s}' % ("[" * 509 + "]" * 509)), ok())
        self.assertEqual(run('{"a":%s}' % ("[" * 510 + "]" * 510)), PARSING_ERROR)


class WebForms(unittest.TestCase):
    def built(self, expected, **arguments):
        self.assertEqual(run(form(**arguments)), ok([expected]), arguments)

    def skipped(self, **arguments):
        self.assertEqual(run(form(**arguments)), ok(), arguments)

    def test_title(self):
        self.built(login("u", "p", "l", "t"), title="t")
        self.built(login("u", "p", "l", ""), title="")
        for title in (None, 5, ["t"], {}):
            self.built(login("u", "p", "l", None), title=title)

    def test_url(self):
        self.built(login("u", "p", "a"), urls=[{"url": "a"}, {"url": "b"}])
        for urls in ("missing", [], None, "x", {}, [5], [{"url": "a"}, 5], [{"url": "a"}, None], [{}, {"url": "b"}],
                     [{"url": None}],
                     [{"URL": "a"}], [{"url": 5}, {"url": "b"}], [["url"]]):
            self.built(login("u", "p", ""), urls=urls)

    def test_fields(self):
        more = [field("", "x"), {"value": "y"}, {}, field(5, "z"), field("Username", "U"), field(None, "n")]
        self.built(login("u", "p", "l"), fields=more + FIELDS + [field("username", "u2"), field("password", 5)])
        self.built(login("", "", "l"), fields=[field("password", ""), field("username", "")])
        self.built(login("u", "p", "l"), fields=FIELDS[::-1])
        for fields in ("missing", [], None, FIELDS[:1], FIELDS[1:], FIELDS + [None], FIELDS + [[]], {"0": FIELDS[0]},
                       [field("username", 5)] + FIELDS, [{"designation": "password"}] + FIELDS,
                       [field("password", None)] + FIELDS):
            self.skipped(fields=fields)

    def test_secure_contents(self):
        for contents in (None, [], "x", {}, {"Fields": FIELDS}):
            self.skipped(secureContents=contents)
        self.skipped(secureContents={"urls": [{"url": "l"}], "URLS": []})
        self.built(login("u", "p", ""), secureContents={"fields": FIELDS, "urls": [{"url": "l"}], "notesPlain": "n"})

    def test_types(self):
        for type_ in ("passwords.Password", "wallet.financial.CreditCard", "identities.Identity",
                      "system.folder.Regular",
                      "wallet.computer.License", "wallet.government.DriversLicense", "wallet.membership.RewardProgram",
                      "webforms.webform", "webforms.WebForm ", "", None, 5, ["webforms.WebForm"]):
            self.skipped(typeName=type_)
        self.assertEqual(run('{"secureContents":{}}\n{}\n'), ok())
        self.assertEqual(run('{"typeName":"passwords.Password","title":"t","secureContents":{"password":"p"}}'), ok())
        self.assertEqual(run(form().replace("typeName", "type\\u004eame")), ok([login("u", "p", "l")]))

    def test_the_first_of_equal_keys_counts(self):
        self.assertEqual(run('{"typeName":5,' + form()[1:]), ok())
        self.assertEqual(run(form()[:-1] + ',"typeName":5,"secureContents":null}'), ok([login("u", "p", "l")]))


class SecureNotes(unittest.TestCase):
    def test_notes(self):
        self.assertEqual(run(secure_note()), ok(notes=[note("t", "c")]))
        self.assertEqual(run(secure_note("", title="")), ok(notes=[note()]))
        self.assertEqual(run("\n".join(secure_note(str(i)) for i in range(4))),
                         ok(notes=[note("t", str(i)) for i in range(4)]))

    def test_skipped(self):
        for text in (secure_note(title=None), secure_note(title=5), secure_note(None), secure_note(5),
                     secure_note(secureContents=None), secure_note(secureContents=[]),
                     secure_note().replace("title", "Title"),
                     secure_note().replace("notesPlain", "notes")):
            self.assertEqual(run(text), ok(), text)


if __name__ == "__main__":
    unittest.main()
