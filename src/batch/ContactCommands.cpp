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

BatchWork ConfigureVcardToTable(CLI::App& parser) {
  const auto options = std::make_shared<ContactOptions>();
  AddContactOptions(parser, *options, "--to", "text (default): fields with tabs between them; csv; xlsx: a sheet");
  return [options](BatchContext& context) {
    const std::filesystem::path folder = std::filesystem::temp_directory_path();
    CardContactSource cards(context.input, context.progress);
    KeptPhoneBook book(cards, folder);
    const OpenPhoneBook all = book.Open(context.progress);
    const OpenPhoneBook open = options->joinsDuplicates ? JoiningDuplicates(all, FindDuplicates(all)) : all;
    if (options->form == TableForm::kXlsx) {
      WriteSheetFile(open, context.output, folder);
    } else {
      RecordContactSink sink(context.output, RecordFormOf(options->form), context.encoding,
                             options->joinsDuplicates ? SurveyPhoneBook(open).shape : book.survey().shape);
      CopyPhoneBook(open, sink);
    }
    return ExitStatus::kDone;
  };
}

std::unique_ptr<ContactSource> OpenTable(TableForm form, BatchContext& context) {
  if (form == TableForm::kXlsx) {
    return std::make_unique<SheetContactSource>(
        std::make_shared<const Sheet>(ReadFirstSheet(ReadAll(context.input, context.progress), context.progress)),
        context.progress);
  }
  return std::make_unique<RecordContactSource>(context.input, RecordFormOf(form), context.encoding, context.progress);
}

BatchWork ConfigureTableToVcard(CLI::App& parser) {
  const auto options = std::make_shared<ContactOptions>();
  AddContactOptions(parser, *options, "--from", "text (default): fields with tabs between them; csv; xlsx: a sheet");
  return [options](BatchContext& context) {
    CardContactSink sink(context.output);
    const std::unique_ptr<ContactSource> table = OpenTable(options->form, context);
    if (options->joinsDuplicates) {
      KeptPhoneBook book(*table, std::filesystem::temp_directory_path());
      const OpenPhoneBook all = book.Open(context.progress);
      CopyPhoneBook(JoiningDuplicates(all, FindDuplicates(all)), sink);
    } else {
      CopyContacts(*table, sink);
    }
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
