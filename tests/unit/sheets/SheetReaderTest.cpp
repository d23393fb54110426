#include <map>

#include <gtest/gtest.h>
#include <zlib.h>

#include "sheets/SheetFile.h"
#include "sheets/SheetFormats.h"

namespace scrivanta::testing {
namespace {

void AppendNumber(std::string& bytes, std::size_t value, int size) {
  for (int i = 0; i < size; ++i) {
    bytes += static_cast<char>(value & 0xFF);
    value >>= 8;
  }
}

// Raw deflate of one block of the library's.
std::string Deflated(const std::string& bytes) {
  z_stream stream{};
  deflateInit2(&stream, 9, Z_DEFLATED, -15, 9, Z_DEFAULT_STRATEGY);
  std::string packed(deflateBound(&stream, bytes.size()), '\0');
  std::string input = bytes;
  stream.next_in = reinterpret_cast<Bytef*>(input.data());
  stream.avail_in = static_cast<uInt>(input.size());
  stream.next_out = reinterpret_cast<Bytef*>(packed.data());
  stream.avail_out = static_cast<uInt>(packed.size());
  deflate(&stream, Z_FINISH);
  packed.resize(stream.total_out);
  deflateEnd(&stream);
  return packed;
}

// An archive that a test has made of its own parts.
std::string Zip(const std::map<std::string, std::string>& parts) {
  std::string archive;
  std::string directory;
  for (const auto& [name, bytes] : parts) {
    const std::string packed = Deflated(bytes);
    std::string header;
    AppendNumber(header, 20, 2);  // version
    AppendNumber(header, 0, 2);   // flags
    AppendNumber(header, 8, 2);   // deflated
    AppendNumber(header, 0, 4);   // time
    AppendNumber(header, crc32(0, reinterpret_cast<const Bytef*>(bytes.data()), static_cast<uInt>(bytes.size())), 4);
    AppendNumber(header, packed.size(), 4);
    AppendNumber(header, bytes.size(), 4);
    AppendNumber(header, name.size(), 2);
    AppendNumber(header, 0, 2);
    directory += "PK\x01\x02";
    AppendNumber(directory, 20, 2);
    directory += header;
    AppendNumber(directory, 0, 10);
    AppendNumber(directory, archive.size(), 4);
    directory += name;
    archive += "PK\x03\x04" + header + name + packed;
  }
  const std::size_t begin = archive.size();
  archive += directory + "PK\x05\x06";
  AppendNumber(archive, 0, 4);
  AppendNumber(archive, parts.size(), 2);
  AppendNumber(archive, parts.size(), 2);
  AppendNumber(archive, directory.size(), 4);
  AppendNumber(archive, begin, 4);
  AppendNumber(archive, 0, 2);
  return archive;
}

// A book whose parts stand in unusual places, with these rows in its only sheet.
std::map<std::string, std::string> PartsOf(const std::string& rows, const std::string& bookProperties = "") {
  const std::string type = "Type=\"http://x/relationships/";
  return {
      {"_rels/.rels", "<Relationships><Relationship Id=\"a\" " + type +
                          "officeDocument\" Target=\"/book/main.xml\"/></Relationships>"},
      {"book/main.xml", "<x:workbook xmlns:x=\"m\" xmlns:q=\"r\">" + bookProperties +
                            "<x:sheets><x:sheet name=\"表\" sheetId=\"7\" q:id=\"two\"/></x:sheets></x:workbook>"},
      {"book/_rels/main.xml.rels", "<Relationships><Relationship Id=\"two\" " + type +
                                       "worksheet\" Target=\"../pages/p.xml\"/><Relationship Id=\"s\" " + type +
                                       "sharedStrings\" Target=\"strings.xml\"/><Relationship Id=\"f\" " + type +
                                       "styles\" Target=\"styles.xml\"/></Relationships>"},
      {"book/strings.xml",
       "<sst><si><t xml:space=\"preserve\"> </t></si>"
       "<si><r><t>张</t></r><r><rPr><b/></rPr><t>三</t></r><rPh sb=\"0\" eb=\"1\"><t>zhang</t></rPh></si>"
       "<si><t>a_x000D__x000A_b_x005F_x0041_&amp;</t></si></sst>"},
      {"book/styles.xml",
       "<styleSheet><numFmts><numFmt numFmtId=\"200\" formatCode=\"yyyy&quot;年&quot;m\"/>"
       "<numFmt numFmtId=\"201\" formatCode=\"0.00&quot;m&quot;;[Red]-0\"/></numFmts>"
       "<cellStyleXfs><xf numFmtId=\"14\"/></cellStyleXfs><cellXfs><xf numFmtId=\"0\"/><xf numFmtId=\"14\"/>"
       "<xf numFmtId=\"200\"/><xf numFmtId=\"201\"/></cellXfs></styleSheet>"},
      {"pages/p.xml", "<worksheet><sheetData>" + rows + "</sheetData></worksheet>"},
  };
}

Sheet Read(const std::string& bytes, const SheetLimits& limits = {}) {
  NoProgress progress;
  return ReadFirstSheet(bytes, progress, limits);
}

TEST(SheetReader, CellsOfEveryKind) {
  struct Case {
    std::string cell;
    std::string text;
  };
  const Case cases[] = {
      {"<c t=\"s\"><v>1</v></c>", "张三"},
      {"<c t=\"s\"><v>0</v></c>", " "},
      {"<c t=\"s\"><v>2</v></c>", "a\nb_x0041_&"},
      {"<c t=\"str\"><f>A1</f><v>x</v></c>", "x"},
      {"<c t=\"inlineStr\"><is><t>in</t></is></c>", "in"},
      {"<c t=\"b\"><v>1</v></c>", "TRUE"},
      {"<c t=\"e\"><v>#N/A</v></c>", "#N/A"},
      {"<c><v>1.38001380001E10</v></c>", "13800138000.1"},
      {"<c><v>13800138000</v></c>", "13800138000"},
      {"<c t=\"n\"><v>1.3800138E+10</v></c>", "13800138000"},
      {"<c><v>0.1</v></c>", "0.1"},
      {"<c s=\"1\"><v>45351</v></c>", "2024-02-29"},
      {"<c s=\"1\"><v>60</v></c>", "1900-02-29"},
      {"<c s=\"1\"><v>59</v></c>", "1900-02-28"},
      {"<c s=\"2\"><v>45351.545138888889</v></c>", "2024-02-29 13:05:00"},
      {"<c s=\"1\"><v>0.5</v></c>", "12:00:00"},
      {"<c s=\"3\"><v>5</v></c>", "5"},
      {"<c s=\"1\"><v>-5</v></c>", "-5"},
  };
  for (const Case& c : cases) {
    const Sheet sheet = Read(Zip(PartsOf("<row>" + c.cell + "</row>")));
    ASSERT_EQ(sheet.rows.size(), 1U) << c.cell;
    EXPECT_EQ(sheet.rows[0].cells, std::vector{c.text}) << c.cell;
  }
  const auto old = Read(Zip(PartsOf("<row><c s=\"1\"><v>0</v></c></row>", "<x:workbookPr date1904=\"1\"/>")));
  EXPECT_EQ(old.rows[0].cells[0], "1904-01-01");
}

TEST(SheetReader, PlacesAreSaidOrCounted) {
  const Sheet sheet =
      Read(Zip(PartsOf("<row><c t=\"str\"><v>a</v></c><c r=\"C1\" t=\"str\"><v>c</v></c><c t=\"str\"><v>d</v></c></row>"
                       "<row r=\"5\"><c r=\"AA5\"><v>1</v></c></row><row/><row><c><v>7</v></c></row>")));
  EXPECT_EQ(sheet.name, "表");
  ASSERT_EQ(sheet.rows.size(), 3U);
  EXPECT_EQ(sheet.rows[0].cells, (std::vector<std::string>{"a", "", "c", "d"}));
  EXPECT_EQ(sheet.rows[1].row, 4U);
  EXPECT_EQ(sheet.rows[1].cells.size(), 27U);
  EXPECT_EQ(sheet.rows[2].row, 6U);
}

std::string FailureOf(const std::string& bytes, const SheetLimits& limits = {}) {
  try {
    Read(bytes, limits);
  } catch (const SheetError& error) {
    return error.what();
  }
  return "none";
}

TEST(SheetReader, SaysWhereSomethingIsWrong) {
  EXPECT_EQ(FailureOf(Zip(PartsOf("<row/><row><c/><c t=\"s\"><v>9</v></c></row>"))),
            "sheet 表, cell B2: its text is not in the file");
  EXPECT_EQ(FailureOf(Zip(PartsOf("<row r=\"3\"><c r=\"D3\"><v>1x</v></c></row>"))),
            "sheet 表, cell D3: \"1x\" is no number");
  EXPECT_EQ(FailureOf(Zip(PartsOf("<row><c r=\"ZZZZZ1\"><v>1</v></c></row>"))),
            "sheet 表, cell A1: its place \"ZZZZZ1\" is none");
  EXPECT_EQ(FailureOf(Zip(PartsOf("<row r=\"0\"/>"))), "sheet 表, cell A1: the number of its row is none");
  EXPECT_NE(FailureOf("PK").find("no xlsx"), std::string::npos);
  std::map<std::string, std::string> parts = PartsOf("<row/>");
  parts["pages/p.xml"] = "<worksheet><sheetData>";
  EXPECT_EQ(FailureOf(Zip(parts)), "the sheet file's part pages/p.xml is no valid XML");
  parts.erase("pages/p.xml");
  EXPECT_EQ(FailureOf(Zip(parts)), "the sheet file's part pages/p.xml is missing");
  std::string damaged = Zip(PartsOf("<row><c><v>1</v></c></row>"));
  damaged[damaged.find("pages/p.xml") + 30] ^= 0x55;
  EXPECT_EQ(FailureOf(damaged), "the sheet file's part pages/p.xml is damaged");
}

TEST(SheetReader, RefusesBombs) {
  const std::string bomb = Zip(PartsOf(std::string(20'000'000, ' ')));
  EXPECT_LT(bomb.size(), 100'000U);
  EXPECT_EQ(FailureOf(bomb), "the sheet file's part pages/p.xml is too large when unpacked");
  EXPECT_EQ(FailureOf(bomb, {.ratio = 10'000}), "none");
  EXPECT_EQ(FailureOf(bomb, {.entryBytes = 10'000'000, .ratio = 10'000}),
            "the sheet file's part pages/p.xml is too large when unpacked");
  EXPECT_EQ(FailureOf(Zip(PartsOf("<row><c r=\"XFD1\"><v>1</v></c></row>")), {.cells = 100}),
            "sheet 表, cell XFD1: the sheet has too many cells");
}

TEST(SheetFormats, CodesOfDates) {
  for (const std::string_view code : {"yyyy\\-mm", "[$-804]m\"月\"", "h:mm AM/PM", "[h]:mm", "[Red]d"}) {
    EXPECT_TRUE(IsDateFormat(code)) << code;
  }
  for (const std::string_view code : {"General", "0.00\"days\"", "[Red]0;d", "\\d0", "[Red]#", "_d0", "@"}) {
    EXPECT_FALSE(IsDateFormat(code)) << code;
  }
}

}  // namespace
}  // namespace scrivanta::testing
