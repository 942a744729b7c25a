// The list of the built-in classes and global methods.
#include "host/runtime/classes/classes.hpp"

#include <vector>

#include "host/runtime/classes/globals.hpp"
#include "host/runtime/variant.hpp"

namespace host {
namespace {

int64_t lengthInBytes(HostString* string) { return static_cast<int64_t>(bytesOf(string).size()); }
int64_t variantType(HostObject* variant) { return typeCodeOf(variant); }

}  // namespace

std::span<const BuiltinClass* const> builtinClasses() {
  static const std::vector<const BuiltinClass*> classes = [] {
    std::vector<const BuiltinClass*> list = {&variantClass, &runtimeExceptionClass};
    for (const BuiltinClass& exception : exceptionClasses) list.push_back(&exception);
    list.insert(list.end(), {&arrayClass, &memoryBlockClass, &dictionaryClass, &dateClass, &folderItemClass});
    return list;
  }();
  return classes;
}

std::span<const BuiltinMethod> builtinGlobalMethods() {
  static const BuiltinMethod methods[] = {
      {"LenB( s as string ) as integer", native(lengthInBytes)},
      {"VarType(value As Variant) As Integer", native(variantType)},
      {"GetFolderItem(path As String, pathMode As Integer = 0) As FolderItem", native(getFolderItem)},
      {"GetTrueFolderItem(path As String, pathMode As Integer) As FolderItem", native(getFolderItem)},
  };
  return methods;
}

}  // namespace host
