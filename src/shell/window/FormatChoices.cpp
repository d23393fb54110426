#include "shell/window/FormatChoices.h"

#include <array>
#include <string_view>

namespace scrivanta {

namespace {

using enum DocumentEncoding;

struct EncodingChoice {
  std::u16string_view caption;
  DocumentEncoding encoding;
  bool exceedsCodePage = false;
};

constexpr std::array kReopening = {
    EncodingChoice{u"&1 按 GBK（GB18030）重新打开", kGbk}, EncodingChoice{u"&2 按 UTF-8 重新打开", kUtf8},
    EncodingChoice{u"&3 按 UTF-16 LE 重新打开", kUtf16Le}, EncodingChoice{u"&4 按 UTF-16 BE 重新打开", kUtf16Be}};

constexpr std::array kSaving = {
    EncodingChoice{u"&A 存为 GBK", kGbk},           EncodingChoice{u"&B 存为 GB18030", kGbk, true},
    EncodingChoice{u"&C 存为 UTF-8", kUtf8},        EncodingChoice{u"&D 存为 UTF-8（带标记）", kUtf8WithMark},
    EncodingChoice{u"&E 存为 UTF-16 LE", kUtf16Le}, EncodingChoice{u"&F 存为 UTF-16 BE", kUtf16Be},
};

struct LineEndChoice {
  std::u16string_view caption;
  DocumentLineEnds lineEnds;
};

constexpr std::array kLineEnds = {LineEndChoice{u"&1 CR LF（Windows）", DocumentLineEnds::kCrLf},
                                  LineEndChoice{u"&2 LF（Linux、macOS）", DocumentLineEnds::kLf},
                                  LineEndChoice{u"&3 CR", DocumentLineEnds::kCr}};

bool IsSame(const EncodingChoice& choice, const DocumentFormat& format) {
  return choice.encoding == format.encoding && choice.exceedsCodePage == format.exceedsCodePage;
}

}  // namespace

std::u16string EncodingName(const DocumentFile& document) {
  if (document.IsEncrypted()) {
    return u"加密";
  }
  if (!document.IsPlainText()) {
    return u"RTF";
  }
  switch (document.format().encoding) {
    case kUtf8:
      return u"UTF-8";
    case kUtf8WithMark:
      return u"UTF-8（带标记）";
    case kUtf16Le:
      return u"UTF-16 LE";
    case kUtf16Be:
      return u"UTF-16 BE";
    case kGbk:
      break;
  }
  return document.format().exceedsCodePage ? u"GB18030" : u"GBK";
}

std::u16string LineEndsName(const DocumentFile& document) {
  if (!document.IsPlainText()) {
    return {};
  }
  switch (document.format().lineEnds) {
    case DocumentLineEnds::kLf:
      return u"LF";
    case DocumentLineEnds::kCr:
      return u"CR";
    case DocumentLineEnds::kMixed:
      return u"行尾不一致";
    case DocumentLineEnds::kCrLf:
      break;
  }
  return u"CR LF";
}

std::vector<MenuChoice> EncodingChoices(DocumentFile& document) {
  std::vector<MenuChoice> choices;
  for (const EncodingChoice& choice : kReopening) {
    choices.push_back({.caption = std::u16string(choice.caption),
                       .run = [&document, choice] { document.ReopenAs(choice.encoding); },
                       .isAvailable = document.CanReopen()});
  }
  choices.push_back({.caption = u"-"});
  const bool mayChange = document.IsPlainText() && !document.format().isBinary;
  for (const EncodingChoice& choice : kSaving) {
    choices.push_back({.caption = std::u16string(choice.caption),
                       .run = [&document, choice] { document.SaveAs(choice.encoding, choice.exceedsCodePage); },
                       .isAvailable = mayChange,
                       .isChecked = document.IsPlainText() && IsSame(choice, document.format())});
  }
  return choices;
}

std::vector<MenuChoice> LineEndChoices(DocumentFile& document) {
  std::vector<MenuChoice> choices;
  const bool mayChange = document.IsPlainText() && !document.format().isBinary;
  for (const LineEndChoice& choice : kLineEnds) {
    choices.push_back({.caption = std::u16string(choice.caption),
                       .run = [&document, choice] { document.SetLineEnds(choice.lineEnds); },
                       .isAvailable = mayChange,
                       .isChecked = mayChange && choice.lineEnds == document.format().lineEnds});
  }
  return choices;
}

}  // namespace scrivanta
