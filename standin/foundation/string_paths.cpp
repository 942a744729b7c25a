// Messages for strings that are paths.
#include <algorithm>
#include <cstdlib>
#include <vector>

#include "standin/foundation/collections.hpp"
#include "standin/foundation/encodings.hpp"
#include "standin/foundation/exception_names.hpp"
#include "standin/foundation/string_classes.hpp"
#include "standin/runtime/exception.hpp"

namespace standin::foundation {
namespace {

using Path = std::u16string;
using PathView = std::u16string_view;

// Where the name's extension dot is, if it has one. A dot at the start begins a hidden name.
size_t extensionDot(PathView name) {
  const size_t dot = name.rfind(u'.');
  return dot == name.npos || dot == 0 || dot + 1 == name.size() ? name.npos : dot;
}

// Calls visit for each name between slashes.
template <class Visit>
void forEachComponent(PathView path, Visit&& visit) {
  for (size_t at = 0; (at = path.find_first_not_of(u'/', at)) != path.npos;) {
    const size_t end = std::min(path.find(u'/', at), path.size());
    visit(path.substr(at, end - at));
    at = end;
  }
}

// One slash for several, none at the end but for the root's.
Path tidied(PathView path) {
  Path result;
  for (const char16_t unit : path) {
    if (unit != u'/' || !result.ends_with(u'/')) result += unit;
  }
  if (result.size() > 1 && result.ends_with(u'/')) result.pop_back();
  return result;
}

PathView lastComponentOf(PathView tidy) {
  const size_t slash = tidy.rfind(u'/');
  return tidy.size() <= 1 || slash == tidy.npos ? tidy : tidy.substr(slash + 1);
}

PathView withoutLastComponent(PathView tidy) {
  const size_t slash = tidy.rfind(u'/');
  if (slash == tidy.npos) return {};
  return tidy.substr(0, slash == 0 ? 1 : slash);
}

Path joined(PathView path, PathView component) {
  if (path.empty()) return tidied(component);
  return tidied(Path(path) + u'/' + Path(component));
}

NSString* answerPath(PathView path) { return answer(text::Text::utf16(path)); }

NSString* lastPathComponent(NSString* self) {
  const Path path = tidied(unitsOf(self));
  return answerPath(lastComponentOf(path));
}
NSString* stringByDeletingLastPathComponent(NSString* self) {
  const Path path = tidied(unitsOf(self));
  return answerPath(withoutLastComponent(path));
}
NSString* stringByAppendingPathComponent(NSString* self, NSString* component) {
  requireArgument(self, "stringByAppendingPathComponent:", component);
  return answerPath(joined(unitsOf(self), unitsOf(component)));
}

NSString* pathExtension(NSString* self) {
  const Path path = tidied(unitsOf(self));
  const PathView name = lastComponentOf(path);
  const size_t dot = extensionDot(name);
  return answerPath(dot == name.npos ? PathView() : name.substr(dot + 1));
}
NSString* stringByDeletingPathExtension(NSString* self) {
  const Path path = tidied(unitsOf(self));
  const PathView name = lastComponentOf(path);
  const size_t dot = extensionDot(name);
  return answerPath(dot == name.npos ? PathView(path) : PathView(path).substr(0, path.size() - (name.size() - dot)));
}
// The string itself, tidied, when it names no file that could take an extension.
NSString* stringByAppendingPathExtension(NSString* self, NSString* extension) {
  requireArgument(self, "stringByAppendingPathExtension:", extension);
  const Path path = tidied(unitsOf(self));
  return answerPath(path.empty() || path == u"/" ? path : path + u'.' + unitsOf(extension));
}

BOOL isAbsolutePath(NSString* self) {
  const text::Text& text = textOf(self);
  return text.size() > 0 && (text[0] == u'/' || text[0] == u'~') ? YES : NO;
}

// "/" first when absolute, then each name; "/" last when the path ends in one.
NSArray* pathComponents(NSString* self) {
  const Path path = unitsOf(self);
  std::vector<NSObject*> components;
  if (path.starts_with(u'/')) components.push_back(constantString("/"));
  forEachComponent(path, [&](PathView name) { components.push_back(answerPath(name)); });
  if (path.size() > 1 && path.ends_with(u'/') && components.size() > 1) components.push_back(constantString("/"));
  return newArray(components).autorelease();
}

// The home folder for "~"; of other users, and when there is none, the path stays as it is.
Path expandedTilde(const Path& path) {
  const char* home = std::getenv("HOME");
  if (home == nullptr || !path.starts_with(u'~') || (path.size() > 1 && path[1] != u'/')) return path;
  const Owned<NSString> text = newString(std::string_view(home));
  return text ? unitsOf(text) + path.substr(1) : path;
}
NSString* stringByExpandingTilde(NSString* self) { return answerPath(expandedTilde(unitsOf(self))); }

// "." goes; ".." takes the name before it along in absolute paths, and stays in relative ones.
Path standardized(const Path& path) {
  const bool isAbsolute = path.starts_with(u'/');
  std::vector<PathView> names;
  forEachComponent(path, [&](PathView name) {
    if (name == u".") return;
    if (name == u".." && isAbsolute) {
      if (!names.empty()) names.pop_back();
    } else {
      names.push_back(name);
    }
  });
  Path result = isAbsolute ? u"/" : u"";
  for (const PathView name : names) result += (result.empty() || result == u"/" ? u"" : u"/") + Path(name);
  return result;
}
NSString* stringByStandardizingPath(NSString* self) { return answerPath(standardized(expandedTilde(unitsOf(self)))); }

// UTF-8, as the file system stores it: the names are not decomposed here.
const char* fileSystemRepresentation(NSString* self) {
  std::optional<std::string> bytes = encode(textOf(self), EncodeOptions{});
  if (!bytes) {
    raise(NSCharacterConversionException,
          describeMethod(self, "fileSystemRepresentation") + ": the string holds half of a surrogate pair");
  }
  return autoreleasedBytes(*std::move(bytes));
}

BOOL getFileSystemRepresentation(NSString* self, char* buffer, NSUInteger capacity) {
  const std::optional<std::string> bytes = encode(textOf(self), EncodeOptions{});
  if (!bytes || bytes->size() >= capacity) return NO;
  bytes->copy(buffer, bytes->size());
  buffer[bytes->size()] = 0;
  return YES;
}

[[maybe_unused]] const Category paths = Category("NSString")
                                            .method<lastPathComponent>("lastPathComponent")
                                            .method<stringByDeletingLastPathComponent>("stringByDeletingLastPathComponent")
                                            .method<stringByAppendingPathComponent>("stringByAppendingPathComponent:")
                                            .method<pathExtension>("pathExtension")
                                            .method<stringByDeletingPathExtension>("stringByDeletingPathExtension")
                                            .method<stringByAppendingPathExtension>("stringByAppendingPathExtension:")
                                            .method<isAbsolutePath>("isAbsolutePath")
                                            .method<pathComponents>("pathComponents")
                                            .method<stringByExpandingTilde>("stringByExpandingTildeInPath")
                                            .method<stringByStandardizingPath>("stringByStandardizingPath")
                                            .method<fileSystemRepresentation>("fileSystemRepresentation")
                                            .method<getFileSystemRepresentation>("getFileSystemRepresentation:maxLength:");

}  // namespace
}  // namespace standin::foundation
