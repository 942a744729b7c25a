// Runs the two little programs of opcodes by which an image lists its rebases and its bindings.
#include "tests/macos/fixups.hpp"

#include "tests/macos/byte_reader.hpp"

namespace macos {
namespace {

constexpr uint64_t pointerSize = 8;
constexpr uint8_t opcodeMask = 0xF0;
constexpr uint8_t immediateMask = 0x0F;
constexpr uint8_t pointerType = 1;

// What both programs share: the place in the image, and how it moves.
class Machine {
 public:
  Machine(const Image& image, std::span<const uint8_t> opcodes) : image_(image), reader_(opcodes) {}

 protected:
  bool fetch() {
    if (reader_.atEnd()) return false;
    const uint8_t byte = reader_.number<uint8_t>();
    opcode_ = byte & opcodeMask;
    immediate_ = byte & immediateMask;
    return true;
  }
  void setSegmentAndOffset() {
    if (immediate_ >= image_.segments().size()) throw ImageError("a fixup names a segment that is not there");
    segment_ = &image_.segments()[immediate_];
    address_ = segment_->address + reader_.unsignedLeb();
  }
  void advance(uint64_t distance) { address_ += distance; }
  uint64_t leb() { return reader_.unsignedLeb(); }
  uint64_t place() const {
    const bool inside = segment_ != nullptr && address_ >= segment_->address && segment_->size >= pointerSize &&
                        address_ - segment_->address <= segment_->size - pointerSize;
    if (!inside) throw ImageError("a fixup lies outside of its segment");
    return address_;
  }
  void requirePointer() const {
    if (immediate_ != pointerType) throw ImageError("a fixup is not of the type pointer");
  }
  [[noreturn]] void refuse() const { throw ImageError("a fixup has an unknown opcode"); }

  const Image& image_;
  ByteReader reader_;
  uint8_t opcode_ = 0, immediate_ = 0;

 private:
  const Segment* segment_ = nullptr;
  uint64_t address_ = 0;
};

class RebaseMachine : Machine {
 public:
  using Machine::Machine;

  void run(const std::function<void(uint64_t)>& visit) {
    visit_ = &visit;
    while (fetch() && step()) {
    }
  }

 private:
  bool step() {
    switch (opcode_) {
      case 0x00:
        return false;
      case 0x10:
        requirePointer();
        break;
      case 0x20:
        setSegmentAndOffset();
        break;
      case 0x30:
        advance(leb());
        break;
      case 0x40:
        advance(immediate_ * pointerSize);
        break;
      case 0x50:
        repeat(immediate_, 0);
        break;
      case 0x60:
        repeat(leb(), 0);
        break;
      case 0x70:
        repeat(1, leb());
        break;
      case 0x80: {
        const uint64_t times = leb();
        repeat(times, leb());
        break;
      }
      default:
        refuse();
    }
    return true;
  }
  void repeat(uint64_t times, uint64_t skip) {
    for (; times != 0; --times) {
      (*visit_)(place());
      advance(pointerSize + skip);
    }
  }

  const std::function<void(uint64_t)>* visit_ = nullptr;
};

class BindMachine : Machine {
 public:
  using Machine::Machine;

  // In the list of lazy bindings each entry is a program of its own, and the zeros between are no end.
  void run(bool lazy, const std::function<void(const Binding&)>& visit) {
    visit_ = &visit;
    while (fetch() && (step() || lazy)) {
    }
  }

 private:
  bool step() {
    switch (opcode_) {
      case 0x00:
        return false;
      case 0x10:
      case 0x30:
        break;  // the library, which here is found by the symbol
      case 0x20:
        leb();
        break;
      case 0x40:
        binding_.weakImport = (immediate_ & 1) != 0;
        binding_.symbol = reader_.text();
        break;
      case 0x50:
        requirePointer();
        break;
      case 0x60:
        binding_.addend = reader_.signedLeb();
        break;
      case 0x70:
        setSegmentAndOffset();
        break;
      case 0x80:
        advance(leb());
        break;
      case 0x90:
        repeat(1, 0);
        break;
      case 0xA0:
        repeat(1, leb());
        break;
      case 0xB0:
        repeat(1, immediate_ * pointerSize);
        break;
      case 0xC0: {
        const uint64_t times = leb();
        repeat(times, leb());
        break;
      }
      default:
        refuse();
    }
    return true;
  }
  void repeat(uint64_t times, uint64_t skip) {
    for (; times != 0; --times) {
      binding_.address = place();
      (*visit_)(binding_);
      advance(pointerSize + skip);
    }
  }

  const std::function<void(const Binding&)>* visit_ = nullptr;
  Binding binding_ = {};
};

}  // namespace

void forEachRebase(const Image& image, const std::function<void(uint64_t)>& visit) {
  RebaseMachine(image, image.bytes(image.fixupOpcodes().rebase)).run(visit);
}

void forEachBinding(const Image& image, const std::function<void(const Binding&)>& visit) {
  const FixupOpcodes& opcodes = image.fixupOpcodes();
  BindMachine(image, image.bytes(opcodes.bind)).run(false, visit);
  BindMachine(image, image.bytes(opcodes.weakBind)).run(false, visit);
  BindMachine(image, image.bytes(opcodes.lazyBind)).run(true, visit);
}

}  // namespace macos
