#pragma once

#include <map>
#include <string>
#include <type_traits>

#include <CLI/CLI.hpp>

namespace scrivanta {

// An option whose value is one of a few words.
template <typename T>
void AddChoice(CLI::App& parser, const std::string& name, T& value,
               const std::map<std::string, std::type_identity_t<T>>& choices, const std::string& description) {
  std::string words;
  for (const auto& [word, meaning] : choices) {
    words += (words.empty() ? "" : "|") + word;
  }
  parser.add_option(name, value, description)
      ->transform(CLI::CheckedTransformer(choices).description(""))
      ->type_name(words);
}

}  // namespace scrivanta
