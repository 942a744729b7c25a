// The elements and attributes of HTML that reading tells apart, and how elements nest.
#pragma once

#include <cstdint>
#include <string_view>

namespace standin::formats::html {

enum ElementTrait : uint16_t {
  isVoid = 1 << 0,  // has no content and no end tag
  isRaw = 1 << 1,   // its content is characters up to its end tag, without references
  isRawWithReferences = 1 << 2,
  isHeadContent = 1 << 3,  // stands in the head when the body has not begun
  isSpecial = 1 << 4,      // end tags of elements around it do not reach past it
  endsParagraph = 1 << 5,  // ends the paragraph element that is open
  isFormatting = 1 << 6,   // goes on where blocks end before it does
  isScope = 1 << 7,        // nothing outside is ended from inside
  endsByItself = 1 << 8,   // may lack its end tag
  isHeading = 1 << 9,
};

// A row an element: the name (with "_" where C++ has the word), its traits.
#define STANDIN_HTML_ELEMENTS(X)                  \
  X(a, isFormatting)                              \
  X(abbr, 0)                                      \
  X(acronym, 0)                                   \
  X(address, isSpecial | endsParagraph)           \
  X(applet, isSpecial | isScope)                  \
  X(area, isVoid)                                 \
  X(article, isSpecial | endsParagraph)           \
  X(aside, isSpecial | endsParagraph)             \
  X(b, isFormatting)                              \
  X(base, isVoid | isHeadContent)                 \
  X(basefont, isVoid | isHeadContent)             \
  X(bdo, 0)                                       \
  X(bgsound, isVoid | isHeadContent)              \
  X(big, isFormatting)                            \
  X(blockquote, isSpecial | endsParagraph)        \
  X(body, isSpecial)                              \
  X(br, isVoid)                                   \
  X(button, isSpecial)                            \
  X(caption, isSpecial | isScope)                 \
  X(center, isSpecial | endsParagraph)            \
  X(cite, 0)                                      \
  X(code, isFormatting)                           \
  X(col, isVoid)                                  \
  X(colgroup, isSpecial)                          \
  X(dd, isSpecial | endsParagraph | endsByItself) \
  X(del, 0)                                       \
  X(details, isSpecial | endsParagraph)           \
  X(dfn, 0)                                       \
  X(dialog, isSpecial | endsParagraph)            \
  X(dir, isSpecial | endsParagraph)               \
  X(div, isSpecial | endsParagraph)               \
  X(dl, isSpecial | endsParagraph)                \
  X(dt, isSpecial | endsParagraph | endsByItself) \
  X(em, isFormatting)                             \
  X(embed, isVoid)                                \
  X(fieldset, isSpecial | endsParagraph)          \
  X(figcaption, isSpecial | endsParagraph)        \
  X(figure, isSpecial | endsParagraph)            \
  X(font, isFormatting)                           \
  X(footer, isSpecial | endsParagraph)            \
  X(form, isSpecial | endsParagraph)              \
  X(frame, isVoid)                                \
  X(frameset, isSpecial)                          \
  X(h1, isSpecial | endsParagraph | isHeading)    \
  X(h2, isSpecial | endsParagraph | isHeading)    \
  X(h3, isSpecial | endsParagraph | isHeading)    \
  X(h4, isSpecial | endsParagraph | isHeading)    \
  X(h5, isSpecial | endsParagraph | isHeading)    \
  X(h6, isSpecial | endsParagraph | isHeading)    \
  X(head, isSpecial)                              \
  X(header, isSpecial | endsParagraph)            \
  X(hgroup, isSpecial | endsParagraph)            \
  X(hr, isVoid | endsParagraph)                   \
  X(html, isSpecial | isScope)                    \
  X(i, isFormatting)                              \
  X(iframe, isRaw)                                \
  X(img, isVoid)                                  \
  X(input, isVoid)                                \
  X(ins, 0)                                       \
  X(kbd, 0)                                       \
  X(li, isSpecial | endsParagraph | endsByItself) \
  X(link, isVoid | isHeadContent)                 \
  X(listing, isSpecial | endsParagraph)           \
  X(main, isSpecial | endsParagraph)              \
  X(mark, 0)                                      \
  X(marquee, isSpecial | isScope)                 \
  X(menu, isSpecial | endsParagraph)              \
  X(meta, isVoid | isHeadContent)                 \
  X(nav, isSpecial | endsParagraph)               \
  X(nobr, isFormatting)                           \
  X(noembed, isRaw)                               \
  X(noscript, 0)                                  \
  X(object, isSpecial | isScope)                  \
  X(ol, isSpecial | endsParagraph)                \
  X(optgroup, endsByItself)                       \
  X(option, endsByItself)                         \
  X(p, isSpecial | endsParagraph | endsByItself)  \
  X(param, isVoid)                                \
  X(plaintext, isSpecial | endsParagraph)         \
  X(pre, isSpecial | endsParagraph)               \
  X(q, 0)                                         \
  X(rp, endsByItself)                             \
  X(rt, endsByItself)                             \
  X(ruby, 0)                                      \
  X(s, isFormatting)                              \
  X(samp, 0)                                      \
  X(script, isRaw | isHeadContent)                \
  X(section, isSpecial | endsParagraph)           \
  X(select, isSpecial)                            \
  X(small, isFormatting)                          \
  X(source, isVoid)                               \
  X(span, 0)                                      \
  X(strike, isFormatting)                         \
  X(strong, isFormatting)                         \
  X(style, isRaw | isHeadContent)                 \
  X(sub, 0)                                       \
  X(summary, isSpecial | endsParagraph)           \
  X(sup, 0)                                       \
  X(svg, isScope)                                 \
  X(table, isSpecial | isScope | endsParagraph)   \
  X(tbody, isSpecial)                             \
  X(td, isSpecial | isScope)                      \
  X(template_, isSpecial | isScope)               \
  X(textarea, isRawWithReferences)                \
  X(tfoot, isSpecial)                             \
  X(th, isSpecial | isScope)                      \
  X(thead, isSpecial)                             \
  X(title, isRawWithReferences | isHeadContent)   \
  X(tr, isSpecial)                                \
  X(track, isVoid)                                \
  X(tt, isFormatting)                             \
  X(u, isFormatting)                              \
  X(ul, isSpecial | endsParagraph)                \
  X(var, 0)                                       \
  X(video, 0)                                     \
  X(wbr, isVoid)                                  \
  X(xmp, isRaw | isSpecial | endsParagraph)

enum class Tag : uint8_t {
  unknown,
#define STANDIN_HTML_ROW(name, traits) name,
  STANDIN_HTML_ELEMENTS(STANDIN_HTML_ROW)
#undef STANDIN_HTML_ROW
      count
};

// By a name in small letters.
Tag tagNamed(std::string_view name);

// clang-format off
inline constexpr uint16_t elementTraits[] = {
    0,
#define STANDIN_HTML_ROW(name, traits) traits,
    STANDIN_HTML_ELEMENTS(STANDIN_HTML_ROW)
#undef STANDIN_HTML_ROW
};
// clang-format on
constexpr bool hasTrait(Tag tag, int traits) { return (elementTraits[static_cast<size_t>(tag)] & traits) != 0; }

// The heading's level, 1 to 6; 0 of others.
constexpr int headingLevel(Tag tag) {
  return tag >= Tag::h1 && tag <= Tag::h6 ? static_cast<int>(tag) - static_cast<int>(Tag::h1) + 1 : 0;
}

// In the order of their names.
// clang-format off
#define STANDIN_HTML_ATTRIBUTES(X) \
  X(align) X(bgcolor) X(class_) X(color) X(content) X(dir) X(face) X(height) X(href) X(id) X(media) X(name) X(rel) \
  X(reversed) X(size) X(src) X(start) X(style) X(text) X(type) X(value) X(width)
// clang-format on

enum class AttributeName : uint8_t {
  unknown,
#define STANDIN_HTML_ROW(name) name,
  STANDIN_HTML_ATTRIBUTES(STANDIN_HTML_ROW)
#undef STANDIN_HTML_ROW
};

// By a name in small letters.
AttributeName attributeNamed(std::string_view name);

}  // namespace standin::formats::html
