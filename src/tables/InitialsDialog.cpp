#include "tables/InitialsDialog.h"

#include "text/DecimalText.h"

namespace scrivanta {

namespace {

// Behind the lines, so that what is doubtful is seen and can be cut off again.
void WriteDoubtful(const std::vector<DoubtfulCharacter>& doubtful, LineWriter& out) {
  if (doubtful.empty()) {
    return;
  }
  out.WriteLine({});
  out.WriteLine(Encode(kWorkFileEncoding, u"以下多音字请核对（行、字、汉字、已取字母、其他字母）："));
  for (const DoubtfulCharacter& character : doubtful) {
    out.WriteLine(Encode(kWorkFileEncoding, DescribeDoubtful(character)));
  }
}

}  // namespace

void InitialsDialog::Start(InitialsView& view) {
  const InitialsOptions options{.place = view.Place(),
                                .firstOnly = view.IsFirstOnly(),
                                .small = view.IsSmall(),
                                .readAs = view.AreNames() ? ReadAs::kName : ReadAs::kText,
                                .encoding = kWorkFileEncoding};
  const bool listsDoubtful = view.IsDoubtfulListed();
  view.CloseView();
  std::vector<DoubtfulCharacter> doubtful;
  std::uint64_t lines = 0;
  {
    const std::unique_ptr<BusyWork> work = workbench_.StartWork();
    RewriteInputFile(input_);
    MemorySource source(input_.bytes);
    LineReader reader(source, LineEnds::kCrLf, work->progress());
    ResultFile result(workbench_, u"JiaZiMuOK.txt");
    LineWriter writer(result);
    AddInitials(reader, writer, options, listsDoubtful ? &doubtful : nullptr);
    WriteDoubtful(doubtful, writer);
    writer.Flush();
    PutResultBack(workbench_, input_, result);
    lines = reader.number();
  }
  const std::u16string count = DecimalText(lines) + u"行已加字母";
  workbench_.ShowStatus(doubtful.empty() ? count : count + u"，多音字" + DecimalText(doubtful.size()) + u"个");
}

}  // namespace scrivanta
