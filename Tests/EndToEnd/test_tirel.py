"""Hand-worked values for references.tirel."""
import json
import unittest

from references import tirel
from references.records import assemble
from testing import ERROR, UNREADABLE, imported, login, note, ok

LOGIN = {"color": 3, "custName": "Mail", "loginName": "ann", "note": "n", "pwd": "p w", "pwdChange": 1534952160,
         "url": "https://x.example"}
NOTE = {"color": -1, "label": "L", "text": "T\n"}
CARD = {"cardNumber": "4000 0", "custName": "Visa", "holderName": "Ann B", "cvv": "012", "pin": "0001", "note": "",
        "expirationDate": {"day": 31, "month": 2, "year": 2030}}
ANN = login("ann", "p w", "https://x.example", "Mail", 3, "n", 1534952160)
CARD_RECORD = {"cardNumber": "4000 0", "custName": "Visa", "holderName": "Ann B", "cvv": "012", "pin": "0001",
               "note": "",
               "expirationDay": 31, "expirationMonth": 2, "expirationYear": 2030}


def without(entry, *keys):
    return {key: value for key, value in entry.items() if key not in keys}


def export(logins=(), notes=(), cards=(), **more):
    return json.dumps(dict({"logins": list(logins), "notes": list(notes), "cards": list(cards)}, **more))


def run(data):
    return imported(tirel.import_file, data)


def color(spelling):
    """The colour of a note whose colour is spelled so, or the error."""
    result = run('{"logins":[],"notes":[{"color":%s,"label":"","text":""}],"cards":[]}' % spelling)
    return result["notes"][0]["color"] if "notes" in result else result


class Import(unittest.TestCase):
    def test_lists(self):
        self.assertEqual(run(export()), ok())
        self.assertEqual(run(export([LOGIN], [NOTE], [CARD])), ok([ANN], [note("L", "T\n", -1)], [CARD_RECORD]))

    def test_order_of_members_and_lists(self):
        notes = '[{"text":"b","label":"a","color":0},{"label":"c","color":1,"text":"d"}]'
        self.assertEqual(run('\ufeff {"cards":[],"notes":%s,"logins":[]}\r\n' % notes),
                         ok(notes=[note("a", "b", 0), note("c", "d", 1)]))

    def test_order_within_a_kind(self):
        result = run(export([dict(LOGIN, loginName=str(i)) for i in range(5)], [],
                            [dict(CARD, pin=str(i)) for i in range(5)]))
        self.assertEqual([p["username"] for p in result["passwords"]], list("01234"))
        self.assertEqual([c["pin"] for c in result["cards"]], list("01234"))

    def test_optional_members(self):
        for entry in (without(LOGIN, "custName", "pwdChange"), dict(LOGIN, custName=None, pwdChange=None)):
            self.assertEqual(run(export([entry])), ok([dict(ANN, service=None, pwdChange=None)]))
        self.assertEqual(run(export([dict(LOGIN, custName="")])), ok([dict(ANN, service="")]))
        for wrong in ({"custName": 1}, {"custName": []}, {"pwdChange": "x"}, {"pwdChange": 1.5}, {"pwdChange": True},
                      {"pwdChange": 2 ** 63}):
            self.assertEqual(run(export([dict(LOGIN, **wrong)])), ERROR, wrong)

    def test_required_members(self):
        kinds = [("logins", LOGIN, ("custName", "pwdChange")), ("notes", NOTE, ()), ("cards", CARD, ())]
        for name, entry, optional in kinds:
            for key in entry:
                if key in optional:
                    continue
                other = {str: [5, None, True, [], {}], int: ["5", None, True, [], {}, 1.5],
                         dict: [5, None, "x", [], {}]}[type(entry[key])]
                for changed in [without(entry, key)] + [dict(entry, **{key: value}) for value in other]:
                    self.assertEqual(run(export(**{name: [entry, changed]})), ERROR, (name, key, changed))
        for key in ("day", "month", "year"):
            date = CARD["expirationDate"]
            for changed in (without(date, key), dict(date, **{key: None}), dict(date, **{key: "1"})):
                self.assertEqual(run(export(cards=[dict(CARD, expirationDate=changed)])), ERROR)

    def test_top_level(self):
        for key in ("logins", "notes", "cards"):
            members = json.loads(export())
            self.assertEqual(run(json.dumps(without(members, key))), ERROR)
            for value in (None, {}, "", 0, [None], [1], [[]], ["x"], [{}]):
                self.assertEqual(run(json.dumps(dict(members, **{key: value}))), ERROR, (key, value))
        for text in ("", " ", "null", "3", "[]", "[%s]" % export(), export() + "x", export()[:-1], export() + export(),
                     "{}", "\ufeff\ufeff" + export(), export().replace('"logins"', '"Logins"')):
            self.assertEqual(run(text), ERROR, text)
        self.assertEqual(run(export().encode() + b"\xff"), ERROR)

    def test_unknown_members(self):
        self.assertEqual(run(export([dict(LOGIN, x=[1.5, None], username="u", password=5)], [dict(NOTE, password="p")],
                                    version=10 ** 20)),
                         ok([ANN], [note("L", "T\n", -1)]))

    def test_the_first_of_equal_keys_counts(self):
        twice = '{"color":1,"color":"x","label":"a","label":"b","text":"c"}'
        self.assertEqual(run('{"logins":[],"logins":5,"notes":[%s],"cards":[]}' % twice),
                         ok(notes=[note("a", "c", 1)]))
        self.assertEqual(run('{"logins":5,"logins":[],"notes":[],"cards":[]}'), ERROR)
        self.assertEqual(color('null,"color":1'), ERROR)

    def test_integers(self):
        for spelling, value in (("1.0", 1), ("1e3", 1000), ("10e-1", 1), ("-5.0", -5), ("-0", 0),
                                ("9223372036854775807", 2 ** 63 - 1),
                                ("-9223372036854775808", -2 ** 63), ("9223372036854775807.0", 2 ** 63 - 1)):
            self.assertEqual(color(spelling), value, spelling)
        for spelling in ("1.5", "1e-1", "9223372036854775808", "1e19", "true", '"5"', "[]", "{}", "null",
                         "-9223372036854775809", "01", "+1"):
            self.assertEqual(color(spelling), ERROR, spelling)

    def test_depth(self):
        form = '{"logins":[],"notes":[],"cards":[],"x":%s}'
        self.assertEqual(run(form % ("[" * 511 + "]" * 511)), ok())
        self.assertEqual(run(form % ("[" * 512 + "]" * 512)), ERROR)

    def test_unreadable(self):
        for path in UNREADABLE:
            self.assertEqual(tirel.import_file(path), ERROR)


class Builders(unittest.TestCase):
    """What no decoded file can reach: raw records that lack a member or hold another type."""

    def test_required(self):
        record = {"username": "u", "password": "p", "url": "l"}
        self.assertEqual(tirel.build_password(record), login("u", "p", "l"))
        self.assertEqual(tirel.build_password(dict(record, custName=1, color="x", pwdChange="x", note=2)),
                         login("u", "p", "l"))
        for key in record:
            for changed in (without(record, key), dict(record, **{key: 1})):
                self.assertRaises(tirel.TextError, tirel.build_password, changed)
        self.assertRaises(tirel.TextError, tirel.build_note, {"label": 1, "text": ""})
        self.assertEqual(tirel.build_note({"label": "", "text": "", "color": "x"}), note())
        for key in CARD_RECORD:
            self.assertRaises(tirel.TextError, tirel.build_card, without(CARD_RECORD, key))

    def test_order_of_predicates(self):
        kinds = [("passwords", tirel.is_password, tirel.build_password), ("notes", tirel.is_note, tirel.build_note),
                 ("cards", tirel.is_card, tirel.build_card)]
        raw = [{"password": "p", "text": "t", "label": "l"}, {"x": 1}, {"text": "t", "label": "l", "cardNumber": "1"}]
        self.assertEqual(assemble(lambda path: raw, "", kinds), ok(notes=[note("l", "t")]))


if __name__ == "__main__":
    unittest.main()
