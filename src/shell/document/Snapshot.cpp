#include "shell/document/Snapshot.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <utility>

#include "text/DecimalText.h"
#include "text/Encoding.h"
#include "text/IniText.h"
#include "text/Utf16.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kSection = u"Scrivanta.Snapshot";
constexpr std::u16string_view kYes = u"1";
constexpr std::string_view kTextBody = "\r\n[Text]\r\n";
constexpr std::string_view kRichTextBody = "\r\n[RichText]\r\n";
constexpr std::size_t kUnit = 2;  // bytes
constexpr ByteOrder kByteOrder = ByteOrder::kLittleEndian;

constexpr std::array<std::pair<DocumentEncoding, std::u16string_view>, 5> kEncodings{{
    {DocumentEncoding::kGbk, u"GBK"},
    {DocumentEncoding::kUtf8, u"UTF-8"},
    {DocumentEncoding::kUtf8WithMark, u"UTF-8 with mark"},
    {DocumentEncoding::kUtf16Le, u"UTF-16 LE"},
    {DocumentEncoding::kUtf16Be, u"UTF-16 BE"},
}};

constexpr std::array<std::pair<DocumentLineEnds, std::u16string_view>, 4> kLineEnds{{
    {DocumentLineEnds::kCrLf, u"CR LF"},
    {DocumentLineEnds::kLf, u"LF"},
    {DocumentLineEnds::kCr, u"CR"},
    {DocumentLineEnds::kMixed, u"mixed"},
}};

template <typename Table, typename Value>
std::u16string_view NameOf(const Table& table, Value value) {
  return std::ranges::find(table, value, [](const auto& entry) { return entry.first; })->second;
}

// The first of the table when the name is none of it.
template <typename Table>
auto ValueOf(const Table& table, std::u16string_view name) {
  const auto found = std::ranges::find(table, name, [](const auto& entry) { return entry.second; });
  return found == table.end() ? table.front().first : found->first;
}

// The lines of the header under their keys.
class Header {
 public:
  Header() : text_(u"") {}
  explicit Header(std::u16string text) : text_(std::move(text)) {}

  void Set(std::u16string_view key, std::u16string_view value) { text_.Set(kSection, key, value); }
  template <typename Number>
  void SetNumber(std::u16string_view key, Number value) {
    Set(key, DecimalText(value));
  }
  std::u16string Get(std::u16string_view key) const { return text_.Find(kSection, key).value_or(u""); }
  // 0 when there is none.
  template <typename Number>
  Number GetNumber(std::u16string_view key) const {
    const std::string digits = Encode(Encoding::kUtf8, Get(key));
    Number number = 0;
    std::from_chars(digits.data(), digits.data() + digits.size(), number);
    return number;
  }
  bool Has(std::u16string_view key) const { return text_.Find(kSection, key).has_value(); }

  const std::u16string& text() const noexcept { return text_.text(); }

 private:
  IniText text_;
};

void SetFormat(Header& header, const DocumentFormat& format) {
  header.Set(u"Encoding", NameOf(kEncodings, format.encoding));
  header.Set(u"LineEnds", NameOf(kLineEnds, format.lineEnds));
  for (const auto& [key, value] : {std::pair(u"Binary", format.isBinary),
                                   {u"ExceedsCodePage", format.exceedsCodePage},
                                   {u"EndsInHalfUnit", format.endsInHalfUnit}}) {
    if (value) {
      header.Set(key, kYes);
    }
  }
}

DocumentFormat GetFormat(const Header& header) {
  return {.encoding = ValueOf(kEncodings, header.Get(u"Encoding")),
          .lineEnds = ValueOf(kLineEnds, header.Get(u"LineEnds")),
          .isBinary = header.Has(u"Binary"),
          .exceedsCodePage = header.Has(u"ExceedsCodePage"),
          .endsInHalfUnit = header.Has(u"EndsInHalfUnit")};
}

}  // namespace

std::string SnapshotHeader(const Snapshot& snapshot) {
  Header header;
  header.Set(u"Path", TextOfPath(snapshot.path));
  header.Set(u"Taken", snapshot.taken);
  SetFormat(header, snapshot.format);
  if (snapshot.stamp) {
    header.SetNumber(u"FileSize", snapshot.stamp->size);
    header.SetNumber(u"FileModified", snapshot.stamp->modified);
  }
  header.SetNumber(u"SelectionStart", snapshot.selection.start.value);
  header.SetNumber(u"SelectionLength", snapshot.selection.length);
  return Encode(Encoding::kUtf8, header.text()).append(snapshot.rtf ? kRichTextBody : kTextBody);
}

std::size_t SnapshotBodySize(const Snapshot& snapshot) {
  return snapshot.rtf ? snapshot.rtf->size() : kUnit * snapshot.text.size();
}

std::string SnapshotBody(const Snapshot& snapshot, std::size_t offset, std::size_t count) {
  if (snapshot.rtf) {
    return snapshot.rtf->substr(offset, count);
  }
  const std::u16string_view text = std::u16string_view(snapshot.text).substr(offset / kUnit, count / kUnit);
  std::string bytes;
  EncodeUtf16Append(kByteOrder, text, bytes);
  return bytes;
}

std::optional<Snapshot> ReadSnapshot(std::string_view bytes) {
  const std::size_t textBody = bytes.find(kTextBody);
  const std::size_t richTextBody = bytes.find(kRichTextBody);
  const std::size_t headerEnd = std::min(textBody, richTextBody);
  if (headerEnd == std::string_view::npos) {
    return std::nullopt;
  }
  const Header header(Decode(Encoding::kUtf8, bytes.substr(0, headerEnd)));
  if (!header.Has(u"Path")) {
    return std::nullopt;
  }
  Snapshot snapshot{.path = PathOfText(header.Get(u"Path")),
                    .format = GetFormat(header),
                    .stamp = std::nullopt,
                    .selection = {{header.GetNumber<std::size_t>(u"SelectionStart")},
                                  header.GetNumber<std::size_t>(u"SelectionLength")},
                    .taken = header.Get(u"Taken"),
                    .text = {},
                    .rtf = std::nullopt};
  if (header.Has(u"FileModified")) {
    snapshot.stamp = FileStamp{.size = header.GetNumber<std::uint64_t>(u"FileSize"),
                               .modified = header.GetNumber<std::int64_t>(u"FileModified")};
  }
  if (headerEnd == textBody) {
    const std::string_view body = bytes.substr(headerEnd + kTextBody.size());
    snapshot.text = DecodeUtf16(kByteOrder, body.substr(0, body.size() - body.size() % kUnit));
  } else {
    snapshot.rtf = bytes.substr(headerEnd + kRichTextBody.size());
  }
  return snapshot;
}

}  // namespace scrivanta
