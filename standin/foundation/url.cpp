// NSURL.
#include "standin/foundation/url.hpp"

#include "standin/foundation/checks.hpp"
#include "standin/foundation/files.hpp"
#include "standin/foundation/number.hpp"
#include "standin/foundation/string.hpp"
#include "standin/runtime/class_definition.hpp"
#include "standin/text/ascii.hpp"

namespace standin::foundation {
namespace {

struct Url : Object {
  std::string text;
  Owned<NSURL> base;
};

// What an init message answers: the receiver filled in, or nil and the receiver given up.
NSObject* filled(NSObject* self, NSString* text, NSURL* base) {
  Owned<NSObject> url = adopt(self);
  const std::u16string units = text != nullptr ? unitsOf(text) : std::u16string();
  if (!isLegalUrl(units)) return nullptr;
  Url& state = stateOf<Url>(self);
  state.text.assign(units.begin(), units.end());
  state.base = retain(parseUrl(state.text).scheme ? nullptr : base);
  return url.detach();
}

NSObject* initWithString(NSObject* self, NSString* text) { return filled(self, text, nullptr); }
NSObject* URLWithString(Class self, NSString* text) {
  return adopt(filled(NSObject::alloc(self), text, nullptr)).autorelease();
}
NSObject* URLWithStringRelative(Class self, NSString* text, NSURL* base) {
  return adopt(filled(NSObject::alloc(self), text, base)).autorelease();
}

NSObject* fileURLWithDirectory(Class self, NSString* path, BOOL isDirectory) {
  requireArgument(self, "fileURLWithPath:isDirectory:", path);
  return newFileURL(utf8Of(path), isDirectory != NO).autorelease();
}
NSObject* fileURLWithPath(Class self, NSString* path) {
  requireArgument(self, "fileURLWithPath:", path);
  return newFileURL(utf8Of(path), isFolder(utf8Of(path))).autorelease();
}

NSObject* initFileURLWithPath(NSObject* self, NSString* path) {
  const Owned<NSObject> unused = adopt(self);
  requireArgument(self, "initFileURLWithPath:", path);
  return newFileURL(utf8Of(path), isFolder(utf8Of(path))).detach();
}

NSURL* url(NSObject* self) { return static_cast<NSURL*>(self); }
UrlParts absolute(NSObject* self) { return absoluteParts(url(self)); }

NSObject* text(const std::optional<std::string>& part) {
  return part ? newString(std::string_view(unescaped(*part))).autorelease() : nullptr;
}

Authority authorityOf(NSObject* self) { return parseAuthority(absolute(self).authority.value_or("")); }

NSObject* absoluteString(NSObject* self) { return newString(std::string_view(absolute(self).text())).autorelease(); }
NSObject* relativeString(Url& self) { return newString(std::string_view(self.text)).autorelease(); }
NSObject* absoluteURL(NSObject* self) { return stateOf<Url>(self).base ? newURL(absolute(self)).autorelease() : self; }
NSObject* baseURL(Url& self) { return self.base; }
NSObject* scheme(NSObject* self) { return text(absolute(self).scheme); }
NSObject* user(NSObject* self) { return text(authorityOf(self).user); }
NSObject* password(NSObject* self) { return text(authorityOf(self).password); }
NSObject* query(NSObject* self) {
  const UrlParts parts = absolute(self);
  return parts.query ? newString(std::string_view(*parts.query)).autorelease() : nullptr;
}
NSObject* fragment(NSObject* self) {
  const UrlParts parts = absolute(self);
  return parts.fragment ? newString(std::string_view(*parts.fragment)).autorelease() : nullptr;
}
NSObject* path(NSObject* self) { return newPath(absolute(self)).autorelease(); }
NSObject* lastPathComponent(NSObject* self) { return newLastComponent(url(self)).autorelease(); }

NSObject* host(NSObject* self) {
  const Authority authority = authorityOf(self);
  return authority.host.empty() ? nullptr : text(authority.host);
}
NSObject* port(NSObject* self) {
  const std::optional<std::string> digits = authorityOf(self).port;
  return digits && !digits->empty() ? newNumber(std::atoi(digits->c_str())).autorelease() : nullptr;
}

NSObject* pathExtension(NSObject* self) {
  const Owned<NSString> last = newLastComponent(url(self));
  const std::string name = last ? utf8Of(last) : std::string();
  const size_t dot = name.rfind('.');
  return newString(std::string_view(name).substr(dot == std::string::npos || dot == 0 ? name.size() : dot + 1))
      .autorelease();
}

bool isFile(const UrlParts& parts) { return parts.scheme && text::equalIgnoringCase(*parts.scheme, "file"); }
BOOL isFileURL(NSObject* self) { return isFile(absolute(self)); }

NSObject* byAppending(NSObject* self, NSString* component) {
  const std::string name = component != nullptr ? utf8Of(component) : std::string();
  const std::optional<std::string> folder = filePath(url(self));
  return newURLAppending(url(self), component, folder && isFolder(*folder + "/" + name)).autorelease();
}
NSObject* byAppendingDirectory(NSObject* self, NSString* component, BOOL isDirectory) {
  return newURLAppending(url(self), component, isDirectory != NO).autorelease();
}
NSObject* byDeletingLast(NSObject* self) { return newURLDeletingLast(url(self)).autorelease(); }

extern const ClassDefinition urlClass;

BOOL isEqual(Url& self, NSObject* other) {
  if (!isKindOf(other, urlClass.object()) || self.text != stateOf<Url>(other).text) return NO;
  NSURL* const otherBase = stateOf<Url>(other).base;
  return self.base == otherBase || NSObject::isEqual(self.base, otherBase);
}
NSUInteger hash(Url& self) { return std::hash<std::string>()(self.text); }
NSObject* description(NSObject* self) {
  const Url& state = stateOf<Url>(self);
  if (!state.base) return relativeString(stateOf<Url>(self));
  return newString(state.text + " -- " + describe(state.base)).autorelease();
}
NSObject* copy(NSObject* self, void*) { return retainObject(self); }

const ClassDefinition urlClass = defineClass<Url>("NSURL", "NSObject")
                                     .classMethod<URLWithString>("URLWithString:")
                                     .classMethod<URLWithStringRelative>("URLWithString:relativeToURL:")
                                     .classMethod<fileURLWithPath>("fileURLWithPath:")
                                     .classMethod<fileURLWithDirectory>("fileURLWithPath:isDirectory:")
                                     .method<initWithString>("initWithString:")
                                     .method<filled>("initWithString:relativeToURL:")
                                     .method<initFileURLWithPath>("initFileURLWithPath:")
                                     .method<absoluteString>("absoluteString")
                                     .method<relativeString>("relativeString")
                                     .method<absoluteURL>("absoluteURL")
                                     .method<baseURL>("baseURL")
                                     .method<scheme>("scheme")
                                     .method<user>("user")
                                     .method<password>("password")
                                     .method<host>("host")
                                     .method<port>("port")
                                     .method<path>("path")
                                     .method<query>("query")
                                     .method<fragment>("fragment")
                                     .method<lastPathComponent>("lastPathComponent")
                                     .method<pathExtension>("pathExtension")
                                     .method<isFileURL>("isFileURL")
                                     .method<byAppending>("URLByAppendingPathComponent:")
                                     .method<byAppendingDirectory>("URLByAppendingPathComponent:isDirectory:")
                                     .method<byDeletingLast>("URLByDeletingLastPathComponent")
                                     .method<isEqual>("isEqual:")
                                     .method<hash>("hash")
                                     .method<description>("description")
                                     .method<copy>("copyWithZone:");

std::string_view withoutLastSlash(std::string_view path) {
  return path.size() > 1 && path.ends_with('/') ? path.substr(0, path.size() - 1) : path;
}

}  // namespace

Owned<NSURL> newURL(NSString* text, NSURL* base) {
  return adopt(static_cast<NSURL*>(filled(create<Url>(urlClass).detach(), text, base)));
}

Owned<NSURL> newURL(const UrlParts& parts, NSURL* base) {
  Owned<NSURL> made = create<Url, NSURL>(urlClass);
  stateOf<Url>(made).text = parts.text();
  stateOf<Url>(made).base = retain(base);
  return made;
}

Owned<NSURL> newFileURL(const std::string& path, bool isDirectory) {
  UrlParts parts;
  parts.path = escapedPath(path.empty() ? "." : path);
  if ((isDirectory || path.empty()) && !parts.path.ends_with('/')) parts.path += '/';
  if (parts.path.front() == '/') {
    parts.scheme = "file";
    parts.authority = "";
    return newURL(parts);
  }
  // A colon in the first segment of a relative path would make it a scheme.
  if (parts.path.find(':') < parts.path.find('/')) parts.path.insert(0, "./");
  return newURL(parts, newFileURL(currentFolder(), true));
}

UrlParts relativeParts(NSURL* url) { return parseUrl(stateOf<Url>(url).text); }

UrlParts absoluteParts(NSURL* url) {
  NSURL* const base = baseOf(url);
  return base != nullptr ? resolveUrl(absoluteParts(base), relativeParts(url)) : relativeParts(url);
}

NSURL* baseOf(NSURL* url) { return stateOf<Url>(url).base; }

std::optional<std::string> filePath(NSURL* url) {
  if (url == nullptr) return {};
  const UrlParts parts = absoluteParts(url);
  const std::string host = parts.authority.value_or("");
  if (!isFile(parts) || !parts.path.starts_with('/') || (!host.empty() && host != "localhost")) return {};
  const std::string path = unescaped(withoutLastSlash(parts.path));
  if (path.find('\0') != std::string::npos) return {};
  return path;
}

Owned<NSURL> newURLAppending(NSURL* url, NSString* component, bool isDirectory) {
  UrlParts parts = relativeParts(url);
  if (parts.isOpaque() || component == nullptr) return nullptr;
  if (!parts.path.ends_with('/') && (!parts.path.empty() || parts.authority)) parts.path += '/';
  parts.path += escapedPath(utf8Of(component));
  if (isDirectory && !parts.path.ends_with('/')) parts.path += '/';
  return newURL(parts, baseOf(url));
}

Owned<NSURL> newURLDeletingLast(NSURL* url) {
  UrlParts parts = relativeParts(url);
  if (parts.isOpaque()) return nullptr;
  const std::string_view path = withoutLastSlash(parts.path);
  const size_t slash = path.rfind('/');
  const std::string_view last = path.substr(slash + 1);
  if (path.empty() || path == "/" || last == "." || last == "..") {
    const bool needsSlash = parts.path.empty() ? parts.authority.has_value() : !parts.path.ends_with('/');
    parts.path += needsSlash ? "/../" : "../";
  } else {
    parts.path = slash == std::string_view::npos ? "./" : parts.path.substr(0, slash + 1);
  }
  return newURL(parts, baseOf(url));
}

Owned<NSString> newLastComponent(NSURL* url) {
  const UrlParts parts = absoluteParts(url);
  if (parts.isOpaque()) return nullptr;
  const std::string_view path = withoutLastSlash(parts.path);
  return newString(std::string_view(unescaped(path == "/" ? path : path.substr(path.rfind('/') + 1))));
}

Owned<NSString> newPath(const UrlParts& parts) {
  if (parts.isOpaque()) return nullptr;
  return newString(std::string_view(unescaped(withoutLastSlash(parts.path))));
}

}  // namespace standin::foundation
