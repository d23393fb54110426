#!/usr/bin/env python3
"""Sheets and cards of the console program, read by others: openpyxl reads its sheets and writes some for it, gnumeric does
so with all of a book, vobject and ez-vcard read its cards. What is not installed is skipped, and said.

    contact_readers_test.py PROGRAM
"""

import datetime
import io
import pathlib
import shutil
import subprocess
import sys
import tempfile
import unittest

try:
    import openpyxl
except ImportError:
    openpyxl = None
try:
    import vobject
except ImportError:
    vobject = None

PROGRAM = sys.argv[1]
JAVA_LIBRARIES = [pathlib.Path("/usr/share/java") / name for name in ("ez-vcard.jar", "vinnie.jar")]
# What ez-vcard makes of the cards that come in: a line for each of their texts.
EZ_VCARD_READER = """
import ezvcard.*;
import ezvcard.io.text.VCardReader;
import java.io.*;
public class Reader {
  public static void main(String[] arguments) throws Exception {
    PrintStream out = new PrintStream(System.out, true, "UTF-8");
    VCardReader cards = new VCardReader(System.in, VCardVersion.V2_1);
    for (VCard card = cards.readNext(); card != null; card = cards.readNext()) {
      out.println(card.getStructuredName().getFamily());
      out.println(card.getFormattedName().getValue());
      card.getTelephoneNumbers().forEach(number -> out.println(number.getTypes() + number.getText()));
      card.getOrganizations().forEach(organization -> out.println(String.join("/", organization.getValues())));
      card.getNotes().forEach(note -> out.println(note.getValue().replace("\\r\\n", "|")));
      card.getPhotos().forEach(photo -> out.println("photo of " + photo.getData().length));
    }
  }
}
"""
# The second name needs soft breaks, the third is outside of the Basic Multilingual Plane.
NAMES = ["张三", "欧阳" * 20, "𠮷野家"]
NOTE = "line 1\nline 2\tof = ; \\ _x0041_ \x0b"


def run(*arguments, data):
    return subprocess.run([PROGRAM, *arguments], input=data, capture_output=True, check=True).stdout


def encoded(text):
    return "".join(f"={byte:02X}" for byte in text.encode())


def cards(names, note):
    head = ";CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:"
    return "".join(
        f"BEGIN:VCARD\r\nVERSION:2.1\r\nFN{head}{encoded(name)}\r\nTEL;CELL:00138{i}\r\n"
        f"NOTE{head}{encoded(note)}\r\nEND:VCARD\r\n"
        for i, name in enumerate(names)
    ).encode()


@unittest.skipIf(openpyxl is None, "python3-openpyxl is not installed")
class Sheets(unittest.TestCase):
    def test_a_sheet_is_read_by_others(self):
        book = openpyxl.load_workbook(io.BytesIO(run("vcard-to-table", "--to", "xlsx", data=cards(NAMES, NOTE))))
        sheet = book.active
        rows = list(sheet.iter_rows(values_only=True))
        self.assertEqual(rows[0][:3], ("姓名", "手机", "住宅电话"))
        self.assertEqual([row[0] for row in rows[1:]], NAMES)
        self.assertEqual([row[1] for row in rows[1:]], ["001380", "001381", "001382"])
        note = openpyxl.utils.escape.unescape(rows[1][rows[0].index("备注")])
        self.assertEqual(note, NOTE)
        self.assertEqual({cell.data_type for cell in sheet[2] if cell.value}, {"s"})
        self.assertEqual(sheet.freeze_panes, "A2")

    def test_a_sheet_of_others_is_read(self):
        book = openpyxl.Workbook()
        book.active.append(["姓名", "手机", "生日", "备注"])
        book.active.append(["张三", 13800138000, datetime.date(2024, 2, 29), " a\nb "])
        data = io.BytesIO()
        book.save(data)
        text = run("table-to-vcard", "--from", "xlsx", data=data.getvalue())
        table = run("vcard-to-table", "--encoding", "utf-8", data=text).decode().splitlines()[1].split("\t")
        self.assertEqual((table[0], table[1], table[9], table[11]), ("张三", "13800138000", "2024-02-29", " a\\nb "))

    def test_numbers_of_a_database_are_numbers(self):
        with tempfile.TemporaryDirectory() as name:
            database = pathlib.Path(name) / "a.db"
            table = "a,b,c,d\n1,2.50,0012,12345678901234567\n"
            run("db-import", "--database", database, "--table", "t", "--header", "--delimiter", "comma",
                "--types", "integer,real,text,integer", data=table.encode())
            sheet = run("db-export", "--database", database, "--table", "t", "--to", "xlsx", data=b"")
        rows = list(openpyxl.load_workbook(io.BytesIO(sheet)).active.iter_rows(values_only=True))
        self.assertEqual(rows, [(1, 2.5, "0012", "12345678901234567")])

    @unittest.skipIf(shutil.which("ssconvert") is None, "gnumeric is not installed")
    def test_a_book_comes_back_from_another_program(self):
        with tempfile.TemporaryDirectory() as name:
            ours, theirs = (pathlib.Path(name) / file for file in ("ours.xlsx", "theirs.xlsx"))
            book = cards(NAMES, "a\nb")
            ours.write_bytes(run("vcard-to-table", "--to", "xlsx", data=book))
            subprocess.run(["ssconvert", ours, theirs], check=True, capture_output=True)
            back = run("table-to-vcard", "--from", "xlsx", data=theirs.read_bytes())
            self.assertEqual(run("vcard-to-table", data=back), run("vcard-to-table", data=book))


@unittest.skipIf(vobject is None, "python3-vobject is not installed")
class Cards(unittest.TestCase):
    def test_cards_are_read_by_others(self):
        names = ["张三", "欧阳" * 3, "𠮷野家"]
        table = run("vcard-to-table", data=cards(names, "a\nb"))
        read = list(vobject.readComponents(run("table-to-vcard", data=table).decode("ascii"), allowQP=True))
        self.assertEqual([card.fn.value for card in read], names)
        self.assertEqual([card.tel.value for card in read], ["001380", "001381", "001382"])
        self.assertEqual(read[0].note.value.replace("\r\n", "\n"), "a\nb")


@unittest.skipUnless(
    shutil.which("javac") and all(path.exists() for path in JAVA_LIBRARIES), "a JDK or libez-vcard-java is not installed"
)
class FoldedCards(unittest.TestCase):
    def test_cards_are_read_by_others(self):
        table = "姓名\t手机\t传真\t单位\t备注\t其他\n" + "\n".join(
            f"{name}\t0013{i}\t010-{i}\t公司;部门\t{'备注' * 20}\\n=\tPHOTO;ENCODING=BASE64;JPEG:AAAA\\n BBBB\\n"
            for i, name in enumerate(NAMES)
        )
        written = run("table-to-vcard", "--encoding", "utf-8", data=table.encode())
        with tempfile.TemporaryDirectory() as name:
            reader = pathlib.Path(name) / "Reader.java"
            reader.write_text(EZ_VCARD_READER, encoding="utf-8")
            libraries = ":".join(map(str, JAVA_LIBRARIES))
            shown = subprocess.run(["java", "-cp", libraries, reader], input=written, capture_output=True, check=True).stdout
        expected = []
        for i, name in enumerate(NAMES):
            expected += [name, name, f"[cell]0013{i}", f"[work, fax]010-{i}", "公司/部门", "备注" * 20 + "|=", "photo of 6"]
        self.assertEqual(shown.decode().splitlines(), expected)


if __name__ == "__main__":
    unittest.main(argv=sys.argv[:1])
