"""Hand-worked values for references.json_reader."""
import json
import random
import unittest

from references.errors import NotPinned
from references.json_reader import DEEPEST, JSONFailure, Number, parse_bytes, parse_text


def plain(value):
    """Numbers as their 64-bit integers, or "other"."""
    if isinstance(value, Number):
        return "other" if value.int64() is None else value.int64()
    if isinstance(value, dict):
        return {key: plain(member) for key, member in value.items()}
    if isinstance(value, list):
        return [plain(element) for element in value]
    return value


class Documents(unittest.TestCase):
    def good(self, text, expected):
        self.assertEqual(plain(parse_text(text)), expected)

    def bad(self, *texts):
        for text in texts:
            with self.assertRaises(JSONFailure, msg=text):
                parse_text(text)

    def test_values(self):
        self.good("{}", {})
        self.good(" \t\r\n[ ] \n", [])
        self.good('{"a":[1,{"b":null}],"":{"c":true,"d":false}}', {"a": [1, {"b": None}], "": {"c": True, "d": False}})
        self.good("[[],{},[[]]]", [[], {}, [[]]])
        self.good('[ 1 , "a" ]', [1, "a"])
        self.good('{ "a" : 1 , "b" : 2 }', {"a": 1, "b": 2})

    def test_grammar(self):
        self.bad("", " ", "3", '"a"', "null", "true", "[1,]", "{} x", "[NaN]", "[,1]", "[1 2]", "[1", "1]", "{,}",
                 '{"a"}', '{"a":}', '{"a" 1}', '{"a":1,}', "{a:1}", "{'a':1}", "{1:1}", '{"a":1 "b":2}', "[1}",
                 '{"a":1]', "[[]", "{} {}", "[]]", "/**/[]", "[]//", "[nul]", "[nulll]", "[True]", "[tru", "\u00a0[]",
                 "[\x0c]", "[\x0b]", "\ufeff[]", "[]\0", "[1,,2]", '{"a":1,,"b":1}', "{null:1}", "[infinity]", "]", "}",
                 ",", "[\u2028]")

    def test_numbers(self):
        for text, expected in (("0", 0), ("-0", 0), ("-0.0", 0), ("0e5", 0), ("0.0e-3", 0), ("1.0", 1), ("-5.0", -5),
                               ("1e3", 1000), ("10e-1", 1), ("1E+2", 100), ("12300e-2", 123), ("2.50e1", 25),
                               ("1e00018", 10 ** 18), ("9223372036854775807", 2 ** 63 - 1),
                               ("-9223372036854775808", -2 ** 63),
                               ("9223372036854775807.0", 2 ** 63 - 1), ("922337203685477580.7e1", 2 ** 63 - 1),
                               ("9007199254740993.0", 9007199254740993), ("0.9223372036854775807e19", 2 ** 63 - 1),
                               ("1" + "0" * 500 + "e-500", 1), ("0." + "0" * 500 + "5e501", 5), ("0e999999999", 0)):
            self.good("[%s]" % text, [expected])
        for text in ("1.5", "1e-1", "0.1", "9223372036854775808", "-9223372036854775809", "1e19", "1e400", "1e-400",
                     "-1e999999999", "1e-999999999", "9223372036854775807.5", "9223372036854775808e-1",
                     "100000000000000000000", "9" * 5000, "18446744073709551616", "1.00000000000000000000000000001"):
            self.good("[%s]" % text, ["other"])
        self.bad(*("[%s]" % text for text in (
            "01", "+1", ".5", "1.", "1.e5", "1e", "1e+", "-", "--1", "- 1", "0x10", "NaN", "-Infinity", "1_000", "00",
            "-01", "1e1.5", "1f", "1 2", "\u0663", "\uff11", "1\u0663", "1e\u0661", "0.\u0661", "\u00b2")))
        for text in ("[1e0000000000]", "[1E-1234567890]", "[1e1234567890]"):
            with self.assertRaises(NotPinned):
                parse_text(text)

    def test_strings(self):
        for text, expected in (("", ""), ("a", "a"), ("\\u0041", "A"), ("\\ud83d\\uDE00", "\U0001f600"),
                               ("\\u0000", "\0"), ("\\/\\\\\\\"\\b\\f\\n\\r\\t", "/\\\"\b\f\n\r\t"),
                               ("\x7f\u0080\uffff\u2028", "\x7f\u0080\uffff\u2028"), ("\\udbff\\udfff", "\U0010ffff"),
                               ("\\\\u0041", "\\u0041"), ("\\uD7FF\\uE000", "\ud7ff\ue000"),
                               ("\ufeff", "\ufeff"), ("{[,:]}", "{[,:]}")):
            self.good('["%s"]' % text, [expected])
            self.good('{"%s":0}' % text, {expected: 0})
        for text in ("\\uD800", "\\uDC00", "\\ud83d\\u0041", "\\ud83dx", "\\ud83d\\n", "\\ud83d\\ud83d\\ude00", "\\x41",
                     "\\u00g0", "\\u041", "\\u 041", "\\U0041", "\\'", "\t", "\n", "\0", "\x1f", "\\u+041", "\\u0x41",
                     "\\u00_1", "\\0", "\\a", '"', "\\", "\\u00\u0661\u0661", "\\\n", "\\u"):
            self.bad('["%s"]' % text, '{"%s":0}' % text)
        self.bad("['a']", '["a]', '[a"]', '["a" "b"]')

    def test_the_first_of_equal_keys_counts(self):
        self.good('{"a":1,"a":2}', {"a": 1})
        self.good('{"a":null,"b":0,"\\u0061":"x"}', {"a": None, "b": 0})
        self.bad('{"a":1,"a":[}')

    def test_depth(self):
        self.assertEqual(DEEPEST, 512)
        for deepest in ("[" * 512 + "]" * 512, '{"a":' * 511 + "{}" + "}" * 511, '[1,{"a":' * 255 + "[[]]" + "}]" * 255,
                        "[" * 511 + "1,2" + ",[]" + "]" * 511):
            parse_text(deepest)
            self.bad("[" + deepest + "]", '{"":' + deepest + "}")
        self.bad("[" * 100000)
        parse_text("[" + ",".join(["[]"] * 2000) + "]")

    def test_bytes(self):
        self.assertEqual(parse_bytes(b"\xef\xbb\xbf{}"), {})
        self.assertEqual(parse_bytes(b"\xef\xbb\xbf []"), [])
        for data in (b"", b"\xef\xbb\xbf", b"\xef\xbb\xbf\xef\xbb\xbf{}", b" \xef\xbb\xbf{}", b"{}\xff",
                     b'["\xc0\x80"]', b'["\xed\xa0\x80"]', b'["\xf4\x90\x80\x80"]', b'["\xc3"]', b"{}\0",
                     '{"a":1}'.encode("utf-16"), "{}".encode("utf-16-le")):
            with self.assertRaises(JSONFailure, msg=data):
                parse_bytes(data)


class Grammar(unittest.TestCase):
    """Against the standard library's parser, which is strict about all but constants and the top."""

    def theirs(self, text):
        def no_constant(name):
            raise ValueError(name)

        def number(spelling):
            return Number(False, spelling, 0)
        value = json.loads(text, parse_constant=no_constant, parse_int=number, parse_float=number)
        if not isinstance(value, (dict, list)):
            raise ValueError("a scalar")

    def test_against_another_parser(self):
        r = random.Random(5)
        pieces = ["{", "}", "[", "]", ",", ":", '"', '"a"', '"b":', '"a":', "\\", "\\n", "\\u0041", "1", "0", "-", ".5",
                  "e1", "E+2", "null", "true", "false", " ", "\n", "\t", "\x0c", "x", "\u00e9", "{}", "[]"]
        good = 0
        for _ in range(60000):
            text = "".join(r.choices(pieces, k=r.randint(1, 9)))
            if r.random() < 0.5:
                text = r.choice(["[%s]", '{"a":%s}', '["%s"]', "[1,%s]", '{"%s":0}']) % text
            try:
                self.theirs(text)
                expected = True
            except ValueError:
                expected = False
            try:
                parse_text(text)
                mine = True
            except JSONFailure:
                mine = False
            self.assertEqual(mine, expected, text)
            good += expected
        self.assertGreater(good, 4000)


if __name__ == "__main__":
    unittest.main()
