#!/usr/bin/env python3
r"""Makes the help document Scrivanta.rtf from the chapters in docs/help, and checks it.

    make_help.py -o Scrivanta.rtf                 writes the document
    make_help.py --check                          every command that the program has is described, under its caption
    make_help.py --examples build/native/bin/scrivanta-batch   every example that names a command is what it does

The chapters are read in the order of their names. They are UTF-8 and written in this subset of Markdown; anything else is an
error that names file and line:

    # Chapter, ## Section, ### Sub-section   optionally followed by {#name}: the section describes that menu command; with
                                             {#name needs COMMAND} it is about a window which that command opens
    a paragraph                              lines are joined; a blank goes between two ASCII characters only
    - item, 1. item                          one line each
    | a | b |                                a table; the second line is |---|---|
    ```                                      lines in a fixed-width font, up to the closing ```
    ```before [COMMAND ARGUMENTS]            an example: the text before, and in a block ```after that follows it directly,
    ```after                                 the text after. With a command of the console program it is put to the test
    ![words](../images/name.png)             a picture on a line of its own
    [[contents]]                             the list of chapters and sections
    [[missing]]                              the list of the menu's commands that the program does not have yet; a section
                                             about one of them says so by itself

In a line: **bold**, `fixed width` (more back-quotes around a text that holds one), [words](#name) where the words send the
reader to a section, and a backslash before one of \ ` * | [ ] that would mean something else. In an example a blank that
matters is written as a middle dot and a tab as an arrow; they are shown that way too.
"""

import argparse
import dataclasses
import pathlib
import re
import shlex
import struct
import subprocess
import sys
import unicodedata

ROOT = pathlib.Path(__file__).resolve().parent.parent
CHAPTERS = ROOT / "docs" / "help"
TEXT_WIDTH = 9026  # twips: A4 less margins of one inch
BLANK_MARK, TAB_MARK = "·", "→"


class HelpError(Exception):
    """Something in the chapters is wrong; the text says where and what."""


# The document ---------------------------------------------------------------------------------------------------------


@dataclasses.dataclass
class Block:
    kind: str  # heading, paragraph, item, number, table, code, example, picture, contents, missing
    where: str  # file:line
    text: str = ""
    level: int = 0
    name: str = ""  # the menu control that it describes, or the target of a link
    needs: str = ""  # the menu control without which there is nothing to describe
    rows: list = dataclasses.field(default_factory=list)  # of a table: lists of cells
    file: pathlib.Path | None = None  # of a picture
    after: str = ""  # of an example: its text is what stands before
    command: list = dataclasses.field(default_factory=list)  # of an example: arguments for the console program


NAME = re.compile(r"\s*\{#([A-Za-z0-9_-]+)(?: needs (\w+))?\}$")


def split_name(text):
    match = NAME.search(text)
    if not match:
        return text, "", ""
    name = match.group(1)
    return text[: match.start()], name, match.group(2) or (name if name.startswith("mnu") else "")


def join_lines(first, second):
    return first + (" " if first[-1:].isascii() and second[:1].isascii() else "") + second


def split_cells(line, where):
    """The cells of a table row; a bar inside `code` or after a backslash belongs to its cell."""
    if not line.endswith("|"):
        raise HelpError(f"{where}: a table row ends with |")
    cells, cell, fence, i = [], "", "", 1
    while i < len(line):
        quotes = re.match(r"`+", line[i:])
        if quotes:
            if not fence:
                fence = quotes.group()
            elif fence == quotes.group():
                fence = ""
            cell += quotes.group()
            i += len(quotes.group())
        elif line[i] == "\\" and not fence:
            cell += line[i : i + 2]
            i += 2
        elif line[i] == "|" and not fence:
            cells.append(cell.strip())
            cell = ""
            i += 1
        else:
            cell += line[i]
            i += 1
    if fence or cell:
        raise HelpError(f"{where}: a table cell is not closed")
    return cells


class Parser:
    def __init__(self, path):
        self.path = path
        try:
            self.lines = path.read_text(encoding="utf-8").split("\n")
        except UnicodeDecodeError as error:
            raise HelpError(f"{path.name}: not UTF-8: {error}") from error
        self.at = 0
        self.blocks = []

    def where(self):
        return f"{self.path.name}:{self.at + 1}"

    def line(self):
        return self.lines[self.at] if self.at < len(self.lines) else ""

    def parse(self):
        while self.at < len(self.lines):
            line = self.line()
            if not line.strip():
                self.at += 1
            elif line.startswith("```"):
                self.fence()
            elif line.startswith("|"):
                self.table()
            else:
                self.text_line(line)
        return self.blocks

    def add(self, kind, text, **more):
        text, name, needs = split_name(text) if kind == "heading" else (text, "", "")
        self.blocks.append(Block(kind, self.where(), text.strip(), name=name, needs=needs, **more))
        self.at += 1

    def text_line(self, line):
        heading = re.match(r"(#+) (.+)", line)
        picture = re.fullmatch(r"!\[([^\]]*)\]\(([^)]+)\)", line)
        if heading and len(heading.group(1)) <= 3:
            self.add("heading", heading.group(2), level=len(heading.group(1)))
        elif picture:
            self.add("picture", picture.group(1), file=(self.path.parent / picture.group(2)).resolve())
        elif line.startswith("- "):
            self.add("item", line[2:])
        elif re.match(r"\d+\. ", line):
            self.add("number", line)
        elif line in ("[[contents]]", "[[missing]]"):
            self.add(line.strip("[]"), "")
        elif re.match(r"[#>!<]|[-*+] |\s|---|===", line):
            raise HelpError(f"{self.where()}: this is not part of the subset: {line[:40]}")
        elif self.blocks and self.blocks[-1].kind == "paragraph" and self.at and self.lines[self.at - 1].strip():
            self.blocks[-1].text = join_lines(self.blocks[-1].text, line.strip())
            self.at += 1
        else:
            self.add("paragraph", line)

    def fence(self):
        where, words = self.where(), shlex.split(self.line()[3:])
        kind = words[0] if words else ""
        if kind not in ("", "before", "after") or (kind != "before" and len(words) > 1):
            raise HelpError(f"{where}: a block begins with ```, ```before or ```after")
        body = []
        self.at += 1
        while self.line() != "```":
            if self.at >= len(self.lines):
                raise HelpError(f"{where}: the block is not closed")
            body.append(self.line())
            self.at += 1
        self.at += 1
        text = "\n".join(body)
        if kind == "after":
            open_example = self.blocks and self.blocks[-1].kind == "example" and self.blocks[-1].level == 0
            if not open_example:
                raise HelpError(f"{where}: ```after does not follow a ```before")
            self.blocks[-1].after, self.blocks[-1].level = text, 1
        else:
            block = Block("example" if kind else "code", where, text, command=words[1:])
            self.blocks.append(block)

    def table(self):
        where, rows = self.where(), []
        while self.line().startswith("|"):
            rows.append(split_cells(self.line().rstrip(), self.where()))
            self.at += 1
        if len(rows) < 3 or not all(re.fullmatch(":?-+:?", cell) for cell in rows[1]):
            raise HelpError(f"{where}: a table has a heading, a line |---|---| and rows")
        del rows[1]
        if any(len(row) != len(rows[0]) for row in rows):
            raise HelpError(f"{where}: the rows of a table have the same number of cells")
        self.blocks.append(Block("table", where, rows=rows))


def read_chapters(folder=CHAPTERS):
    blocks = []
    for path in sorted(folder.glob("*.md")):
        blocks += Parser(path).parse()
    if not blocks:
        raise HelpError(f"{folder}: no chapters")
    names = {}
    for block in blocks:
        if block.name in names:
            raise HelpError(f"{block.where}: {block.name} stands at {names[block.name]} already")
        if block.name:
            names[block.name] = block.where
        if block.kind == "example" and block.level == 0:
            raise HelpError(f"{block.where}: ```before has no ```after")
    return blocks


# Rich text ------------------------------------------------------------------------------------------------------------


def escape(text):
    """Text as rich text: ASCII with \\uN escapes, N a signed 16-bit number, one UTF-16 code unit each."""
    result = []
    for character in text:
        if character in "\\{}":
            result.append("\\" + character)
        elif character == "\t":
            result.append("\\tab ")
        elif character == "\n":
            result.append("\\line\n")
        elif character.isascii():
            result.append(character)
        else:
            units = character.encode("utf-16-le")
            for (unit,) in struct.iter_unpack("<h", units):
                result.append(f"\\u{unit}?")
    return "".join(result)


INLINE = re.compile(
    r"\\(?P<plain>[\\`*|\[\]])|(?P<quotes>`+)(?P<code>.+?)(?P=quotes)(?!`)|(?P<bold>\*\*)"
    r"|\[(?P<words>[^\]]+)\]\(#(?P<link>[^)]+)\)"
)


class RtfWriter:
    """Fonts and colours are numbered as the header lists them."""

    HEADER = (
        r"{\rtf1\ansi\ansicpg936\deff0\adeff0\stshfdbch0\deflang1033\deflangfe2052\uc1" "\n"
        r"{\fonttbl{\f0\fnil\fcharset134 Microsoft YaHei;}{\f1\fmodern\fprq1\fcharset134 NSimSun;}}" "\n"
        r"{\colortbl ;\red31\green78\blue121;\red90\green90\blue90;\red242\green242\blue242;\red191\green191\blue191;}" "\n"
        r"{\stylesheet{\s0 Normal;}{\s1\outlinelevel0 heading 1;}{\s2\outlinelevel1 heading 2;}"
        r"{\s3\outlinelevel2 heading 3;}}" "\n"
        r"{\info{\title Scrivanta}}" "\n"
        r"\paperw11906\paperh16838\margl1440\margr1440\margt1440\margb1440\viewkind4\fs21" "\n"
    )
    HEADINGS = {
        1: r"\pard\s1\outlinelevel0\keepn\sb480\sa160\b\cf1\fs36 ",
        2: r"\pard\s2\outlinelevel1\keepn\sb320\sa100\b\cf1\fs26 ",
        3: r"\pard\s3\outlinelevel2\keepn\sb200\sa80\b\cf1\fs22 ",
    }
    EXAMPLE_WIDTH = 42  # ASCII characters in half the width of the text
    BORDERS = "".join(rf"\clbrdr{side}\brdrs\brdrw10\brdrcf4" for side in "tlbr")

    def __init__(self, blocks, missing=()):
        """`missing`: the menu entries that the program does not have yet."""
        self.blocks = blocks
        self.missing = {entry.name: entry for entry in missing}
        self.names = {block.name for block in blocks if block.name}
        self.parts = []

    def document(self):
        for i, block in enumerate(self.blocks):
            getattr(self, "write_" + block.kind)(block, self.anchor(block, i))
        return self.HEADER + "".join(self.parts) + "}\n"

    def anchor(self, block, index):
        return block.name or f"section{index}"

    def inline(self, text, where):
        result, bold, end = [], False, 0
        for match in INLINE.finditer(text):
            result.append(escape(self.plain(text[end : match.start()], where)))
            end = match.end()
            if match["plain"]:
                result.append(escape(match["plain"]))
            elif match["code"]:
                result.append(r"{\f1 " + escape(match["code"].strip() if "`" in match["code"] else match["code"]) + "}")
            elif match["bold"]:
                bold = not bold
                result.append(r"{\b " if bold else "}")
            else:
                if match["link"] not in self.names:
                    raise HelpError(f"{where}: no section is named {match['link']}")
                result.append(self.inline(match["words"], where))
        if bold:
            raise HelpError(f"{where}: ** is not closed")
        return "".join(result) + escape(self.plain(text[end:], where))

    @staticmethod
    def plain(text, where):
        if "`" in text or "](" in text:
            raise HelpError(f"{where}: a ` or a link is not closed: {text}")
        return text

    def write_heading(self, block, anchor):
        mark = rf"{{\*\bkmkstart {anchor}}}{{\*\bkmkend {anchor}}}"
        start = self.HEADINGS[block.level]
        if block.level == 1 and self.parts:
            start = start.replace(r"\pard", r"\pard\pagebb", 1)
        self.parts.append("{" + start + mark + self.inline(block.text, block.where) + "\\par}\n")
        if block.needs in self.missing:
            self.parts.append(r"{\pard\sb0\sa80\cf2\i " + escape("这一版里还不能用。") + "\\par}\n")

    def write_paragraph(self, block, _):
        self.parts.append(r"\pard\sb40\sa100\sl300\slmult1 " + self.inline(block.text, block.where) + "\\par\n")

    def write_item(self, block, _):
        self.list_line(escape("•"), block.text, block.where)

    def write_number(self, block, _):
        number, text = block.text.split(" ", 1)
        self.list_line(number, text, block.where)

    def list_line(self, mark, text, where):
        start = r"\pard\sb0\sa60\sl290\slmult1\fi-360\li420\tx420 "
        self.parts.append(start + mark + "\\tab " + self.inline(text, where) + "\\par\n")

    def write_code(self, block, _):
        self.parts.append(r"{\pard\sb40\sa140\li240\cbpat3\f1\fs20 " + escape(block.text) + "\\par}\n")

    def write_example(self, block, _):
        """Side by side, or one above the other where the lines are long."""
        sides = [(escape("之前"), block.text), (escape("之后"), block.after)]
        lines = [line for _, text in sides for line in text.split("\n")]
        together = max(display_width(line) for line in lines) <= self.EXAMPLE_WIDTH
        self.begin_table()
        for group in [sides] if together else [[side] for side in sides]:
            self.row([title for title, _ in group], [1] * len(group), heading=True)
            self.row([r"\f1\fs20 " + escape(text) for _, text in group], [1] * len(group))
        self.end_table()

    def begin_table(self):
        """A low line: the rich edit control may give rows the spacing of the paragraph before them."""
        self.parts.append("{\\pard\\fs4\\par}\n")

    def end_table(self):
        self.parts.append("{\\pard\\fs12\\par}\n")

    def write_table(self, block, _):
        widths = [max(display_width(row[i]) for row in block.rows) for i in range(len(block.rows[0]))]
        # A short column is not squeezed by a long one, and none is narrower than a short word.
        widths = [min(max(width, 8), 44) for width in widths]
        self.begin_table()
        for i, row in enumerate(block.rows):
            self.row([self.inline(cell, block.where) for cell in row], widths, heading=i == 0)
        self.end_table()

    def row(self, cells, weights, heading=False):
        shade, bold = (r"\clcbpat3", r"\b ") if heading else ("", "")
        edges, sum_so_far = [], 0
        for weight in weights:
            sum_so_far += weight
            edges.append(TEXT_WIDTH * sum_so_far // sum(weights))
        start = r"\pard\trowd\trgaph108\trleft0\trpaddt50\trpaddb50\trpaddft3\trpaddfb3" + (r"\trhdr" if heading else "") + r"\trkeep"
        start += "".join(f"{self.BORDERS}{shade}\\cellx{edge}" for edge in edges)
        body = "".join(rf"\pard\intbl {{{bold}{cell}}}\cell" + "\n" for cell in cells)
        self.parts.append(start + "\n" + body + "\\row\n")

    def write_picture(self, block, _):
        path = block.file
        if not path.is_file():
            raise HelpError(f"{block.where}: there is no picture {path}")
        data = path.read_bytes()
        if data[:8] != b"\x89PNG\r\n\x1a\n":
            raise HelpError(f"{block.where}: {path} is not a PNG file")
        width, height = struct.unpack(">II", data[16:24])
        goal = min(width * 15, TEXT_WIDTH)  # 15 twips a pixel at 96 dots an inch
        numbers = data.hex()
        lines = "\n".join(numbers[i : i + 128] for i in range(0, len(numbers), 128))
        size = rf"\picw{width}\pich{height}\picwgoal{goal}\pichgoal{height * goal // width}"
        self.parts.append(rf"\pard\sb80\sa40\qc {{\pict\pngblip{size}" + "\n" + lines + "}\\par\n")
        self.parts.append(r"{\pard\sb0\sa160\qc\cf2\fs18 " + self.inline(block.text, block.where) + "\\par}\n")

    def write_missing(self, block, _):
        for entry in self.missing.values():
            self.list_line(escape("•"), "**" + entry.caption + "**", block.where)

    def write_contents(self, *_):
        """Each line ends in an arrow that is a link: some viewers do not show the text of links at all."""
        for i, block in enumerate(self.blocks):
            if block.kind == "heading" and block.level <= 2 and i > 0:
                start = r"\pard\sb60\sa0\b " if block.level == 1 else r"\pard\sb0\sa0\li420 "
                link = rf'{{\field{{\*\fldinst{{HYPERLINK \\l "{self.anchor(block, i)}"}}}}{{\fldrslt{{\cf1  {escape("›")}}}}}}}'
                self.parts.append("{" + start + self.inline(block.text, block.where) + link + "\\par}\n")


def display_width(text):
    return sum(2 if unicodedata.east_asian_width(character) in "WF" else 1 for character in text)


# Checks ---------------------------------------------------------------------------------------------------------------


def sections(blocks):
    """What describes each name: the blocks of its section."""
    result = {}
    for i, block in enumerate(blocks):
        if block.kind == "heading" and block.name:
            end = i + 1
            while end < len(blocks) and not (blocks[end].kind == "heading" and blocks[end].level <= block.level):
                end += 1
            result[block.name] = blocks[i:end]
    return result


def words_of(blocks):
    return "\n".join("\n".join([block.text, *(str(cell) for row in block.rows for cell in row)]) for block in blocks)


@dataclasses.dataclass
class MenuEntry:
    name: str
    caption: str  # as the menu shows it
    shortcut: str


def read_menu(path=ROOT / "src" / "shell" / "window" / "MenuTree.cpp"):
    """The commands of the menu: its entries without separators and without those of the bar."""
    row = re.compile(
        r'\{"(mnu\w+)", u"([^"]*)"(, MenuLevel::kBar)?(?:, MenuLevel::kEntry)?(?:, u"([^"]*)"(?:, u"[^"]*")?)?\}'
    )
    rows = row.findall(path.read_text(encoding="utf-8"))
    entries = [MenuEntry(name, caption.replace("&", ""), shortcut) for name, caption, bar, shortcut in rows if not bar]
    entries = [entry for entry in entries if entry.caption != "-"]
    if not entries:
        raise HelpError(f"{path}: no menu entries found")
    return entries


def read_registered(folder=ROOT / "src"):
    """The commands that the program has: what the sources add to the table whose functions for that are called by the
    composition, by a subsystem's opening or by one another."""
    openings = [folder / "ScrivantaApp.cpp", *folder.glob("*/Scrivanta*.cpp")]
    calls = "".join(path.read_text(encoding="utf-8") for path in openings)
    sources = [path.read_text(encoding="utf-8") for path in folder.glob("*/**/*.cpp")]
    registered = set()

    def is_called(source):
        adders = re.findall(r"^void ((?:Register|Add)\w+)\(", source, re.MULTILINE)
        return any(name + "(" in calls for name in adders)

    while called := [source for source in sources if is_called(source)]:
        sources = [source for source in sources if source not in called]
        calls = "".join(called)
        registered.update(re.findall(r'Add\(\s*"(mnu\w+)"', calls))
    return registered


def check(blocks, menu, registered):
    """What is wrong with the chapters, one line each."""
    described = sections(blocks)
    for entry in menu:
        section = described.get(entry.name)
        if section is None:
            if entry.name in registered:
                yield f"{entry.name} ({entry.caption}) is not described"
            continue
        words, where = words_of(section), section[0].where
        if entry.caption not in words:
            yield f"{where}: {entry.name} is described without its caption {entry.caption}"
        if entry.shortcut and entry.shortcut not in words:
            yield f"{where}: {entry.name} is described without its shortcut {entry.shortcut}"
        if not any(block.kind == "example" or block.text.startswith("例：") for block in section):
            yield f"{where}: {entry.name} is described without an example"
    known = {entry.name for entry in menu}
    for section in described.values():
        if section[0].needs and section[0].needs not in known:
            yield f"{section[0].where}: the menu has no {section[0].needs}"
    if not any(block.kind == "missing" for block in blocks):
        yield "the commands that the program does not have yet are not listed"


def batch_commands(program):
    """The commands of the console program, as its own help lists them."""
    shown = subprocess.run([program, "--help"], capture_output=True, text=True, check=True).stdout
    commands = re.findall(r"^  ([a-z][a-z0-9-]+) ", shown.partition("Subcommands:")[2], re.MULTILINE)
    if not commands:
        raise HelpError(f"{program} --help lists no commands")
    return commands


def run_example(program, block):
    """What the console program makes of the text before, or its error."""
    text = unmark(block.text).replace("\n", "\r\n").encode("gb18030")
    result = subprocess.run([program, *block.command], input=text, capture_output=True, check=False)
    if result.returncode != 0:
        return result.stderr.decode("utf-8", "replace").strip() or f"exit status {result.returncode}"
    return result.stdout.decode("gb18030").removesuffix("\r\n").replace("\r\n", "\n")


def unmark(text):
    return text.replace(BLANK_MARK, " ").replace(TAB_MARK, "\t")


def check_examples(blocks, program):
    commands = batch_commands(program)
    words = words_of(blocks)
    for command in commands:
        if command not in words:
            yield f"{command}, a command of the console program, is not mentioned"
    for block in blocks:
        if block.kind != "example" or not block.command:
            continue
        made, shown = run_example(program, block), unmark(block.after)
        if made != shown:
            yield f"{block.where}: {shlex.join(block.command)} gives\n{made}\n-- and not\n{shown}"


def main():
    parser = argparse.ArgumentParser(description="Makes and checks the help document.")
    parser.add_argument("-o", "--output", type=pathlib.Path, help="write the document to this file")
    parser.add_argument("--check", action="store_true", help="compare the document with the menu")
    parser.add_argument("--examples", metavar="PROGRAM", help="try the examples with this console program")
    arguments = parser.parse_args()
    try:
        blocks, menu, registered = read_chapters(), read_menu(), read_registered()
        findings = list(check(blocks, menu, registered)) if arguments.check else []
        if arguments.examples:
            findings += check_examples(blocks, arguments.examples)
        document = RtfWriter(blocks, [entry for entry in menu if entry.name not in registered]).document()
        if arguments.output:
            arguments.output.write_text(document, encoding="ascii", newline="\r\n")
    except HelpError as error:
        findings = [str(error)]
    print("\n".join(findings), file=sys.stderr, end="\n" if findings else "")
    return 1 if findings else 0


if __name__ == "__main__":
    sys.exit(main())
