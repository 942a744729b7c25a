// Loads a macOS library into this process, as the platform's own loader does, and binds it to what stands for macOS here.
#pragma once

#include <functional>

#include "tests/macos/fixups.hpp"
#include "tests/macos/image.hpp"

namespace macos {

// Gives the address of an import by the name that the image has for it, or nil when there is none.
using Binder = std::function<void*(const std::string& symbol)>;

// Stays in the process for its whole life.
class LoadedImage {
 public:
  // Maps the segments, relocates them and binds the imports; runs nothing of the image yet. Throws ImageError when
  // something is missing that may not be.
  LoadedImage(const Image& image, const Binder& bind);

  // Makes the image's exceptions known and runs its initialisers.
  void initialize() const;

  // Where an address of the image has come to lie.
  uint8_t* at(uint64_t address) const { return base_ + address; }
  template <class Type>
  Type* at(uint64_t address) const {
    return reinterpret_cast<Type*>(at(address));
  }
  // Where a symbol of the image has come to lie. Throws ImageError when there is none.
  template <class Type>
  Type* symbol(std::string_view name) const {
    return at<Type>(image_.addressOf(name));
  }
  // The section that the address lies in; nil outside of the image.
  const Section* sectionOf(const void* address) const;

 private:
  void map();
  void relocate() const;
  void bindImports(const Binder& bind) const;
  void protect() const;

  Image image_;
  uint8_t* base_ = nullptr;
};

}  // namespace macos
