// Options of the console program whose value is one of a few words.
#pragma once

#include <map>
#include <string>
#include <type_traits>

#include <CLI/CLI.hpp>

namespace scrivanta {

// Letter case does not count. The meanings are numbers, enumerators or truth values.
template <typename T>
void AddChoice(CLI::App& parser, const std::string& name, T& value,
               const std::map<std::string, std::type_identity_t<T>>& choices, const std::string& description) {
  std::string words;
  for (const auto& [word, meaning] : choices) {
    words += (words.empty() ? "" : "|") + word;
  }
  const auto translate = [choices, words](std::string& text) -> std::string {
    const auto found = choices.find(CLI::detail::to_lower(text));
    if (found == choices.end()) {
      return "\"" + text + "\" is not one of " + words;
    }
    text = std::to_string(static_cast<long long>(found->second));
    return {};
  };
  parser.add_option(name, value, description)->transform(CLI::Validator(translate, ""))->type_name(words);
}

}  // namespace scrivanta
