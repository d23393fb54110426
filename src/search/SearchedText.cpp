#include "search/SearchedText.h"

#include "search/FindPlaces.h"

namespace scrivanta {

std::optional<TextRange> PartToSearch(const Editor& editor, const FindState& state) {
  return state.isInPart ? editor.MarkedPart() : std::nullopt;
}

SearchedText TextToSearch(const Editor& editor, const FindState& state) {
  SearchedText searched{editor.Text()};
  if (const auto part = PartToSearch(editor, state)) {
    searched.text = searched.text.substr(part->start.value, part->length);
    searched.begin = part->start.value;
  }
  return searched;
}

std::vector<TextRange> PlacesInDocument(std::u16string_view text, Workbench& workbench, const FindState& state,
                                        Progress& progress) {
  const TextRange part = PartToSearch(workbench.editor(), state).value_or(TextRange{{0}, text.size()});
  std::vector<TextRange> places =
      FindPlaces(text.substr(part.start.value, part.length), state, workbench.regExpEngine(), progress);
  for (TextRange& place : places) {
    place.start.value += part.start.value;
  }
  return places;
}

}  // namespace scrivanta
