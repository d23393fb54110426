#include "system/registry/RegistrySearch.h"

#include "system/registry/RegistryData.h"
#include "text/LiteralFinder.h"

namespace scrivanta {

namespace {

class Search {
 public:
  Search(const RegistryKeys& keys, std::u16string_view what, std::size_t most, Progress& progress)
      : keys_(keys), finder_(what, true), most_(most), progress_(progress) {}

  void In(const std::u16string& key) {
    progress_.Report(0, 0);
    std::vector<std::u16string> names;
    try {
      for (RegistryValue& value : keys_.Values(key)) {
        if (Has(value.name) || Has(ShowRegistryData(value))) {
          Take({.key = key, .isKey = false, .value = std::move(value)});
        }
      }
      names = keys_.Subkeys(key);
    } catch (const RegistryError&) {
      ++found_.unreadable;
    }
    for (const std::u16string& name : names) {
      if (found_.isCut) {
        return;
      }
      const std::u16string below = key + u"\\" + name;
      if (Has(name)) {
        Take({.key = below, .isKey = true, .value = {}});
      }
      In(below);
    }
  }

  RegistryPlaces Found() { return std::move(found_); }

 private:
  bool Has(std::u16string_view text) { return finder_.Find(text, 0, quiet_) != LiteralFinder::kNotFound; }

  void Take(RegistryPlace place) {
    found_.isCut = found_.places.size() >= most_;
    if (!found_.isCut) {
      found_.places.push_back(std::move(place));
    }
  }

  const RegistryKeys& keys_;
  const LiteralFinder finder_;
  std::size_t most_;
  Progress& progress_;
  NoProgress quiet_;
  RegistryPlaces found_;
};

}  // namespace

RegistryPlaces SearchRegistry(const RegistryKeys& keys, const std::u16string& key, std::u16string_view what,
                              std::size_t most, Progress& progress) {
  Search search(keys, what, most, progress);
  try {
    search.In(key);
  } catch (const Interrupted&) {
    RegistryPlaces found = search.Found();
    found.isCut = true;
    return found;
  }
  return search.Found();
}

}  // namespace scrivanta
