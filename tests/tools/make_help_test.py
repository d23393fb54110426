"""The maker of the help document: what it writes is read back by a small reader of rich text of its own, and what is wrong
with a chapter is refused with file and line."""

import pathlib
import re
import struct
import sys
import tempfile
import unittest
import zlib

sys.path.insert(0, str(pathlib.Path(__file__).resolve().parents[2] / "tools"))
import make_help  # noqa: E402

TOKEN = re.compile(r"\\u(-?\d+)\?|\\([a-z]+)(-?\d+)? ?|\\([\\{}*])|([{}])|([^\\{}]+)", re.DOTALL)
HIDDEN = {"fonttbl", "colortbl", "stylesheet", "info", "fldinst", "bkmkstart", "bkmkend", "pict"}
CHARACTERS = {"par": "\n", "line": "\n", "tab": "\t", "cell": "|", "row": "\n"}


def read_rtf(rtf):
    """The text that a viewer shows; fails when the groups do not balance."""
    units, hidden, at = [], [False], 0
    while at < len(rtf):
        match = TOKEN.match(rtf, at)
        assert match, f"not rich text: {rtf[at : at + 20]!r}"
        at = match.end()
        unit, word, _, symbol, brace, plain = match.groups()
        if brace == "{":
            hidden.append(hidden[-1])
        elif brace == "}":
            hidden.pop()
            assert hidden, "a group is closed that was not opened"
        elif word in HIDDEN:
            hidden[-1] = True
        elif not hidden[-1]:
            text = (plain or "").replace("\r", "").replace("\n", "") + CHARACTERS.get(word, "")
            text += symbol if symbol in tuple("\\{}") else ""
            units += struct.unpack(f"<{len(text)}H", text.encode("utf-16-le"))
            units += [int(unit) % 65536] if unit else []
    assert hidden == [False], "a group is not closed"
    return struct.pack(f"<{len(units)}H", *units).decode("utf-16-le")


def read_chapter(text, missing=(), **files):
    """A document of this one chapter, with files beside it."""
    with tempfile.TemporaryDirectory() as folder:
        path = pathlib.Path(folder)
        (path / "1.md").write_text(text, encoding="utf-8")
        for name, data in files.items():
            (path / f"{name}.png").write_bytes(data)
        blocks = make_help.read_chapters(path)
        return blocks, make_help.RtfWriter(blocks, missing).document()


def shown(text):
    return read_rtf(read_chapter(text)[1])


def png(width, height):
    def chunk(kind, data):
        return struct.pack(">I", len(data)) + kind + data + struct.pack(">I", zlib.crc32(kind + data))

    header = chunk(b"IHDR", struct.pack(">IIBBBBB", width, height, 8, 0, 0, 0, 0))
    return b"\x89PNG\r\n\x1a\n" + header + chunk(b"IEND", b"")


class Reading(unittest.TestCase):
    def test_what_is_shown(self):
        cases = {
            "汉字 \\ {x} 𠮷😀 \\*": "汉字 \\ {x} 𠮷😀 *\n",
            "一\n二\nab\ncd": "一二ab cd\n",
            "**粗** `a*b\\d` ``c`d``": "粗 a*b\\d c`d\n",
            "- 项": "•\t项\n",
            "3. 第三": "3.\t第三\n",
            "| `a|b` | c\\|d |\n|---|---|\n| 1 | 2 |": "\na|b|c|d|\n1|2|\n\n",
            "```\nx  y\n\n z\n```": "x  y\n\n z\n",
            "```before sort\n·a\n```\n```after\n→a\n```": "\n之前|之后|\n·a|→a|\n\n",
            "# 一 {#a}\n\n见[那里](#a)": "一\n见那里\n",
        }
        for text, wanted in cases.items():
            with self.subTest(text):
                self.assertEqual(shown(text), wanted)

    def test_a_wide_example_stands_one_above_the_other(self):
        text = shown("```before\n" + "字" * 30 + "\n```\n```after\nx\n```")
        self.assertEqual(text, "\n之前|\n" + "字" * 30 + "|\n之后|\nx|\n\n")

    def test_contents_list_every_chapter_and_section(self):
        self.assertIn("\n二 ›\n三 ›\n", shown("# 一\n\n[[contents]]\n\n# 二\n\n## 三\n\n### 四"))

    def test_what_is_missing_is_listed_and_said_in_its_section(self):
        text = "# 窗 {#w needs mnuA}\n\n## 甲 {#mnuA}\n\n## 乙 {#mnuB}\n\n[[missing]]"
        missing = [make_help.MenuEntry("mnuA", "A 甲", "")]
        note = "这一版里还不能用。\n"
        self.assertEqual(read_rtf(read_chapter(text, missing)[1]), f"窗\n{note}甲\n{note}乙\n•\tA 甲\n")

    def test_a_picture_keeps_its_shape_and_fits_the_page(self):
        blocks, rtf = read_chapter("![图](a.png)", a=png(1200, 600))
        self.assertIn(r"\pngblip\picw1200\pich600\picwgoal9026\pichgoal4513", rtf)
        self.assertIn(png(1200, 600).hex()[:100], rtf)
        self.assertEqual(make_help.words_of(blocks), "图")

    def test_mistakes_are_refused_with_their_place(self):
        cases = {
            "好\n\n> 引用": "1.md:3",
            "#### 四": "1.md:1",
            "```\n没有完": "1.md:1",
            "```after\nx\n```": "1.md:1",
            "```before\nx\n```\n\n好": "1.md:1",
            "**粗": "1.md:1",
            "`a": "1.md:1",
            "[那里](#nowhere)": "nowhere",
            "![图](missing.png)": "missing.png",
            "| a | b |\n|---|---|\n| 1 |": "1.md:1",
            "# 一 {#a}\n\n## 二 {#a}": "1.md:3",
        }
        for text, place in cases.items():
            with self.subTest(text), self.assertRaisesRegex(make_help.HelpError, re.escape(place)):
                shown(text)


class Checking(unittest.TestCase):
    MENU = [make_help.MenuEntry("mnuA", "A 甲", "Ctrl+A"), make_help.MenuEntry("mnuB", "B 乙", "")]
    GOOD = "## 甲 {#mnuA}\n\n**A 甲**，Ctrl+A\n\n例：好\n\n## 还没有\n\n[[missing]]"

    def findings(self, text, registered=("mnuA",)):
        return list(make_help.check(read_chapter(text)[0], self.MENU, registered))

    def test_a_whole_document_has_no_findings(self):
        self.assertEqual(self.findings(self.GOOD), [])

    def test_each_fault_is_found(self):
        cases = {
            self.GOOD.replace("{#mnuA}", ""): "mnuA (A 甲) is not described",
            self.GOOD.replace("**A 甲**", "甲"): "without its caption",
            self.GOOD.replace("Ctrl+A", ""): "without its shortcut",
            self.GOOD.replace("例：", ""): "without an example",
            self.GOOD + "\n\n## 丙 {#mnuC}": "the menu has no mnuC",
            self.GOOD.replace("[[missing]]", ""): "are not listed",
        }
        for text, finding in cases.items():
            with self.subTest(finding):
                self.assertIn(finding, "\n".join(self.findings(text)))
        self.assertIn("mnuB (B 乙) is not described", "\n".join(self.findings(self.GOOD, ["mnuA", "mnuB"])))

    def test_the_commands_are_those_that_the_composition_registers(self):
        self.assertIn("mnuHowToUse", make_help.read_registered())
        with tempfile.TemporaryDirectory() as name:
            folder = pathlib.Path(name)
            (folder / "a").mkdir()
            (folder / "ScrivantaApp.cpp").write_text("  RegisterACommands(table);\n")
            for letter in "AB":
                source = f'  t.Add(\n "mnu{letter}", {{}});\n}}\nvoid Register{letter}Commands(CommandTable& t) {{\n'
                (folder / "a" / f"{letter}.cpp").write_text(source)
            self.assertEqual(make_help.read_registered(folder), {"mnuA"})

    def test_the_menu_is_read_from_the_program(self):
        menu = {entry.name: entry for entry in make_help.read_menu()}
        self.assertEqual(menu["mnuSaveAs"], make_help.MenuEntry("mnuSaveAs", "A 另存为...", "Ctrl+Shift+S"))
        self.assertNotIn("mnuFile", menu)
        self.assertNotIn("mnuSep0", menu)


class TheDocument(unittest.TestCase):
    def test_it_can_be_read(self):
        text = read_rtf(make_help.RtfWriter(make_help.read_chapters()).document())
        for words in ("D 删除空行", "是否存盘?", "<回车换行符>", "\\1", "“``”"):
            self.assertIn(words, text)


if __name__ == "__main__":
    unittest.main()
