#include "contacts/ContactHandlers.h"

#include <functional>
#include <utility>

#include "contacts/ContactRecords.h"
#include "contacts/ContactSheets.h"
#include "contacts/PhoneBookQuestions.h"
#include "shell/workbench/ResultFiles.h"
#include "text/AtomicFile.h"

namespace scrivanta {

namespace {

// The book as it was chosen; it is opened anew for each work on it.
using ChosenBook = std::function<OpenPhoneBook(Progress&)>;

PhoneBookSurvey SurveyAtWork(Workbench& workbench, const ChosenBook& book) {
  const std::unique_ptr<BusyWork> work = workbench.StartWork();
  return SurveyPhoneBook(book(work->progress()));
}

// The book with its duplicates joined if the user wants that; an empty one when he calls it off.
ChosenBook AskAboutDuplicates(Workbench& workbench, const ChosenBook& book, const std::vector<DuplicateGroup>& groups) {
  const std::optional<bool> joins = AskWhetherToJoin(workbench.prompts(), groups);
  if (!joins) {
    return {};
  }
  return *joins ? [book, groups](Progress& progress) { return JoiningDuplicates(book(progress), groups); } : book;
}

void WriteSheet(Workbench& workbench, const ChosenBook& book, const std::filesystem::path& path) {
  const std::unique_ptr<BusyWork> work = workbench.StartWork();
  AtomicFile file(path);
  WriteSheetFile(book(work->progress()), file, workbench.folders().temporary);
  file.Commit();
}

std::u16string TextTable(Workbench& workbench, const ChosenBook& book) {
  const std::unique_ptr<BusyWork> work = workbench.StartWork();
  const OpenPhoneBook open = book(work->progress());
  StringSink bytes;
  RecordContactSink sink(bytes, RecordForm::kTabs, Encoding::kUtf8, SurveyPhoneBook(open).shape);
  CopyPhoneBook(open, sink);
  return Decode(Encoding::kUtf8, bytes.bytes());
}

// False when no program opens it.
bool OpenWithItsProgram(Desktop& desktop, const std::filesystem::path& path) {
  try {
    desktop.OpenWithDefaultProgram(path);
    return true;
  } catch (const FileError&) {
    return false;
  }
}

void ShowTable(Workbench& workbench, const ChosenBook& book) {
  const std::u16string table = TextTable(workbench, book);
  if (workbench.document().OfferToSave()) {
    workbench.document().ShowNew(table, [](Workbench&) { return SaveOutcome::kSaveAsFile; });
  }
}

// A card file of the book, under a name that is asked for.
void WriteCards(Workbench& workbench, const ChosenBook& chosen, const std::filesystem::path& proposal) {
  const PhoneBookSurvey survey = SurveyAtWork(workbench, chosen);
  if (survey.contacts == 0) {
    workbench.ShowStatus(u"没有联系人");
    return;
  }
  const ChosenBook book = AskAboutDuplicates(workbench, chosen, survey.duplicates);
  const std::filesystem::path path = book ? AskForTarget(workbench.prompts(), u".vcf", proposal) : "";
  if (path.empty()) {
    return;
  }
  std::size_t contacts = 0;
  std::size_t numbers = 0;
  {
    const std::unique_ptr<BusyWork> work = workbench.StartWork();
    const OpenPhoneBook open = book(work->progress());
    const PhoneBookSurvey written = SurveyPhoneBook(open);
    AtomicFile file(path);
    CardContactSink sink(file);
    CopyPhoneBook(open, sink);
    file.Commit();
    contacts = written.contacts;
    numbers = written.numbers;
  }
  ReportPhoneBook(workbench, contacts, numbers, {});
}

// A table that somebody has brought from elsewhere may be separated by commas.
RecordForm FormOf(std::string_view table) {
  const std::string_view header = table.substr(0, table.find('\n'));
  const bool hasCommas = header.find('\t') == std::string_view::npos && header.find(',') != std::string_view::npos;
  return hasCommas ? RecordForm::kCommas : RecordForm::kTabs;
}

class TextTableSource final : public ContactSource {
 public:
  TextTableSource(std::string_view text, Progress& progress)
      : bytes_(text), records_(bytes_, FormOf(text), Encoding::kUtf8, progress) {}
  std::optional<Contact> Next() override { return records_.Next(); }

 private:
  MemorySource bytes_;
  RecordContactSource records_;
};

std::filesystem::path BesideDocument(Workbench& workbench, std::u16string_view name) {
  return workbench.document().Path().parent_path() / name;
}

}  // namespace

void mnuAndroidPhoneBookEncode(Workbench& workbench) {
  const std::vector<std::filesystem::path> files = workbench.prompts().AskForFiles({.filter = u"*.vcf"});
  if (files.empty()) {
    return;
  }
  std::vector<NotUnderstoodInFile> notUnderstood;
  const auto bookOf = [&files](std::vector<NotUnderstoodInFile>& found) -> ChosenBook {
    return [&files, &found](Progress& progress) -> OpenPhoneBook {
      return [&files, &found, &progress] { return std::make_unique<CardFilesSource>(files, progress, found); };
    };
  };
  const PhoneBookSurvey survey = SurveyAtWork(workbench, bookOf(notUnderstood));
  std::vector<NotUnderstoodInFile> again;  // the same, each time the book is read
  const ChosenBook book = AskAboutDuplicates(workbench, bookOf(again), survey.duplicates);
  std::filesystem::path proposal = files.front();
  const std::filesystem::path path =
      book ? AskForTarget(workbench.prompts(), u".xlsx", proposal.replace_extension(u".xlsx")) : "";
  if (path.empty()) {
    return;
  }
  WriteSheet(workbench, book, path);
  if (!OpenWithItsProgram(workbench.desktop(), path)) {
    ShowTable(workbench, book);
  }
  ReportPhoneBook(workbench, survey.contacts, survey.numbers, notUnderstood);
}

void mnuAndroidPhoneBookDecode(Workbench& workbench) {
  const std::string table = Encode(Encoding::kUtf8, CaptureInput(workbench).text);
  WriteCards(
      workbench,
      [&table](Progress& progress) -> OpenPhoneBook {
        return [&table, &progress] { return std::make_unique<TextTableSource>(table, progress); };
      },
      BesideDocument(workbench, u"contacts.vcf"));
}

void mnuExcelPhoneBookToAndroid(Workbench& workbench, Spreadsheet& spreadsheet) {
  std::optional<Sheet> sheet = spreadsheet.ActiveSheet();
  std::filesystem::path proposal = BesideDocument(workbench, u"contacts.vcf");
  if (!sheet) {
    const std::filesystem::path path = workbench.prompts().AskForFile({.filter = u"*.xlsx"});
    if (path.empty()) {
      return;
    }
    const std::unique_ptr<BusyWork> work = workbench.StartWork();
    sheet = ReadFirstSheet(ReadWholeFile(path), work->progress());
    proposal = path;
    proposal.replace_extension(u".vcf");
  }
  const auto shared = std::make_shared<const Sheet>(std::move(*sheet));
  WriteCards(
      workbench,
      [shared](Progress& progress) -> OpenPhoneBook {
        return [shared, &progress] { return std::make_unique<SheetContactSource>(shared, progress); };
      },
      proposal);
}

}  // namespace scrivanta
