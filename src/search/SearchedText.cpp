#include "search/SearchedText.h"

#include "search/FindPlaces.h"

namespace scrivanta {

SearchedText TextToSearch(const Editor& editor, const FindState& state) {
  SearchedText searched{editor.Text()};
  if (const auto part = state.isInPart ? editor.MarkedPart() : std::nullopt) {
    searched.text = searched.text.substr(part->start.value, part->length);
    searched.begin = part->start.value;
  }
  return searched;
}

std::vector<TextRange> PlacesInDocument(Workbench& workbench, const FindState& state, Progress& progress) {
  const SearchedText searched = TextToSearch(workbench.editor(), state);
  std::vector<TextRange> places = FindPlaces(searched.text, state, workbench.regExpEngine(), progress);
  for (TextRange& place : places) {
    place = searched.InDocument(place);
  }
  return places;
}

}  // namespace scrivanta
