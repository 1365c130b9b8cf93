"""Hand-worked values for references.characters, and the identifier window that rests on them."""
import unittest

from references.characters import number_of_characters, utf16_units
from references.dashlane import number_of_matches
from references.errors import NotPinned

G = "{0F1e2D3c-4B5a-6978-8796-A5b4C3d2E1f0}"
EMOJI = "\U0001f600"
FLAG = "\U0001f1e9\U0001f1ea"
FAMILY = "\U0001f468\u200d\U0001f469\u200d\U0001f467"      # 3 x 2 units and 2 joiners


class Characters(unittest.TestCase):
    def test_counts(self):
        for text, count in (("", 0), ("a", 1), ("ab", 2), ("\r\n", 1), ("\n\r", 2), ("\r\r\n\n", 3), ("a\r\nb", 3),
                            ("e\u0301", 1), ("\u00e9", 1), ("\u0301", 1), ("a\u0301\u0308b\u036f", 2), ("\n\u0301", 2),
                            ("\t\u0301x", 3), (EMOJI, 1), (EMOJI * 2, 2), (FAMILY, 1), (FAMILY * 2, 2),
                            ("\U0001f44d\U0001f3fd", 1), ("\U0001f3fd", 1), ("a\U0001f3fd", 1),
                            ("\u2764\ufe0f\u200d\U0001f525", 1),
                            ("\u2764\u200d\ufe0f\U0001f525", 2),
                            ("a\u200d\U0001f525", 2), (EMOJI + "\u200d\u200d" + EMOJI, 2), (EMOJI + "\u200da", 2),
                            ("\u0301\u200d" + EMOJI, 2), (FLAG, 1), (FLAG * 2, 2), (FLAG + FLAG[0], 2), (FLAG[0], 1),
                            ("a" + FLAG[0] + "b" + FLAG[1], 4), (FLAG[0] + "\u0301" + FLAG[1], 2),
                            (FLAG[0] + "\u200d" + FLAG[1], 2),
                            ("\u5bc6\u7801", 2), ("\uac00\ud55c", 2), ("\ud55c\u0301", 1), ("1\ufe0f", 1),
                            ("\ufeff\u0301", 2), ("a\ufeff", 2), ("\u3000\u00a0", 2), ("\x00\x7f\x1b", 3)):
            self.assertEqual(number_of_characters(text), count, ascii(text))

    def test_units(self):
        self.assertEqual(utf16_units("a\u00e9" + EMOJI), [0x61, 0xE9, 0xD83D, 0xDE00])
        self.assertEqual(len(utf16_units(FAMILY)), 8)

    def test_refusal(self):
        for text in ("\u0903", "\u0e33", "\u1100", "\u200b", "\u0600", "\u00a9", "\u20dd", "\U000e0061", "\u2028",
                     "\u0430", "a\u1160"):
            with self.assertRaises(NotPinned, msg=ascii(text)):
                number_of_characters(text)


class Window(unittest.TestCase):
    def test_window(self):
        self.assertEqual(len(G), 38)
        for text, matches in ((G, 1), (EMOJI + G, 0), (EMOJI + G + "x", 1), ("e\u0301" + G, 0), ("\u00e9" + G, 1),
                              (FLAG + G, 0), (FLAG + G + "xy", 0), (FLAG + G + "xyz", 1), (G + "\u0301", 1),
                              (FAMILY + G + "7letter", 1), (FAMILY + G + "6lette", 0), ("\r\n" + G, 0),
                              ("\r\n" + G + "x", 1), ("\n\r" + G, 1), (G + EMOJI, 1), (G + G, 2), (EMOJI + G + G, 1),
                              ("x" + G + "\u0301\u0301", 1), ("\u5bc6" + G, 1), ("\uac00" + G, 1),
                              ("\U0001f44d\U0001f3fd" + G + "abc", 1), ("\U0001f44d\U0001f3fd" + G + "ab", 0)):
            self.assertEqual(number_of_matches(text), matches, ascii(text))

    def test_pattern(self):
        for text in (G.lower(), G.upper(), "x" + G, G + "x", "{" + G, "{{" + G + "}}"):
            self.assertEqual(number_of_matches(text), 1, text)
        for text in ("", G[1:], G[:-1], G[1:-1], G.replace("-", ""), G.replace("-4B5a", ""), G.replace("0F", "0", 1),
                     G.replace("0F", "0FF", 1), G.replace("0F", "0g"), G.replace("-", "_"), G.replace("{", "("),
                     G[:20] + " " + G[20:], G[:20] + "\u0301" + G[21:], G.replace("0F", "0\u00ca"), "{-{" + G[3:]):
            self.assertEqual(number_of_matches(text), 0, text)


if __name__ == "__main__":
    unittest.main()
