// Looks names up from the innermost block outwards.
#include "host/language/scope.hpp"

namespace language {

const Variable* Scope::add(const std::string& foldedName, Variable variable) {
  const auto [entry, added] = blocks_.back().emplace(foldedName, std::move(variable));
  if (!added) return nullptr;
  types_.push_back(entry->second.type);
  return &entry->second;
}

const Variable* Scope::declare(const std::string& foldedName, Type type, bool isConstant) {
  return add(foldedName, {storage_, types_.size(), std::move(type), isConstant});
}

const Variable* Scope::declareReference(const std::string& foldedName, Type type) {
  return add(foldedName, {Storage::Reference, types_.size(), std::move(type), false});
}

const Variable* Scope::find(const std::string& foldedName) const {
  for (auto block = blocks_.rbegin(); block != blocks_.rend(); ++block) {
    if (const auto found = block->find(foldedName); found != block->end()) return &found->second;
  }
  return outer_ == nullptr ? nullptr : outer_->find(foldedName);
}

}  // namespace language
