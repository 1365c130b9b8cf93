"""Hand-worked values for references.csv_dialect."""
import unittest

from references import csv_dialect
from references.errors import TextError
from references.files import decode_text


class Dialect(unittest.TestCase):
    def rows(self, text, expected):
        self.assertEqual(csv_dialect.parse_file_data(text), expected)

    def test_rows(self):
        self.rows("", [])
        self.rows("\n \n\t\u3000\u00a0\n", [])
        self.rows("\r", [["\r"]])
        self.rows("\u200b\n\u0085\n\u2028\n\x0b", [["\u200b"], ["\u0085"], ["\u2028"], ["\x0b"]])
        self.rows('a,"b",c', [["a", "b", "c"]])
        self.rows('a, "b",c', [["a", ' "b"', "c"]])
        self.rows('"ab""c"', [['ab""c']])
        self.rows('"ab\\"c"', [['ab""c']])
        self.rows('"a,b\nc",d\ne', [["a,b\nc", "d"], ["e"]])
        self.rows('"a\r\nb"\r\nc', [["a\nb"], ["c"]])
        self.rows("a\r\r\nb", [["a\r"], ["b"]])
        self.rows("a\rb", [["a\rb"]])
        self.rows('""', [[""]])
        self.rows('"', [[""]])
        self.rows('a,"', [["a", ""]])
        self.rows('""",', [['""",']])
        self.rows('"\n', [['"\n']])
        self.rows(",", [["", ""]])
        # a quoted cell that ends in a backslash: the closing quote counts as two
        self.rows('"a\\",b\nc', [['"a"",b\nc']])
        self.rows('\\\\"', [['\\""']])
        # a combining mark after the closing quote is a code point of its own
        self.rows('"a"\u0301,b', [['"a"\u0301', "b"]])
        self.rows('"\u0301a",b', [["\u0301a", "b"]])
        self.rows(' "a\nb" ', [[' "a\nb" ']])

    def test_decoding(self):
        self.assertEqual(decode_text(b"\xef\xbb\xbf\xef\xbb\xbfa"), "\ufeffa")
        for bad in (b"\xff", b"\xc0\x80", b"\xed\xa0\x80", b"\xf4\x90\x80\x80", b"\xe2\x82"):
            self.assertIsNone(decode_text(bad))
        self.assertEqual(decode_text(b"\x00\xef\xbf\xbf"), "\x00\uffff")


class KeyedRecords(unittest.TestCase):
    def keyed(self, text, expected_headers, expected):
        self.assertEqual(csv_dialect.keyed_records(csv_dialect.parse_file_data(text), expected_headers), expected)

    def fails(self, text, expected_headers, message):
        with self.assertRaises(TextError) as caught:
            csv_dialect.keyed_records(csv_dialect.parse_file_data(text), expected_headers)
        self.assertEqual(str(caught.exception), message)

    def test_header(self):
        self.keyed("a,b\n1,2", ["a", "b"], [{"a": "1", "b": "2"}])
        self.keyed("x,b,a\n1,2,3\n4", ["a", "b"], [{"a": "3", "b": "2"}, {"a": "", "b": ""}])
        self.keyed("a,a,b\n1,2,3", ["a", "b"], [{"a": "1", "b": "3"}])
        self.keyed("a\n1", ["a", "a"], [{"a": "1"}])
        self.keyed("a,b", ["a", "b"], [])
        self.keyed("a,b\n1,2", [], [{}])

    def test_no_header(self):
        self.keyed("A,b\n1\n1,2,3", ["a", "b"], [{"a": "A", "b": "b"}, {"a": "1"}, {"a": "1", "b": "2"}])

    def test_failures(self):
        self.fails("", ["a"], "Could not read the csv at: ")
        self.fails(" \n\t\n", ["a"], "Could not read the csv at: ")
        self.fails("b,c", ["a"],
                   "The number of fields must be equal to the number of headers for a csv without headers")



if __name__ == "__main__":
    unittest.main()
