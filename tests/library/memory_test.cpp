// Bytes across the boundary, and the blocks that a host cannot make.
#include "bridge/memory.hpp"

#include <sys/mman.h>
#include <unistd.h>

#include <cstring>
#include <memory>
#include <new>

#include "host/runtime/memory_block.hpp"
#include "platform/owned.h"
#include "plugin/exceptions.hpp"
#include "tests/library/bridge_fixture.hpp"
#include "tests/library/offered_services.hpp"

namespace {

using namespace plugin;
using bridge::NewNSData;
using bridge::NSDataRB;

class Memory : public bridge_test::BridgeTest {};

using Block = HostOwned<REALmemoryBlockStruct>;
Block block(std::string_view bytes) {
  return adoptHost(reinterpret_cast<REALmemoryBlock>(host::makeMemoryBlock(bytes).detach()));
}
NSData* data(std::string_view bytes) { return NSData::dataWithBytes(classOf<NSData>(), bytes.data(), bytes.size()); }

TEST_F(Memory, IsCopiedBothWays) {
  const Block source = block(std::string_view("a\0b", 3));
  NSData* const copy = NewNSData(source);
  EXPECT_EQ(bridge_test::show(copy), std::string("<a\0b>", 5));
  std::memcpy(bridge::MyREALMemoryBlockGetPtr(source), "xyz", 3);
  EXPECT_EQ(bridge_test::show(copy), std::string("<a\0b>", 5));
  NSData* const original = data("abc");
  const Block made = adoptHost(NSDataRB(original));
  std::memcpy(bridge::MyREALMemoryBlockGetPtr(made), "xyz", 3);
  EXPECT_EQ(bridge_test::show(original), "<abc>");
  EXPECT_EQ(bridge_test::show(made), "MemoryBlock xyz");
}

TEST_F(Memory, OfNoSizeIsNil) {
  EXPECT_EQ(NewNSData(nullptr), nullptr);
  EXPECT_EQ(NewNSData(block("")), nullptr);
  EXPECT_EQ(NSDataRB(nullptr), nullptr);
  EXPECT_EQ(NSDataRB(data("")), nullptr);
  EXPECT_EQ(bridge::MyREALMemoryBlockGetPtr(nullptr), nullptr);
}

TEST_F(Memory, IsFoundByEitherRoute) {
  const struct {
    std::vector<const char*> missing;
    const char* expected;
  } cases[] = {
      {{"Operator_Convert() As Ptr"}, "<abc>"},
      {{"REALLoadObjectMethod"}, "<abc>"},
      {{"newMemoryBlock"}, "<abc>"},
      {{"memoryBlockGetPtr"}, "<abc>"},
      {{"REALLoadObjectMethod", "memoryBlockGetPtr"}, "nil"},
      {{"REALGetPropValueInteger"}, "<abc>"},
      {{"memoryBlockGetSize"}, "<abc>"},
      {{"REALGetPropValueInteger", "memoryBlockGetSize"}, "nil"},
  };
  for (const auto& [missing, expected] : cases) {
    for (const char* name : missing) switchOff(name);
    EXPECT_EQ(bridge_test::show(NewNSData(block("abc"))), expected) << missing[0];
    allOn();
  }
}

TEST_F(Memory, ThatCannotBeMadeRaises) {
  for (const auto& missing : {std::vector{"newMemoryBlock"}, std::vector{"REALLoadObjectMethod", "memoryBlockGetPtr"}}) {
    for (const char* name : missing) switchOff(name);
    EXPECT_EQ(NSDataRB(data("abc")), nullptr);
    EXPECT_EQ(bridge_test::raisedException(),
              "OutOfMemoryException: Failed to allocate a memoryblock with 3 bytes in size.");
    allOn();
  }
}

// Data of any length: without the memory for it, unless somebody gets so far as to read it.
NSUInteger claimedLength;
const void* claimedBytes;
const void* claimBytes(NSObject*, SEL) { return claimedBytes; }
NSUInteger claimLength(NSObject*, SEL) { return claimedLength; }
Owned<NSData> dataThatClaims(NSUInteger length, const void* bytes = &claimedLength) {
  static const Class cls = [] {
    const Class made = objc_allocateClassPair(objc_getClass("NSObject"), "ClaimsItsLength", 0);
    class_addMethod(made, NSData::bytes.selector(), reinterpret_cast<IMP>(&claimBytes), "^v@:");
    class_addMethod(made, NSData::length.selector(), reinterpret_cast<IMP>(&claimLength), "Q@:");
    objc_registerClassPair(made);
    return made;
  }();
  claimedLength = length;
  claimedBytes = bytes;
  return adopt(static_cast<NSData*>(NSObject::init(NSObject::alloc(cls))));
}

// What the host was requests for, in order.
std::string requests;
REALmemoryBlock refuseBlock(int32_t size) {
  requests += "block " + std::to_string(size) + ";";
  return nullptr;
}
REALobject caughtException;
REALobject callWithHandler(ExceptionHandlerWork* work, void* argument) {
  requests += "handler;";
  work(argument);
  return caughtException;
}
std::byte instance[64];
REALobject newInstance(const char* className) {
  if (std::string_view(className) != "MemoryBlock") return nullptr;
  requests += "new;";
  return reinterpret_cast<REALobject>(instance);
}
void drop(REALobject object) { requests += object == caughtException ? "drop exception;" : "drop block;"; }
void construct(REALobject, int64_t size) { requests += "construct " + std::to_string(size) + ";"; }
void* loadMethod(REALobject, const char* declaration) {
  if (std::string_view(declaration) != "Constructor(bytes as Integer)") return nullptr;
  requests += "load;";
  return reinterpret_cast<void*>(&construct);
}
int64_t sizeOfBlock(REALmemoryBlock) { return 2147483646; }

class LargeMemory : public frame_test::OfferedServices {
 protected:
  LargeMemory() {
    requests.clear();
    caughtException = nullptr;
    offer("newMemoryBlock", refuseBlock);
    offer("PluginCallFunctionWithExceptionHandler", callWithHandler);
    offer("PluginNewInstance", newInstance);
    offer("REALUnlockObject", drop);
  }
  static std::string requestsFor(NSUInteger length) {
    requests.clear();
    EXPECT_EQ(NSDataRB(dataThatClaims(length)), nullptr);
    return requests;
  }
};

TEST_F(LargeMemory, GoesThroughTheConstructorUnderTheHostsHandler) {
  offer("REALLoadObjectMethod", loadMethod);
  offer("memoryBlockGetSize", sizeOfBlock);
  EXPECT_EQ(requestsFor(2147483646), "block 2147483646;");
  EXPECT_EQ(requestsFor(2147483647), "handler;new;load;construct 2147483647;drop block;") << "too small a block is dropped";
  EXPECT_EQ(requestsFor(3000000000), "handler;new;construct 3000000000;drop block;") << "looked up once";
  caughtException = reinterpret_cast<REALobject>(&requests);
  EXPECT_EQ(requestsFor(3000000000), "handler;new;construct 3000000000;drop block;drop exception;");
}

TEST_F(LargeMemory, WithoutAConstructorIsNotSoughtAgain) {
  EXPECT_EQ(requestsFor(3000000000), "handler;new;drop block;");
  offer("REALLoadObjectMethod", loadMethod);
  EXPECT_EQ(requestsFor(3000000000), "handler;new;drop block;");
}

TEST_F(Memory, OfThreeGigabytesIsRefusedWithItsSize) {
  const std::string refusal = "OutOfMemoryException: Failed to allocate a memoryblock with 3000000000 bytes in size.";
  switchOff("Constructor(bytes as Integer)");
  EXPECT_EQ(NSDataRB(dataThatClaims(3000000000)), nullptr);
  EXPECT_EQ(bridge_test::raisedException(), refusal);
  allOn();
  host::setMemoryBlockLimit(1'000'000'000);
  EXPECT_EQ(NSDataRB(dataThatClaims(3000000000)), nullptr) << "the constructor raises";
  host::setMemoryBlockLimit(INT64_MAX);
  EXPECT_EQ(bridge_test::raisedException(), refusal) << "and what it raises is not what the program sees";
}

REALmemoryBlock throwFromNewBlock(int32_t) { throw std::bad_alloc(); }

TEST_F(Memory, ThatTheHostThrowsForIsRefusedWithItsSize) {
  intercept("newMemoryBlock", reinterpret_cast<void*>(&throwFromNewBlock));
  EXPECT_EQ(NSDataRB(data("abc")), nullptr);
  EXPECT_EQ(bridge_test::raisedException(), "OutOfMemoryException: Failed to allocate a memoryblock with 3 bytes in size.");
}

struct Unmap {
  std::size_t size;
  void operator()(void* address) const { munmap(address, size); }
};

// The smallest block that the 32-bit service cannot make: copied whole, and the direct route not taken.
TEST_F(Memory, OfTwoGigabytesIsCopied) {
  constexpr std::size_t size = 2147483647;
  constexpr std::size_t needed = size + size / 4;
  if (static_cast<std::size_t>(sysconf(_SC_AVPHYS_PAGES)) * static_cast<std::size_t>(sysconf(_SC_PAGESIZE)) < needed) {
    GTEST_SKIP() << "wants " << needed << " bytes of free memory";
  }
  void* const mapped = mmap(nullptr, size, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS | MAP_NORESERVE, -1, 0);
  ASSERT_NE(mapped, MAP_FAILED);
  const std::unique_ptr<void, Unmap> source(mapped, Unmap{size});
  auto* const bytes = static_cast<unsigned char*>(mapped);
  const std::size_t marked[] = {0, 1, size / 2, size - 2, size - 1};
  for (const std::size_t place : marked) bytes[place] = static_cast<unsigned char>(place % 251 + 1);
  const Block made = adoptHost(NSDataRB(dataThatClaims(size, bytes)));
  ASSERT_TRUE(made) << bridge_test::raisedException();
  EXPECT_EQ(runtime().faults().calls("PluginCallFunctionWithExceptionHandler"), 1);
  const auto copy = host::memoryOf(bridge_test::forHost(made));
  ASSERT_EQ(copy.size(), size);
  for (const std::size_t place : marked) EXPECT_EQ(static_cast<unsigned char>(copy[place]), bytes[place]) << place;
  EXPECT_EQ(copy[2], std::byte{0});
}

}  // namespace
