// A workbench without a window: the editor is a string, the answers to the questions come from a script, and what was
// asked can be read back.
#pragma once

#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <map>
#include <optional>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "shell/workbench/Workbench.h"
#include "support/TemporaryFolder.h"

namespace scrivanta::testing {

class ScriptedEditor final : public Editor {
 public:
  // A document with nothing changed yet.
  void Open(std::u16string_view text, TextRange selection = {});

  std::u16string Text() const override { return text_; }
  std::u16string SelectedText() const override { return text_.substr(selection_.start.value, selection_.length); }
  TextRange Selection() const override { return selection_; }
  void SetSelection(TextRange range) override;
  std::optional<ScreenRect> SelectionOnScreen() const override { return onScreen; }
  void MarkPart(std::optional<TextRange> part) override { marked_ = part; }
  std::optional<TextRange> MarkedPart() const override { return marked_; }
  std::size_t CountDisplayLines(std::u16string_view text) override;
  std::size_t CaretDisplayLine() const override;
  void SetText(std::u16string_view text) override;
  void ReplaceSelection(std::u16string_view text) override;
  std::string Rtf() const override { return rtf; }
  std::string SelectedRtf() const override { return rtf; }
  bool SetRtf(std::string_view bytes) override;
  void SetRtf(const RtfByLines& byLines) override { SetRtf(std::string_view(byLines.Whole())); }
  bool ReplaceSelectionByRtf(std::string_view bytes) override;
  void SetColours(std::span<const TextRange> ranges, const TextColours& colours) override;
  ScrollPosition Scroll() const override { return scroll; }
  void SetScroll(ScrollPosition position) override { scroll = position; }

  // The rich text of the document, and of the selection: what a test gives it, and then the last that was put in.
  std::string rtf;
  // The text of a rich text; without it none is taken.
  std::function<std::u16string(std::string_view)> textOfRtf;
  std::vector<std::pair<TextRange, TextColours>> coloured;
  ScrollPosition scroll;
  std::optional<ScreenRect> onScreen;
  int changes = 0;            // steps of undo
  std::size_t wrapWidth = 0;  // characters in a display line; 0: no wrapping

 private:
  std::u16string text_;
  TextRange selection_;
  std::optional<TextRange> marked_;
};

// A question without an answer in the script fails the test and is cancelled, and so does an answer that nobody has
// asked for; a box with only an OK button needs none.
class ScriptedPrompts final : public Prompts {
 public:
  using ScriptedAnswer =
      std::variant<Answer, std::u16string, std::filesystem::path, std::vector<std::filesystem::path>>;

  ~ScriptedPrompts() override;

  // The answers to the questions to come, in order. With meanwhile, it runs while the question stands.
  void Will(ScriptedAnswer answer, std::function<void()> meanwhile = {});

  Answer Ask(const Message& message) override;
  std::u16string Input(const InputQuestion& question) override;
  std::filesystem::path AskForFile(const FileQuestion& question) override;
  std::vector<std::filesystem::path> AskForFiles(const FileQuestion& question) override;
  std::filesystem::path AskForFolder(const FolderQuestion& question) override;

  std::vector<Message> messages;
  std::vector<InputQuestion> inputs;
  std::vector<FileQuestion> files;
  std::vector<FolderQuestion> folders;

 private:
  template <typename T>
  T NextAnswer(const std::u16string& question, T cancelled);

  std::deque<std::pair<ScriptedAnswer, std::function<void()>>> script_;
};

class MapSettings final : public Settings {
 public:
  using Key = std::tuple<Store, std::u16string, std::u16string>;  // store, section, key

  void Save(std::u16string_view key, std::u16string_view value, Store store, std::u16string_view section) override;
  void SaveAll(const SettingEntries& entries, Store store, std::u16string_view section) override;
  std::optional<std::u16string> Find(std::u16string_view key, Store store, std::u16string_view section) const override;
  SettingEntries Entries(Store store, std::u16string_view section) const override;
  std::optional<std::u16string> RegistryKeyOf(std::u16string_view section) const override;

  std::map<Key, std::u16string> values;
  bool inRegistry = true;
};

class ManualClock final : public Clock {
 public:
  std::chrono::local_time<std::chrono::milliseconds> Now() const override { return now; }

  std::chrono::local_time<std::chrono::milliseconds> now{};
};

class RecordingDesktop final : public Desktop {
 public:
  void OpenWithDefaultProgram(const std::filesystem::path& document) override {
    if (!hasPrograms || document == refused) {
      throw FileError(document, std::make_error_code(std::errc::no_such_file_or_directory));
    }
    opened.push_back(document);
  }
  void Run(const std::u16string& program, const std::u16string& arguments) override {
    runs.emplace_back(program, arguments);
  }
  void RunSystemProgram(const std::u16string& fileName, const std::u16string& arguments) override {
    systemRuns.emplace_back(fileName, arguments);
  }

  bool hasPrograms = true;  // false: no document can be opened
  std::vector<std::filesystem::path> opened;
  std::filesystem::path refused;  // cannot be opened
  std::vector<std::pair<std::u16string, std::u16string>> runs;
  std::vector<std::pair<std::u16string, std::u16string>> systemRuns;
};

class ScriptedDocument final : public Document {
 public:
  explicit ScriptedDocument(ScriptedEditor& editor) : editor_(editor) {}

  std::filesystem::path Path() const override { return path; }
  bool IsChanged() const override { return changed; }
  void MarkUnchanged() override { changed = false; }
  bool OfferToSave() override;
  bool MayBeReplaced() override { return mayBeReplaced; }
  // The path that it would get, unless the user does not want it.
  std::optional<std::filesystem::path> ConfirmTarget(const std::filesystem::path& chosen) override;
  void ShowNew(std::u16string_view text, DocumentSaver newSaver) override;
  void SaveThrough(DocumentSaver newSaver) override;
  std::u16string TextOfFile(const std::filesystem::path& file) override;
  void OpenAt(const std::filesystem::path& file, long long line) override { opened.emplace_back(file, line); }

  std::vector<std::pair<std::filesystem::path, long long>> opened;  // and where
  std::filesystem::path path;
  bool changed = false;
  DocumentSaver saver;
  bool offerAnswer = true;  // false: the user cancels
  bool mayBeReplaced = true;
  bool targetIsFine = true;
  int offers = 0;
  std::map<std::filesystem::path, std::u16string> texts;  // of the files that there are

 private:
  ScriptedEditor& editor_;
};

class ScriptedWorkbench final : public Workbench {
 public:
  ScriptedWorkbench();

  ScriptedEditor& editor() override { return editor_; }
  ScriptedDocument& document() override { return document_; }
  ScriptedPrompts& prompts() override { return prompts_; }
  MapSettings& settings() override { return settings_; }
  RecordingDesktop& desktop() override { return desktop_; }
  const ManualClock& clock() const override { return clock_; }
  ManualClock& clock() { return clock_; }
  const Folders& folders() const override { return folders_; }
  std::unique_ptr<BusyWork> StartWork() override;
  void ShowStatus(const std::u16string& text) override { status = text; }

  void SetRecoveryFolder(const std::filesystem::path& folder) { folders_.recovery = folder; }

  // The bytes of a file in the temporary folder.
  std::string WorkFile(const std::filesystem::path& name) const { return ReadWholeFile(folders_.temporary / name); }

  std::u16string status;
  std::uint64_t reports = 0;         // calls of Progress::Report so far
  std::uint64_t interruptAfter = 0;  // the report with this number is answered by Interrupted; 0: none is
  int worksStarted = 0;
  int worksAlive = 0;

 private:
  TemporaryFolder folder_;
  ScriptedEditor editor_;
  ScriptedDocument document_{editor_};
  ScriptedPrompts prompts_;
  MapSettings settings_;
  RecordingDesktop desktop_;
  ManualClock clock_;
  Folders folders_;
};

}  // namespace scrivanta::testing
