// Shadows: their values, copies, equality, and setting them on what is drawn.
#include <gtest/gtest.h>

#include <functional>

#include "standin/appkit/color.hpp"
#include "standin/appkit/drawing_context.hpp"
#include "standin/appkit/shadow.hpp"
#include "standin/appkit/style.hpp"
#include "standin/foundation/collections.hpp"
#include "standin/foundation/string.hpp"

namespace {

using namespace standin;
using appkit::currentDrawingContext;
using appkit::shadowOf;
using foundation::describe;

const text::Color red{text::ColorSpace::calibratedRGB, {1, 0, 0, 0}, 0.5};
const text::Shadow sample{3, -4, 2.5, red};

Owned<NSShadow> made() { return adopt(static_cast<NSShadow*>(NSObject::init(alloc<NSShadow>()))); }

TEST(Shadow, BeginsAsAFaintBlackAndKeepsWhatIsSet) {
  const AutoreleasePool pool;
  const Owned<NSShadow> shadow = made();
  EXPECT_EQ(shadowOf(shadow),
            (text::Shadow{0, 0, 0, text::Color{text::ColorSpace::calibratedWhite, {0, 0, 0, 0}, 1 / 3.0}}));
  const Owned<NSColor> color = appkit::newColor(red);
  NSShadow::setShadowColor(shadow, color);
  NSShadow::setShadowOffset(shadow, {3, -4});
  NSShadow::setShadowBlurRadius(shadow, 2.5);
  EXPECT_EQ(NSShadow::shadowColor(shadow), color.get());  // the object itself
  EXPECT_EQ(NSShadow::shadowOffset(shadow).height, -4);
  EXPECT_EQ(NSShadow::shadowBlurRadius(shadow), 2.5);
  EXPECT_EQ(shadowOf(shadow), sample);
  EXPECT_EQ(describe(shadow), "NSShadow {3, -4} blur = 2.5 color = {NSCalibratedRGBColorSpace 1 0 0 0.5}");
  NSShadow::setShadowColor(shadow, nullptr);
  EXPECT_EQ(NSShadow::shadowColor(shadow), nullptr);
  EXPECT_EQ(describe(shadow), "NSShadow {3, -4} blur = 2.5 color = {(null)}");
}

TEST(Shadow, CopiesAreEqualAndApart) {
  const AutoreleasePool pool;
  const Owned<NSShadow> shadow = appkit::newShadow(sample);
  const Owned<NSObject> copy = adopt(NSObject::copy(shadow));
  EXPECT_NE(copy, static_cast<NSObject*>(shadow.get()));
  EXPECT_TRUE(NSObject::isEqual(shadow, copy));
  EXPECT_EQ(NSObject::hash(shadow), NSObject::hash(copy));
  EXPECT_FALSE(NSObject::isEqual(shadow, made()));
  EXPECT_NE(NSObject::hash(shadow), NSObject::hash(appkit::newShadow({3, -4, 2.5, text::Color{}})));
  EXPECT_FALSE(NSObject::isEqual(shadow, nullptr));
  EXPECT_FALSE(NSObject::isEqual(shadow, foundation::constantString("shadow")));
  const std::function<void(NSShadow*)> changes[] = {
      [](NSShadow* each) { NSShadow::setShadowBlurRadius(each, 9); },
      [](NSShadow* each) {
        NSShadow::setShadowOffset(each, {3, 4});
      },
      [](NSShadow* each) { NSShadow::setShadowColor(each, nullptr); },
  };
  for (const auto& change : changes) {
    const Owned<NSObject> changed = adopt(NSObject::copy(shadow));
    change(static_cast<NSShadow*>(changed.get()));
    EXPECT_FALSE(NSObject::isEqual(shadow, changed));
    EXPECT_EQ(shadowOf(shadow), sample);
  }
}

TEST(Shadow, SettingItIsForWhatIsDrawnFromThenOn) {
  const AutoreleasePool pool;
  const Owned<NSShadow> shadow = appkit::newShadow(sample);
  NSShadow::set(shadow);
  NSShadow::setShadowBlurRadius(shadow, 9);
  EXPECT_EQ(currentDrawingContext().shadow, sample);
  NSShadow::setShadowColor(shadow, nullptr);  // which is how a shadow is taken away
  NSShadow::set(shadow);
  EXPECT_EQ(currentDrawingContext().shadow, std::nullopt);
}

TEST(Shadow, IsAnAttributeOfStyles) {
  const AutoreleasePool pool;
  text::Style style;
  style.shadow = sample;
  EXPECT_EQ(appkit::styleOf(appkit::attributesOf(style)), style);
  EXPECT_EQ(appkit::styleOf(appkit::attributesOf({})).shadow, std::nullopt);
}

}  // namespace
