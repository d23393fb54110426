#include "regexp/RegExpObject.h"

#include <string>
#include <utility>

#include "regexp/RegExpSyntax.h"

namespace scrivanta {

namespace {

constexpr std::size_t kMatchesPerReport = 256;

class ObjectRegExp final : public RegExp {
 public:
  ObjectRegExp(std::unique_ptr<RegExpObject> object, std::u16string_view pattern, RegExpOptions options,
               std::size_t groupCount)
      : object_(std::move(object)), pattern_(pattern), options_(options), groupCount_(groupCount) {}

  std::size_t groupCount() const noexcept override { return groupCount_; }

 private:
  void ScanAll(std::u16string_view text, std::size_t from, const RegExpVisitor& visit, Progress& progress) override {
    std::size_t count = 0;
    object_->Execute(pattern_, options_, text, [&](const RegExpMatch& match) {
      if (++count % kMatchesPerReport == 0) {
        progress.Report(match.start, text.size());
      }
      return match.start < from || visit(match);
    });
  }

  std::unique_ptr<RegExpObject> object_;
  std::u16string pattern_;
  RegExpOptions options_;
  std::size_t groupCount_;
};

}  // namespace

RegExpObjectMissing::RegExpObjectMissing()
    : ExplainedError("vbscript.dll cannot be registered, or is not there", u"不能注册或无文件：vbscript.dll") {}

std::unique_ptr<RegExpObject> EnsureRegExpObject(RegExpObjectSource& source) {
  std::unique_ptr<RegExpObject> object = source.Create();
  if (!object) {
    source.Register();
    object = source.Create();
  }
  if (!object) {
    throw RegExpObjectMissing();
  }
  return object;
}

std::unique_ptr<RegExp> RegExpObjectEngine::Compile(std::u16string_view pattern, RegExpOptions options) const {
  const std::size_t groupCount = ParseRegExp(pattern).groupCount;
  return std::make_unique<ObjectRegExp>(EnsureRegExpObject(source_), pattern, options, groupCount);
}

}  // namespace scrivanta
