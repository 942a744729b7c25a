// Finds a function of the language by its name.
#include "host/language/builtins.hpp"

#include <string>
#include <unordered_map>

#include "host/language/token.hpp"
#include "host/runtime/array.hpp"
#include "host/runtime/folder_item.hpp"

namespace language {
namespace {

using Index = std::unordered_map<std::string, const Builtin*>;

std::string keyOf(unsigned receiver, std::string_view foldedName) {
  return std::to_string(receiver) + " " + std::string(foldedName);
}

Index indexed() {
  Index index;
  for (const auto& table : {stringBuiltins(), searchBuiltins(), numberBuiltins(), arrayBuiltins(), systemBuiltins()}) {
    for (const Builtin& builtin : table) {
      for (unsigned receiver = 1; receiver <= builtin.receivers; receiver *= 2) {
        if ((builtin.receivers & receiver) != 0) index.emplace(keyOf(receiver, foldedName(builtin.name)), &builtin);
      }
    }
  }
  return index;
}

}  // namespace

const Builtin* findBuiltin(Receiver receiver, std::string_view foldedName) {
  static const Index index = indexed();
  const auto found = index.find(keyOf(receiver, foldedName));
  return found == index.end() ? nullptr : found->second;
}

Receiver receiverOf(const Value& value) {
  if (value.isString() || value.isText()) return OfString;
  if (value.isNumber() || value.kind() == Kind::Boolean) return OfNumber;
  if (value.isObject() && host::isArray(value.asObject())) return OfArray;
  if (value.isObject() && host::isFolderItem(value.asObject())) return OfFolderItem;
  return OfNothing;
}

}  // namespace language
