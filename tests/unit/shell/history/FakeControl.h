// An edit control in memory: text, selection, and one format a unit in place of rich text.
#pragma once

#include <algorithm>
#include <memory>
#include <optional>
#include <string>
#include <utility>

#include "shell/history/DocumentHistory.h"
#include "text/Progress.h"

namespace scrivanta {

class FakeControl final : public UndoTarget {
 public:
  std::u16string text;  // one CR a line break
  std::string formats;  // a letter a unit; 'p' is plain
  ControlRange selection;
  mutable std::size_t unitsRead = 0;
  bool addsBreakToRichText = false;
  bool interrupts = false;  // the next change that may be

  explicit FakeControl(std::u16string controlText = {}) : text(std::move(controlText)), formats(text.size(), 'p') {}

  std::size_t Length() const override { return text.size(); }
  ControlRange Selection() const override { return selection; }
  std::u16string Read(ControlRange range) const override {
    unitsRead += range.length;
    return text.substr(range.start.value, range.length);
  }
  void Replace(std::span<const ControlEdit> edits) override {
    if (interrupts && IsPlain()) {
      Interrupt();
    }
    for (const ControlEdit& edit : edits) {
      if (!edit.IsFormatting()) {
        selection = edit.removedRange();
        Type(edit.inserted);
      }
      if (edit.insertedFormats) {
        Format(edit.start.value, *edit.insertedFormats);
      }
    }
  }
  // Letters that are not plain are the words of the formats.
  std::optional<FormattedText> Formatted(ControlRange range) const override {
    if (IsPlain()) {
      return std::nullopt;
    }
    TextFormats part;
    for (const char letter : formats.substr(range.start.value, range.length)) {
      part.runs.push_back({1, std::make_shared<const FormatWords>(FormatWords{{std::string(1, letter), ""}})});
    }
    return FormattedText(text.substr(range.start.value, range.length), std::move(part));
  }
  RichText Capture() const override { return IsPlain() ? nullptr : std::make_shared<const std::string>(formats); }
  void Rebuild(const RichText& richText, std::u16string_view documentText) override {
    Interrupt();
    Load(documentText);
    if (richText) {
      formats = *richText;
      if (addsBreakToRichText) {
        text += u'\r';
        formats += 'p';
      }
    }
  }
  void Select(ControlRange range) override { selection = range; }

  bool IsPlain() const { return formats.find_first_not_of('p') == std::string::npos; }
  void Interrupt() {
    if (std::exchange(interrupts, false)) {
      throw Interrupted();
    }
  }

  void Format(std::size_t start, const TextFormats& formatsThere) {
    for (const FormatRun& run : formatsThere.runs) {
      formats.replace(start, run.length, run.length, run.format->empty() ? 'p' : run.format->front().first.front());
      start += run.length;
    }
  }

  // What a person does.
  void Type(std::u16string_view typed) {
    const std::size_t start = selection.start.value;
    text.replace(start, selection.length, typed);
    formats.replace(start, selection.length, typed.size(), start > 0 ? formats[start - 1] : 'p');
    selection = {{start + typed.size()}, 0};
  }
  void Backspace() {
    if (selection.empty() && selection.start.value > 0) {
      selection = {{selection.start.value - 1}, 1};
    }
    Type({});
  }
  void Delete() {
    if (selection.empty() && selection.start.value < text.size()) {
      selection.length = 1;
    }
    Type({});
  }
  // What a command does that puts the whole text in anew.
  void Load(std::u16string_view documentText) {
    text = ToControlText(documentText);
    formats.assign(text.size(), 'p');
    selection = {};
  }
};

}  // namespace scrivanta
