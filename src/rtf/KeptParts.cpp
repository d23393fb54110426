#include "rtf/KeptParts.h"

#include <algorithm>
#include <utility>

#include "rtf/PartReturner.h"
#include "rtf/PartTaker.h"

namespace scrivanta {

namespace {

// Of private use, not among the characters of code page 936, and without those that fonts of symbols take.
constexpr char16_t kSignsBegin = 0xE900;
constexpr char16_t kSymbolsBegin = 0xF000;
constexpr char16_t kSymbolsEnd = 0xF100;
constexpr char16_t kSignsEnd = 0xF8F0;

}  // namespace

std::string KeptParts::TakeOut(std::string_view rtf) {
  return PartTaker(*this, rtf, nullptr).Take();
}

std::string KeptParts::TakeOutDocument(std::string_view rtf) {
  Head head;
  std::string rest = PartTaker(*this, rtf, &head).Take();
  head_ = std::move(head);
  return rest;
}

std::string KeptParts::PutBack(std::string_view rtf, const Head& head) const {
  return parts_.empty() && head.rtf.empty() ? std::string(rtf) : PartReturner(*this, rtf).PutBack(head);
}

void KeptParts::LeaveAlone(std::u16string_view text) {
  for (const char16_t unit : text) {
    if (unit >= kSignsBegin && unit < kSignsEnd && !parts_.contains(unit)) {
      foreign_.insert(unit);
    }
  }
}

bool KeptParts::HasSigns(std::u16string_view text) const {
  return std::ranges::any_of(text, [&](char16_t unit) { return parts_.contains(unit); });
}

std::u16string KeptParts::WithoutSigns(std::u16string_view text) const {
  std::u16string rest(text);
  if (!parts_.empty()) {
    std::erase_if(rest, [&](char16_t unit) { return parts_.contains(unit); });
  }
  return rest;
}

std::size_t KeptParts::AddTables(RtfTables tables) {
  const auto there = std::ranges::find(tables_, tables);
  const auto index = static_cast<std::size_t>(there - tables_.begin());
  if (there == tables_.end()) {
    tables_.push_back(std::move(tables));
  }
  return index;
}

char16_t KeptParts::SignFor(Part part) {
  if (const auto there = signs_.find(part); there != signs_.end()) {
    return there->second;
  }
  while (foreign_.contains(next_) || next_ == kSymbolsBegin) {
    next_ = next_ == kSymbolsBegin ? kSymbolsEnd : static_cast<char16_t>(next_ + 1);
  }
  if (next_ >= kSignsEnd) {
    ranOut_ = true;
    return 0;
  }
  parts_.emplace(next_, part);
  signs_.emplace(std::move(part), next_);
  return next_++;
}

}  // namespace scrivanta
