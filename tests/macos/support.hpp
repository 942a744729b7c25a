// What the tests of macOS's binary share.
#pragma once

#include <gtest/gtest.h>

#include <filesystem>

#include "tests/macos/bindings.hpp"
#include "tests/macos/image.hpp"
#include "tests/macos/loaded_image.hpp"

namespace macos {

inline constexpr char libraryPath[] = MACOS_FOLDER "/StyledTextZKT.dylib";
inline constexpr char probePath[] = MACOS_FOLDER "/Probe.dylib";

// Skipped where the binary has not been built.
class BinaryTest : public testing::Test {
 protected:
  void SetUp() override {
    if (!std::filesystem::exists(libraryPath)) GTEST_SKIP() << "./check --macos builds the binary";
  }
};

}  // namespace macos
