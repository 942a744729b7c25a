// Attributed strings by message, as programs use them: asking, editing and restyling at random places of documents of a
// thousand, a hundred thousand and a million runs, and the memory that those take.
#include <benchmark/benchmark.h>
#include <malloc.h>

#include <array>
#include <map>
#include <random>
#include <stdexcept>
#include <string>
#include <vector>

#include "platform/appkit.h"
#include "platform/owned.h"
#include "standin/appkit/attributed_string.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/number.hpp"
#include "standin/foundation/string.hpp"

namespace {

constexpr NSUInteger unitsPerRun = 10;
constexpr size_t styles = 16;

NSString* key(const char* name) { return standin::foundation::newString(name).autorelease(); }

// Sixteen dictionaries of a level, which tells neighbouring runs apart, and a group, which four runs in a row share.
class Styles {
 public:
  Styles() {
    const AutoreleasePool pool;
    for (size_t index = 0; index < styles; ++index) {
      sets_[index] = standin::foundation::newMutableDictionary();
      set(index, "level", index);
      set(index, "group", index / 4);
    }
  }
  NSDictionary* operator[](size_t index) const { return sets_[index % styles]; }

 private:
  void set(size_t index, const char* name, size_t value) {
    standin::foundation::set(sets_[index], key(name), standin::foundation::newNumber(static_cast<int>(value)));
  }
  std::array<Owned<NSMutableDictionary>, styles> sets_;
};

const Styles& style() {
  static const auto* const made = new Styles;
  return *made;
}

// A document with a change of style every ten units, made by messages alone.
Owned<NSMutableAttributedString> document(int64_t runs) {
  Owned<NSMutableAttributedString> made = standin::appkit::newMutableAttributedString({});
  const Owned<NSString> ten = standin::foundation::newString("0123456789");
  for (int64_t run = 0; run < runs; ++run) {
    const Owned<NSAttributedString> piece = adopt(
        NSAttributedString::initWithStringAttributes(alloc<NSAttributedString>(), ten, style()[static_cast<size_t>(run)]));
    NSMutableAttributedString::appendAttributedString(made, piece);
  }
  return made;
}

// A copy of the document of so many runs, which is made once.
Owned<NSMutableAttributedString> documentCopy(int64_t runs) {
  static auto* const made = new std::map<int64_t, Owned<NSMutableAttributedString>>;
  Owned<NSMutableAttributedString>& original = (*made)[runs];
  if (!original) original = document(runs);
  return adopt(static_cast<NSMutableAttributedString*>(NSObject::mutableCopy(original)));
}

// Places in the document, drawn beforehand so that drawing them is not timed.
class Places {
 public:
  explicit Places(NSAttributedString* string) {
    std::mt19937 random(7);
    const NSUInteger limit = NSAttributedString::length(string) - 100;
    for (NSUInteger& place : places_) place = random() % limit;
  }
  NSUInteger next() { return places_[index_++ % places_.size()]; }

 private:
  std::vector<NSUInteger> places_ = std::vector<NSUInteger>(1 << 16);
  size_t index_ = 0;
};

template <class Body>
void atPlaces(benchmark::State& state, Body&& body) {
  const AutoreleasePool outer;
  const Owned<NSMutableAttributedString> string = documentCopy(state.range(0));
  Places places(string);
  for (auto _ : state) {
    const AutoreleasePool pool;
    body(string.get(), places.next());
  }
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations()));
}

void requireLength(const NSRange& range, NSUInteger length) {
  if (range.length != length) throw std::logic_error("the range is not the one that the document was made with");
}

void attributesWithRange(benchmark::State& state) {
  atPlaces(state, [](NSAttributedString* string, NSUInteger place) {
    NSRange range;
    benchmark::DoNotOptimize(NSAttributedString::attributesAtIndex(string, place, &range));
    requireLength(range, unitsPerRun);
  });
}

// Over the four runs that share the group.
void longestRangeOfAttribute(benchmark::State& state) {
  atPlaces(state, [name = key("group")](NSAttributedString* string, NSUInteger place) {
    NSRange range;
    const NSRange all = {0, NSAttributedString::length(string)};
    benchmark::DoNotOptimize(NSAttributedString::attributeAtIndexLongest(string, name, place, &range, all));
    requireLength(range, 4 * unitsPerRun);
  });
}

// Over the whole document: no run has the attribute.
void longestRangeOfAbsentAttribute(benchmark::State& state) {
  atPlaces(state, [name = key("absent")](NSAttributedString* string, NSUInteger place) {
    NSRange range;
    const NSRange all = {0, NSAttributedString::length(string)};
    benchmark::DoNotOptimize(NSAttributedString::attributeAtIndexLongest(string, name, place, &range, all));
    requireLength(range, all.length);
  });
}

// One of each, so that the document keeps its size.
void insertAndDelete(benchmark::State& state) {
  const Owned<NSString> unit = standin::foundation::newString("z");
  const Owned<NSString> nothing = standin::foundation::newString("");
  size_t edits = 0;
  atPlaces(state, [&](NSMutableAttributedString* string, NSUInteger place) {
    const bool inserts = ++edits % 2 != 0;
    NSMutableAttributedString::replaceWithString(string, {place, inserts ? 0U : 1U}, inserts ? unit : nothing);
  });
}

void restyle(benchmark::State& state) {
  size_t edits = 0;
  atPlaces(state, [&](NSMutableAttributedString* string, NSUInteger place) {
    ++edits;
    NSMutableAttributedString::setAttributes(string, style()[edits], {place, 1 + edits % 100});
  });
}

void addAttribute(benchmark::State& state) {
  size_t edits = 0;
  std::array<Owned<NSNumber>, styles> values;
  for (size_t index = 0; index < styles; ++index) values[index] = standin::foundation::newNumber(static_cast<int>(index));
  atPlaces(state, [&, name = key("level")](NSMutableAttributedString* string, NSUInteger place) {
    ++edits;
    NSMutableAttributedString::addAttribute(string, name, values[edits % styles], {place, 1 + edits % 100});
  });
}

size_t bytesInUse() {
  const auto info = mallinfo2();
  return info.uordblks + info.hblkhd;
}

// Making the document; what the heap holds for it, whole and for a run and a unit of it.
void makeDocument(benchmark::State& state) {
  const AutoreleasePool outer;
  document(styles);  // so that what is made once is not counted
  double bytes = 0;
  for (auto _ : state) {
    const AutoreleasePool pool;
    const size_t before = bytesInUse();
    const Owned<NSMutableAttributedString> made = document(state.range(0));
    bytes = static_cast<double>(bytesInUse() - before);
  }
  state.SetItemsProcessed(static_cast<int64_t>(state.iterations()) * state.range(0));
  state.counters["bytes_a_run"] = bytes / static_cast<double>(state.range(0));
  state.counters["bytes_a_unit"] = bytes / static_cast<double>(state.range(0)) / static_cast<double>(unitsPerRun);
}

#define AT_ALL_SIZES(function) BENCHMARK(function)->ArgName("runs")->Arg(1000)->Arg(100'000)->Arg(1'000'000)
AT_ALL_SIZES(attributesWithRange);
AT_ALL_SIZES(longestRangeOfAttribute);
AT_ALL_SIZES(longestRangeOfAbsentAttribute);
AT_ALL_SIZES(insertAndDelete);
AT_ALL_SIZES(restyle);
AT_ALL_SIZES(addAttribute);
AT_ALL_SIZES(makeDocument)->Unit(benchmark::kMillisecond);

}  // namespace
