// How attributed strings come to be: the init methods, which fill a host object, and the shared factories, which make one.
#pragma once

#include <functional>

#include "attributed/sources.hpp"

namespace attributed {

// Makes a new platform string, or nil. The argument is where the initialiser leaves document attributes; nil: not asked for.
using Maker = std::function<Owned<NSAttributedString>(NSDictionary** documentAttributes)>;

// An init method. Empties the object before anything else, so that a failure leaves it empty; false when nothing was made.
// An NSMutableAttributedStringZKT gets a mutable copy. `documentAttributes` is nil, or a host variable whose old dictionary
// is dropped and which gets the new one, also when nothing was made.
bool fill(REALobject self, Registration registration, REALdictionary** documentAttributes, const Maker& maker);

// A shared factory: a new host object, never registered, or nil.
REALobject make(REALdictionary** documentAttributes, const Maker& maker);

// The members of one source: init method and factory, each with and without document attributes returned by reference.
template <class Source, class = typename Source::Arguments>
struct Creation;
template <class Source, class... Host>
struct Creation<Source, HostArguments<Host...>> {
  static bool init(REALobject self, Host... arguments) {
    return fill(self, registrationOf<Source>, nullptr, makerOf(arguments...));
  }
  static bool initAsking(REALobject self, Host... arguments, REALdictionary** documentAttributes) {
    return fill(self, registrationOf<Source>, documentAttributes, makerOf(arguments...));
  }
  static REALobject factory(Host... arguments) { return make(nullptr, makerOf(arguments...)); }
  static REALobject factoryAsking(Host... arguments, REALdictionary** documentAttributes) {
    return make(documentAttributes, makerOf(arguments...));
  }

 private:
  static Maker makerOf(Host... arguments) {
    return [arguments...](NSDictionary** documentAttributes) -> Owned<NSAttributedString> {
      const Source source(arguments...);
      if (!source) return nullptr;
      return adopt(source.initialise(alloc<NSAttributedString>(), documentAttributes));
    };
  }
};

inline constexpr auto initWithString1 = &Creation<TextOrEmpty>::init;
inline constexpr auto initWithString2 = &Creation<TextWithAttributes>::init;
inline constexpr auto initWithAttributedString = &Creation<StyledText>::init;
inline constexpr auto initWithURLfolderitem = &Creation<URLFolderItem>::init;
inline constexpr auto initWithURLstring = &Creation<URLString>::init;
inline constexpr auto initWithPathfolderitem = &Creation<PathFolderItem>::init;
inline constexpr auto initWithPathstring = &Creation<PathString>::init;
inline constexpr auto initWithRTF = &Creation<RTF>::init;
inline constexpr auto initWithRTFD = &Creation<RTFD>::init;
inline constexpr auto initWithHTML = &Creation<HTML>::init;
inline constexpr auto initWithHTML2 = &Creation<HTMLWithBase>::init;
inline constexpr auto initWithHTMLOld = &Creation<HTMLOld>::init;
inline constexpr auto initWithDocFormat = &Creation<DocFormat>::init;

inline constexpr auto initWithURLfolderitemd = &Creation<URLFolderItem>::initAsking;
inline constexpr auto initWithURLstringd = &Creation<URLString>::initAsking;
inline constexpr auto initWithPathfolderitemd = &Creation<PathFolderItem>::initAsking;
inline constexpr auto initWithPathstringd = &Creation<PathString>::initAsking;
inline constexpr auto initWithRTFd = &Creation<RTF>::initAsking;
inline constexpr auto initWithRTFDd = &Creation<RTFD>::initAsking;
inline constexpr auto initWithHTMLd = &Creation<HTML>::initAsking;
inline constexpr auto initWithHTML2d = &Creation<HTMLWithBase>::initAsking;
inline constexpr auto initWithDocFormatd = &Creation<DocFormat>::initAsking;

inline constexpr auto attributedStringWithString1 = &Creation<Text>::factory;
inline constexpr auto attributedStringWithString2 = &Creation<TextWithAttributes>::factory;
inline constexpr auto attributedStringWithAttributedString = &Creation<StyledText>::factory;
inline constexpr auto attributedStringWithURLfolderitem = &Creation<URLFolderItem>::factory;
inline constexpr auto attributedStringWithURLstring = &Creation<URLString>::factory;
inline constexpr auto attributedStringWithPathfolderitem = &Creation<PathFolderItem>::factory;
inline constexpr auto attributedStringWithPathstring = &Creation<PathString>::factory;
inline constexpr auto attributedStringWithRTF = &Creation<RTF>::factory;
inline constexpr auto attributedStringWithRTFD = &Creation<RTFD>::factory;
inline constexpr auto attributedStringWithHTML = &Creation<HTML>::factory;
inline constexpr auto attributedStringWithHTML2 = &Creation<HTMLWithBase>::factory;
inline constexpr auto attributedStringWithHTMLOld = &Creation<HTMLOld>::factory;
inline constexpr auto attributedStringWithDocFormat = &Creation<DocFormat>::factory;

inline constexpr auto attributedStringWithURLfolderitemd = &Creation<URLFolderItem>::factoryAsking;
inline constexpr auto attributedStringWithURLstringd = &Creation<URLString>::factoryAsking;
inline constexpr auto attributedStringWithPathfolderitemd = &Creation<PathFolderItem>::factoryAsking;
inline constexpr auto attributedStringWithPathstringd = &Creation<PathString>::factoryAsking;
inline constexpr auto attributedStringWithRTFd = &Creation<RTF>::factoryAsking;
inline constexpr auto attributedStringWithRTFDd = &Creation<RTFD>::factoryAsking;
inline constexpr auto attributedStringWithHTMLd = &Creation<HTML>::factoryAsking;
inline constexpr auto attributedStringWithHTML2d = &Creation<HTMLWithBase>::factoryAsking;
inline constexpr auto attributedStringWithDocFormatd = &Creation<DocFormat>::factoryAsking;

}  // namespace attributed
