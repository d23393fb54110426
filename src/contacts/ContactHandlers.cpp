#include "contacts/ContactHandlers.h"

#include <functional>
#include <memory>
#include <utility>

#include "contacts/ContactRecords.h"
#include "contacts/ContactSheets.h"
#include "contacts/PhoneBookQuestions.h"
#include "shell/workbench/ResultFiles.h"
#include "text/AtomicFile.h"

namespace scrivanta {

namespace {

using OpenAtWork = std::function<std::unique_ptr<ContactSource>(Progress&)>;

// A book that was chosen, read once.
class ChosenBook {
 public:
  ChosenBook(Workbench& workbench, const OpenAtWork& open)
      : work_(workbench.StartWork()),
        contacts_(*open(work_->progress()), workbench.folders().temporary),
        duplicates_(FindDuplicates(contacts_.Open(work_->progress()))) {
    work_.reset();
  }

  bool empty() const noexcept { return contacts_.survey().contacts == 0; }
  const std::vector<DuplicateGroup>& duplicates() const noexcept { return duplicates_; }
  // From now on its duplicates are joined.
  void Join() { joins_ = true; }

  OpenPhoneBook Open(Progress& progress) {
    const OpenPhoneBook open = contacts_.Open(progress);
    return joins_ ? JoiningDuplicates(open, duplicates_) : open;
  }
  PhoneBookSurvey Survey(Progress& progress) { return joins_ ? SurveyPhoneBook(Open(progress)) : contacts_.survey(); }

 private:
  std::unique_ptr<BusyWork> work_;  // while it is read
  KeptPhoneBook contacts_;
  std::vector<DuplicateGroup> duplicates_;
  bool joins_ = false;
};

// False when the user calls the command off.
bool AskAboutDuplicates(Workbench& workbench, ChosenBook& book) {
  const std::optional<bool> joins = AskWhetherToJoin(workbench.prompts(), book.duplicates());
  if (joins.value_or(false)) {
    book.Join();
  }
  return joins.has_value();
}

// What was written.
PhoneBookSurvey WriteSheet(Workbench& workbench, ChosenBook& book, const std::filesystem::path& path) {
  const std::unique_ptr<BusyWork> work = workbench.StartWork();
  AtomicFile file(path);
  WriteSheetFile(book.Open(work->progress()), file, workbench.folders().temporary);
  file.Commit();
  return book.Survey(work->progress());
}

PhoneBookSurvey WriteCardFile(Workbench& workbench, ChosenBook& book, const std::filesystem::path& path) {
  const std::unique_ptr<BusyWork> work = workbench.StartWork();
  AtomicFile file(path);
  CardContactSink sink(file);
  CopyPhoneBook(book.Open(work->progress()), sink);
  PhoneBookSurvey written = book.Survey(work->progress());
  file.Commit();
  return written;
}

std::u16string TextTable(Workbench& workbench, ChosenBook& book) {
  const std::unique_ptr<BusyWork> work = workbench.StartWork();
  StringSink bytes;
  RecordContactSink sink(bytes, RecordForm::kTabs, Encoding::kUtf8, book.Survey(work->progress()).shape);
  CopyPhoneBook(book.Open(work->progress()), sink);
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

void ShowTable(Workbench& workbench, ChosenBook& book) {
  const std::u16string table = TextTable(workbench, book);
  if (workbench.document().OfferToSave()) {
    workbench.document().ShowNew(table, [](Workbench&) { return SaveOutcome::kSaveAsFile; });
  }
}

// A card file of the book, under a name that is asked for.
void WriteCards(Workbench& workbench, const OpenAtWork& open, const std::filesystem::path& proposal) {
  ChosenBook book(workbench, open);
  if (book.empty()) {
    workbench.ShowStatus(u"没有联系人");
    return;
  }
  const std::filesystem::path path =
      AskAboutDuplicates(workbench, book) ? AskForTarget(workbench.prompts(), u".vcf", proposal) : "";
  if (!path.empty()) {
    ReportPhoneBook(workbench, WriteCardFile(workbench, book, path), {});
  }
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
  ChosenBook book(
      workbench, [&](Progress& progress) { return std::make_unique<CardFilesSource>(files, progress, notUnderstood); });
  std::filesystem::path proposal = files.front();
  proposal.replace_extension(u".xlsx");
  const std::filesystem::path path =
      AskAboutDuplicates(workbench, book) ? AskForTarget(workbench.prompts(), u".xlsx", proposal) : "";
  if (path.empty()) {
    return;
  }
  const PhoneBookSurvey written = WriteSheet(workbench, book, path);
  if (!OpenWithItsProgram(workbench.desktop(), path)) {
    ShowTable(workbench, book);
  }
  ReportPhoneBook(workbench, written, notUnderstood);
}

void mnuAndroidPhoneBookDecode(Workbench& workbench) {
  const std::string table = Encode(Encoding::kUtf8, CaptureInput(workbench).text);
  WriteCards(
      workbench, [&](Progress& progress) { return std::make_unique<TextTableSource>(table, progress); },
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
      workbench, [&](Progress& progress) { return std::make_unique<SheetContactSource>(shared, progress); }, proposal);
}

}  // namespace scrivanta
