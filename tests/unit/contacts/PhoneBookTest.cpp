#include <memory>

#include <gtest/gtest.h>

#include "contacts/CardContacts.h"
#include "contacts/ContactRecords.h"
#include "contacts/ContactSheets.h"
#include "contacts/PhoneBook.h"
#include "support/TemporaryFolder.h"

namespace scrivanta::testing {
namespace {

class ListSource final : public ContactSource {
 public:
  explicit ListSource(std::vector<Contact> contacts) : contacts_(std::move(contacts)) {}
  std::optional<Contact> Next() override {
    return next_ == contacts_.size() ? std::nullopt : std::optional(contacts_[next_++]);
  }

 private:
  std::vector<Contact> contacts_;
  std::size_t next_ = 0;
};

OpenPhoneBook BookOf(const std::vector<Contact>& contacts) {
  return [contacts] { return std::make_unique<ListSource>(contacts); };
}

std::vector<Contact> All(const OpenPhoneBook& open) {
  std::vector<Contact> all;
  const std::unique_ptr<ContactSource> source = open();
  while (std::optional<Contact> contact = source->Next()) {
    all.push_back(std::move(*contact));
  }
  return all;
}

Contact Person(const std::string& name, const std::vector<std::string>& numbers, const std::string& rest = "") {
  Contact contact;
  contact[ContactField::kName] = {name};
  contact[ContactField::kMobile] = numbers;
  contact.rest = rest;
  return contact;
}

// Everything that tables could lose: zeros in front, quotes, separators, line breaks, control characters, escapes.
std::vector<Contact> AwkwardBook() {
  std::vector<Contact> book = {Person("张三", {"0013800138000", "13900139000"}, "N:张;三;;;\nPHOTO;BASE64:AA\n BB\n"),
                               Person("Li, \"Lei\"\\n", {"=1+1", "@1"}, "~X-RAW:=C4=E3"),
                               Person("𠮷", {}, "X-A:_x0041_\\t")};
  book[0][ContactField::kNote] = {"a\tb\nc\\d", " e ", "_x0041_"};
  book[1][ContactField::kFax] = {"123456789012345678901234567890"};
  book[1][ContactField::kOrganisation] = {"A;B"};
  return book;
}

std::string TextTable(const OpenPhoneBook& open, RecordForm form, Encoding encoding) {
  StringSink bytes;
  RecordContactSink sink(bytes, form, encoding, SurveyPhoneBook(open).shape);
  CopyPhoneBook(open, sink);
  return bytes.bytes();
}

std::vector<Contact> ReadTable(std::string_view bytes, RecordForm form, Encoding encoding) {
  return All([&]() -> std::unique_ptr<ContactSource> {
    struct Source final : ContactSource {
      Source(std::string_view text, RecordForm f, Encoding e) : memory(text), records(memory, f, e, progress) {}
      std::optional<Contact> Next() override { return records.Next(); }
      MemorySource memory;
      NoProgress progress;
      RecordContactSource records;
    };
    return std::make_unique<Source>(bytes, form, encoding);
  });
}

TEST(PhoneBook, TextTablesLoseNothing) {
  const std::vector<Contact> book = AwkwardBook();
  for (const RecordForm form : {RecordForm::kTabs, RecordForm::kCommas}) {
    for (const Encoding encoding : {Encoding::kGbk, Encoding::kUtf8}) {
      EXPECT_EQ(ReadTable(TextTable(BookOf(book), form, encoding), form, encoding), book);
    }
  }
}

TEST(PhoneBook, TheTextTableToTheLetter) {
  Contact contact = Person("张三", {"1", "2"}, "X-A:b");
  contact[ContactField::kNote] = {"a\tb\nc\\"};
  EXPECT_EQ(TextTable(BookOf({contact}), RecordForm::kTabs, Encoding::kUtf8),
            "姓名\t手机\t手机2\t住宅电话\t单位电话\t传真\t邮箱\t地址\t单位\t职务\t生日\t网址\t备注\t其他\r\n"
            "张三\t1\t2\t\t\t\t\t\t\t\t\t\ta\\tb\\nc\\\\\tX-A:b\r\n");
}

TEST(PhoneBook, TablesOfOthersAreUnderstood) {
  const std::vector<Contact> read = ReadTable(
      "\xEF\xBB\xBF"
      "电话,性别,姓名\r\n,,\r\n0138,女,\"李\r\n雷\"\r\n1,,b,c\r\n",
      RecordForm::kCommas, Encoding::kUtf8);
  Contact first = Person("李\n雷", {"0138"});
  first[ContactField::kNote] = {"性别：女"};
  Contact second = Person("b", {"1"});
  second[ContactField::kNote] = {"c"};
  EXPECT_EQ(read, (std::vector{first, second}));
  EXPECT_THROW(ReadTable("a\tb\r\n1\t2\r\n", RecordForm::kTabs, Encoding::kUtf8), ExplainedError);
}

TEST(PhoneBook, SheetsLoseNothing) {
  std::vector<Contact> book = AwkwardBook();
  book.push_back(Person("Photo", {"1"}, "PHOTO;ENCODING=BASE64:" + std::string(100'000, 'A') + "\n"));
  book[0][ContactField::kBirthday] = {"1990-01-01"};
  const TemporaryFolder folder;
  const std::filesystem::path path = folder.path() / "电话簿.xlsx";
  FileSink file(path);
  WriteSheetFile(BookOf(book), file, folder.path());
  file.Close();
  NoProgress progress;
  const auto sheet = std::make_shared<const Sheet>(ReadFirstSheet(ReadWholeFile(path), progress));
  EXPECT_EQ(sheet->name, "电话簿");
  EXPECT_EQ(All([&] { return std::make_unique<SheetContactSource>(sheet, progress); }), book);
  EXPECT_EQ(std::distance(std::filesystem::directory_iterator(folder.path()), {}), 1);
}

// What no cell holds goes into the last columns, and from there back into its place in a card.
TEST(PhoneBook, ANoteLongerThanACellComesBackFromTheSheet) {
  const std::string note = std::string(40'000, 'x') + "字";
  Contact contact = Person("a", {"1"});
  contact[ContactField::kNote] = {note};
  TableShape shape(kLongestSheetCell);
  shape.Widen(contact);
  const Contact read = TableColumns(shape.Header()).ContactOf(shape.RecordOf(contact));
  EXPECT_TRUE(read[ContactField::kNote].empty());
  StringSink cards;
  CardContactSink sink(cards);
  sink.Write(read);
  sink.Finish();
  MemorySource source(cards.bytes());
  NoProgress progress;
  EXPECT_EQ(CardContactSource(source, progress).Next(), contact);
}

// One text is longer than the blocks in which the store is read, and all together than what it keeps in memory.
TEST(PhoneBook, WhatIsKeptComesBackAsOftenAsWanted) {
  std::vector<Contact> contacts = AwkwardBook();
  contacts.push_back(Person("", {}));
  for (const char c : {'a', 'b', 'c'}) {
    contacts.push_back(Person("Photo", {"1", "2"}, std::string(4'000'000, c)));
  }
  ListSource source(contacts);
  const TemporaryFolder folder;
  NoProgress progress;
  KeptPhoneBook book(source, folder.path());
  EXPECT_EQ(book.survey().contacts, contacts.size());
  EXPECT_EQ(book.survey().numbers, 11U);
  const OpenPhoneBook open = book.Open(progress);
  EXPECT_EQ(All(open), contacts);
  open()->Next();
  EXPECT_EQ(All(open), contacts);
}

TEST(PhoneBook, DuplicatesShareNameAndNumber) {
  const std::vector<Contact> book = {
      Person("张三", {"138 0013-8000"}),  Person("李四", {"13800138000"}), Person("张三", {"+8613800138000", "2"}),
      Person("张三", {"00862"}, "X-A:1"), Person("张三", {"3"}),           Person("李四", {}),
  };
  const PhoneBookSurvey survey = SurveyPhoneBook(BookOf(book));
  EXPECT_EQ(survey.contacts, 6U);
  EXPECT_EQ(survey.numbers, 6U);
  const std::vector<DuplicateGroup> duplicates = FindDuplicates(BookOf(book));
  ASSERT_EQ(duplicates.size(), 1U);
  EXPECT_EQ(duplicates[0].members, (std::vector<std::size_t>{0, 2, 3}));
  EXPECT_EQ(duplicates[0].name, "张三");
  EXPECT_EQ(duplicates[0].number, "13800138000");
  EXPECT_EQ(All(JoiningDuplicates(BookOf(book), duplicates)),
            (std::vector{Person("张三", {"138 0013-8000", "2"}, "X-A:1"), book[1], book[4], book[5]}));
}

TEST(PhoneBook, JoiningKeepsOneNameAndEachPropertyOnce) {
  const Contact first = Person("a b", {"1"}, "N:b;a;;;\nPHOTO;BASE64:AA\n BB\n\nX-A:1");
  const Contact second = Person("a b", {"1"}, "N:a b;;;;\nPHOTO;BASE64:AA\n BB\n\nX-B:2");
  EXPECT_EQ(Joined(first, second).rest, "N:b;a;;;\nPHOTO;BASE64:AA\n BB\n\nX-A:1\nX-B:2");
}

}  // namespace
}  // namespace scrivanta::testing
