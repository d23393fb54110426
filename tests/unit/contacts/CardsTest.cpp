#include <algorithm>

#include <gtest/gtest.h>

#include "contacts/CardReader.h"
#include "contacts/ContactCards.h"
#include "contacts/QuotedPrintable.h"

namespace scrivanta::testing {
namespace {

struct Book {
  std::vector<Contact> contacts;
  std::vector<std::uint64_t> notUnderstood;
  std::vector<std::uint64_t> outside;
};

Book Read(std::string_view bytes) {
  MemorySource source(bytes);
  NoProgress progress;
  CardReader reader(source, progress);
  Book book;
  while (const std::optional<Card> card = reader.Next()) {
    book.contacts.push_back(ContactOfCard(*card, book.notUnderstood));
  }
  book.outside = reader.linesOutside();
  return book;
}

std::string Written(const std::vector<Contact>& contacts) {
  StringSink sink;
  CardWriter writer(sink);
  for (const Contact& contact : contacts) {
    WriteContact(contact, writer);
  }
  writer.Flush();
  return sink.bytes();
}

// The lines of a card, put between its BEGIN and END.
std::string CardOf(std::string_view lines) {
  return "BEGIN:VCARD\r\nVERSION:2.1\r\n" + std::string(lines) + "END:VCARD\r\n";
}

// "姓名=...|手机=..." of what stands in the fields, the rest behind "+".
std::string Shown(const Contact& contact) {
  static constexpr std::array<std::string_view, kContactFields> kNames = {
      "name", "cell", "home", "work", "fax", "mail", "adr", "org", "title", "bday", "url", "note"};
  std::string shown;
  for (std::size_t i = 0; i < kContactFields; ++i) {
    for (const std::string& text : contact.values[i]) {
      shown += (shown.empty() ? "" : "|") + std::string(kNames[i]) + "=" + text;
    }
  }
  return contact.rest.empty() ? shown : shown + "+" + contact.rest;
}

struct Shape {
  std::string name;
  std::string lines;
  std::string shown;
};

const std::vector<Shape>& Shapes() {
  static const std::vector<Shape> kShapes = {
      {"plain", "N:Li;Lei;;;\r\nFN:Lei Li\r\nTEL;CELL:0013800138000\r\n", "name=Lei Li|cell=0013800138000+N:Li;Lei;;;"},
      {"whole name in the family part", "N:Mum;;;;\r\nFN:Mum\r\nTEL;HOME:1\r\n", "name=Mum|home=1"},
      {"whole name in the given part", "N:;Name;;;\r\nTEL;WORK:1\r\n", "name=Name|work=1+N:;Name;;;"},
      {"no structured name", "FN:Ann\r\n", "name=Ann"},
      {"names that differ", "N:\xE5\xBC\xA0;\xE4\xB8\x89;;;\r\nFN:Boss\r\n",
       "name=Boss+N:\xE5\xBC\xA0;\xE4\xB8\x89;;;\nFN:Boss"},
      {"Chinese without a blank, soft break inside a character, dangling break with an empty line",
       "N;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=E5=BC=A0=\r\n;=E4=B8=\r\n=89=\r\n;;;\r\n"
       "FN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=E5=BC=A0=E4=B8=89=\r\n\r\nTEL;CELL:1\r\n",
       "name=\xE5\xBC\xA0\xE4\xB8\x89|cell=1+N:\xE5\xBC\xA0;\xE4\xB8\x89;;;"},
      {"dangling break right before the next property",
       "FN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=e5=bc=a0=\r\nTEL;CELL:1\r\n", "name=\xE5\xBC\xA0|cell=1"},
      {"soft break with blanks around it",
       "FN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=E5=BC= \t\r\n =A0\r\nNOTE;ENCODING=QUOTED-PRINTABLE:a=\r\n b\r\n",
       "name=\xE5\xBC\xA0|note=a b"},
      {"note of several lines", "NOTE;ENCODING=QUOTED-PRINTABLE:a=0D=0Ab=0Ac=\r\n\r\nURL:http://x/?a=b\r\n",
       "url=http://x/?a=b|note=a\nb\nc"},
      {"escapes of 2.1", "NOTE:a\\;b\\nc\\\\d:e,f\r\nORG:x\\;y;z\r\n", "org=x;y;z|note=a;b\nc\\\\d:e,f+ORG:x\\;y;z"},
      {"a backslash in an encoded value stays", "NOTE;ENCODING=QUOTED-PRINTABLE:=43=3A=5C=6E=65=77\r\n",
       "note=C:\\new"},
      {"separators encoded with the rest", "N;ENCODING=QUOTED-PRINTABLE:=41=3B=42=3B=3B=3B\r\n", "name=B A+N:A;B;;;"},
      {"raw GBK", "FN:\xD5\xC5\xC8\xFD\r\nN;CHARSET=GBK:\xD5\xC5\xC8\xFD;;;;\r\n", "name=\xE5\xBC\xA0\xE4\xB8\x89"},
      {"a charset that is not known", "FN:x\r\nNOTE;CHARSET=Windows-1251:\xCF\xF0\r\n",
       "name=x+~NOTE;CHARSET=3DWindows-1251:=CF=F0"},
      {"numbers of other types",
       "TEL:1\r\nTEL;PREF;CELL:2\r\nTEL;X-\xE5\xB7\xA5:3\r\nTEL;HOME;FAX:4\r\nTEL;FAX;WORK:5\r\n",
       "cell=1|cell=2|cell=3|fax=4|fax=5+TEL:1\nTEL;PREF;CELL:2\nTEL;X-\xE5\xB7\xA5:3\nTEL;HOME;FAX:4"},
      {"groups", "item1.TEL;CELL:1\r\nitem1.X-ABLabel:x\r\n", "cell=1+item1.TEL;CELL:1\nitem1.X-ABLabel:x"},
      {"address and company", "ADR;HOME:;;Road 1;;;;\r\nADR;WORK:;;Road 2;Town;Land;100;China\r\nORG:A;B\r\n",
       "adr=Road 1|adr=China Land Town Road 2 100|org=A;B+ADR;WORK:;;Road 2;Town;Land;100;China"},
      {"address continued behind a backslash", "ADR;HOME:;;Road\\\r\nHouse;;;;\r\nTEL;CELL:1\r\n",
       "cell=1|adr=Road\nHouse"},
      {"photo of a phone", "PHOTO;ENCODING=BASE64;JPEG:AAAA\r\n BBBB\r\n CC==\r\n\r\nTEL;CELL:1\r\n",
       "cell=1+PHOTO;ENCODING=BASE64;JPEG:AAAA\n BBBB\n CC==\n"},
      {"photo without blanks and empty line", "PHOTO;TYPE=JPEG;ENCODING=BASE64:\r\nAAAA\r\nBB==\r\nTEL;CELL:1\r\n",
       "cell=1+PHOTO;TYPE=JPEG;ENCODING=BASE64:\nAAAA\nBB==\n"},
      {"photo behind an empty line", "PHOTO;BASE64:\r\n\r\n  AA==\r\n\r\nTEL;CELL:1\r\n",
       "cell=1+PHOTO;BASE64:\n\n  AA==\n"},
      {"unknown properties",
       "X-QQ:12345\r\nX-ANDROID-CUSTOM;ENCODING=QUOTED-PRINTABLE:vnd/n;=41=\r\n=42=\r\n;1\r\nX-RAW:\xC4\xE3\r\n",
       "+X-QQ:12345\nX-ANDROID-CUSTOM;ENCODING=QUOTED-PRINTABLE:vnd/n;=41=42;1\n~X-RAW:=C4=E3"},
      {"a property that looks like a marked one", "~X-A:=41\r\n", "+~~X-A:=3D41"},
      {"a card in a card", "AGENT:\r\nBEGIN:VCARD\r\nFN:Inner\r\nEND:VCARD\r\nFN:Outer\r\n",
       "name=Outer+AGENT:\nBEGIN:VCARD\nFN:Inner\nEND:VCARD"},
      {"remarks and stray lines", "# remark\r\nFN:x\r\nno property\r\n", "name=x+# remark\n#no property"},
      {"empty properties", "N:;;;;\r\nFN:\r\nTEL;CELL:\r\nNOTE:\r\n", "+TEL;CELL:\nNOTE:"},
      {"several names", "FN:a\r\nFN:b\r\nN:a;;;;\r\nN:c;;;;\r\n", "name=a+FN:a\nFN:b\nN:a;;;;\nN:c;;;;"},
      {"blanks that count", "NOTE;ENCODING=QUOTED-PRINTABLE:=20x=20\r\n", "note= x "},
  };
  return kShapes;
}

TEST(Cards, AreReadWhateverTheirShape) {
  for (const Shape& shape : Shapes()) {
    SCOPED_TRACE(shape.name);
    const Book book = Read(CardOf(shape.lines));
    ASSERT_EQ(book.contacts.size(), 1U);
    EXPECT_EQ(Shown(book.contacts[0]), shape.shown);
    // LF for line ends, a mark, no version, names in small letters.
    std::string other =
        "\xEF\xBB\xBF"
        "begin:vCard\n" +
        shape.lines + "end:vcard";
    std::erase(other, '\r');
    EXPECT_EQ(Read(other).contacts, book.contacts);
  }
}

TEST(Cards, WrittenAgainHoldTheSame) {
  for (const Shape& shape : Shapes()) {
    SCOPED_TRACE(shape.name);
    const Book book = Read(CardOf(shape.lines));
    const std::string written = Written(book.contacts);
    Book again = Read(written);
    // A property may have gone to another line of the card.
    const auto sorted = [](std::string rest) {
      std::vector<std::string> lines;
      for (std::size_t begin = 0; begin <= rest.size();) {
        const std::size_t end = std::min(rest.find('\n', begin), rest.size());
        lines.push_back(rest.substr(begin, end - begin));
        begin = end + 1;
      }
      std::ranges::sort(lines);
      return lines;
    };
    ASSERT_EQ(again.contacts.size(), 1U);
    EXPECT_EQ(sorted(again.contacts[0].rest), sorted(book.contacts[0].rest));
    again.contacts[0].rest = book.contacts[0].rest;
    EXPECT_EQ(again.contacts, book.contacts);
  }
}

TEST(Cards, AreWrittenAsAPhoneTakesThem) {
  Contact contact;
  contact[ContactField::kName] = {"\xE5\xBC\xA0\xE4\xB8\x89"};
  contact[ContactField::kMobile] = {"0013800138000", "+86 138"};
  contact[ContactField::kOrganisation] = {"A;B"};
  contact[ContactField::kNote] = {"a;b\n=", "x="};
  contact.rest = "PHOTO;ENCODING=BASE64;JPEG:AAAA\n BB==\n\nX-QQ:1\n~X-RAW:=C4=E3";
  EXPECT_EQ(Written({contact}),
            "BEGIN:VCARD\r\nVERSION:2.1\r\n"
            "N;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=E5=BC=A0=E4=B8=89;;;;\r\n"
            "FN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=E5=BC=A0=E4=B8=89\r\n"
            "TEL;CELL:0013800138000\r\nTEL;CELL:+86 138\r\nORG:A;B\r\n"
            "NOTE;ENCODING=QUOTED-PRINTABLE:=61=5C=3B=62=0D=0A=3D\r\nNOTE;ENCODING=QUOTED-PRINTABLE:=78=3D\r\n"
            "PHOTO;ENCODING=BASE64;JPEG:AAAA\r\n BB==\r\n\r\nX-QQ:1\r\nX-RAW:\xC4\xE3\r\nEND:VCARD\r\n");
}

TEST(Cards, OfLaterVersionsBecome21) {
  const Book book = Read(
      "BEGIN:VCARD\r\nVERSION:3.0\r\nN:Li;Lei\\, Dr\\;x;;;\r\nFN:Lei\r\n  "
      "Li\r\nTEL;type=CELL;type=VOICE;type=pref:1\r\n"
      "item1.EMAIL;type=INTERNET:a@b\r\nPHOTO;ENCODING=b;TYPE=JPEG:AAAA\r\n BB==\r\nX-Q;TYPE=home:1\\,2\r\n 3\r\n"
      "NOTE:one\\ntwo\\\\\r\nEND:VCARD\r\n"
      "BEGIN:VCARD\nVERSION:4.0\nFN:Ann\nTEL;VALUE=uri;TYPE=\"cell,home\":tel:+86-1\nTEL;TYPE=cell:2\n"
      "PHOTO:data:image/jpeg;base64,AAAA\nEND:VCARD\n");
  ASSERT_EQ(book.contacts.size(), 2U);
  EXPECT_EQ(Shown(book.contacts[0]),
            "name=Lei Li|cell=1|mail=a@b|note=one\ntwo\\+N:Li;Lei, Dr\\;x;;;\nFN:Lei Li\nTEL;CELL;VOICE;PREF:1\n"
            "item1.EMAIL;INTERNET:a@b\nPHOTO;JPEG;ENCODING=BASE64:AAAA\n BB==\n\nX-Q;HOME:1\\,23");
  EXPECT_EQ(Shown(book.contacts[1]),
            "name=Ann|cell=+86-1|cell=2+TEL;CELL;HOME:+86-1\nPHOTO;JPEG;ENCODING=BASE64:\n AAAA\n");
}

TEST(Cards, WhatIsNotUnderstoodIsNamedByItsLine) {
  const Book book = Read(
      "\r\nnote\r\nBEGIN:VCARD\r\nFN:a\r\n???\r\nNOTE;CHARSET=KOI8-R:\xCF\r\nBEGIN:VCARD\r\nFN:b\r\nEND:VCARD\r\n");
  EXPECT_EQ(book.outside, (std::vector<std::uint64_t>{2}));
  EXPECT_EQ(book.notUnderstood, (std::vector<std::uint64_t>{6, 5}));
  ASSERT_EQ(book.contacts.size(), 2U);
  EXPECT_EQ(book.contacts[0].name(), "b");
  EXPECT_EQ(book.contacts[1].name(), "a");
}

TEST(Cards, AFieldThatHasBeenChangedWinsOverWhatWasKept) {
  Book book = Read(CardOf("N:Li;Lei;;;\r\nFN:Boss\r\nTEL;CELL;PREF:1\r\nTEL;WORK;PREF:2\r\n"));
  Contact& contact = book.contacts.at(0);
  contact[ContactField::kName] = {"Han"};
  contact[ContactField::kMobile] = {"3"};
  contact[ContactField::kWorkPhone].clear();
  EXPECT_EQ(Written({contact}), CardOf("N:Han;;;;\r\nFN:Han\r\nTEL;CELL:3\r\n"));
}

TEST(QuotedPrintable, IsFoldedBetweenCharacters) {
  std::string encoded;
  for (int i = 0; i < 40; ++i) {
    EncodeQuotedPrintableAppend(i % 3 == 0 ? "\xF0\xA0\xAE\xB7" : "\xE5\xBC\xA0", encoded);
    encoded += i % 5 == 0 ? ";" : "";
  }
  const std::string folded = FoldQuotedPrintable(encoded, 60);
  std::string joined;
  std::size_t column = 60;
  for (std::size_t begin = 0; begin < folded.size();) {
    const std::size_t end = std::min(folded.find("\r\n", begin), folded.size());
    const std::string line = folded.substr(begin, end - begin);
    EXPECT_LE(column + line.size(), 76U);
    EXPECT_EQ(line.front(), '=');
    EXPECT_NE(DecodeQuotedPrintable(line).front() & 0xC0, 0x80);
    joined += end == folded.size() ? line : line.substr(0, line.size() - 1);
    begin = end + 2;
    column = 0;
  }
  EXPECT_EQ(joined, encoded);
  EXPECT_FALSE(folded.ends_with('='));
}

}  // namespace
}  // namespace scrivanta::testing
