// What start tags, end tags and texts do to the elements that are open.
#include "standin/formats/html/tree_builder.hpp"

#include <algorithm>

#include "standin/formats/html/ascii.hpp"

namespace standin::formats::html {
namespace {

constexpr bool isTablePart(Tag tag) {
  return tag == Tag::caption || tag == Tag::colgroup || tag == Tag::col || tag == Tag::tbody || tag == Tag::thead ||
         tag == Tag::tfoot || tag == Tag::tr || tag == Tag::td || tag == Tag::th;
}

bool isCell(Tag tag) { return tag == Tag::td || tag == Tag::th; }
bool isRowGroup(Tag tag) { return tag == Tag::tbody || tag == Tag::thead || tag == Tag::tfoot; }

// What a part of a table stands in, if need be with groups and rows between that nobody wrote.
bool canHold(Tag outer, Tag part) {
  if (outer == Tag::table) return true;
  if (part == Tag::col) return outer == Tag::colgroup;
  return isCell(part) ? outer == Tag::tr || isRowGroup(outer) : part == Tag::tr && isRowGroup(outer);
}

// Formatting from outside these does not go on inside.
bool stopsFormatting(Tag tag) { return hasTrait(tag, isScope) && tag != Tag::html && tag != Tag::table && tag != Tag::svg; }

bool isBlank(std::string_view text) { return std::all_of(text.begin(), text.end(), isASCIISpace); }

size_t mostNodes(size_t bytes) { return bytes / 2 + 50'000; }

}  // namespace

Tree::Tree(std::string source) : source_(std::move(source)) { TreeBuilder(*this).build(); }

TreeBuilder::TreeBuilder(Tree& tree)
    : tree_(tree),
      tokenizer_(tree.source_),
      nodeLimit_(mostNodes(tree.source_.size())),
      isXML_(trimmed(tree.source_).starts_with("<?xml")) {
  tree_.nodes_.reserve(tree.source_.size() / 24 + 8);
  tree_.nodes_.resize(4);
  const auto name = [this](NodeIndex index, Tag tag, std::string_view text) {
    tree_.nodes_[index].tag = tag;
    tree_.nodes_[index].text = text;
  };
  name(tree_.html(), Tag::html, "html");
  name(tree_.head(), Tag::head, "head");
  name(tree_.body(), Tag::body, "body");
  append(tree_.html(), tree_.head());
  append(tree_.html(), tree_.body());
  open_ = {tree_.html(), tree_.body()};
}

void TreeBuilder::build() {
  for (Token token; tokenizer_.next(token);) {
    if (token.kind == Token::text) {
      takeText(token.characters);
    } else if (token.kind == Token::startTag) {
      takeStart(token);
    } else {
      takeEnd(token);
    }
  }
}

void TreeBuilder::append(NodeIndex parent, NodeIndex child) {
  Node& outer = tree_.nodes_[parent];
  Node& inner = tree_.nodes_[child];
  inner.parent = parent;
  inner.previous = outer.lastChild;
  inner.next = noNode;
  (outer.lastChild != noNode ? tree_.nodes_[outer.lastChild].next : outer.firstChild) = child;
  outer.lastChild = child;
}

void TreeBuilder::unlink(NodeIndex child) {
  const Node& inner = tree_.nodes_[child];
  if (inner.parent == noNode) return;
  Node& outer = tree_.nodes_[inner.parent];
  (inner.previous != noNode ? tree_.nodes_[inner.previous].next : outer.firstChild) = inner.next;
  (inner.next != noNode ? tree_.nodes_[inner.next].previous : outer.lastChild) = inner.previous;
}

NodeIndex TreeBuilder::newElement(const Token& token) {
  constexpr size_t mostAttributes = 1000;
  const auto index = static_cast<NodeIndex>(tree_.nodes_.size());
  Node& node = tree_.nodes_.emplace_back();
  node.tag = token.tag;
  node.text = token.name;
  node.firstAttribute = static_cast<uint32_t>(tree_.attributes_.size());
  node.attributeCount = static_cast<uint16_t>(std::min(token.attributes.size(), mostAttributes));
  const auto addThose = [&](bool known) {
    for (const Attribute& attribute : std::span(token.attributes).first(node.attributeCount)) {
      if ((attribute.known != AttributeName::unknown) != known) continue;
      tree_.attributes_.push_back(attribute);
      if (known) node.knownAttributes |= Tree::bitOf(attribute.known);
    }
  };
  addThose(true);
  addThose(false);
  return index;
}

NodeIndex TreeBuilder::cloneOf(NodeIndex element) {
  Node node = tree_.nodes_[element];
  node.parent = node.firstChild = node.lastChild = node.previous = node.next = noNode;
  tree_.nodes_.push_back(node);
  return static_cast<NodeIndex>(tree_.nodes_.size() - 1);
}

void TreeBuilder::open(NodeIndex element) {
  if (open_.size() >= maximumDepth) popThrough(open_.size() - 1);
  append(open_.back(), element);
  open_.push_back(element);
  if (stopsFormatting(current())) formatting_.push_back(noNode);
}

// A second <body> only adds to the first.
void TreeBuilder::mergeAttributes(NodeIndex element, const Token& token) {
  Node& node = tree_.nodes_[element];
  if (node.attributeCount > 0 || token.attributes.empty()) return;
  const Node read = tree_.nodes_[newElement(token)];
  tree_.nodes_.pop_back();
  tree_.nodes_[element].firstAttribute = read.firstAttribute;
  tree_.nodes_[element].attributeCount = read.attributeCount;
  tree_.nodes_[element].knownAttributes = read.knownAttributes;
}

void TreeBuilder::takeText(std::string_view characters) {
  if (dropsLineFeed_ && characters.starts_with('\n')) characters.remove_prefix(1);
  dropsLineFeed_ = false;
  const bool inRaw = hasTrait(current(), isRaw | isRawWithReferences);
  if (characters.empty() || (!inBody_ && !inRaw && isBlank(characters))) return;
  if (!inRaw) {
    inBody_ = true;
    resumeFormatting();
  }
  Node& node = tree_.nodes_.emplace_back();
  node.isText = true;
  node.text = characters;
  append(open_.back(), static_cast<NodeIndex>(tree_.nodes_.size() - 1));
}

void TreeBuilder::takeStart(const Token& token) {
  dropsLineFeed_ = false;
  if (token.tag == Tag::html) return mergeAttributes(tree_.html(), token);
  if (token.tag == Tag::head || (token.tag == Tag::noscript && !inBody_)) return;
  if (!inBody_ && hasTrait(token.tag, isHeadContent)) return takeHeadElement(token);
  inBody_ = true;
  if (token.tag == Tag::body) return mergeAttributes(tree_.body(), token);
  startInBody(token);
}

void TreeBuilder::takeHeadElement(const Token& token) {
  open_.push_back(tree_.head());
  takeContentOf(token);
  if (current() == Tag::head) open_.pop_back();
}

void TreeBuilder::startInBody(const Token& token) {
  endBefore(token.tag);
  if (hasTrait(token.tag, isFormatting)) return startFormatting(token);
  if (!hasTrait(token.tag, isSpecial | endsByItself)) resumeFormatting();
  takeContentOf(token);
}

// The element, which stays open when it has content.
void TreeBuilder::takeContentOf(const Token& token) {
  const NodeIndex element = newElement(token);
  const bool isEmpty = hasTrait(token.tag, isVoid) || (token.closesItself && (isXML_ || token.tag == Tag::unknown));
  if (isEmpty) return append(open_.back(), element);
  open(element);
  if (hasTrait(token.tag, isRaw | isRawWithReferences)) {
    tokenizer_.takeRaw(token.name, hasTrait(token.tag, isRawWithReferences));
  } else if (token.tag == Tag::plaintext) {
    tokenizer_.takeRest();
  }
  dropsLineFeed_ = token.tag == Tag::pre || token.tag == Tag::listing || token.tag == Tag::textarea;
}

// What ends by itself when the element starts.
void TreeBuilder::endBefore(Tag starting) {
  if (isTablePart(starting)) return enterTablePart(starting);
  if (starting == Tag::li || starting == Tag::dt || starting == Tag::dd) endListItem(starting);
  if (hasTrait(starting, endsParagraph)) endParagraph();
  const bool endsCurrent = (hasTrait(starting, isHeading) && hasTrait(current(), isHeading)) ||
                           ((starting == Tag::option || starting == Tag::optgroup) && current() == Tag::option) ||
                           ((starting == Tag::rt || starting == Tag::rp) && (current() == Tag::rt || current() == Tag::rp));
  if (endsCurrent) popThrough(open_.size() - 1);
  if (starting == Tag::button || starting == Tag::a || starting == Tag::nobr) {
    if (starting == Tag::button) {
      if (const size_t position = find(Tag::button, isScope)) popThrough(position);
    } else if (formattingPlace(starting) < formatting_.size()) {
      endFormatting(starting, {});
    }
  }
}

void TreeBuilder::endListItem(Tag starting) {
  for (size_t position = open_.size() - 1; position > 1; --position) {
    const Tag tag = tree_.nodes_[open_[position]].tag;
    const bool ends = starting == Tag::li ? tag == Tag::li : tag == Tag::dt || tag == Tag::dd;
    if (ends) return popThrough(position);
    if (hasTrait(tag, isSpecial) && tag != Tag::address && tag != Tag::div && tag != Tag::p) return;
  }
}

// Parts outside of any table stand where they are.
void TreeBuilder::enterTablePart(Tag starting) {
  for (size_t position = open_.size() - 1; position > 1; --position) {
    const Tag tag = tree_.nodes_[open_[position]].tag;
    if (canHold(tag, starting)) {
      if (position + 1 < open_.size()) popThrough(position + 1);
      if (current() == Tag::table && (starting == Tag::tr || isCell(starting))) openUnwritten(Tag::tbody, "tbody");
      if (isRowGroup(current()) && isCell(starting)) openUnwritten(Tag::tr, "tr");
      return;
    }
  }
  endParagraph();
  if (const size_t position = find(starting, 0)) popThrough(position);
}

void TreeBuilder::openUnwritten(Tag tag, std::string_view name) {
  open(newElement({Token::startTag, tag, name, {}, false, {}}));
}

size_t TreeBuilder::find(Tag tag, int boundaryTraits, Tag boundary) const {
  for (size_t position = open_.size() - 1; position > 1; --position) {
    const Tag open = tree_.nodes_[open_[position]].tag;
    if (open == tag) return position;
    if (open == boundary || hasTrait(open, boundaryTraits)) return 0;
  }
  return 0;
}

void TreeBuilder::endParagraph() {
  if (const size_t position = find(Tag::p, isScope, Tag::button)) popThrough(position);
}

void TreeBuilder::popThrough(size_t position) {
  while (open_.size() > position) {
    const bool hadStop = stopsFormatting(current());
    open_.pop_back();
    if (!hadStop) continue;
    while (!formatting_.empty() && formatting_.back() != noNode) formatting_.pop_back();
    if (!formatting_.empty()) formatting_.pop_back();
  }
}

void TreeBuilder::takeEnd(const Token& token) {
  dropsLineFeed_ = false;
  if (token.tag == Tag::html || token.tag == Tag::body || token.tag == Tag::head) return;
  if (token.tag == Tag::br) {
    resumeFormatting();
    return append(open_.back(), newElement(token));
  }
  if (hasTrait(current(), isHeadContent | isRaw | isRawWithReferences)) {
    if (current() == token.tag) popThrough(open_.size() - 1);
    if (current() == Tag::head) open_.pop_back();
    return;
  }
  if (hasTrait(token.tag, isFormatting)) return endFormatting(token.tag, token.name);
  if (hasTrait(token.tag, isSpecial)) return endBlock(token.tag, token.name);
  endInline(token.name);
}

void TreeBuilder::endBlock(Tag tag, std::string_view name) {
  if (name.empty()) return;
  size_t position = 0;
  if (isTablePart(tag) || tag == Tag::table) {
    position = find(tag, 0, Tag::table);
  } else if (hasTrait(tag, isHeading)) {
    for (size_t at = open_.size() - 1; at > 1 && position == 0; --at) {
      const Tag open = tree_.nodes_[open_[at]].tag;
      if (hasTrait(open, isHeading)) position = at;
      if (hasTrait(open, isScope)) break;
    }
  } else {
    position = find(tag, isScope, tag == Tag::p ? Tag::button : Tag::unknown);
  }
  if (position > 0) popThrough(position);
}

void TreeBuilder::endInline(std::string_view name) {
  for (size_t position = open_.size() - 1; position > 1; --position) {
    const Node& node = tree_.nodes_[open_[position]];
    if (node.text == name) return popThrough(position);
    if (hasTrait(node.tag, isSpecial)) return;
  }
}

}  // namespace standin::formats::html
