// Directories and their children: unique names, and who is whose parent.
#include <algorithm>

#include "standin/appkit/file_wrapper.hpp"

namespace standin::appkit {
namespace {

// What the platform puts between a clash's number and the name.
constexpr std::string_view clashMark = "__#$!@%!#__";

// The name, no longer than so many bytes: what goes is the end of its stem, whole characters.
std::string shortened(std::string_view name, size_t longest) {
  if (name.size() <= longest) return std::string(name);
  const size_t dot = std::min(name.rfind('.'), name.size());
  const std::string_view extension = name.size() - dot < longest ? name.substr(dot) : std::string_view();
  size_t stem = longest - extension.size();
  while (stem > 0 && (static_cast<uint8_t>(name[stem]) & 0xC0) == 0x80) --stem;
  return std::string(name.substr(0, stem)).append(extension);
}

std::string uniqueKey(const FileWrapper& directory, const std::string& name) {
  std::string key = name;
  for (unsigned long number = 1; directory.children.count(key) != 0; ++number) {
    (key = std::to_string(number)).append(clashMark);
    key += shortened(name, longestFileName - key.size());
  }
  return key;
}

void forgetParent(NSFileWrapper* child, FileWrapper& parent) {
  std::vector<FileWrapper*>& parents = wrapperState(child).parents;
  const auto found = std::find(parents.begin(), parents.end(), &parent);
  if (found != parents.end()) parents.erase(found);
}

// Children of a directory that is going. A chain of directories goes one after the other, not one inside the other, so that
// its depth does not matter.
void letGo(std::map<std::string, Owned<NSFileWrapper>>&& children) {
  static std::vector<Owned<NSFileWrapper>> waiting;
  static bool isBusy = false;
  for (auto& [key, child] : children) waiting.insert(waiting.end(), std::move(child));
  if (isBusy) return;
  isBusy = true;
  while (!waiting.empty()) {
    const Owned<NSFileWrapper> last = std::move(waiting.back());
    waiting.pop_back();
  }
  isBusy = false;
}

}  // namespace

FileWrapper::~FileWrapper() {
  for (const auto& [key, child] : children) forgetParent(child, *this);
  letGo(std::move(children));
}

void putChild(FileWrapper& directory, const std::string& key, Owned<NSFileWrapper> child) {
  wrapperState(child.get()).parents.push_back(&directory);
  directory.children.emplace(key, std::move(child));
}

std::string addChild(FileWrapper& directory, NSFileWrapper* child, const std::string& preferredName) {
  std::string key = uniqueKey(directory, preferredName);
  putChild(directory, key, retain(child));
  return key;
}

void removeChild(FileWrapper& directory, const std::string& key) {
  const auto found = directory.children.find(key);
  if (found == directory.children.end()) return;
  const Owned<NSFileWrapper> child = std::move(found->second);
  directory.children.erase(found);
  forgetParent(child, directory);
}

NSFileWrapper* childNamed(FileWrapper& directory, const std::string& key) {
  if (directory.kind != FileKind::directory || !listChildren(directory)) return nullptr;
  const auto found = directory.children.find(key);
  return found != directory.children.end() ? found->second.get() : nullptr;
}

std::string_view withoutClashMark(std::string_view name) {
  const size_t digits = name.find_first_not_of("0123456789");
  if (digits == 0 || digits == name.npos || !name.substr(digits).starts_with(clashMark)) return name;
  const std::string_view rest = name.substr(digits + clashMark.size());
  return rest.empty() ? name : rest;
}

}  // namespace standin::appkit
