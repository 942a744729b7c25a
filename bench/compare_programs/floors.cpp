// The floors under our paths: floors sax|tree|memcpy FILE [ROUNDS] has libxml2 parse, or the machine copy, the same bytes.
#include <libxml/HTMLparser.h>

#include <cstdlib>
#include <cstring>

#include "bench/compare_programs/measure.hpp"

namespace {

constexpr int options = HTML_PARSE_NOERROR | HTML_PARSE_NOWARNING | HTML_PARSE_RECOVER;

// Takes every piece of text, as a reader must.
void collect(void* text, const xmlChar* characters, int length) {
  static_cast<std::string*>(text)->append(reinterpret_cast<const char*>(characters), static_cast<size_t>(length));
}

std::string textBySAX(const std::string& source) {
  htmlSAXHandler handler{};
  handler.characters = collect;
  handler.ignorableWhitespace = collect;
  handler.cdataBlock = collect;
  std::string text;
  htmlParserCtxtPtr parser = htmlCreatePushParserCtxt(&handler, &text, nullptr, 0, nullptr, XML_CHAR_ENCODING_UTF8);
  htmlCtxtUseOptions(parser, options);
  htmlParseChunk(parser, source.data(), static_cast<int>(source.size()), 1);
  htmlFreeParserCtxt(parser);
  return text;
}

void parseTree(const std::string& source) {
  xmlFreeDoc(htmlReadMemory(source.data(), static_cast<int>(source.size()), nullptr, "utf-8", options));
}

}  // namespace

int main(int count, char** arguments) {
  if (count < 3) return std::fputs("floors sax|tree|memcpy FILE [ROUNDS]\n", stderr), 2;
  const std::string path = arguments[1];
  if (path == "text") return std::fputs(textBySAX(compare::contents(arguments[3])).c_str(), stdout), 0;
  const std::string source = compare::contents(arguments[2]);
  const int rounds = count > 3 ? std::atoi(arguments[3]) : 3;
  std::string target(source.size(), '\0');
  compare::report(1, rounds, [&] {
    if (path == "sax") textBySAX(source);
    if (path == "tree") parseTree(source);
    if (path == "memcpy") std::memcpy(target.data(), source.data(), source.size());
  });
}
