// Names looked up by prefix and namespace.
#include "standin/formats/xml_scopes.hpp"

#include <algorithm>

namespace standin::formats::xml {

// A prefix cannot be taken back.
bool Scopes::declare(std::string_view prefix, std::string_view uri) {
  constexpr size_t mostBindings = 256;
  if (!prefix.empty() && uri.empty()) return true;
  bindings_.push_back({std::string(prefix), std::string(uri)});
  return bindings_.size() <= mostBindings;
}

void Scopes::close() {
  scope_ = outer_.back().scope;
  bindings_.resize(outer_.back().bindings);
  outer_.pop_back();
}

std::string_view Scopes::uriOf(std::string_view prefix) const {
  if (prefix == "xml") return "http://www.w3.org/XML/1998/namespace";
  const auto found =
      std::find_if(bindings_.rbegin(), bindings_.rend(), [&](const Binding& each) { return each.prefix == prefix; });
  return found != bindings_.rend() ? std::string_view(found->uri) : std::string_view();
}

Scopes::Known Scopes::lookUp(std::string_view qualified, bool hasDefault) const {
  const size_t colon = qualified.find(':');
  const bool hasPrefix = colon != qualified.npos;
  const std::string_view prefix = hasPrefix ? qualified.substr(0, colon) : std::string_view();
  const std::string_view local = hasPrefix ? qualified.substr(colon + 1) : qualified;
  const std::string_view uri = hasPrefix || hasDefault ? uriOf(prefix) : std::string_view();
  const bool isBound = !hasPrefix || !uri.empty();
  return {isBound ? names_.find(uri, local) : unknownName, local};
}

}  // namespace standin::formats::xml
