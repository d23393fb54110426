#include "database/SourceText.h"

#include <vector>

#include "text/UpperCase.h"

namespace scrivanta {

namespace {

// The parts between semicolons; one in braces is one value, whatever it holds.
std::vector<std::u16string_view> Parts(std::u16string_view connection) {
  std::vector<std::u16string_view> parts;
  std::size_t begin = 0;
  bool inBraces = false;
  for (std::size_t i = 0; i <= connection.size(); ++i) {
    if (i == connection.size() || (connection[i] == u';' && !inBraces)) {
      if (i > begin) {
        parts.push_back(connection.substr(begin, i - begin));
      }
      begin = i + 1;
    } else if (connection[i] == u'{') {
      inBraces = true;
    } else if (connection[i] == u'}') {
      inBraces = false;
    }
  }
  return parts;
}

// The upper-case name before the equals sign, without blanks.
std::u16string KeyOf(std::u16string_view part) {
  std::u16string key;
  for (const char16_t unit : part.substr(0, part.find(u'='))) {
    if (unit != u' ') {
      key += UpperCase(unit);
    }
  }
  return key;
}

bool IsPassword(std::u16string_view part) {
  const std::u16string key = KeyOf(part);
  return key == u"PWD" || key == u"PASSWORD";
}

}  // namespace

bool IsConnectionString(std::u16string_view text) {
  const std::size_t equals = text.find(u'=');
  return equals != std::u16string_view::npos && text.find_first_of(u"\\/:") > equals;
}

bool WantsPassword(std::u16string_view connection) {
  bool hasUser = false;
  for (const std::u16string_view part : Parts(connection)) {
    const std::u16string key = KeyOf(part);
    hasUser = hasUser || key == u"UID" || key == u"USER" || key == u"USERNAME";
    if (IsPassword(part)) {
      return false;
    }
  }
  return hasUser;
}

std::u16string WithPassword(std::u16string_view connection, std::u16string_view password) {
  std::u16string text(connection);
  text += text.ends_with(u';') ? u"PWD={" : u";PWD={";
  for (const char16_t unit : password) {
    text += unit;
    if (unit == u'}') {
      text += unit;
    }
  }
  return text + u"}";
}

std::u16string WithoutPassword(std::u16string_view text) {
  if (!IsConnectionString(text)) {
    return std::u16string(text);
  }
  std::u16string kept;
  for (const std::u16string_view part : Parts(text)) {
    if (!IsPassword(part)) {
      kept += (kept.empty() ? u"" : u";") + std::u16string(part);
    }
  }
  return kept;
}

}  // namespace scrivanta
