// The simple clean-up commands. They work on bytes: nothing they look for is ever part of another character.
#pragma once

#include <cstdint>

#include "text/LineReader.h"
#include "text/LineWriter.h"

namespace scrivanta {

// Copies every line but the empty ones; a line of blanks is not empty.
void DelEmptyLines(LineReader& in, LineWriter& out);

// Takes the space characters away from both ends of every line; tabs stay. Returns how many lines had any.
std::uint64_t TrimLines(LineReader& in, LineWriter& out);

// Lines counted from 1, both ends included; empty when last is smaller than first.
struct LineRange {
  long long first = 0;
  long long last = 0;
};

// Copies the lines outside the range.
void DelLines(LineReader& in, LineWriter& out, const LineRange& range);

// The largest number of tabs in a line.
std::uint64_t MostTabs(LineReader& in);

// Puts tabs behind every line until it has as many as asked for.
void AddTabs(LineReader& in, LineWriter& out, std::uint64_t tabs);

}  // namespace scrivanta
