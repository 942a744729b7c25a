// The namespaces that hold at a place in a document, and what its names are there.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "standin/formats/xml.hpp"

namespace standin::formats::xml {

class Scopes {
 public:
  explicit Scopes(const NameTable& names) : names_(names) {}

  // With an element that declares namespaces; more than 256 that hold at once are too many, which the answer false says.
  void open() { outer_.push_back({scope_, bindings_.size()}), scope_ = ++lastScope_; }
  bool declare(std::string_view prefix, std::string_view uri);
  void close();

  struct Known {
    NameNumber number;
    std::string_view local;
  };
  // Names with prefixes, each at an address of its own.
  Known element(const char* qualified) { return known(qualified, elements_); }
  NameNumber attribute(const char* qualified) { return known(qualified, attributes_).number; }

 private:
  struct Binding {
    std::string prefix, uri;
  };
  struct Outer {
    size_t scope, bindings;
  };
  // The last name met for each slot, and the scope that it was met in.
  struct Slot {
    const char* qualified = nullptr;
    size_t scope = 0;
    Known known{};
  };
  static constexpr size_t slotBits = 9;
  struct Cache {
    const bool hasDefault;  // names without a prefix are in the default namespace
    std::array<Slot, size_t{1} << slotBits> slots{};
  };

  Known known(const char* qualified, Cache& cache) {
    // The upper bits of the product, for names lie close together.
    constexpr size_t factor = 0x9E3779B97F4A7C15u;
    Slot& slot = cache.slots[reinterpret_cast<size_t>(qualified) * factor >> (64 - slotBits)];
    if (slot.qualified != qualified || slot.scope != scope_) slot = {qualified, scope_, lookUp(qualified, cache.hasDefault)};
    return slot.known;
  }
  Known lookUp(std::string_view qualified, bool hasDefault) const;
  std::string_view uriOf(std::string_view prefix) const;

  const NameTable& names_;
  std::vector<Binding> bindings_;  // the innermost last
  std::vector<Outer> outer_;
  size_t scope_ = 0, lastScope_ = 0;
  Cache elements_{true}, attributes_{false};
};

}  // namespace standin::formats::xml
