// Lists the runs of a document: range, text, attributes; and its document attributes.
#include "host/tool/inspect_command.hpp"

#include <iostream>

#include "host/tool/description.hpp"
#include "host/tool/documents.hpp"
#include "host/tool/input.hpp"
#include "host/tool/members.hpp"
#include "host/tool/messages.hpp"
#include "host/tool/plugins.hpp"
#include "host/tool/terminal.hpp"

namespace tool {
namespace {

struct Run {
  uint64_t location, length;
  std::string text;
  Description attributes;
};

Run runAt(const Value& text, uint64_t location) {
  std::vector<Value> arguments{Value::unsignedInteger(location), {}};
  const Value attributes =
      call(text, "attributesAtIndex2(location as UInt64, byref range as NSRangeZKT) as dictionary", arguments);
  const Value& range = arguments[1];
  const Value part = call(text, "attributedSubstringFromRange(range as NSRangeZKT) as NSAttributedStringZKT", {range});
  return {get(range, "location").asUnsigned(), get(range, "length").asUnsigned(), utf8(get(part, "Text")),
          describeValue(attributes)};
}

template <class Visit>
void forEachRun(const Value& text, Visit&& visit) {
  const auto length = static_cast<uint64_t>(get(text, "Length").asInteger());
  for (uint64_t location = 0; location < length;) {
    const Run run = runAt(text, location);
    visit(run);
    location = run.location + run.length;
  }
}

void printJson(const StyledDocument& document) {
  std::cout << "{\"length\": " << get(document.text, "Length").asInteger()
            << ",\n \"documentAttributes\": " << asJson(describeValue(document.attributes)) << ",\n \"runs\": [";
  const char* separator = "\n  ";
  forEachRun(document.text, [&](const Run& run) {
    std::cout << separator << "{\"location\": " << run.location << ", \"length\": " << run.length
              << ", \"text\": " << quotedJson(run.text) << ", \"attributes\": " << asJson(run.attributes) << "}";
    separator = ",\n  ";
  });
  std::cout << "\n ]}\n";
}

void printFields(const Description& description) {
  if (const auto* fields = std::get_if<Fields>(&description.value)) {
    for (const auto& [name, value] : *fields)
      std::cout << "  " << styled(Stream::Output, Look::Detail, name + ":") << " " << asText(value) << '\n';
  }
}

// Texts stand quoted as JSON quotes them, so that each stays on its line.
void printPlain(const StyledDocument& document) {
  std::cout << "Length " << get(document.text, "Length").asInteger() << '\n';
  printFields(describeValue(document.attributes));
  forEachRun(document.text, [](const Run& run) {
    const std::string place = std::to_string(run.location) + "+" + std::to_string(run.length);
    std::cout << styled(Stream::Output, Look::Heading, place) << " " << quotedJson(run.text) << '\n';
    printFields(run.attributes);
  });
}

}  // namespace

int inspectDocument(const InspectOptions& options) {
  if (!loadPlugins()) return Failed;
  try {
    const Input input(options.path);
    const StyledDocument document = openDocument(input.path(), options.from);
    options.json ? printJson(document) : printPlain(document);
    return finishOutput();
  } catch (const DocumentError& error) {
    report(shownName(options.path), error.message);
  } catch (const host::HostException& exception) {
    report(shownName(options.path), exception.message());
  }
  return Failed;
}

}  // namespace tool
