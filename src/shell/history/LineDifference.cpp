#include "shell/history/LineDifference.h"

#include <algorithm>
#include <cstddef>
#include <limits>
#include <numeric>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace scrivanta {
namespace {

// An edit of fewer units is left as it is.
constexpr std::size_t kFewUnits = 200;
constexpr std::size_t kNever = std::numeric_limits<std::size_t>::max();

// The lines of one side, each with its line break, as numbers: equal lines have equal ones.
class Lines {
 public:
  using Numbers = std::unordered_map<std::u16string_view, std::size_t>;

  Lines(std::u16string_view text, Numbers& numbers) {
    while (!text.empty()) {
      const std::u16string_view line = text.substr(0, std::min(text.find(u'\r'), text.size() - 1) + 1);
      lines_.push_back(line);
      numbers_.push_back(numbers.try_emplace(line, numbers.size()).first->second);
      text.remove_prefix(line.size());
    }
  }

  // To be called when the lines of both sides have their numbers.
  void Index(std::size_t count) {
    first_.assign(count, kNever);
    next_.resize(numbers_.size());
    for (std::size_t i = numbers_.size(); i-- > 0;) {
      next_[i] = std::exchange(first_[numbers_[i]], i);
    }
  }

  std::size_t size() const noexcept { return lines_.size(); }
  std::size_t number(std::size_t line) const { return numbers_[line]; }
  std::u16string_view Text(std::size_t begin, std::size_t end) const {
    if (begin == end) {
      return {};
    }
    return {lines_[begin].data(),
            static_cast<std::size_t>(lines_[end - 1].data() - lines_[begin].data()) + lines_[end - 1].size()};
  }
  // The first line with this number, not before the given one, which never decreases from call to call.
  std::size_t Find(std::size_t number, std::size_t from) {
    std::size_t& first = first_[number];
    while (first < from) {
      first = next_[first];
    }
    return first;
  }

 private:
  std::vector<std::u16string_view> lines_;
  std::vector<std::size_t> numbers_;
  std::vector<std::size_t> first_;  // the first line with a number from where the search has come to
  std::vector<std::size_t> next_;   // the next line with the same number
};

// Walks both sides; where they differ it goes on at the nearest line that occurs on the other side.
class Splitter {
 public:
  Splitter(const ControlEdit& edit, Lines& removed, Lines& inserted)
      : removed_(removed), inserted_(inserted), position_(edit.start.value) {}

  std::vector<ControlEdit> Run() {
    while (i_ < removed_.size() && j_ < inserted_.size()) {
      if (removed_.number(i_) == inserted_.number(j_)) {
        Flush();
        position_ += removed_.Text(i_, i_ + 1).size();
        beginI_ = ++i_;
        beginJ_ = ++j_;
      } else {
        PassOver();
      }
    }
    i_ = removed_.size();
    j_ = inserted_.size();
    Flush();
    return std::move(edits_);
  }

 private:
  void PassOver() {
    const std::size_t inInserted = inserted_.Find(removed_.number(i_), j_);
    const std::size_t inRemoved = removed_.Find(inserted_.number(j_), i_);
    if (inInserted == kNever && inRemoved == kNever) {
      ++i_;
      ++j_;
    } else if (inRemoved == kNever || (inInserted != kNever && inInserted - j_ < inRemoved - i_)) {
      j_ = inInserted;
    } else {
      i_ = inRemoved;
    }
  }

  void Flush() {
    if (i_ == beginI_ && j_ == beginJ_) {
      return;
    }
    ControlEdit edit{
        {position_}, std::u16string(removed_.Text(beginI_, i_)), std::u16string(inserted_.Text(beginJ_, j_))};
    position_ += edit.inserted.size();
    edits_.push_back(Trimmed(std::move(edit)));
  }

  Lines& removed_;
  Lines& inserted_;
  std::size_t i_ = 0;
  std::size_t j_ = 0;
  std::size_t beginI_ = 0;  // of what differs
  std::size_t beginJ_ = 0;
  std::size_t position_;  // of what differs, in the text that the edits so far leave
  std::vector<ControlEdit> edits_;
};

}  // namespace

std::vector<ControlEdit> SplitByLines(ControlEdit edit) {
  if (!edit.removed.empty() && !edit.inserted.empty() && edit.removed.size() + edit.inserted.size() >= kFewUnits) {
    Lines::Numbers numbers;
    Lines removed(edit.removed, numbers);
    Lines inserted(edit.inserted, numbers);
    removed.Index(numbers.size());
    inserted.Index(numbers.size());
    std::vector<ControlEdit> edits = Splitter(edit, removed, inserted).Run();
    const std::size_t cost = std::accumulate(edits.begin(), edits.end(), std::size_t{0},
                                             [](std::size_t sum, const ControlEdit& one) { return sum + CostOf(one); });
    if (cost < CostOf(edit)) {
      edits.shrink_to_fit();
      return edits;
    }
  }
  std::vector<ControlEdit> whole;
  whole.push_back(std::move(edit));
  return whole;
}

}  // namespace scrivanta
