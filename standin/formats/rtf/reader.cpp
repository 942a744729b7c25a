// The reader: tokens act on the state of the innermost group, text goes to the group's destination.
#include "standin/formats/rtf/reader.hpp"

#include "standin/formats/colors.hpp"

#include <algorithm>
#include <array>

#include "standin/formats/calendar_times.hpp"
#include "standin/formats/link_target.hpp"
#include "standin/formats/rtf/builder.hpp"
#include "standin/formats/rtf/formatting.hpp"
#include "standin/formats/rtf/lexer.hpp"
#include "standin/formats/rtf/pictures.hpp"
#include "standin/text/text.hpp"

namespace standin::formats::rtf {
namespace {

// The text properties in the order of the control words' values.
constexpr std::array propertyMembers = {
    &Properties::title,    &Properties::subject,  &Properties::author,  &Properties::manager, &Properties::company,
    &Properties::category, &Properties::keywords, &Properties::comment, &Properties::editor,  &Properties::copyright};

constexpr size_t longestFontName = 255;

class Reader {
 public:
  explicit Reader(std::span<const uint8_t> bytes) : lexer_(bytes), builder_(bytes.size()) { groups_.emplace_back(); }

  std::optional<Document> read() {
    if (lexer_.next().kind != TokenKind::open) return std::nullopt;
    const Token first = lexer_.next();
    if (first.kind != TokenKind::word || first.text != "rtf") return std::nullopt;
    for (Token token = lexer_.next(); token.kind != TokenKind::end && !finished_; token = lexer_.next()) {
      if (!take(token)) return std::nullopt;
    }
    Properties& properties = builder_.information().properties;
    for (auto* time : {&properties.created, &properties.modified}) {
      if (*time && !isInCalendar(**time)) time->reset();
    }
    return builder_.finish(state().paragraph);
  }

 private:
  GroupState& state() { return groups_.back(); }

  // False when the document nests too deep.
  bool take(const Token& token) {
    switch (token.kind) {
      case TokenKind::open:
        return open();
      case TokenKind::close:
        close();
        break;
      case TokenKind::word:
        word(token);
        break;
      case TokenKind::symbol:
        symbol(token.byte);
        break;
      case TokenKind::text:
        text(token.text);
        break;
      case TokenKind::byte:
        text({reinterpret_cast<const char*>(&token.byte), 1});
        break;
      case TokenKind::end:
        break;
    }
    return true;
  }

  bool open() {
    if (groups_.size() >= maximumDepth) return false;
    builder_.flush();
    GroupState inner = state();
    if (state().skipsFirst) inner.destination = Destination::skip;
    state().skipsFirst = false;
    inner.skipsFirst = inner.starred = inner.isField = false;
    inner.atStart = true;
    state().atStart = false;
    groups_.push_back(inner);
    toSkip_ = 0;
    return true;
  }

  void close() {
    builder_.flush();
    endDestination();
    toSkip_ = 0;
    if (groups_.size() <= 1) {
      finished_ = true;
      return;
    }
    // The paragraph's formatting outlives the group that a document's last paragraph may be closed in.
    groups_.pop_back();
    if (ended_ != nullptr) addAttachment(std::exchange(ended_, nullptr));
  }

  // In the group around the one that told of it. The name of a file is followed by a character that stands for it.
  void addAttachment(std::shared_ptr<const text::Attachment> attachment) {
    if (!attachment->fileName.empty()) toSkip_ = 1;
    if (state().destination != Destination::body || state().characters.hidden) return;
    CharacterFormat format = state().characters;
    format.attachment = static_cast<int>(builder_.attachments.size());
    builder_.attachments.push_back(std::move(attachment));
    builder_.addUnit(text::attachmentCharacter, format);
  }

  void endDestination() {
    const Destination ending = state().destination;
    const bool continues = groups_.size() > 1 && groups_[groups_.size() - 2].destination == ending;
    if (continues) return;
    if (ending == Destination::fonts) endFont();
    if (ending == Destination::property && property_ >= 0) {
      builder_.information().properties.*propertyMembers[static_cast<size_t>(property_)] = std::move(captured_);
      property_ = -1;
    }
    if (ending == Destination::fieldInstruction) endFieldInstruction();
    if (ending == Destination::picture) ended_ = pictures_.picture();
    if (ending == Destination::graphic) ended_ = pictures_.file(captured_);
    if (ending == Destination::background) builder_.information().background = backgroundOf(captured_);
    captured_.clear();
  }

  // The fill of the shape behind the pages; what else is said of the shape does not matter.
  static std::optional<text::Color> backgroundOf(std::u16string_view shape) {
    constexpr std::u16string_view property = u"fillColor";
    const size_t start = shape.find(property);
    if (start == shape.npos) return std::nullopt;
    uint32_t number = 0;  // blue, green and red from above
    for (const char16_t digit : shape.substr(start + property.size())) {
      if (digit < u'0' || digit > u'9') break;
      number = number * 10 + (digit - u'0');
    }
    const auto component = [&](int shift) { return static_cast<uint8_t>(number >> shift); };
    return colorOf(component(0), component(8), component(16));
  }

  // The link holds for the rest of the field, of which the instruction is the first part.
  void endFieldInstruction() {
    const auto target = linkTarget(captured_);
    for (size_t depth = groups_.size(); target && depth-- > 0;) {
      if (!groups_[depth].isField) continue;
      groups_[depth].characters.link = builder_.linkTo(*target);
      return;
    }
  }

  void endFont() {
    FontEntry& font = builder_.fonts[fontNumber_];
    while (!captured_.empty() && (captured_.back() == u';' || captured_.back() == u' ')) captured_.pop_back();
    if (!captured_.empty()) font.name = asciiOf(captured_.substr(0, longestFontName));
    captured_.clear();
  }

  static std::string asciiOf(const std::u16string& units) {
    std::string ascii;
    for (const char16_t unit : units) ascii += unit < 0x80 ? static_cast<char>(unit) : '?';
    return ascii;
  }

  // The bytes after a \u that stand in for it are passed over.
  std::string_view unskipped(std::string_view bytes) {
    const size_t passed = std::min<size_t>(static_cast<size_t>(toSkip_), bytes.size());
    toSkip_ -= static_cast<int>(passed);
    return bytes.substr(passed);
  }

  void text(std::string_view all) {
    const std::string_view bytes = unskipped(all);
    state().atStart = false;
    if (bytes.empty()) return;
    switch (state().destination) {
      case Destination::body:
        if (!state().characters.hidden) builder_.addBytes(bytes, state().characters, codePage());
        break;
      case Destination::fonts:
        fontText(bytes);
        break;
      case Destination::colors:
        for (size_t count = static_cast<size_t>(std::count(bytes.begin(), bytes.end(), ';')); count > 0; --count) endColor();
        break;
      case Destination::property:
      case Destination::fieldInstruction:
      case Destination::graphic:
      case Destination::background:
        decoder_.append(captured_, bytes, documentCodePage_);
        break;
      case Destination::picture:
        pictures_.addHexadecimal(bytes);
        break;
      case Destination::skip:
        break;
    }
  }

  void fontText(std::string_view bytes) {
    decoder_.append(captured_, bytes, 1252);
    if (captured_.ends_with(u';')) endFont();
  }

  void endColor() {
    builder_.colors.push_back({text::ColorSpace::calibratedRGB, {rgb_[0] / 255.0, rgb_[1] / 255.0, rgb_[2] / 255.0, 0}, 1});
    rgb_ = {};
  }

  void unit(char16_t unit) {
    state().atStart = false;
    if (toSkip_ > 0) {
      --toSkip_;
    } else if (state().destination == Destination::body) {
      if (!state().characters.hidden) builder_.addUnit(unit, state().characters);
    } else if (state().destination != Destination::skip) {
      captured_ += unit;
    }
  }

  int codePage() const {
    const auto font = builder_.fonts.find(groups_.back().characters.font);
    return font != builder_.fonts.end() && font->second.codePage != 0 ? font->second.codePage : documentCodePage_;
  }

  void symbol(uint8_t symbol) {
    switch (symbol) {
      case '*':
        state().starred = true;
        return;
      case '~':
        return unit(0xA0);
      case '-':
        return unit(0xAD);
      case '_':
        return unit(0x2011);
      case '\\':
      case '{':
      case '}':
        return unit(symbol);
      case '\t':
        return unit(u'\t');
      case '\r':
      case '\n':
        return endParagraph();
      default:
        return;
    }
  }

  void endParagraph() {
    if (state().destination == Destination::body) {
      builder_.endParagraph(u'\n', state().characters, state().paragraph);
    }
  }

  void word(const Token& token) {
    const ControlWord* known = findControlWord(token.text);
    const bool opensGroup = state().atStart;
    state().atStart = false;
    if (known == nullptr) {
      const bool hides = opensGroup && state().starred && state().destination != Destination::background;
      if (hides) setDestination(Destination::skip);
      return;
    }
    if (state().destination == Destination::skip && !actsWhenSkipped(*known)) return;
    if (state().destination == Destination::background && known->action == Action::destination) return;
    act(*known, token.parameter);
  }

  // A skipped group may hold others that are read for themselves: the properties among the document information. Raw
  // bytes are passed over everywhere.
  static bool actsWhenSkipped(const ControlWord& word) {
    return word.action == Action::binary || (word.action >= Action::property && word.action <= Action::second) ||
           word.action == Action::unicodeSkip;
  }

  void setDestination(Destination destination) {
    builder_.flush();
    state().destination = destination;
    captured_.clear();
    if (destination == Destination::picture || destination == Destination::graphic) pictures_ = {};
  }

  void act(const ControlWord& word, std::optional<int> parameter) {
    if (word.action > Action::plain) {
      actOnParagraphOrDocument(word, parameter);
    } else if (word.action == Action::character) {
      unit(static_cast<char16_t>(word.value));
    } else if (word.action == Action::destination) {
      setDestination(static_cast<Destination>(word.value));
    } else {
      builder_.flush();
      actOnCharacters(word, parameter);
    }
  }

  void actOnCharacters(const ControlWord& word, std::optional<int> parameter) {
    CharacterFormat& format = state().characters;
    if (word.action == Action::plain) {
      format = {.font = defaultFont_, .link = format.link};
    } else if (word.action == Action::font) {
      setFont(parameter.value_or(0));
    } else {
      formatCharacters(format, word, parameter);
    }
  }

  // In the font table the word names the entry that follows; elsewhere it chooses one.
  void setFont(int number) {
    if (state().destination == Destination::fonts) {
      fontNumber_ = number;
      builder_.fonts[number];
    } else {
      state().characters.font = number;
    }
  }

  void actOnParagraphOrDocument(const ControlWord& word, std::optional<int> parameter) {
    if (word.action == Action::paragraphEnd || word.action == Action::tableCell) {
      endParagraph();
    } else if (word.action <= Action::tabKind) {
      formatParagraph(state(), word, parameter);
    } else if (word.action <= Action::blue) {
      actOnEncodingOrTable(word, parameter);
    } else {
      actOnDocument(word, parameter);
    }
  }

  void actOnEncodingOrTable(const ControlWord& word, std::optional<int> parameter) {
    const int number = parameter.value_or(0);
    switch (word.action) {
      case Action::unicode:
        toSkip_ = 0;
        unit(static_cast<char16_t>(number));
        toSkip_ = state().unicodeSkip;
        break;
      case Action::unicodeSkip:
        state().unicodeSkip = std::clamp(number, 0, 64);
        break;
      case Action::binary:
        addRaw(lexer_.take(static_cast<size_t>(std::max(number, 0))));
        break;
      case Action::codePage:
        documentCodePage_ = parameter.value_or(word.value);
        break;
      case Action::defaultFont:
        defaultFont_ = number;
        state().characters.font = number;
        break;
      case Action::fontCharset:
        builder_.fonts[fontNumber_].codePage = number == 0 ? 1252 : codePageOfCharset(number);
        break;
      case Action::fontCodePage:
        builder_.fonts[fontNumber_].codePage = number;
        break;
      default:
        rgb_[static_cast<size_t>(word.action) - static_cast<size_t>(Action::red)] = std::clamp(number, 0, 255);
        break;
    }
  }

  void addRaw(std::string_view bytes) {
    if (state().destination == Destination::picture) pictures_.addRaw(bytes);
  }

  void actOnDocument(const ControlWord& word, std::optional<int> parameter) {
    const int number = parameter.value_or(0);
    if (word.action <= Action::rtfVersion) {
      takeInformation(builder_.information(), word.action, number);
    } else {
      actOnGroups(word, number);
    }
  }

  void actOnGroups(const ControlWord& word, int number) {
    switch (word.action) {
      case Action::pictureWidth:
        pictures_.width = number / twipsInPoint;
        break;
      case Action::pictureHeight:
        pictures_.height = number / twipsInPoint;
        break;
      case Action::field:
        state().isField = true;
        break;
      case Action::uprGroup:
        state().skipsFirst = word.value != 0;
        break;
      case Action::property:
        setDestination(Destination::property);
        property_ = word.value;
        break;
      default:
        actOnTime(word.action, number);
        break;
    }
  }

  void actOnTime(Action action, int number) {
    if (action == Action::created) time_ = &builder_.information().properties.created.emplace();
    if (action == Action::modified) time_ = &builder_.information().properties.modified.emplace();
    if (time_ == nullptr || action < Action::year) return;
    constexpr std::array members = {&CalendarTime::year, &CalendarTime::month,  &CalendarTime::day,
                                    &CalendarTime::hour, &CalendarTime::minute, &CalendarTime::second};
    time_->*members[static_cast<size_t>(action) - static_cast<size_t>(Action::year)] = number;
  }

  Lexer lexer_;
  Builder builder_;
  Decoder decoder_;
  std::vector<GroupState> groups_;
  std::u16string captured_;  // the text of fonts, properties and field instructions
  Pictures pictures_;
  std::shared_ptr<const text::Attachment> ended_;  // the one that the group just closed told of
  std::array<int, 3> rgb_{};
  CalendarTime* time_ = nullptr;
  int documentCodePage_ = 1252;
  int defaultFont_ = 0;
  int fontNumber_ = 0;
  int property_ = -1;
  int toSkip_ = 0;
  bool finished_ = false;
};

}  // namespace

std::optional<Document> read(std::span<const uint8_t> bytes) { return Reader(bytes).read(); }

}  // namespace standin::formats::rtf
