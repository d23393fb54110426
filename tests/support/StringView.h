// A window of a document that is a string; its rich text is the text in braces.
#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "shell/document/DocumentFile.h"
#include "text/ExplainedError.h"

namespace scrivanta::testing {

class StringView final : public DocumentView {
 public:
  explicit StringView(Editor& editor) : editor_(editor) {}

  void ShowDocument(std::u16string_view text) override { editor_.SetText(text); }
  bool ShowRichDocument(std::string_view rtf) override {
    const auto text = TextOfRtf(rtf);
    if (text) {
      editor_.SetText(*text);
    }
    return text.has_value();
  }
  void ReplaceText(std::u16string_view text, std::function<void(bool isUndone)> onUndo) override {
    editor_.SetText(text);
    undoOfReplacing = std::move(onUndo);
  }
  bool ReplaceByRtf(std::string_view rtf) override { return ShowRichDocument(rtf); }
  std::u16string PlainText() const override { return editor_.Text(); }
  std::string DocumentRtf() const override {
    if (breaksOff) {
      throw ExplainedError("the rich text breaks off", u"没有全部取出");
    }
    const std::u16string text = editor_.Text();
    return "{" + std::string(text.begin(), text.end()) + "}";
  }
  std::optional<std::u16string> TextOfRtf(std::string_view rtf) override {
    if (!rtf.starts_with("{") || !rtf.ends_with("}")) {
      return std::nullopt;
    }
    return std::u16string(rtf.begin() + 1, rtf.end() - 1);
  }
  bool HasFormatting() const override { return isFormatted; }
  void SetReadOnly(bool readOnly) override { isReadOnly = readOnly; }
  void NoteChanged(bool isChanged) override {
    if (onChanged) {
      onChanged(isChanged);
    }
  }
  void ShowPath(const std::filesystem::path& path) override { shownPaths.push_back(path); }
  void NoteUse(const std::filesystem::path& path) override { used.push_back(path); }
  void ShowNotice(const std::u16string& notice) override { notices.push_back(notice); }
  void ShowProgressBar(std::optional<int> percent) override { progress.push_back(percent); }

  std::vector<std::filesystem::path> shownPaths;
  std::vector<std::filesystem::path> used;
  std::vector<std::u16string> notices;
  std::vector<std::optional<int>> progress;
  bool isReadOnly = false;
  bool isFormatted = false;
  bool breaksOff = false;  // as a control that cannot give all that it shows
  std::function<void(bool)> onChanged;
  std::function<void(bool isUndone)> undoOfReplacing;

 private:
  Editor& editor_;
};

}  // namespace scrivanta::testing
