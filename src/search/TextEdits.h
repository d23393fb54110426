// Changes of a text as places in it and what takes them: each can be made or left alone without the others.
#pragma once

#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "regexp/RegExpReplacer.h"
#include "rtf/RtfText.h"
#include "text/LiteralFinder.h"
#include "text/Progress.h"

namespace scrivanta {

// Ascending, none overlapping another.
using TextEdit = RtfText::Replacement;
using TextEdits = std::vector<TextEdit>;

// What puts a text in the place of another, wherever that stands. Throws Interrupted.
TextEdits EditsOf(std::u16string_view text, const LiteralFinder& find, std::u16string_view replacement,
                  Progress& progress);

enum class MatchesTaken { kAll, kFirst };
// The same with the matches of a pattern; empty ones are among them. Throws RegExpTooComplex, Interrupted, and
// ExplainedError when the text would become too long.
TextEdits EditsOf(std::u16string_view text, const RegExpReplacer& replacer, MatchesTaken taken, Progress& progress);

std::u16string WithEdits(std::u16string_view text, std::span<const TextEdit> edits);

// The edits of a text that do what the first do, and then what the second do to the text between. Where the second
// touch what the first have made, both become one.
TextEdits Compose(const TextEdits& first, std::u16string_view between, const TextEdits& second);

// Leaves out those that put in their place what is there.
void DropIdleEdits(std::u16string_view text, TextEdits& edits);

}  // namespace scrivanta
