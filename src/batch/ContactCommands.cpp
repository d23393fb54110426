#include <functional>
#include <memory>
#include <utility>

#include <CLI/CLI.hpp>

#include "batch/BatchCommand.h"
#include "batch/Choice.h"
#include "contacts/CardContacts.h"
#include "contacts/ContactRecords.h"
#include "contacts/ContactSheets.h"
#include "contacts/PhoneBook.h"
#include "text/ReadAll.h"

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

// The book, with its duplicates joined if that is wanted.
OpenPhoneBook Prepared(const ContactOptions& options, const OpenPhoneBook& open) {
  return options.joinsDuplicates ? JoiningDuplicates(open, SurveyPhoneBook(open).duplicates) : open;
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

BatchWork ConfigureVcardToTable(CLI::App& parser) {
  const auto options = std::make_shared<ContactOptions>();
  AddContactOptions(parser, *options, "--to", "text (default): fields with tabs between them; csv; xlsx: a sheet");
  return [options](BatchContext& context) {
    const OpenPhoneBook open = Prepared(*options, [&context, input = Rereading(context)] {
      return std::make_unique<CardContactSource>(input(), context.progress);
    });
    if (options->form == TableForm::kXlsx) {
      WriteSheetFile(open, context.output, std::filesystem::temp_directory_path());
    } else {
      RecordContactSink sink(context.output, RecordFormOf(options->form), context.encoding,
                             SurveyPhoneBook(open).shape);
      CopyPhoneBook(open, sink);
    }
    return ExitStatus::kDone;
  };
}

// The book in the input, as often as it is wanted.
OpenPhoneBook OpenTable(TableForm form, BatchContext& context) {
  if (form == TableForm::kXlsx) {
    const auto sheet =
        std::make_shared<const Sheet>(ReadFirstSheet(ReadAll(context.input, context.progress), context.progress));
    return [sheet, &context] { return std::make_unique<SheetContactSource>(sheet, context.progress); };
  }
  return [form, &context, input = Rereading(context)] {
    return std::make_unique<RecordContactSource>(input(), RecordFormOf(form), context.encoding, context.progress);
  };
}

BatchWork ConfigureTableToVcard(CLI::App& parser) {
  const auto options = std::make_shared<ContactOptions>();
  AddContactOptions(parser, *options, "--from", "text (default): fields with tabs between them; csv; xlsx: a sheet");
  return [options](BatchContext& context) {
    CardContactSink sink(context.output);
    CopyPhoneBook(Prepared(*options, OpenTable(options->form, context)), sink);
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
