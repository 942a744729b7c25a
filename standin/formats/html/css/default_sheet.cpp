// The look of elements by themselves.
#include "standin/formats/html/css/style_sheet.hpp"

namespace standin::formats::html::css {
namespace {

// Lists step in by 36 points, the text model's step from marker to marker. Monospaced text is a size smaller, as it looks
// larger than other text of its size.
constexpr std::string_view defaultText = R"css(
address, article, aside, blockquote, body, center, dd, details, dialog, dir, div, dl, dt, fieldset, figcaption, figure,
footer, form, frameset, h1, h2, h3, h4, h5, h6, header, hgroup, hr, html, legend, listing, main, menu, nav, noframes, ol,
optgroup, option, p, plaintext, pre, search, section, summary, table, tbody, tfoot, thead, tr, caption, ul, xmp
{ display: block }
td, th { display: table-cell }
li { display: list-item }
area, audio, base, basefont, canvas, col, colgroup, datalist, embed, frame, head, iframe, input, link, meta, noembed, param,
progress, meter, rp, script, select, source, style, svg, template, textarea, title, track, video { display: none }
dialog:not([open]), [hidden] { display: none }
h1 { font-size: 2em; margin: 0.67em 0 }
h2 { font-size: 1.5em; margin: 0.83em 0 }
h3 { font-size: 1.17em; margin: 1em 0 }
h4 { margin: 1.33em 0 }
h5 { font-size: 0.83em; margin: 1.67em 0 }
h6 { font-size: 0.67em; margin: 2.33em 0 }
h1, h2, h3, h4, h5, h6, b, strong, th { font-weight: bold }
th, caption, center { text-align: center }
p, dl, ul, ol, menu, dir, pre, listing, xmp, plaintext { margin: 1em 0 }
blockquote, figure { margin: 1em 40px }
hr { margin: 0.5em 0 }
dd { margin-left: 40px }
ul, ol, menu, dir { padding-left: 36px }
ol { list-style-type: decimal }
li ul, li ol, ul > ul, ul > ol, ol > ul, ol > ol { margin: 0 }
li ul, ul > ul, ol > ul { list-style-type: circle }
li li ul, ul > ul > ul { list-style-type: square }
i, em, cite, dfn, var, address { font-style: italic }
u, ins { text-decoration: underline }
s, strike, del { text-decoration: line-through }
a:link { color: #0000ee; text-decoration: underline }
big { font-size: larger }
small, sub, sup, rt { font-size: smaller }
sub { vertical-align: sub }
sup { vertical-align: super }
mark { background-color: yellow; color: black }
pre, code, tt, kbd, samp, listing, xmp, plaintext { font-family: monospace; font-size: 0.833333em }
pre > code, pre > tt, pre > kbd, pre > samp, code > code, tt > code, code > tt, kbd > kbd, samp > kbd { font-size: 1em }
pre, listing, xmp, plaintext { white-space: pre }
nobr { white-space: nowrap }
table { text-indent: 0 }
bdo[dir="rtl"] { direction: rtl }
)css";

StyleSheet makeDefaultSheet() {
  StyleSheet sheet;
  sheet.add(defaultText);
  sheet.finish();
  return sheet;
}

}  // namespace

const StyleSheet& defaultSheet() {
  static const StyleSheet sheet = makeDefaultSheet();
  return sheet;
}

}  // namespace standin::formats::html::css
