// Markup taken apart at its tags, changed, and put together again.
#include <algorithm>
#include <vector>

#include "fuzz/mutators/mutators.hpp"

namespace fuzz {
namespace {

using Pieces = std::vector<std::string>;

constexpr const char* numbers[] = {"0",   "1",    "-1",         "2",           "255",        "256",
                                   "999", "1e99", "2147483647", "-2147483648", "4294967296", "99999999999999999999"};

Pieces piecesOf(std::string_view markup) {
  Pieces pieces;
  while (!markup.empty()) {
    const bool isTag = markup.front() == '<';
    const size_t end = isTag ? std::min(markup.find('>'), markup.size() - 1) + 1 : std::min(markup.find('<'), markup.size());
    pieces.emplace_back(markup.substr(0, end));
    markup.remove_prefix(end);
  }
  return pieces;
}

bool isStart(const std::string& piece) {
  return piece.size() > 2 && piece[0] == '<' && piece[1] != '/' && piece[1] != '!' && piece[1] != '?' &&
         piece[piece.size() - 2] != '/';
}
bool isEnd(const std::string& piece) { return piece.size() > 2 && piece[0] == '<' && piece[1] == '/'; }

// From the piece to the end of the element that it starts; the piece alone when it starts none.
size_t elementEnd(const Pieces& pieces, size_t start) {
  size_t depth = 0, at = start;
  do depth += isStart(pieces[at]) ? 1 : isEnd(pieces[at]) && depth > 0 ? size_t(-1) : 0;
  while (++at < pieces.size() && depth > 0);
  return at;
}

// The name in a tag: where it starts and how long it is.
std::pair<size_t, size_t> nameIn(const std::string& tag) {
  const size_t start = tag.find_first_not_of("</");
  if (start == std::string::npos) return {tag.size(), 0};
  return {start, std::min(tag.find_first_of(" \t\n/>", start), tag.size()) - start};
}

void changeNumber(std::string& piece, Choices& choices) {
  const size_t start = piece.find_first_of("0123456789", choices.below(piece.size()));
  if (start == std::string::npos) return;
  const size_t end = std::min(piece.find_first_not_of("0123456789", start), piece.size());
  piece.replace(start, end - start, choices.of(numbers));
}

void changeName(std::string& piece, const std::string& other) {
  const auto [start, length] = nameIn(piece);
  const auto [otherStart, otherLength] = nameIn(other);
  if (piece[0] == '<' && other[0] == '<') piece.replace(start, length, other, otherStart, otherLength);
}

void insert(Pieces& pieces, size_t at, const Pieces& added) {
  pieces.insert(pieces.begin() + static_cast<std::ptrdiff_t>(at), added.begin(), added.end());
}

// Into one of the same kind again and again.
void nest(Pieces& pieces, size_t at, size_t end, size_t times) {
  if (!isStart(pieces[at])) return;
  const auto [start, length] = nameIn(pieces[at]);
  const std::string endTag = "</" + pieces[at].substr(start, length) + ">";
  insert(pieces, end, Pieces(times, endTag));
  insert(pieces, at, Pieces(times, pieces[at]));
}

void change(Pieces& pieces, size_t room, Choices& choices) {
  const size_t at = choices.below(pieces.size()), end = elementEnd(pieces, at);
  const Pieces element(pieces.begin() + static_cast<std::ptrdiff_t>(at), pieces.begin() + static_cast<std::ptrdiff_t>(end));
  switch (choices.below(8)) {
    case 0:
      return void(
          pieces.erase(pieces.begin() + static_cast<std::ptrdiff_t>(at), pieces.begin() + static_cast<std::ptrdiff_t>(end)));
    case 1:
      return void(pieces.erase(pieces.begin() + static_cast<std::ptrdiff_t>(at)));
    case 2:
      return insert(pieces, choices.below(pieces.size() + 1), element);
    case 3:
      return std::swap(pieces[at], choices.of(pieces));
    case 4:
      return nest(pieces, at, end, 1 + choices.below(choices.oneIn(50) ? 3000 : 5));
    case 5:
      return changeNumber(pieces[at], choices);
    case 6:
      return changeName(pieces[at], choices.of(pieces));
    default:
      pieces[at] = mutatedBytes(pieces[at], std::min(room, pieces[at].size() + 64));
  }
}

}  // namespace

std::string mutatedMarkup(std::string_view markup, size_t room, Choices& choices) {
  Pieces pieces = piecesOf(markup);
  for (size_t changes = 1 + choices.below(3); changes > 0 && !pieces.empty(); --changes) change(pieces, room, choices);
  std::string result;
  for (const std::string& piece : pieces) {
    if (result.size() + piece.size() > room) break;
    result += piece;
  }
  return result;
}

std::string mutatedBytes(std::string_view bytes, size_t room) {
  std::string result(bytes);
  result.resize(std::max(room, bytes.size()));
  result.resize(LLVMFuzzerMutate(reinterpret_cast<uint8_t*>(result.data()), bytes.size(), result.size()));
  return result;
}

size_t put(std::string_view result, uint8_t* bytes, size_t size, size_t room) {
  if (result.size() > room) return LLVMFuzzerMutate(bytes, size, room);
  std::copy(result.begin(), result.end(), bytes);
  return result.size();
}

}  // namespace fuzz
