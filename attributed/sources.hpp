// What attributed strings are made from. A source is built from its host arguments, is false when they are of no use (nil,
// or nil once converted), and otherwise initialises a new platform object.
#pragma once

#include "attributed/properties.hpp"
#include "classes/filling.hpp"
#include "html/messages.hpp"

namespace attributed {

// The host arguments of a source, in the order of its declaration.
template <class... Host>
struct HostArguments {};

template <class Source>
inline constexpr Registration registrationOf = Registration::registered;

// A document: one converted argument; the initialiser leaves document attributes where it is asked to.
template <auto& initialiser, auto convert>
struct Document;
template <auto& initialiser, class Host, class Platform, Platform* (*convert)(Host*)>
struct Document<initialiser, convert> {
  using Arguments = HostArguments<Host*>;
  explicit Document(Host* argument) : contents(convert(argument)) {}
  explicit operator bool() const { return contents != nullptr; }
  NSAttributedString* initialise(NSAttributedString* instance, NSDictionary** documentAttributes) const {
    return initialiser(instance, contents, documentAttributes);
  }
  Platform* contents;
};

using URLFolderItem = Document<NSAttributedString::initWithURL, &urlFromFolderItem>;
using URLString = Document<NSAttributedString::initWithURL, &urlFromString>;
using PathFolderItem = Document<NSAttributedString::initWithPath, &pathFromFolderItem>;
using PathString = Document<NSAttributedString::initWithPath, &pathFromString>;
using RTF = Document<NSAttributedString::initWithRTF, &NewNSData>;
using RTFD = Document<NSAttributedString::initWithRTFD, &NewNSData>;
using HTML = Document<NSAttributedString::initWithHTML, &NewNSData>;
using DocFormat = Document<NSAttributedString::initWithDocFormat, &NewNSData>;

struct HTMLWithBase {
  using Arguments = HostArguments<REALmemoryBlock, REALstring>;
  HTMLWithBase(REALmemoryBlock block, REALstring base) : data(NewNSData(block)), baseURL(urlFromString(base)) {}
  explicit operator bool() const { return data != nullptr && baseURL != nullptr; }
  NSAttributedString* initialise(NSAttributedString* instance, NSDictionary** documentAttributes) const {
    return NSAttributedString::initWithHTMLBase(instance, data, baseURL, documentAttributes);
  }
  NSData* data;
  NSURL* baseURL;
};
template <>
inline constexpr Registration registrationOf<HTMLWithBase> = Registration::unregistered;

// The library's own HTML dialect.
struct HTMLOld {
  using Arguments = HostArguments<REALstring>;
  explicit HTMLOld(REALstring source) : html(autoreleasedString(source)) {}
  explicit operator bool() const { return html != nullptr; }
  NSAttributedString* initialise(NSAttributedString* instance, NSDictionary**) const {
    return html::initWithHTML_ZKT(instance, html);
  }
  NSString* html;
};
template <>
inline constexpr Registration registrationOf<HTMLOld> = Registration::unregistered;

struct Text {
  using Arguments = HostArguments<REALstring>;
  explicit Text(REALstring source) : text(autoreleasedString(source)) {}
  explicit operator bool() const { return text != nullptr; }
  NSAttributedString* initialise(NSAttributedString* instance, NSDictionary**) const {
    return NSAttributedString::initWithString(instance, text);
  }
  NSString* text;
};

// Nil stands for the empty string.
struct TextOrEmpty : Text {
  explicit TextOrEmpty(REALstring source) : Text(source) {
    if (text == nullptr) text = __CFStringMakeConstantString("");
  }
};

// Nil attributes are no attributes. They are converted before the text.
struct TextWithAttributes {
  using Arguments = HostArguments<REALstring, REALdictionary*>;
  TextWithAttributes(REALstring source, REALdictionary* dictionary)
      : attributes(NewNSDictionary(dictionary)), text(autoreleasedString(source)) {}
  explicit operator bool() const { return text != nullptr; }
  NSAttributedString* initialise(NSAttributedString* instance, NSDictionary**) const {
    return NSAttributedString::initWithStringAttributes(instance, text, attributes);
  }
  NSDictionary* attributes;
  NSString* text;
};

struct StyledText {
  using Arguments = HostArguments<REALobject>;
  explicit StyledText(REALobject source) : text(platformObject<NSAttributedString>(source)) {}
  explicit operator bool() const { return text != nullptr; }
  NSAttributedString* initialise(NSAttributedString* instance, NSDictionary**) const {
    return NSAttributedString::initWithAttributedString(instance, text);
  }
  NSAttributedString* text;
};

}  // namespace attributed
