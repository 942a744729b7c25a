// The table of control words.
#include "standin/formats/rtf/control_words.hpp"

#include <unordered_map>

#include "standin/formats/rtf/state.hpp"
#include "standin/text/style.hpp"

namespace standin::formats::rtf {
namespace {

constexpr int skipped = static_cast<int>(Destination::skip);

template <class Detail>
constexpr int number(Detail detail) {
  return static_cast<int>(detail);
}

// clang-format off
constexpr ControlWord words[] = {
    // Characters.
    {"tab", Action::character, u'\t'}, {"line", Action::character, 0x2028}, {"page", Action::character, u'\f'},
    {"emdash", Action::character, 0x2014}, {"endash", Action::character, 0x2013}, {"bullet", Action::character, 0x2022},
    {"lquote", Action::character, 0x2018}, {"rquote", Action::character, 0x2019}, {"ldblquote", Action::character, 0x201C},
    {"rdblquote", Action::character, 0x201D}, {"emspace", Action::character, 0x2003}, {"enspace", Action::character, 0x2002},
    {"qmspace", Action::character, 0x2005}, {"zwj", Action::character, 0x200D}, {"zwnj", Action::character, 0x200C},
    {"zwbo", Action::character, 0x200B}, {"zwnbo", Action::character, 0x2060}, {"ltrmark", Action::character, 0x200E},
    {"rtlmark", Action::character, 0x200F}, {"column", Action::character, u'\f'},
    // Character formatting.
    {"plain", Action::plain}, {"b", Action::bold}, {"i", Action::italic}, {"deleted", Action::hidden},
    {"f", Action::font}, {"fs", Action::fontSize}, {"cf", Action::foreground}, {"cb", Action::background},
    {"highlight", Action::background}, {"chcbpat", Action::background}, {"ulc", Action::underlineColor},
    {"strikec", Action::strikethroughColor}, {"strokec", Action::strokeColor}, {"strokewidth", Action::strokeWidth},
    {"expndtw", Action::kern}, {"charscalex", Action::expansion}, {"obliqueness", Action::obliqueness}, {"ligature", Action::ligature},
    {"shad", Action::shadow}, {"shadx", Action::shadowDetail, number(ShadowDetail::offsetX)}, {"shady", Action::shadowDetail, number(ShadowDetail::offsetY)},
    {"shadr", Action::shadowDetail, number(ShadowDetail::blurRadius)}, {"shado", Action::shadowDetail, number(ShadowDetail::opacity)},
    {"shadc", Action::shadowDetail, number(ShadowDetail::color)},
    {"ul", Action::underline, 1}, {"ulnone", Action::underline, 0}, {"ulw", Action::underline, 0x8001},
    {"uldb", Action::underline, 9}, {"ulth", Action::underline, 2}, {"uld", Action::underline, 0x101},
    {"uldash", Action::underline, 0x201}, {"uldashd", Action::underline, 0x301}, {"uldashdd", Action::underline, 0x401},
    {"ulthd", Action::underline, 0x102}, {"ulthdash", Action::underline, 0x202}, {"ulthdashd", Action::underline, 0x302},
    {"ulthdashdd", Action::underline, 0x402}, {"ulwave", Action::underline, 1},
    {"strike", Action::strikethrough, 1}, {"striked", Action::strikethrough, 9},
    {"super", Action::superscript, 1}, {"sub", Action::superscript, -1}, {"nosupersub", Action::superscript, 0},
    {"up", Action::raise, 1}, {"dn", Action::raise, -1},
    // Paragraphs.
    {"pard", Action::paragraphDefaults}, {"par", Action::paragraphEnd}, {"sect", Action::paragraphEnd},
    {"cell", Action::tableCell}, {"nestcell", Action::tableCell},
    {"ql", Action::alignment, 0}, {"qr", Action::alignment, 1}, {"qc", Action::alignment, 2}, {"qj", Action::alignment, 3}, {"qnatural", Action::alignment, 4},
    {"ltrpar", Action::direction, 0}, {"rtlpar", Action::direction, 1},
    {"fi", Action::paragraphNumber, number(ParagraphNumber::firstLineIndent)}, {"li", Action::paragraphNumber, number(ParagraphNumber::leftIndent)},
    {"ri", Action::rightIndent}, {"tailindent", Action::paragraphNumber, number(ParagraphNumber::tailIndent)},
    {"sb", Action::paragraphNumber, number(ParagraphNumber::spaceBefore)}, {"sa", Action::paragraphNumber, number(ParagraphNumber::spaceAfter)},
    {"sl", Action::lineHeight}, {"slmult", Action::lineHeightRule}, {"slminimum", Action::minimumHeight}, {"slmaximum", Action::maximumHeight},
    {"slleading", Action::paragraphNumber, number(ParagraphNumber::lineSpacing)}, {"pardeftab", Action::paragraphNumber, number(ParagraphNumber::tabInterval)},
    {"parhyphfactor", Action::paragraphNumber, number(ParagraphNumber::hyphenation)}, {"outlinelevel", Action::headerLevel}, {"notabs", Action::noTabs},
    {"tx", Action::tabPosition}, {"tqr", Action::tabKind, 1}, {"tqc", Action::tabKind, 2}, {"tqdec", Action::tabKind, 3},
    // Encodings and raw bytes.
    {"u", Action::unicode}, {"uc", Action::unicodeSkip}, {"bin", Action::binary}, {"ansicpg", Action::codePage},
    {"mac", Action::codePage, 10000}, {"pc", Action::codePage, 437}, {"pca", Action::codePage, 850}, {"ansi", Action::codePage, 1252},
    // Tables of the document.
    {"fonttbl", Action::destination, static_cast<int>(Destination::fonts)}, {"deff", Action::defaultFont},
    {"fcharset", Action::fontCharset}, {"cpg", Action::fontCodePage},
    {"colortbl", Action::destination, static_cast<int>(Destination::colors)}, {"red", Action::red}, {"green", Action::green},
    {"blue", Action::blue},
    // The document.
    {"paperw", Action::paperWidth}, {"paperh", Action::paperHeight}, {"margl", Action::leftMargin}, {"margr", Action::rightMargin},
    {"margt", Action::topMargin}, {"margb", Action::bottomMargin}, {"deftab", Action::defaultTab}, {"viewkind", Action::viewMode},
    {"viewscale", Action::viewZoom}, {"vieww", Action::viewWidth}, {"viewh", Action::viewHeight}, {"hyphfactor", Action::hyphenation},
    {"readonlydoc", Action::readOnly}, {"cocoartf", Action::rtfVersion},
    {"title", Action::property, 0}, {"subject", Action::property, 1}, {"author", Action::property, 2}, {"manager", Action::property, 3},
    {"company", Action::property, 4}, {"category", Action::property, 5}, {"keywords", Action::property, 6}, {"doccomm", Action::property, 7},
    {"operator", Action::property, 8}, {"copyright", Action::property, 9}, {"creatim", Action::created}, {"revtim", Action::modified},
    {"yr", Action::year}, {"mo", Action::month}, {"dy", Action::day}, {"hr", Action::hour}, {"min", Action::minute}, {"sec", Action::second},
    // Fields, and the group with a fallback in front.
    {"field", Action::field}, {"fldinst", Action::destination, static_cast<int>(Destination::fieldInstruction)}, {"upr", Action::uprGroup, 1},
    {"ud", Action::uprGroup, 0},
    // Pictures in the text, and files beside it.
    {"pict", Action::destination, static_cast<int>(Destination::picture)}, {"NeXTGraphic", Action::destination, static_cast<int>(Destination::graphic)},
    {"shppict", Action::destination, static_cast<int>(Destination::body)}, {"picwgoal", Action::pictureWidth},
    {"background", Action::destination, static_cast<int>(Destination::background)},
    {"pichgoal", Action::pictureHeight}, {"width", Action::pictureWidth}, {"height", Action::pictureHeight},
    // Groups whose text is not the document's.
    {"stylesheet", Action::destination, skipped}, {"listtable", Action::destination, skipped},
    {"list", Action::destination, skipped}, {"listlevel", Action::destination, skipped}, {"listname", Action::destination, skipped},
    {"listoverridetable", Action::destination, skipped}, {"info", Action::destination, skipped}, {"nonshppict", Action::destination, skipped},
    {"header", Action::destination, skipped}, {"headerl", Action::destination, skipped}, {"headerr", Action::destination, skipped},
    {"headerf", Action::destination, skipped}, {"footer", Action::destination, skipped}, {"footerl", Action::destination, skipped},
    {"footerr", Action::destination, skipped}, {"footerf", Action::destination, skipped}, {"footnote", Action::destination, skipped},
    {"annotation", Action::destination, skipped}, {"atnid", Action::destination, skipped}, {"atnauthor", Action::destination, skipped},
    {"xe", Action::destination, skipped}, {"tc", Action::destination, skipped}, {"tcn", Action::destination, skipped},
    {"rxe", Action::destination, skipped}, {"private", Action::destination, skipped}, {"nonesttables", Action::destination, skipped},
    {"objdata", Action::destination, skipped}, {"objclass", Action::destination, skipped}, {"shpinst", Action::destination, skipped},
    {"falt", Action::destination, skipped}, {"panose", Action::destination, skipped}, {"fname", Action::destination, skipped},
    {"ftnsep", Action::destination, skipped}, {"ftnsepc", Action::destination, skipped}, {"aftnsep", Action::destination, skipped},
    {"revtbl", Action::destination, skipped}, {"filetbl", Action::destination, skipped}, {"template", Action::destination, skipped},
    {"pnseclvl", Action::destination, skipped}, {"nextfile", Action::destination, skipped}, {"buptim", Action::destination, skipped},
    {"printim", Action::destination, skipped},
};
// clang-format on

}  // namespace

const ControlWord* findControlWord(std::string_view name) {
  static const auto* const byName = [] {
    auto* map = new std::unordered_map<std::string_view, const ControlWord*>;
    for (const ControlWord& word : words) map->emplace(word.name, &word);
    return map;
  }();
  const auto found = byName->find(name);
  return found != byName->end() ? found->second : nullptr;
}

}  // namespace standin::formats::rtf
