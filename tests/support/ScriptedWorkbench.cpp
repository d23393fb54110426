#include "support/ScriptedWorkbench.h"

#include <algorithm>

#include <gtest/gtest.h>

#include "shell/history/FollowEdit.h"
#include "text/PathParts.h"
#include "text/PlatformFile.h"
#include "text/TextPieces.h"

namespace scrivanta::testing {

namespace {

// Every line end becomes CR LF, as in the real control.
std::u16string WithLineBreaks(std::u16string_view text) {
  std::u16string result;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text[i] != u'\r' && text[i] != u'\n') {
      result += text[i];
      continue;
    }
    if (text[i] == u'\r' && i + 1 < text.size() && text[i + 1] == u'\n') {
      ++i;
    }
    result += u"\r\n";
  }
  return result;
}

// As a control has the text that a document has with CR LF.
std::u16string WithoutLineFeeds(std::u16string text) {
  std::erase(text, u'\n');
  return text;
}

class ScriptedWork final : public BusyWork, public Progress {
 public:
  explicit ScriptedWork(ScriptedWorkbench& workbench) : workbench_(workbench) {
    ++workbench_.worksStarted;
    ++workbench_.worksAlive;
  }
  ~ScriptedWork() override { --workbench_.worksAlive; }

  Progress& progress() override { return *this; }
  void Report(std::uint64_t, std::uint64_t) override {
    if (++workbench_.reports == workbench_.interruptAfter) {
      throw Interrupted();
    }
  }

 private:
  ScriptedWorkbench& workbench_;
};

}  // namespace

void ScriptedEditor::Open(std::u16string_view text, TextRange selection) {
  text_ = text;
  marked_.reset();
  changes = 0;
  SetSelection(selection);
}

void ScriptedEditor::SetSelection(TextRange range) {
  selection_.start.value = std::min(range.start.value, text_.size());
  selection_.length = std::min(range.length, text_.size() - selection_.start.value);
}

std::size_t ScriptedEditor::CountDisplayLines(std::u16string_view text) {
  std::size_t count = 0;
  for (std::size_t begin = 0;;) {
    const std::size_t end = std::min(text.find(u"\r\n", begin), text.size());
    count += wrapWidth == 0 ? 1 : std::max<std::size_t>(1, (end - begin + wrapWidth - 1) / wrapWidth);
    if (end == text.size()) {
      return count;
    }
    begin = end + 2;
  }
}

std::size_t ScriptedEditor::CaretDisplayLine() const {
  ScriptedEditor upToCaret;
  upToCaret.wrapWidth = wrapWidth;
  return upToCaret.CountDisplayLines(text_.substr(0, selection_.start.value));
}

void ScriptedEditor::SetText(std::u16string_view text) {
  ++changes;
  const std::u16string before = WithoutLineFeeds(text_);
  const std::size_t caret = WithoutLineFeeds(text_.substr(0, selection_.end().value)).size();
  text_ = WithLineBreaks(text);
  const std::u16string after = WithoutLineFeeds(text_);
  const std::size_t newCaret = PlaceAfter(MatchTexts(before, after), before, caret);
  rtf.clear();  // the formatting is gone
  selection_ = {{WithLineBreaks(after.substr(0, newCaret)).size()}, 0};
}

void ScriptedEditor::ReplaceSelection(std::u16string_view text) {
  ++changes;
  const std::u16string shown = WithLineBreaks(text);
  text_.replace(selection_.start.value, selection_.length, shown);
  if (marked_) {
    marked_ = FollowEdit(*marked_, selection_, shown.size());
  }
  selection_ = {{selection_.start.value + shown.size()}, 0};
}

bool ScriptedEditor::SetRtf(std::string_view bytes) {
  if (!textOfRtf) {
    return false;
  }
  SetText(textOfRtf(bytes));
  rtf = bytes;
  return true;
}

bool ScriptedEditor::ReplaceSelectionByRtf(std::string_view bytes) {
  if (!textOfRtf) {
    return false;
  }
  rtf = bytes;
  ReplaceSelection(textOfRtf(bytes));
  return true;
}

void ScriptedEditor::SetColours(std::span<const TextRange> ranges, const TextColours& colours) {
  for (const TextRange& range : ranges) {
    coloured.emplace_back(range, colours);
  }
}

ScriptedPrompts::~ScriptedPrompts() {
  EXPECT_EQ(script_.size(), 0U) << "answers were scripted that nobody asked for";
}

void ScriptedPrompts::Will(ScriptedAnswer answer, std::function<void()> meanwhile) {
  script_.emplace_back(std::move(answer), std::move(meanwhile));
}

template <typename T>
T ScriptedPrompts::NextAnswer(const std::u16string& question, T cancelled) {
  if (script_.empty() || !std::holds_alternative<T>(script_.front().first)) {
    ADD_FAILURE() << "no answer of its kind for: " << std::filesystem::path(question).string();
    return cancelled;
  }
  const auto [answer, meanwhile] = std::move(script_.front());
  script_.pop_front();
  if (meanwhile) {
    meanwhile();
  }
  return std::get<T>(answer);
}

Answer ScriptedPrompts::Ask(const Message& message) {
  messages.push_back(message);
  return message.buttons == Buttons::kOk ? Answer::kOk : NextAnswer(message.text, Answer::kCancel);
}

std::u16string ScriptedPrompts::Input(const InputQuestion& question) {
  inputs.push_back(question);
  return NextAnswer(question.prompt, std::u16string());
}

std::filesystem::path ScriptedPrompts::AskForFile(const FileQuestion& question) {
  files.push_back(question);
  return NextAnswer(question.filter, std::filesystem::path());
}

std::vector<std::filesystem::path> ScriptedPrompts::AskForFiles(const FileQuestion& question) {
  files.push_back(question);
  return NextAnswer(question.filter, std::vector<std::filesystem::path>());
}

std::filesystem::path ScriptedPrompts::AskForFolder(const FolderQuestion& question) {
  folders.push_back(question);
  return NextAnswer(question.title, std::filesystem::path());
}

void MapSettings::Save(std::u16string_view key, std::u16string_view value, Store store, std::u16string_view section) {
  values[{store, std::u16string(section), std::u16string(key)}] = value;
}

void MapSettings::SaveAll(const SettingEntries& entries, Store store, std::u16string_view section) {
  for (const auto& [key, value] : entries) {
    Save(key, value, store, section);
  }
}

SettingEntries MapSettings::Entries(Store store, std::u16string_view section) const {
  SettingEntries entries;
  for (const auto& [place, value] : values) {
    if (std::get<0>(place) == store && std::get<1>(place) == section) {
      entries.emplace(std::get<2>(place), value);
    }
  }
  return entries;
}

std::optional<std::u16string> MapSettings::Find(std::u16string_view key, Store store,
                                                std::u16string_view section) const {
  const auto found = values.find({store, std::u16string(section), std::u16string(key)});
  return found == values.end() ? std::nullopt : std::optional(found->second);
}

std::optional<std::u16string> MapSettings::RegistryKeyOf(std::u16string_view section) const {
  return inRegistry ? std::optional(u"HKEY\\" + std::u16string(section)) : std::nullopt;
}

bool ScriptedDocument::OfferToSave() {
  ++offers;
  return offerAnswer;
}

std::optional<std::filesystem::path> ScriptedDocument::ConfirmTarget(const std::filesystem::path& chosen) {
  return targetIsFine ? std::optional(PathOfText(WithTextExtension(TextOfPath(chosen)))) : std::nullopt;
}

void ScriptedDocument::ShowNew(std::u16string_view text, DocumentSaver newSaver) {
  editor_.Open(text);
  SaveThrough(std::move(newSaver));
}

void ScriptedDocument::SaveThrough(DocumentSaver newSaver) {
  saver = std::move(newSaver);
  path.clear();
  changed = false;
}

std::u16string ScriptedDocument::TextOfFile(const std::filesystem::path& file) {
  const auto found = texts.find(file);
  if (found == texts.end()) {
    throw FileError(file, std::make_error_code(std::errc::no_such_file_or_directory));
  }
  return found->second;
}

ScriptedWorkbench::ScriptedWorkbench()
    : folders_{.program = folder_.path() / "program" / "",
               .temporary = folder_.path() / "temporary" / "",
               .iniFile = folder_.path() / "program" / "Scrivanta.ini",
               .recovery = folder_.path() / "own" / "Recovery"} {
  std::filesystem::create_directories(folders_.program);
  std::filesystem::create_directories(folders_.temporary);
}

std::unique_ptr<BusyWork> ScriptedWorkbench::StartWork() {
  return std::make_unique<ScriptedWork>(*this);
}

}  // namespace scrivanta::testing
