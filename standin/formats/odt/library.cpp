// Styles found by name.
#include "standin/formats/odt/library.hpp"

namespace standin::formats::odt {

const StyleProperties& Library::style(Family family, std::string_view name) const {
  for (const bool isAutomatic : {true, false}) {
    const Key key{family, isAutomatic, std::string(name)};
    if (!name.empty() && known_.contains(key)) return styles_.resolve(key);
  }
  const Key standard{family, false, "Standard"};
  return styles_.resolve(family == Family::paragraph && known_.contains(standard) ? standard : Key{family, false, {}});
}

const ListStyle* Library::listStyle(std::string_view name) const {
  for (const bool isAutomatic : {true, false}) {
    const auto found = listStyles_.find(std::pair(isAutomatic, std::string(name)));
    if (found != listStyles_.end()) return &found->second;
  }
  return nullptr;
}

std::string_view Library::citationStyle(std::string_view noteClass) const {
  const auto found = citationStyles_.find(noteClass);
  return found != citationStyles_.end() ? std::string_view(found->second) : std::string_view();
}

void Library::describe(DocumentInformation& information, std::string_view firstMasterPage) const {
  information.defaultTabInterval = defaultTabInterval_;
  for (const std::string_view master : {firstMasterPage, std::string_view("Standard"), std::string_view(firstMasterPage_)}) {
    const auto layout = layouts_.find(master);
    if (layout == layouts_.end()) continue;
    const auto page = pages_.find(layout->second);
    if (page == pages_.end()) continue;
    information.page = page->second.setup;
    information.background = page->second.background;
    return;
  }
}

}  // namespace standin::formats::odt
