#include "regexp/PcreRegExp.h"

#include <algorithm>
#include <array>
#include <chrono>
#include <cstdint>
#include <exception>
#include <limits>
#include <new>
#include <optional>

#include <pcre2.h>

#include "regexp/RegExpErrors.h"

namespace scrivanta {

namespace {

using SteadyClock = std::chrono::steady_clock;

// Steps of the engine from one place of the text, watched: they take some tenths of a second.
constexpr std::uint32_t kManySteps = 10'000'000;
// The fast program cannot be stopped within the steps from one place, and a step may run over the whole text: so few
// that it does not last.
constexpr std::uint64_t kUnwatchedWork = 2'000'000'000;
constexpr std::uint32_t kFewestSteps = 4'000;
constexpr std::uint32_t kMostUnwatchedSteps = 100'000;

// The engine keeps its own stack, which grows as it is needed. A match that spans megabytes, with a group around every
// character of it, takes some hundred bytes a character.
constexpr std::size_t kSmallestStack = 64 * 1024;
constexpr std::size_t kUnwatchedStack = 1024 * 1024;
constexpr std::size_t kWatchedStack = 512 * 1024 * 1024;
constexpr std::uint32_t kHeapLimitKiB = kWatchedStack / 1024;
// A group of the dialect becomes a few of the engine's.
constexpr std::uint32_t kDeepestNesting = 1000;

// Callbacks between two reports of progress.
constexpr std::uint32_t kCallbacksPerReport = 1024;
constexpr std::size_t kCharactersPerReport = 64 * 1024;

// A search for the next match that has taken so long, and has come forward so slowly, has run away.
constexpr auto kLongSearch = std::chrono::seconds(20);
constexpr std::size_t kSlowCharactersPerSecond = 100'000;
// The time that may pass between two reports; what is longer was not spent searching (the machine slept).
constexpr auto kLongestGap = std::chrono::milliseconds(500);

struct CompileContextFreer {
  void operator()(pcre2_compile_context* context) const noexcept { pcre2_compile_context_free(context); }
};
struct CodeFreer {
  void operator()(pcre2_code* code) const noexcept { pcre2_code_free(code); }
};
struct MatchContextFreer {
  void operator()(pcre2_match_context* context) const noexcept { pcre2_match_context_free(context); }
};
struct MatchDataFreer {
  void operator()(pcre2_match_data* data) const noexcept { pcre2_match_data_free(data); }
};
struct JitStackFreer {
  void operator()(pcre2_jit_stack* stack) const noexcept { pcre2_jit_stack_free(stack); }
};

template <typename T>
T* NotNull(T* pointer) {
  if (pointer == nullptr) {
    throw std::bad_alloc();
  }
  return pointer;
}

PCRE2_SPTR Units(std::u16string_view text) {
  return reinterpret_cast<PCRE2_SPTR>(text.data());
}

std::uint32_t StepsWhileUnwatched(std::size_t textLength) {
  const std::uint64_t steps = kUnwatchedWork / (textLength + 1);
  return static_cast<std::uint32_t>(std::clamp<std::uint64_t>(steps, kFewestSteps, kMostUnwatchedSteps));
}

// A lazy repetition takes a step a character, so a long text must be allowed more of them.
std::uint32_t StepsWhileWatched(std::size_t textLength) {
  const std::uint64_t steps = kManySteps + 8 * static_cast<std::uint64_t>(textLength);
  return static_cast<std::uint32_t>(std::min<std::uint64_t>(steps, std::numeric_limits<std::uint32_t>::max()));
}

}  // namespace

class PcreRegExp::Program {
 public:
  Program(const PcrePattern& pattern, std::uint32_t options, std::size_t largestStack)
      : context_(NotNull(pcre2_match_context_create(nullptr))),
        jitStack_(pcre2_jit_stack_create(kSmallestStack, largestStack, nullptr)) {
    Compile(pattern, options);
    data_.reset(NotNull(pcre2_match_data_create_from_pattern(code_.get(), nullptr)));
    pcre2_set_heap_limit(context_.get(), kHeapLimitKiB);
    pcre2_jit_stack_assign(context_.get(), nullptr, jitStack_.get());
  }

  // The engine's answer: above 0 for a match, or one of its error numbers.
  int Match(std::u16string_view text, std::size_t from, std::uint32_t stepLimit,
            int (*callback)(pcre2_callout_block*, void*), void* callbackData) {
    pcre2_set_match_limit(context_.get(), stepLimit);
    pcre2_set_callout(context_.get(), callback, callbackData);
    return pcre2_match(code_.get(), Units(text), text.size(), from, 0, data_.get(), context_.get());
  }

  // Begin and end of every group of the engine, from group 0, the whole match.
  const std::size_t* offsets() const { return pcre2_get_ovector_pointer(data_.get()); }

 private:
  void Compile(const PcrePattern& pattern, std::uint32_t options) {
    const std::unique_ptr<pcre2_compile_context, CompileContextFreer> context(
        NotNull(pcre2_compile_context_create(nullptr)));
    pcre2_set_newline(context.get(), PCRE2_NEWLINE_LF);
    pcre2_set_parens_nest_limit(context.get(), kDeepestNesting);
    int error = 0;
    std::size_t offset = 0;
    code_.reset(pcre2_compile(
        Units(pattern.text), pattern.text.size(),
        options | PCRE2_DOLLAR_ENDONLY | PCRE2_MATCH_UNSET_BACKREF | PCRE2_NEVER_UTF | PCRE2_NEVER_BACKSLASH_C, &error,
        &offset, context.get()));
    if (!code_) {
      // The translation uses nothing that the engine does not know; what is left is size.
      const auto& sources = pattern.sources;
      throw RegExpSyntaxError(RegExpFault::kTooLarge, offset < sources.size() ? sources[offset] : sources.back());
    }
    // Where the system forbids programs made at run time the engine interprets the pattern instead.
    pcre2_jit_compile(code_.get(), PCRE2_JIT_COMPLETE);
  }

  std::unique_ptr<pcre2_match_context, MatchContextFreer> context_;
  std::unique_ptr<pcre2_jit_stack, JitStackFreer> jitStack_;
  std::unique_ptr<pcre2_code, CodeFreer> code_;
  std::unique_ptr<pcre2_match_data, MatchDataFreer> data_;
};

// One scan over one text.
class PcreRegExp::Search {
 public:
  Search(PcreRegExp& owner, std::u16string_view text, Progress& progress)
      : owner_(owner), text_(text), progress_(progress), lastClock_(SteadyClock::now()) {
    match_.groups.resize(owner.groupCount());
  }

  void Run(std::size_t from, const RegExpVisitor& visit) {
    std::size_t reported = from;
    while (from <= text_.size() && FindNext(from)) {
      if (!visit(match_)) {
        return;
      }
      from = match_.value.empty() ? match_.start + 1 : match_.end();
      if (from - reported > kCharactersPerReport) {
        reported = from;
        Report(from);
      }
    }
  }

 private:
  bool FindNext(std::size_t from) {
    searchBegan_ = from;
    spent_ = {};
    for (;;) {
      triedLast_ = from;
      int result = Match(*owner_.fast_, from, StepsWhileUnwatched(text_.size()));
      if (result == PCRE2_ERROR_MATCHLIMIT || IsOutOfMemory(result)) {
        result = TryOnePlace(triedLast_);
        if (result == PCRE2_ERROR_NOMATCH && triedLast_ < text_.size()) {
          from = triedLast_ + 1;
          continue;
        }
      }
      if (result == PCRE2_ERROR_NOMATCH) {
        return false;
      }
      if (result < 0) {
        throw RegExpTooComplex(triedLast_);
      }
      return true;
    }
  }

  // Tries again from one place of the text, as long as it takes.
  int TryOnePlace(std::size_t place) {
    if (!owner_.watched_) {
      owner_.watched_ = owner_.MakeProgram(true);
    }
    return Match(*owner_.watched_, place, StepsWhileWatched(text_.size()));
  }

  static bool IsOutOfMemory(int result) {
    return result == PCRE2_ERROR_JIT_STACKLIMIT || result == PCRE2_ERROR_HEAPLIMIT || result == PCRE2_ERROR_NOMEMORY;
  }

  int Match(Program& program, std::size_t from, std::uint32_t steps) {
    const int result = program.Match(
        text_, from, steps,
        [](pcre2_callout_block* block, void* self) { return static_cast<Search*>(self)->OnCallout(*block); }, this);
    if (failure_) {
      std::rethrow_exception(failure_);
    }
    if (result > 0) {
      TakeMatch(program.offsets());
    }
    return result;
  }

  void TakeMatch(const std::size_t* offsets) {
    match_.start = offsets[0];
    match_.value = text_.substr(offsets[0], offsets[1] - offsets[0]);
    for (std::size_t i = 0; i < match_.groups.size(); ++i) {
      const PcreGroup& group = owner_.pattern_.groups[i];
      const std::size_t begin = offsets[2 * group.number];
      if (begin == PCRE2_UNSET || IsStale(group, offsets)) {
        match_.groups[i].reset();
      } else {
        match_.groups[i] = text_.substr(begin, offsets[2 * group.number + 1] - begin);
      }
    }
  }

  static bool IsStale(const PcreGroup& group, const std::size_t* offsets) {
    return std::any_of(group.markers.begin(), group.markers.end(), [&](unsigned marker) {
      const std::size_t round = offsets[2 * marker];
      return round != PCRE2_UNSET && offsets[2 * group.number] < round;
    });
  }

  // 0 to go on, 1 to refuse the way that the engine has taken, below 0 to give up. No exception may pass the engine.
  int OnCallout(const pcre2_callout_block& block) {
    if (block.callout_string != nullptr) {
      return Passes(owner_.pattern_.checks[CheckNumber(block)], block) ? 0 : 1;
    }
    triedLast_ = block.start_match;
    if (++callbacks_ % kCallbacksPerReport == 0) {
      try {
        Report(block.start_match);
      } catch (...) {
        failure_ = std::current_exception();
        return PCRE2_ERROR_CALLOUT;
      }
    }
    return 0;
  }

  static std::size_t CheckNumber(const pcre2_callout_block& block) {
    std::size_t number = 0;
    for (std::size_t i = 0; i < block.callout_string_length; ++i) {
      number = number * 10 + (block.callout_string[i] - u'0');
    }
    return number;
  }

  bool Passes(const PcreCheck& check, const pcre2_callout_block& block) const {
    const std::size_t* offsets = block.offset_vector;
    const auto beginOf = [&](unsigned group) { return group < block.capture_top ? offsets[2 * group] : PCRE2_UNSET; };
    if (check.kind == PcreCheck::Kind::kRoundNotEmpty) {
      const std::size_t round = beginOf(check.roundMarker);
      return block.current_position != round || (check.loopMarker != 0 && beginOf(check.loopMarker) == round);
    }
    const PcreGroup& group = owner_.pattern_.groups[check.group - 1];
    const std::size_t begin = beginOf(group.number);
    const bool stale =
        begin != PCRE2_UNSET && std::any_of(group.markers.begin(), group.markers.end(), [&](unsigned marker) {
          const std::size_t round = beginOf(marker);
          return round != PCRE2_UNSET && begin < round;
        });
    return stale == (check.kind == PcreCheck::Kind::kStale);
  }

  void Report(std::size_t place) {
    progress_.Report(place, text_.size());
    const auto now = SteadyClock::now();
    spent_ += std::min<SteadyClock::duration>(now - lastClock_, kLongestGap);
    lastClock_ = now;
    if (spent_ > kLongSearch) {
      const auto seconds = static_cast<std::size_t>(std::chrono::duration_cast<std::chrono::seconds>(spent_).count());
      if (place < searchBegan_ + seconds * kSlowCharactersPerSecond) {
        throw RegExpTooComplex(place);
      }
    }
  }

  PcreRegExp& owner_;
  std::u16string_view text_;
  Progress& progress_;
  RegExpMatch match_;
  std::size_t searchBegan_ = 0;
  std::size_t triedLast_ = 0;  // the place from which the engine has tried last
  std::uint32_t callbacks_ = 0;
  std::exception_ptr failure_;
  SteadyClock::time_point lastClock_;
  SteadyClock::duration spent_{};  // on the search for the next match
};

PcreRegExp::PcreRegExp(std::u16string_view pattern, RegExpOptions options)
    : pattern_(TranslateToPcre(ParseRegExp(pattern), options)), options_(options), fast_(MakeProgram(false)) {}

PcreRegExp::~PcreRegExp() = default;

std::unique_ptr<PcreRegExp::Program> PcreRegExp::MakeProgram(bool watched) const {
  std::uint32_t options = 0;
  if (options_.ignoreCase) {
    options |= PCRE2_CASELESS;
  }
  if (pattern_.needsUnicodeCase) {
    options |= PCRE2_UCP;
  }
  if (watched) {
    options |= PCRE2_ANCHORED | PCRE2_AUTO_CALLOUT;
  }
  return std::make_unique<Program>(pattern_, options, watched ? kWatchedStack : kUnwatchedStack);
}

void PcreRegExp::ScanAll(std::u16string_view text, std::size_t from, const RegExpVisitor& visit, Progress& progress) {
  Search(*this, text, progress).Run(from, visit);
}

std::unique_ptr<RegExp> PcreEngine::Compile(std::u16string_view pattern, RegExpOptions options) const {
  return std::make_unique<PcreRegExp>(pattern, options);
}

const RegExpEngine& BuiltInRegExpEngine() {
  static const PcreEngine engine;
  return engine;
}

}  // namespace scrivanta
