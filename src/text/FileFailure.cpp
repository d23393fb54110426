#include "text/FileFailure.h"

#include <algorithm>

#include "text/Bytes.h"
#include "text/DecimalText.h"
#include "text/ErrorText.h"
#include "text/PlatformFile.h"

namespace scrivanta {

namespace {

constexpr std::size_t kMostFailuresShown = 20;

}  // namespace

FileFailure FailureOf(const std::filesystem::path& path, const std::exception& error) {
  if (const auto* fileError = dynamic_cast<const FileError*>(&error)) {
    return {path, FileErrorReason(fileError->code()), fileError->code().default_error_condition().message()};
  }
  return {path, FailureText(error), error.what()};
}

std::u16string DescribeFailures(std::u16string_view heading, const std::vector<FileFailure>& failures) {
  std::u16string text;
  for (std::size_t i = 0; i < std::min(failures.size(), kMostFailuresShown); ++i) {
    text += i == 0 ? u"\n" + std::u16string(heading) + u"\n" : u"\n";
    text += TextOfPath(failures[i].path) + u"：" + failures[i].reason;
  }
  if (failures.size() > kMostFailuresShown) {
    text += u"\n……共" + DecimalText(failures.size()) + u"个文件";
  }
  return text;
}

}  // namespace scrivanta
