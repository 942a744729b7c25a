// Maps, relocates, binds and starts an image.
#include "tests/macos/loaded_image.hpp"

#include <sys/mman.h>

#include <cstring>

#include "tests/macos/load_commands.hpp"
#include "tests/macos/unwind_tables.hpp"

extern "C" void __register_frame(const void* callFrameInformation);

namespace macos {
namespace {

constexpr char unwindTables[] = "__unwind_info";
constexpr char code[] = "__text";

uint64_t spanOf(const std::vector<Segment>& segments) {
  uint64_t end = 0;
  for (const Segment& segment : segments) end = std::max(end, segment.address + segment.size);
  return end;
}

}  // namespace

LoadedImage::LoadedImage(const Image& image, const Binder& bind) : image_(image) {
  map();
  relocate();
  bindImports(bind);
  protect();
}

// A library is laid out from address 0.
void LoadedImage::map() {
  constexpr int readAndWrite = PROT_READ | PROT_WRITE;
  void* place = mmap(nullptr, spanOf(image_.segments()), readAndWrite, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (place == MAP_FAILED) throw ImageError("there is no room for the image");
  base_ = static_cast<uint8_t*>(place);
  for (const Segment& segment : image_.segments()) {
    const auto bytes = image_.bytes({static_cast<uint32_t>(segment.fileOffset), static_cast<uint32_t>(segment.fileSize)});
    if (bytes.size() > segment.size) throw ImageError(segment.name + ": is larger in the file than in memory");
    std::memcpy(at(segment.address), bytes.data(), bytes.size());
  }
}

void LoadedImage::relocate() const {
  forEachRebase(image_, [&](uint64_t address) { *at<uint64_t>(address) += reinterpret_cast<uint64_t>(base_); });
}

void LoadedImage::bindImports(const Binder& bind) const {
  forEachBinding(image_, [&](const Binding& binding) {
    void* target = bind(binding.symbol);
    if (target == nullptr && !binding.weakImport) throw ImageError(binding.symbol + ": nothing here stands for it");
    *at<void*>(binding.address) = target == nullptr ? nullptr : static_cast<uint8_t*>(target) + binding.addend;
  });
}

// The format's protections have the bits of this system's.
void LoadedImage::protect() const {
  static_assert(PROT_READ == 1 && PROT_WRITE == 2 && PROT_EXEC == 4);
  for (const Segment& segment : image_.segments()) {
    if (mprotect(at(segment.address), segment.size, static_cast<int>(segment.protection)) != 0) {
      throw ImageError(segment.name + ": cannot be protected");
    }
  }
}

void LoadedImage::initialize() const {
  const Section* text = image_.section(code);
  if (const Section* tables = image_.section(unwindTables); tables != nullptr && text != nullptr) {
    const auto& frames = *new std::vector<uint8_t>(
        callFrameInformation({at(tables->address), tables->size}, base_, text->address + text->size));
    __register_frame(frames.data());
  }
  for (const Section& section : image_.sections()) {
    if (section.type != initializerPointers) continue;
    for (uint64_t offset = 0; offset < section.size; offset += sizeof(void*)) {
      (*at<void (*)()>(section.address + offset))();
    }
  }
}

const Section* LoadedImage::sectionOf(const void* address) const {
  return image_.sectionAt(reinterpret_cast<uint64_t>(address) - reinterpret_cast<uint64_t>(base_));
}

}  // namespace macos
