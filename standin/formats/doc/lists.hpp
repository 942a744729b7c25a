// The lists of a document that is read: how their items are marked and indented.
#pragma once

#include <array>
#include <optional>
#include <unordered_map>
#include <vector>

#include "standin/formats/doc/source.hpp"
#include "standin/formats/list_markers.hpp"

namespace standin::formats::doc {

class Lists {
 public:
  explicit Lists(const Source& source);

  // The next marker of the list, by the number of its override from 1. Empty for a number that there is none of.
  std::u16string nextMarker(int list, int level);
  // Modifiers of the paragraphs of a level.
  Bytes modifiersOf(int list, int level) const;

 private:
  struct Levels {
    std::array<ListLevel, listLevels> markings;
    std::array<Bytes, listLevels> modifiers;
  };

  // A use of a list, perhaps with other levels or starting them again. Indices past the end: the list is missing.
  struct Override {
    size_t list, levels;
    std::array<std::optional<int>, listLevels> starts{};
  };

  void readLists(const Source& source);
  void readOverrides(Bytes part);
  Levels& ownLevels(Override& override);
  Bytes readOverriddenLevels(Override& override, size_t count, Bytes rest);
  static void readLevel(Levels& levels, size_t level, Bytes& rest);
  const Override* find(int list) const;

  std::vector<Levels> levels_;                    // of the lists, then those that overrides change
  std::unordered_map<uint32_t, size_t> indices_;  // of lists, by identifier
  std::vector<Override> overrides_;
  std::vector<ListCounters> counters_;  // by list
};

}  // namespace standin::formats::doc
