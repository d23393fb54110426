#include <gtest/gtest.h>

#include "RunFuzz.h"
#include "contacts/CardContacts.h"
#include "contacts/ContactTable.h"
#include "sheets/SheetFile.h"

namespace scrivanta {

namespace {

std::vector<Contact> ReadCards(std::string_view bytes) {
  MemorySource source(bytes);
  NoProgress progress;
  CardContactSource cards(source, progress);
  std::vector<Contact> contacts;
  while (std::optional<Contact> contact = cards.Next()) {
    contacts.push_back(std::move(*contact));
  }
  return contacts;
}

std::string WriteCards(const std::vector<Contact>& contacts) {
  StringSink sink;
  CardContactSink cards(sink);
  for (const Contact& contact : contacts) {
    cards.Write(contact);
  }
  cards.Finish();
  return sink.bytes();
}

}  // namespace

// Every contact has a card, what stands in its fields comes back, and a second round trip changes nothing.
void FuzzCards(std::string_view bytes) {
  std::vector<Contact> contacts;
  try {
    contacts = ReadCards(bytes);
  } catch (const ExplainedError&) {
    return;
  }
  const std::string written = WriteCards(contacts);
  const std::vector<Contact> again = ReadCards(written);
  ASSERT_EQ(again.size(), contacts.size());
  for (std::size_t i = 0; i < contacts.size(); ++i) {
    EXPECT_EQ(again[i].values, contacts[i].values);
    TableShape shape(100);
    shape.Widen(contacts[i]);
    EXPECT_EQ(shape.RecordOf(contacts[i]).size(), shape.Header().size());
  }
}

void FuzzSheet(std::string_view bytes) {
  try {
    NoProgress progress;
    ReadFirstSheet(bytes, progress, {.entryBytes = 1'000'000, .cells = 10'000});
  } catch (const SheetError&) {
    return;
  }
}

TEST(Fuzz, Cards) {
  static constexpr std::string_view kInputs[] = {
      "BEGIN:VCARD\r\nVERSION:2.1\r\nN;CHARSET=UTF-8;ENCODING=QUOTED-PRINTABLE:=E5=BC=A0;=E4=B8=\r\n=89=\r\n;;;\r\n"
      "FN:x\r\nTEL;CELL;PREF:1\r\nPHOTO;ENCODING=BASE64;JPEG:AAAA\r\n BB==\r\n\r\nADR;HOME:;;a;b;;;\r\nEND:VCARD\r\n",
      "BEGIN:VCARD\nVERSION:3.0\nFN:a\\,b\nORG:c\\;d;e\nNOTE:x\\ny\n z\nAGENT:\nBEGIN:VCARD\nEND:VCARD\nEND:VCARD\n",
      "BEGIN:VCARD\n#c\n??\nNOTE;CHARSET=GBK:\xC4\xE3\nX-A:\xFF\nEND:VCARD\n",
  };
  static constexpr std::string_view kTokens[] = {"BEGIN:VCARD\r\n",
                                                 "END:VCARD\r\n",
                                                 "\r\n",
                                                 "\n ",
                                                 "=\r\n",
                                                 "=",
                                                 ";",
                                                 ":",
                                                 "\\",
                                                 "\\;",
                                                 "\\n",
                                                 "TEL;CELL:",
                                                 "NOTE:",
                                                 "FN:",
                                                 "N:",
                                                 "ORG:",
                                                 "ADR:",
                                                 ";ENCODING=QUOTED-PRINTABLE:",
                                                 ";BASE64:",
                                                 "VERSION:4.0\n",
                                                 "~",
                                                 "#",
                                                 "\xE5\xBC\xA0",
                                                 "=0D=0A",
                                                 "=00"};
  RunFuzz(FuzzCards, kInputs, kTokens);
}

TEST(Fuzz, Sheet) {
  const std::filesystem::path path = std::filesystem::temp_directory_path() / "scrivanta-fuzz-sheet.xlsx";
  SheetWriter writer(path, u"s");
  writer.WriteRow(std::vector<std::string>{"a", "b"});
  writer.Close();
  const std::string sheet = ReadWholeFile(path);
  std::filesystem::remove(path);
  const std::string_view inputs[] = {sheet};
  static constexpr std::string_view kTokens[] = {"PK\x03\x04",       "PK\x01\x02",    "PK\x05\x06",
                                                 "\xFF\xFF\xFF\xFF", "<row r=\"1\">", "<c t=\"s\"><v>"};
  RunFuzz(FuzzSheet, inputs, kTokens);
}

}  // namespace scrivanta
