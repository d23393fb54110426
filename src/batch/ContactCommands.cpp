#include <functional>
#include <memory>
#include <optional>
#include <system_error>
#include <utility>

#include <CLI/CLI.hpp>

#include "batch/BatchCommand.h"
#include "batch/Choice.h"
#include "contacts/CardContacts.h"
#include "contacts/ContactRecords.h"
#include "contacts/ContactSheets.h"
#include "contacts/PhoneBook.h"
#include "text/TemporaryName.h"

namespace scrivanta {

namespace {

enum class TableForm { kText, kCsv, kXlsx };

struct ContactOptions {
  TableForm form = TableForm::kText;
  bool joinsDuplicates = false;
};

void AddContactOptions(CLI::App& parser, ContactOptions& options, const std::string& formOption,
                       const std::string& description) {
  AddChoice(parser, formOption, options.form,
            {{"text", TableForm::kText}, {"csv", TableForm::kCsv}, {"xlsx", TableForm::kXlsx}}, description);
  parser.add_flag("--join-duplicates", options.joinsDuplicates,
                  "Make one contact of those with the same name and a number in common");
}

RecordForm RecordFormOf(TableForm form) {
  return form == TableForm::kCsv ? RecordForm::kCommas : RecordForm::kTabs;
}

// A sheet can only be written to a path; this one is gone with its owner.
class SheetPath {
 public:
  SheetPath() : path_(std::filesystem::temp_directory_path() / TemporaryName()) {}
  SheetPath(const SheetPath&) = delete;
  SheetPath& operator=(const SheetPath&) = delete;
  ~SheetPath() {
    std::error_code ignored;
    std::filesystem::remove(path_, ignored);
  }

  const std::filesystem::path& get() const noexcept { return path_; }

 private:
  std::filesystem::path path_;
};

// What is to be written and what is in it. The book is read again from the beginning of the input each time.
struct SurveyedBook {
  OpenPhoneBook open;
  TableShape shape;
};

SurveyedBook Survey(const ContactOptions& options, const OpenPhoneBook& open, const TableShape& shape) {
  PhoneBookSurvey survey = SurveyPhoneBook(open, shape);
  if (!options.joinsDuplicates || survey.duplicates.empty()) {
    return {open, survey.shape};
  }
  const OpenPhoneBook joining = JoiningDuplicates(open, survey.duplicates);
  return {joining, SurveyPhoneBook(joining, shape).shape};
}

// The input from its beginning, each time it is called.
std::function<BatchInput&()> Rereading(BatchContext& context) {
  context.input.MakeRewindable(context.progress);
  return [&context, isFirst = std::make_shared<bool>(true)]() -> BatchInput& {
    if (!std::exchange(*isFirst, false)) {
      context.input.Rewind();
    }
    return context.input;
  };
}

void WriteTable(const SurveyedBook& book, TableForm form, BatchContext& context) {
  if (form != TableForm::kXlsx) {
    RecordContactSink sink(context.output, RecordFormOf(form), context.encoding, book.shape);
    CopyPhoneBook(book.open, sink);
    return;
  }
  const SheetPath path;
  SheetContactSink sink(path.get(), book.shape);
  CopyPhoneBook(book.open, sink);
  FileSource written(path.get());
  CopyBytes(written, context.output);
}

BatchWork ConfigureVcardToTable(CLI::App& parser) {
  const auto options = std::make_shared<ContactOptions>();
  AddContactOptions(parser, *options, "--to", "text (default): fields with tabs between them; csv; xlsx: a sheet");
  return [options](BatchContext& context) {
    const OpenPhoneBook open = [&context, input = Rereading(context)] {
      return std::make_unique<CardContactSource>(input(), context.progress);
    };
    const TableShape shape = options->form == TableForm::kXlsx ? TableShape(kLongestSheetCell) : TableShape();
    WriteTable(Survey(*options, open, shape), options->form, context);
    return ExitStatus::kDone;
  };
}

// The book in the input, as often as it is wanted.
OpenPhoneBook OpenTable(TableForm form, BatchContext& context) {
  if (form == TableForm::kXlsx) {
    const auto sheet = std::make_shared<const Sheet>(ReadFirstSheet(ReadAll(context.input, context.progress)));
    return [sheet] { return std::make_unique<SheetContactSource>(sheet); };
  }
  return [form, &context, input = Rereading(context)] {
    return std::make_unique<RecordContactSource>(input(), RecordFormOf(form), context.encoding, context.progress);
  };
}

BatchWork ConfigureTableToVcard(CLI::App& parser) {
  const auto options = std::make_shared<ContactOptions>();
  AddContactOptions(parser, *options, "--from", "text (default): fields with tabs between them; csv; xlsx: a sheet");
  return [options](BatchContext& context) {
    OpenPhoneBook open = OpenTable(options->form, context);
    if (options->joinsDuplicates) {
      open = JoiningDuplicates(open, SurveyPhoneBook(open).duplicates);
    }
    CardContactSink sink(context.output);
    CopyPhoneBook(open, sink);
    return ExitStatus::kDone;
  };
}

}  // namespace

std::vector<BatchCommand> ContactBatchCommands() {
  return {
      {.name = "vcard-to-table",
       .description = "Make a table of the cards of a phone book",
       .example = "scrivanta-batch vcard-to-table --to xlsx contacts.vcf -o contacts.xlsx",
       .configure = ConfigureVcardToTable},
      {.name = "table-to-vcard",
       .description = "Make cards that a phone takes of a table with a header",
       .example = "scrivanta-batch table-to-vcard --from xlsx contacts.xlsx -o contacts.vcf",
       .configure = ConfigureTableToVcard},
  };
}

}  // namespace scrivanta
