#include "system/registry/RegistryFile.h"

#include <algorithm>
#include <charconv>
#include <cstdint>
#include <optional>
#include <utility>

#include "system/registry/RegistryData.h"
#include "text/DecimalText.h"
#include "text/DocumentFormat.h"
#include "text/Encoding.h"
#include "text/ExplainedError.h"

namespace scrivanta {

namespace {

constexpr std::u16string_view kVersion5 = u"Windows Registry Editor Version 5.00";
constexpr std::u16string_view kVersion4 = u"REGEDIT4";
constexpr std::u16string_view kLineEnd = u"\r\n";
constexpr int kHexadecimal = 16;

std::u16string Quoted(std::u16string_view text) {
  std::u16string quoted = u"\"";
  for (const char16_t c : text) {
    if (c == u'"' || c == u'\\') {
      quoted += u'\\';
    }
    quoted += c;
  }
  return quoted + u'"';
}

std::u16string HexadecimalByte(char byte) {
  constexpr std::u16string_view kDigits = u"0123456789abcdef";
  constexpr unsigned kBits = 4;
  const auto value = static_cast<unsigned char>(byte);
  return {kDigits[value >> kBits], kDigits[value & 0xFU]};
}

// A quoted text can hold only what comes back as it was: characters, one NUL behind them, no line break.
bool IsPlainText(const RegistryValue& value) {
  return value.type == RegistryType::kText &&
         TextValue(value.name, TextOfRegistryData(value.bytes)).bytes == value.bytes &&
         TextOfRegistryData(value.bytes).find_first_of(u"\r\n") == std::u16string::npos;
}

std::u16string Hexadecimal(std::uint32_t number) {
  std::u16string text;
  for (; number > 0; number /= kHexadecimal) {
    text.insert(text.begin(), u"0123456789abcdef"[number % kHexadecimal]);
  }
  return text.empty() ? u"0" : text;
}

// Lines as long as the system's own editor makes them.
std::u16string BytesText(std::u16string_view before, const RegistryValue& value) {
  constexpr std::size_t kLongestLine = 78;
  std::u16string text(before);
  text += value.type == RegistryType::kBinary ? u"hex:"
                                              : u"hex(" + Hexadecimal(static_cast<std::uint32_t>(value.type)) + u"):";
  std::size_t lineLength = text.size();
  for (std::size_t i = 0; i < value.bytes.size(); ++i) {
    const bool isLast = i + 1 == value.bytes.size();
    text += HexadecimalByte(value.bytes[i]) + (isLast ? u"" : u",");
    lineLength += 3;
    if (!isLast && lineLength >= kLongestLine - 1) {
      text += u"\\\r\n  ";
      lineLength = 2;
    }
  }
  return text;
}

std::u16string ValueText(const RegistryValue& value) {
  const std::u16string name = (value.name.empty() ? u"@" : Quoted(value.name)) + u"=";
  if (IsPlainText(value)) {
    return name + Quoted(TextOfRegistryData(value.bytes));
  }
  if (value.type == RegistryType::kDword && value.bytes.size() == sizeof(std::uint32_t)) {
    std::u16string digits;
    for (const char byte : value.bytes) {
      digits.insert(0, HexadecimalByte(byte));
    }
    return name + u"dword:" + digits;
  }
  return BytesText(name, value);
}

class Parser {
 public:
  explicit Parser(std::string_view bytes) : text_(DecodeDocument(bytes).text) {}

  std::vector<RegistryChange> Parse() {
    std::optional<std::u16string> line = NextLine();
    const std::u16string_view head = line ? std::u16string_view(*line) : std::u16string_view();
    if (head != kVersion5 && head != kVersion4) {
      throw ExplainedError("no registry file", u"这不是注册表文件：第一行应当是“" + std::u16string(kVersion5) + u"”。");
    }
    isVersion4_ = head == kVersion4;
    for (line = NextLine(); line; line = NextLine()) {
      if (line->front() == u'[') {
        ParseKey(*line);
      } else if (line->front() == u'@' || line->front() == u'"') {
        ParseValue(*line);
      } else {
        Fail(u"既不是键，也不是值");
      }
    }
    return std::move(changes_);
  }

 private:
  [[noreturn]] void Fail(std::u16string_view what) const {
    const std::string number = std::to_string(line_);
    throw ExplainedError("line " + number + " of the registry file cannot be read",
                         u"注册表文件第" + DecimalText(line_) + u"行看不懂：" + std::u16string(what) + u"。");
  }

  // The next that is no comment and not empty, with those that continue it, without blanks around.
  std::optional<std::u16string> NextLine() {
    std::u16string joined;
    while (!rest().empty()) {
      const std::size_t end = std::min(rest().find(kLineEnd), rest().size());
      std::u16string_view line = rest().substr(0, end);
      at_ += std::min(end + kLineEnd.size(), rest().size());
      if (joined.empty()) {
        line_ = next_;
      }
      ++next_;
      line = Trimmed(line);
      const bool isHexadecimal = (joined + std::u16string(line)).find(u"=hex") != std::u16string::npos;
      if (isHexadecimal && line.ends_with(u'\\')) {
        joined += line.substr(0, line.size() - 1);
        continue;
      }
      joined += line;
      // A quoted text may hold line breaks.
      if (IsOpenText(joined)) {
        joined += kLineEnd;
        continue;
      }
      if (!joined.empty() && joined.front() != u';') {
        return joined;
      }
      joined.clear();
    }
    if (!joined.empty() && joined.front() != u';') {
      return joined;
    }
    return std::nullopt;
  }

  static std::u16string_view Trimmed(std::u16string_view line) {
    const std::size_t first = line.find_first_not_of(u" \t");
    return first == line.npos ? line.substr(0, 0) : line.substr(first, line.find_last_not_of(u" \t") + 1 - first);
  }

  // Whether a text in quotation marks is not closed yet.
  static bool IsOpenText(std::u16string_view line) {
    if (line.empty() || (line.front() != u'"' && line.front() != u'@')) {
      return false;
    }
    bool isOpen = false;
    for (std::size_t i = 0; i < line.size(); ++i) {
      if (isOpen && line[i] == u'\\') {
        ++i;
      } else if (line[i] == u'"') {
        isOpen = !isOpen;
      }
    }
    return isOpen;
  }

  void ParseKey(std::u16string_view line) {
    if (!line.ends_with(u']')) {
      Fail(u"键的名字没有用“]”结束");
    }
    line = line.substr(1, line.size() - 2);
    const bool deletes = line.starts_with(u'-');
    const std::optional<std::u16string> key = RegistryKeyOf(line.substr(deletes ? 1 : 0));
    if (!key) {
      Fail(u"键要以 HKEY_CURRENT_USER 之类开头");
    }
    if (deletes && IsRegistryRoot(*key)) {
      Fail(u"不能删除根键");
    }
    key_ = deletes ? std::u16string() : *key;
    changes_.push_back({.action = deletes ? RegistryAction::kDeleteKey : RegistryAction::kCreateKey, .key = *key});
  }

  void ParseValue(std::u16string_view line) {
    if (key_.empty()) {
      Fail(u"它不在一个键里");
    }
    RegistryChange change{.action = RegistryAction::kSetValue, .key = key_};
    if (line.front() == u'@') {
      line.remove_prefix(1);
    } else {
      change.value.name = TakeQuoted(line);
    }
    line = Trimmed(line);
    if (!line.starts_with(u'=')) {
      Fail(u"名字后面没有“=”");
    }
    line = Trimmed(line.substr(1));
    if (line == u"-") {
      change.action = RegistryAction::kDeleteValue;
    } else {
      ParseData(line, change.value);
    }
    changes_.push_back(std::move(change));
  }

  // Takes a text in quotation marks off the line.
  std::u16string TakeQuoted(std::u16string_view& line) const {
    std::u16string text;
    for (std::size_t i = 1; i < line.size(); ++i) {
      if (line[i] == u'"') {
        line.remove_prefix(i + 1);
        return text;
      }
      if (line[i] == u'\\' && i + 1 < line.size()) {
        ++i;
      }
      text += line[i];
    }
    Fail(u"引号没有结束");
  }

  void ParseData(std::u16string_view line, RegistryValue& value) const {
    constexpr std::u16string_view kDword = u"dword:";
    constexpr std::u16string_view kHex = u"hex";
    if (line.starts_with(u'"')) {
      value = TextValue(value.name, TakeQuoted(line));
      line = Trimmed(line);
      if (!line.empty() && line.front() != u';') {
        Fail(u"文字后面还有别的");
      }
    } else if (line.starts_with(kDword)) {
      value.type = RegistryType::kDword;
      value.bytes = DataOf(RegistryType::kDword, u"0x" + std::u16string(WithoutRemark(line.substr(kDword.size()))));
    } else if (line.starts_with(kHex)) {
      line.remove_prefix(kHex.size());
      value.type = TakeType(line);
      value.bytes = DataOf(RegistryType::kBinary, WithoutRemark(line));
      if (isVersion4_) {
        FromVersion4(value);
      }
    } else {
      Fail(u"值要写成文字、dword: 或 hex:");
    }
  }

  static std::u16string_view WithoutRemark(std::u16string_view line) { return line.substr(0, line.find(u';')); }

  std::string DataOf(RegistryType type, std::u16string_view text) const {
    try {
      return ParseRegistryData(type, text);
    } catch (const ExplainedError& error) {
      Fail(std::u16string_view(error.chinese()).substr(0, error.chinese().find(u'。')));
    }
  }

  // "(7):" or ":"
  RegistryType TakeType(std::u16string_view& line) const {
    const std::size_t colon = line.find(u':');
    if (colon == line.npos) {
      Fail(u"hex后面没有冒号");
    }
    const std::u16string_view type = line.substr(0, colon);
    line.remove_prefix(colon + 1);
    if (type.empty()) {
      return RegistryType::kBinary;
    }
    const std::string digits(type.begin(), type.end());
    std::uint32_t number = 0;
    if (digits.size() < 3 || digits.front() != '(' || digits.back() != ')' ||
        std::from_chars(digits.data() + 1, digits.data() + digits.size() - 1, number, kHexadecimal).ptr !=
            digits.data() + digits.size() - 1) {
      Fail(u"值的种类应当写成hex(7)这样");
    }
    return static_cast<RegistryType>(number);
  }

  // There the texts are bytes of the code page.
  static void FromVersion4(RegistryValue& value) {
    if (value.type == RegistryType::kExpandText || value.type == RegistryType::kMultiText) {
      std::string bytes;
      for (const char16_t unit : Decode(Encoding::kGbk, value.bytes)) {
        constexpr unsigned kByte = 0xFF;
        constexpr unsigned kBits = 8;
        bytes += static_cast<char>(unit & kByte);
        bytes += static_cast<char>(unit >> kBits);
      }
      value.bytes = std::move(bytes);
    }
  }

  std::u16string_view rest() const { return std::u16string_view(text_).substr(at_); }

  std::u16string text_;
  std::size_t at_ = 0;
  std::size_t next_ = 1;
  std::size_t line_ = 0;
  bool isVersion4_ = false;
  std::u16string key_;
  std::vector<RegistryChange> changes_;
};

}  // namespace

std::string RegistryFileOf(const std::vector<RegistryChange>& changes) {
  std::u16string text(kVersion5);
  text += kLineEnd;
  std::u16string current;
  for (const RegistryChange& change : changes) {
    if (change.action == RegistryAction::kDeleteKey) {
      text += u"\r\n[-" + change.key + u"]\r\n";
      current.clear();
      continue;
    }
    if (change.action == RegistryAction::kCreateKey || change.key != current) {
      text += u"\r\n[" + change.key + u"]\r\n";
      current = change.key;
    }
    if (change.action == RegistryAction::kSetValue) {
      text += ValueText(change.value) + std::u16string(kLineEnd);
    } else if (change.action == RegistryAction::kDeleteValue) {
      text += (change.value.name.empty() ? u"@" : Quoted(change.value.name)) + u"=-\r\n";
    }
  }
  return EncodeDocument(text, {.encoding = DocumentEncoding::kUtf16Le});
}

std::vector<RegistryChange> ReadRegistryFile(std::string_view bytes) {
  return Parser(bytes).Parse();
}

}  // namespace scrivanta
